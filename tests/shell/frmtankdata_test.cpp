#include "shell/frmtankdata.h"

#include "shell/database_files_fixture.h"
#include "store/raw_file.h"

namespace orvex::shell {
namespace {

class LocateTankDatabase : public test::DatabaseFilesFixture {
 protected:
  /// The window as it comes up when the file of the settings is not there.
  Frmtankdata Opened() {
    try {
      OpenTankDatabase(session_, File("Moved.mdb"));
      ADD_FAILURE();
    } catch (const store::RunTimeError&) {
    }
    host_.panels.clear();
    return OpenFrmtankdata(session_);
  }
  /// OK with this path tells that there is no good file, and leaves all else as it was.
  void ExpectWrongFile(Frmtankdata& model, const std::string& path) {
    SCOPED_TRACE(path);
    const std::string before = test::FileContent(path);
    ExpectPlain("The file you specified does not have the correct format.  Please try another file.");
    model.txtTankPath.text = path;
    ClickOK(session_, model);
    EXPECT_FALSE(model.window.closed);
    EXPECT_EQ(model.txtTankPath.text, path);
    EXPECT_EQ(session_.ReferenceDb, nullptr);
    EXPECT_EQ(Setting("tankdata"), "(none)");
    EXPECT_EQ(test::FileContent(path), before);
    ExpectRestored();
  }
};

TEST_F(LocateTankDatabase, ShowsThePathThatFailed) {
  const auto model = Opened();
  EXPECT_EQ(model.txtTankPath.text, File("Moved.mdb"));
  EXPECT_FALSE(model.window.closed);
  EXPECT_EQ(kFrmtankdataText.title, "Locate Tank Database");
}

TEST_F(LocateTankDatabase, OKOpensTheFileAndKeepsItsPath) {
  auto model = Opened();
  model.txtTankPath.text = tank_;
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  ASSERT_NE(session_.ReferenceDb, nullptr);
  EXPECT_EQ(session_.ReferenceDb->Path(), tank_);
  EXPECT_EQ(Setting("tankdata"), tank_);
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/tankdata.mdb"));
  EXPECT_EQ(host_.pointers, (std::vector{Pointer::kBusy, Pointer::kDefault}));
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
}

TEST_F(LocateTankDatabase, AFileThatIsNotGoodIsToldAndTheWindowStays) {
  auto model = Opened();
  test::WriteFile(File("text.mdb"), "Dear reader,\n");
  test::WriteFile(File("empty.mdb"), "");
  for (const auto& path : {File("Moved.mdb"), File("none/tankdata.mdb"), client_, File("text.mdb"), File("empty.mdb"),
                           std::string(), folder_.Path().string()})
    ExpectWrongFile(model, path);
  // There is a way on.
  model.txtTankPath.text = tank_;
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
}

TEST_F(LocateTankDatabase, OtherFailuresAreReported) {
  auto model = Opened();
  test::RawFile other(tank_);
  other.Run("BEGIN EXCLUSIVE");
  host_.ExpectError(3260, "frmTankData.");
  model.txtTankPath.text = tank_;
  ClickOK(session_, model);
  EXPECT_FALSE(model.window.closed);
  ExpectRestored();
  other.Run("COMMIT");
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
}

TEST_F(LocateTankDatabase, SettingsThatCannotBeWrittenKeepNobodyFromGoingOn) {
  test::WriteFile(File("file"), "");
  session_.settings = Settings(File("file/orvex"));
  auto model = Opened();
  model.txtTankPath.text = tank_;
  host_.ExpectError(3043, "frmTankData.");
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  EXPECT_NE(session_.ReferenceDb, nullptr);
}

TEST_F(LocateTankDatabase, BrowseAsksForTheFile) {
  auto model = Opened();
  session_.settings.SaveSetting("td40", "Startup", "tankdata", "/somewhere/else/tanks.mdb");
  host_.ChooseFile(tank_);
  ClickBrowse(session_, model);
  EXPECT_EQ(model.txtTankPath.text, tank_);
  ASSERT_EQ(host_.file_requests.size(), 1U);
  EXPECT_EQ(host_.file_requests[0].title, "Locate Tank Database");
  EXPECT_EQ(host_.file_requests[0].file_name, "tankdata.mdb");
  EXPECT_EQ(host_.file_requests[0].folder, "/somewhere/else");
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{Pointer::kBusy, Pointer::kDefault}));
}

TEST_F(LocateTankDatabase, ACancelledBrowseChangesNothing) {
  auto model = Opened();
  host_.ChooseFile("");
  ClickBrowse(session_, model);
  EXPECT_EQ(model.txtTankPath.text, File("Moved.mdb"));
  ExpectRestored();
}

TEST_F(LocateTankDatabase, ExitEndsTheProgram) {
  auto model = Opened();
  ClickExit(session_, model);
  EXPECT_TRUE(session_.ended);
  EXPECT_TRUE(model.window.closed);
}

TEST_F(LocateTankDatabase, HelpOpensItsTopic) {
  auto model = Opened();
  ClickHelp(session_, model);
  EXPECT_EQ(host_.help, (std::vector<std::string>{"locate_database"}));
  EXPECT_FALSE(model.window.closed);
}

}  // namespace
}  // namespace orvex::shell
