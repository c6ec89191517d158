#include "reports/frmprintrep.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "emission/error_rows.h"
#include "emission/run_report.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"
#include "support/unprivileged.h"

namespace orvex::reports {
namespace {

using Strings = std::vector<std::string>;

class FrmprintrepTest : public testing::Test {
 protected:
  FrmprintrepTest() { session_.ReportTime = "Annual"; }

  /// A computed run over two tanks, as it stands when the window opens.
  void RunTwoTanks(const char* type) {
    test::AddVerticalTank(test_, {{"USER ID", "A"}});
    test::AddVerticalTank(test_, {{"USER ID", "B"}});
    session_.TankList = {"A", "B"};
    session_.ReportType = type;
    emission::RunReport(session_);
    ASSERT_EQ(session_.PrintMode, "Report");
    test_.host.status.clear();
    test_.host.pointers.clear();
  }
  Frmprintrep Open(const char* print_mode) {
    session_.PrintMode = print_mode;
    return OpenFrmprintrep(session_);
  }
  void ExpectLandscape() {
    test_.host.ExpectMessage("Please set your Page Setup to Landscape before printing these reports.", "Use Landscape!",
                             shell::Buttons::kOk, shell::Icon::kNone);
  }
  void ExpectApplicationMessage(const std::string& text) {
    test_.host.ExpectMessage(text, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  }
  void ExpectIdle() {
    ASSERT_FALSE(test_.host.pointers.empty());
    EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
    EXPECT_EQ(test_.host.status.back(), "Ready");
  }
  std::string Path(const char* file) { return (session_.application_folder / file).string(); }

  test::TestSession test_;
  shell::Session& session_ = test_.session;
};

TEST_F(FrmprintrepTest, OpensOnTheWindow) {
  for (const auto* print_mode : {"Report", "Error", "Chemical", "Met", "Fit", "Rim", "Deck", "Profile", "Import"}) {
    const auto form = Open(print_mode);
    EXPECT_TRUE(form.optWindow.chosen);
    EXPECT_FALSE(form.optFile.chosen);
    EXPECT_TRUE(form.cmdOK.enabled);
    EXPECT_TRUE(form.cmdPrintSetup.enabled);
    EXPECT_TRUE(form.optWindow.enabled);
    EXPECT_TRUE(form.optFile.enabled) << "all of this can be written to a file";
    EXPECT_FALSE(form.window.closed);
  }
}

TEST_F(FrmprintrepTest, WhatIsNotKnownCannotBePutOut) {
  auto form = Open("");
  EXPECT_FALSE(form.cmdOK.enabled);
  EXPECT_FALSE(form.optFile.enabled);
  ClickOK(session_, form);
  EXPECT_TRUE(test_.host.messages.empty());
}

TEST_F(FrmprintrepTest, OneOfTheTwoDestinationsIsChosen) {
  auto form = Open("Report");
  ChooseFile(session_, form);
  EXPECT_TRUE(form.optFile.chosen);
  EXPECT_FALSE(form.optWindow.chosen);
  ChooseWindow(session_, form);
  EXPECT_TRUE(form.optWindow.chosen);
  EXPECT_FALSE(form.optFile.chosen);
}

TEST_F(FrmprintrepTest, OKAsksForLandscapeAndThenShowsABriefReport) {
  RunTwoTanks("Brief");
  auto form = Open("Report");
  ExpectLandscape();
  ClickOK(session_, form);
  EXPECT_TRUE(test::FileContent(Path("briefdata.xml")).starts_with("<?xml version=\"1.0\"?><REPORT>"));
  EXPECT_EQ(test_.host.pages, Strings{Path("briefdisplay.htm")});
  EXPECT_EQ(test_.host.status, (Strings{"Processing report, please wait...", "Ready"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
  EXPECT_FALSE(form.window.closed);
  EXPECT_FALSE(std::filesystem::exists(Path("summarydata.xml")));
}

TEST_F(FrmprintrepTest, DetailAndSummaryShareOneFile) {
  for (const std::string type : {"Detail", "Summary"}) {
    RunTwoTanks(type.c_str());
    auto form = Open("Report");
    ExpectLandscape();
    ClickOK(session_, form);
    EXPECT_NE(test::FileContent(Path("summarydata.xml")).find("<TYPE>" + type + "</TYPE>"), std::string::npos);
  }
  EXPECT_EQ(test_.host.pages, (Strings{Path("summarydisplay.htm"), Path("summarydisplay.htm")}));
  EXPECT_FALSE(std::filesystem::exists(Path("briefdata.xml")));
}

TEST_F(FrmprintrepTest, PressingOKTwiceOverwritesTheFileAndOpensASecondBrowser) {
  RunTwoTanks("Brief");
  auto form = Open("Report");
  ExpectLandscape();
  ClickOK(session_, form);
  const auto first = test::FileContent(Path("briefdata.xml"));
  test::WriteFile(Path("briefdata.xml"), "what another program left");
  ExpectLandscape();
  ClickOK(session_, form);
  EXPECT_EQ(test::FileContent(Path("briefdata.xml")), first);
  EXPECT_EQ(test_.host.pages, (Strings{Path("briefdisplay.htm"), Path("briefdisplay.htm")}));
  ExpectIdle();
}

TEST_F(FrmprintrepTest, OnlyTheFirstFaultIsToldInOneMessage) {
  emission::AddErrorRow(session_, 2, "North 1", "The shell height is missing.");
  emission::AddErrorRow(session_, 1, "South", "The diameter is missing.");
  auto form = Open("Error");
  ExpectApplicationMessage("North 1: The shell height is missing. Please correct and rerun the report.");
  ClickOK(session_, form);
  EXPECT_TRUE(test_.host.pages.empty());
  EXPECT_FALSE(form.window.closed);
  ExpectApplicationMessage("North 1: The shell height is missing. Please correct and rerun the report.");
  ClickOK(session_, form);
}

TEST_F(FrmprintrepTest, AFaultWithoutTankOrTextLeavesItsPlaceEmpty) {
  test::AddRow(test_.client(), "error", {{"ID", 2}});
  auto form = Open("Error");
  ExpectApplicationMessage(":  Please correct and rerun the report.");
  ClickOK(session_, form);
}

TEST_F(FrmprintrepTest, WithoutAFaultNothingIsTold) {
  auto form = Open("Error");
  ClickOK(session_, form);
  EXPECT_TRUE(test_.host.messages.empty());
}

TEST_F(FrmprintrepTest, AMissingTableIsReportedUnderTheWindowsName) {
  test_.client().DeleteTable("error");
  auto form = Open("Error");
  test_.host.ExpectError(3011, "frmPrintRep.");
  ClickOK(session_, form);
  ExpectIdle();
}

TEST_F(FrmprintrepTest, PrinterSetupIsThePlatformsOwnDialog) {
  auto form = Open("Report");
  ClickPrintSetup(session_, form);
  EXPECT_EQ(test_.host.printer_setups, 1);
  EXPECT_TRUE(test_.host.messages.empty());
}

TEST_F(FrmprintrepTest, CloseUnloadsAndHelpShowsItsTopic) {
  auto form = Open("Report");
  ClickHelp(session_, form);
  EXPECT_EQ(test_.host.help, Strings{"print_report"});
  EXPECT_FALSE(form.window.closed);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

// The report's own folder -----------------------------------------------------------------------------------------

class FailingFolder : public FrmprintrepTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override { RunTwoTanks(GetParam()); }
  [[nodiscard]] bool Brief() const { return std::string_view(GetParam()) == "Brief"; }
  [[nodiscard]] const char* DataFile() const { return Brief() ? "briefdata.xml" : "summarydata.xml"; }
  [[nodiscard]] std::string Routine() const { return Brief() ? "frmPreview.BriefReport" : "frmPreview.DetailReport"; }
  /// The report says so, and shows nothing.
  void ExpectFailure(const std::string& description, int number) {
    auto form = Open("Report");
    ExpectLandscape();
    ExpectApplicationMessage("The following Error occurred:\r\n\r\n" + description +
                             "\r\nNumber: " + std::to_string(number) + "\r\n in " + Routine());
    ClickOK(session_, form);
    EXPECT_TRUE(test_.host.pages.empty());
    EXPECT_FALSE(form.window.closed);
    ExpectIdle();
  }
  void ExpectSuccess() {
    auto form = Open("Report");
    ExpectLandscape();
    ClickOK(session_, form);
    EXPECT_EQ(test_.host.pages.size(), 1U);
    EXPECT_TRUE(test::FileContent(Path(DataFile())).ends_with("</REPORT>"));
  }
};

INSTANTIATE_TEST_SUITE_P(Reports, FailingFolder, testing::Values("Brief", "Detail"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(FailingFolder, WithoutPermissionIsToldWithItsPath) {
  const test::TemporaryFolder locked;
  test::WriteFile(locked.Path() / DataFile(), "of an earlier day");
  std::filesystem::permissions(locked.Path(), std::filesystem::perms(0555));
  session_.application_folder = locked.Path();
  {
    const test::Unprivileged person;
    ExpectFailure("The file '" + Path(DataFile()) + "' cannot be written: Permission denied.", 3043);
    EXPECT_EQ(test::FileContent(Path(DataFile())), "of an earlier day");
  }
  std::filesystem::permissions(locked.Path(), std::filesystem::perms(0755));
  ExpectSuccess();
}

TEST_P(FailingFolder, OnAFullDiskIsToldWithItsPathAndKeepsTheOldFile) {
  const test::TemporaryFolder full;
  test::WriteFile(full.Path() / DataFile(), "of an earlier day");
  session_.application_folder = full.Path();
  {
    const test::FileSizeLimit disk(100);
    ExpectFailure("The file '" + Path(DataFile()) + "' cannot be written: File too large.", 3043);
  }
  EXPECT_EQ(test::FileContent(Path(DataFile())), "of an earlier day");
  EXPECT_EQ(test::EntryCount(full.Path()), 1) << "nothing half-written is left";
  ExpectSuccess();
}

TEST_P(FailingFolder, ThatIsNotThereIsToldWithItsPath) {
  session_.application_folder = test_.folder.Path() / "moved";
  ExpectFailure("'" + Path(DataFile()) + "' is not a valid path: its folder is not there.", 3044);
  std::filesystem::create_directory(session_.application_folder);
  ExpectSuccess();
}

}  // namespace
}  // namespace orvex::reports
