#include "shell/command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/shell_commands.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

using Texts = std::vector<std::string>;

class CommandTable : public testing::Test {
 protected:
  CommandTable() { session_.commands.assign(std::begin(kShellCommands), std::end(kShellCommands)); }

  test::TestSession test_;
  Session& session_ = test_.session;
  test::ScriptedHost& host_ = test_.host;
};

TEST_F(CommandTable, FindsACommandByItsEntry) {
  ASSERT_NE(FindCommand(session_, "mnuAbout"), nullptr);
  EXPECT_EQ(FindCommand(session_, "mnuAbout")->control, "mnuAbout");
  EXPECT_EQ(FindCommand(session_, "mnuNone"), nullptr);
}

TEST_F(CommandTable, EntryWithoutCommandDoesNothing) {
  RunCommand(session_, "mnuNone");
  EXPECT_TRUE(host_.steps.empty());
}

TEST_F(CommandTable, ChangeDatabaseLocationsOpensItsWindow) {
  RunCommand(session_, "mnuChangeDBLOc");
  EXPECT_EQ(host_.windows, Texts{"FrmChange"});
}

TEST_F(CommandTable, AboutOpensTheOverview) {
  RunCommand(session_, "mnuAbout");
  EXPECT_EQ(host_.windows, Texts{"frmoverview"});
}

TEST_F(CommandTable, HelpOpensAtItsContentsOrItsSearch) {
  RunCommand(session_, "mnuContents");
  RunCommand(session_, "mnuSearchHelp");
  EXPECT_EQ(host_.help, (Texts{"", "search:"}));
}

TEST_F(CommandTable, BackupCommandsAskWhereToCopyTheirDatabase) {
  host_.ChooseFile("");
  host_.ChooseFile("");
  RunCommand(session_, "mnuBackupTank");
  RunCommand(session_, "mnuBackupClient");
  ASSERT_EQ(host_.file_requests.size(), 2U);
  EXPECT_EQ(host_.file_requests[0].title, "Backup Tank Database To");
  EXPECT_EQ(host_.file_requests[1].title, "Backup Client Database To");
}

TEST_F(CommandTable, ExitRunsTheClosingSequence) {
  session_.TankPath = session_.ReferenceDb->Path();
  session_.ClientPath = session_.ClientDb->Path();
  host_.ExpectMessage("Do you want to backup your data now?", Answer::kNo);
  RunCommand(session_, "mnuExit");
  EXPECT_TRUE(session_.ended);
}

TEST_F(CommandTable, ACommandIsRefusedWhileItsDatabaseIsNotOpen) {
  session_.ReferenceDb.reset();
  host_.ExpectMessage(
      "The following Error occurred:\r\n\r\nThe tank database is not open. Choose its file with \"Change Database "
      "Locations\" in the File menu.\r\nNumber: 3420\r\n in MDIForm1.");
  RunCommand(session_, "mnuBackupTank");
  host_.ChooseFile("");
  RunCommand(session_, "mnuBackupClient");

  session_.ClientDb.reset();
  host_.ExpectError(3420, "MDIForm1.");
  RunCommand(session_, {"mnuAnnBrief", [](Session&) { FAIL() << "it needs both"; }});
  RunCommand(session_, "mnuChangeDBLOc");
  EXPECT_EQ(host_.windows, Texts{"FrmChange"}) << "the way on";
}

TEST_F(CommandTable, AFailureOfACommandIsToldUnderTheMainWindow) {
  host_.ExpectError(11, "MDIForm1.");
  RunCommand(session_, {"mnuAbout", [](Session&) {
                          throw store::RunTimeError(store::ErrorNumber::kDivisionByZero, "Division by zero.");
                        }});
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), Pointer::kDefault);
}

TEST_F(CommandTable, NoCurrentRecordAnywhereIsSilent) {
  RunCommand(session_, {"mnuAbout", [](Session& session) { (void)session.ClientDb->OpenTable("tank").Long("ID"); }});
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.beeps, 0);
}

TEST_F(CommandTable, ACommandThatThePersonStopsJustEnds) {
  RunCommand(session_, {"mnuAbout", [](Session&) { throw Interrupted(); }});
  EXPECT_TRUE(host_.messages.empty());
}

}  // namespace
}  // namespace orvex::shell
