#include <gtest/gtest.h>

#include "reports/random_reports.h"
#include "reports/schema_check.h"

namespace orvex::reports {
namespace {

std::vector<std::filesystem::path> OfKind(std::string_view kind, const std::vector<std::filesystem::path>& reports) {
  std::vector<std::filesystem::path> chosen;
  for (const auto& report : reports)
    if (report.filename().string().starts_with(kind)) chosen.push_back(report);
  return chosen;
}

TEST(ReportSchema, TakesTheReportsOnAnyInventory) {
  const test::TemporaryFolder folder;
  const auto reports = test::WriteRandomReports(folder.Path(), 200);
  ASSERT_EQ(reports.size(), 6U * 200U);
  EXPECT_EQ(test::GrammarFaults("briefdata.rng", OfKind("Brief-", reports)), "");
  EXPECT_EQ(test::GrammarFaults("summarydata.rng", OfKind("Summary-", reports)), "");
  EXPECT_EQ(test::GrammarFaults("summarydata.rng", OfKind("Detail-", reports)), "");
  for (const auto& report : reports) EXPECT_EQ(test::RuleFaults(report), std::vector<std::string>());
}

}  // namespace
}  // namespace orvex::reports
