#include "reports/reference_commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/menu.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

struct Expected {
  const char *control, *print_mode;
};
constexpr Expected kExpected[] = {
    {"mnuExportChem", "Chemical"}, {"mnuExportMet", "Met"},   {"mnuExportFit", "Fit"},
    {"mnuExportRim", "Rim"},       {"mnuExportDeck", "Deck"}, {"mnuExportSpec", "Profile"},
};

TEST(ReferenceCommands, TellTheTableAndOpenTheChoiceOfItsRows) {
  ASSERT_EQ(std::size(kReferenceReportCommands), std::size(kExpected));
  for (std::size_t i = 0; i < std::size(kExpected); ++i) {
    const auto& [control, print_mode] = kExpected[i];
    EXPECT_EQ(kReferenceReportCommands[i].control, control);
    test::TestSession test;
    test.host.WhenShown("frmrepselect", [&test, mode = print_mode] { EXPECT_EQ(test.session.PrintMode, mode); });
    kReferenceReportCommands[i].run(test.session);
    EXPECT_EQ(test.host.windows, std::vector<std::string>{"frmrepselect"}) << control;
  }
}

TEST(ReferenceCommands, BelongToTheMenusOfTheTables) {
  std::vector<std::string_view> entries;
  for (const auto& menu : shell::kDataMenu)
    for (const auto& entry : menu.entries)
      if (entry.text == "Export/&Print") entries.push_back(entry.control);
  std::vector<std::string_view> commands;
  for (const auto& command : kReferenceReportCommands) commands.push_back(command.control);
  EXPECT_EQ(commands, entries);
}

TEST(ReferenceCommands, NeedTheReferenceDatabaseOnly) {
  for (const auto& command : kReferenceReportCommands) {
    test::TestSession test;
    test.session.ClientDb = nullptr;
    shell::RunCommand(test.session, command);
    EXPECT_EQ(test.host.windows, std::vector<std::string>{"frmrepselect"}) << command.control;
    test.session.ReferenceDb = nullptr;
    test.host.ExpectError(3420, "MDIForm1.");
    shell::RunCommand(test.session, command);
  }
}

TEST(ReferenceCommands, AFailureIsReportedUnderTheMainWindow) {
  test::TestSession test;
  test.host.WhenShown("frmrepselect",
                      [] { throw store::RunTimeError(store::ErrorNumber::kDiskFailure, "The disk is gone."); });
  test.host.ExpectError(3043, "MDIForm1.");
  ExportChemicals(test.session);
}

}  // namespace
}  // namespace orvex::reports
