#include <gtest/gtest.h>

#include "reports/random_reports.h"
#include "reports/schema_check.h"

namespace orvex::reports {
namespace {

TEST(ReportSchema, TakesBriefReportsOnAnyInventory) {
  const test::TemporaryFolder folder;
  const auto reports = test::WriteRandomReports(folder.Path(), "Brief", 200);
  EXPECT_EQ(reports.size(), 400U);
  EXPECT_EQ(test::GrammarFaults("briefdata.rng", reports), "");
  for (const auto& report : reports) EXPECT_EQ(test::RuleFaults(report), std::vector<std::string>());
}

}  // namespace
}  // namespace orvex::reports
