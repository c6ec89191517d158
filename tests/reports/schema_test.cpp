#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "reports/random_reports.h"
#include "reports/schema_check.h"
#include "support/file_content.h"

namespace orvex::reports {
namespace {

std::vector<std::filesystem::path> OfKind(std::string_view kind, const std::vector<std::filesystem::path>& reports) {
  std::vector<std::filesystem::path> chosen;
  for (const auto& report : reports)
    if (report.filename().string().starts_with(kind)) chosen.push_back(report);
  return chosen;
}

/// What the reports together must show at least once, so that the checks have seen it.
constexpr std::string_view kWorthSeeing[] = {
    "<TankType>Vertical Fixed Roof Tank<",
    "<TankType>Horizontal Tank<",
    "<TankType>Internal Floating Roof Tank<",
    "<TankType>External Floating Roof Tank<",
    "<TankType>Domed External Floating Roof Tank<",
    "Roof Outage (Cone Roof)",
    "Roof Outage (Dome Roof)",
    "Roof Outage (Flat Roof)",
    "No Standing Losses:  Underground Tank",
    "<ColDiam>0.00<",
    "<Type>Bolted<",
    "<Type>Welded<",
    "CoverType=\"\"",
    "<City/>",
    "<Location/>",
    "location=\", \"",
    "<LiquidHeight>",
    "<Dimensions Type=\"Vertical Fixed Roof Tank\"><Diameter>",  // a field that is null
    "</PhysicalChar>\r\n<EmissionTotals/>",                      // nothing stored in the chosen months
    "<MixtureComponent>\u00A0\u00A0",
    "<Basis/>",
    "<Basis>Option 1: ",
    "<Basis>Option 2: ",
    "<Basis>Option 3: ",
    "<Basis>Option 4: ",
    "<TimePeriod>January",
    "<ReportUnit>Annual<",
    "<ReportUnit>Monthly<",
    " month_12=",
    "10.731||",
    "&lt;City&gt; &amp; &quot;Port&quot;",
};

void ExpectSeen(const std::vector<std::filesystem::path>& reports) {
  std::set<std::string_view> missing(std::begin(kWorthSeeing), std::end(kWorthSeeing));
  for (const auto& report : reports) {
    const auto text = test::FileContent(report);
    std::erase_if(missing, [&](std::string_view part) { return text.find(part) != std::string::npos; });
  }
  for (const auto part : missing) ADD_FAILURE() << "no report shows " << part;
}

TEST(ReportSchema, TakesTheReportsOnAnyInventory) {
  const test::TemporaryFolder folder;
  const auto reports = test::WriteRandomReports(folder.Path(), 200);
  ASSERT_EQ(reports.size(), 6U * 200U);
  ExpectSeen(reports);
  EXPECT_EQ(test::GrammarFaults("briefdata.rng", OfKind("Brief-", reports)), "");
  EXPECT_EQ(test::GrammarFaults("summarydata.rng", OfKind("Summary-", reports)), "");
  EXPECT_EQ(test::GrammarFaults("summarydata.rng", OfKind("Detail-", reports)), "");
  for (const auto& report : reports) EXPECT_EQ(test::RuleFaults(report), std::vector<std::string>());
}

}  // namespace
}  // namespace orvex::reports
