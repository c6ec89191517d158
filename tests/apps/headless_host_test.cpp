#include "orvex-report/headless_host.h"

#include <gtest/gtest.h>

#include <sstream>

#include "shell/trap.h"
#include "support/expect_error.h"

namespace orvex::report_app {
namespace {

TEST(HeadlessHost, PrintsAnErrorReportAndRemembersIt) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  shell::Session session(host);
  EXPECT_FALSE(host.FailureReported());
  shell::ErrorMessage(session, "modEmission.HVO", {store::ErrorNumber::kDivisionByZero, "Division\x1B by zero"});
  EXPECT_TRUE(host.FailureReported());
  EXPECT_EQ(messages.str(),
            "orvex-report:\n"
            "  The following Error occurred:\n"
            "  Division\\x1B by zero\n"
            "  Number: 11\n"
            "   in modEmission.HVO\n");
}

TEST(HeadlessHost, OtherMessagesAreNoFailures) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  host.ShowMessage("The following Error occurred: none.", "", shell::Buttons::kOk, shell::Icon::kNone);
  EXPECT_EQ(messages.str(), "orvex-report:\n  The following Error occurred: none.\n");
  EXPECT_FALSE(host.FailureReported());
}

TEST(HeadlessHost, RemembersAFailureWhateverItsMessageSays) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  host.NoteFailure({store::ErrorNumber::kInvalidUseOfNull, "Invalid use of Null."});
  EXPECT_TRUE(host.FailureReported());
  EXPECT_EQ(messages.str(), "");
}

TEST(HeadlessHost, AgreesToNothing) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  const auto answer = [&](shell::Buttons buttons) { return host.ShowMessage("?", "", buttons, shell::Icon::kNone); };
  EXPECT_EQ(answer(shell::Buttons::kOk), shell::Answer::kOk);
  EXPECT_EQ(answer(shell::Buttons::kOkCancel), shell::Answer::kCancel);
  EXPECT_EQ(answer(shell::Buttons::kYesNo), shell::Answer::kNo);
  EXPECT_EQ(answer(shell::Buttons::kYesNoCancel), shell::Answer::kCancel);
  EXPECT_RUN_TIME_ERROR(host.OpenFile({}), store::ErrorNumber::kDialogCancelled);
  EXPECT_RUN_TIME_ERROR(host.SaveFile({}), store::ErrorNumber::kDialogCancelled);
}

TEST(HeadlessHost, NotesThePagesOfTheBrowser) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  host.Navigate("briefdisplay.htm");
  EXPECT_EQ(host.Pages(), std::vector<std::string>{"briefdisplay.htm"});
}

TEST(HeadlessHost, ThePrintWindowIsARoutine) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  int opened = 0;
  host.OnPrintWindow([&] { ++opened; });
  host.ShowWindow("frmOther");
  EXPECT_EQ(opened, 0);
  host.ShowWindow("frmprintrep");
  EXPECT_EQ(opened, 1);
}

TEST(HeadlessHost, ShowsProgressInOneLineAndClearsIt) {
  std::ostringstream messages;
  {
    HeadlessHost host(messages, {.progress = true, .stop_requested = {}});
    host.Progress(0, 1000);
    host.Progress(1, 1000);
    host.Progress(500, 1000);
  }
  EXPECT_EQ(messages.str(), "\r\x1B[KProcessing, 0%\r\x1B[KProcessing, 50%\r\x1B[K");
}

TEST(HeadlessHost, ShowsNoProgressElsewhere) {
  std::ostringstream messages;
  HeadlessHost host(messages, {});
  host.Progress(1, 2);
  EXPECT_EQ(messages.str(), "");
}

TEST(HeadlessHost, ARunCanBeStoppedUntilItIsWritten) {
  std::ostringstream messages;
  bool stop = false;
  HeadlessHost host(messages, {.progress = false, .stop_requested = [&] { return stop; }});
  EXPECT_NO_THROW(host.Progress(1, 3));
  stop = true;
  EXPECT_THROW(host.Progress(2, 3), shell::Interrupted);
  host.ShowWindow("frmprintrep");
  EXPECT_NO_THROW(host.Progress(3, 3));
}

}  // namespace
}  // namespace orvex::report_app
