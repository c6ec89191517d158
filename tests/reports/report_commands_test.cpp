#include "reports/report_commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_databases.h"

namespace orvex::reports {
namespace {

struct Expected {
  const char *control, *type, *time, *window;
};
constexpr Expected kExpected[] = {
    {"mnuAnnBrief", "Brief", "Annual", "Frmtankrep"},    {"mnuAnnSummary", "Summary", "Annual", "Frmtankrep"},
    {"mnuAnnDetail", "Detail", "Annual", "Frmtankrep"},  {"mnuMonBrief", "Brief", "Monthly", "Frmmonth"},
    {"mnuMonSummary", "Summary", "Monthly", "Frmmonth"}, {"mnuDetail", "Detail", "Monthly", "Frmmonth"},
};

TEST(ReportCommands, SetKindAndTimeAndThenOpenTheirWindow) {
  ASSERT_EQ(std::size(kReportCommands), std::size(kExpected));
  for (std::size_t i = 0; i < std::size(kExpected); ++i) {
    const Expected& expected = kExpected[i];
    EXPECT_EQ(kReportCommands[i].control, expected.control);
    test::TestSession test;
    test.host.WhenShown(expected.window, [&] {
      EXPECT_EQ(test.session.ReportType, expected.type);
      EXPECT_EQ(test.session.ReportTime, expected.time);
    });
    kReportCommands[i].run(test.session);
    EXPECT_EQ(test.host.windows, std::vector<std::string>{expected.window}) << expected.control;
  }
}

TEST(ReportCommands, NeedTheDatabases) {
  for (const auto& command : kReportCommands) EXPECT_EQ(command.needs, shell::Needs::kBothDatabases) << command.control;
}

TEST(ReportCommands, AFailureIsReportedUnderTheMainWindow) {
  test::TestSession test;
  test.host.WhenShown("Frmtankrep",
                      [] { throw store::RunTimeError(store::ErrorNumber::kDiskFailure, "The disk is gone."); });
  test.host.ExpectError(3043, "MDIForm1.");
  AnnualBrief(test.session);
}

}  // namespace
}  // namespace orvex::reports
