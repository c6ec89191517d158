#include "shell/frmchange.h"

#include "shell/database_files_fixture.h"
#include "shell/older_client.h"
#include "store/raw_file.h"
#include "support/query_rows.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;

class ChangeDatabaseLocations : public test::DatabaseFilesFixture {
 protected:
  ChangeDatabaseLocations() { OpenBoth(); }

  FrmChange Opened() { return OpenFrmChange(session_); }
  void ExpectTankQuestion(Answer answer) {
    host_.ExpectMessage("Do you want to backup the tank database?", "ORVEX", Buttons::kYesNo, Icon::kQuestion, answer);
  }
  void ExpectClientQuestion(Answer answer) {
    host_.ExpectMessage("Do you want to backup the client database?", "ORVEX", Buttons::kYesNo, Icon::kQuestion,
                        answer);
  }
  void ExpectDone() { ExpectPlain("The database locations were changed."); }
  void ExpectNoTank() { ExpectPlain("The tank database you specified does not have the correct format."); }
  void ExpectNoClient() { ExpectPlain("The client database you specified does not have the correct format."); }

  /// Both databases are these, and can be worked on.
  void ExpectInUse(const std::string& tank, const std::string& client) {
    EXPECT_EQ(session_.TankPath, tank);
    EXPECT_EQ(session_.ClientPath, client);
    ASSERT_NE(session_.ReferenceDb, nullptr);
    ASSERT_NE(session_.ClientDb, nullptr);
    EXPECT_EQ(session_.ReferenceDb->Path(), tank);
    EXPECT_EQ(session_.ClientDb->Path(), client);
    EXPECT_NO_THROW(test::AddRow(*session_.ReferenceDb, "deckseam", {{"NAME", "in use"}}));
    EXPECT_NO_THROW(test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "in use"}}));
  }
};

TEST_F(ChangeDatabaseLocations, ShowsTheCurrentPathsAndClosesTheOtherWindows) {
  const auto model = Opened();
  EXPECT_EQ(model.txtTankData.text, tank_);
  EXPECT_EQ(model.txtClientData.text, client_);
  EXPECT_EQ(host_.closed_but, (std::vector<std::string>{"FrmChange"}));
  EXPECT_EQ(kFrmChangeText.title, "Change Database Locations");
}

TEST_F(ChangeDatabaseLocations, UnchangedPathsAreToldAsChangedAndWriteNothing) {
  auto model = Opened();
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  EXPECT_EQ(Setting("tankdata"), "(none)");
  EXPECT_EQ(Setting("client"), "(none)");
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Changing locations, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{Pointer::kBusy, Pointer::kDefault}));
  ExpectRestored();
  ExpectInUse(tank_, client_);
}

TEST_F(ChangeDatabaseLocations, APathThatDiffersInCaseOnlyCountsAsUnchanged) {
  auto model = Opened();
  model.txtTankData.text = File("TANKDATA.MDB");
  model.txtClientData.text = File("client1.Mdb");
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  ExpectInUse(tank_, client_);
  EXPECT_TRUE(host_.panels.empty());
}

TEST_F(ChangeDatabaseLocations, AnotherTankDatabaseIsOpenedAndKept) {
  const auto other = OtherTank();
  auto model = Opened();
  model.txtTankData.text = other;
  ExpectTankQuestion(Answer::kNo);
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  EXPECT_EQ(test::QueryRows(*session_.ReferenceDb, "SELECT * FROM deckseam", {"NAME"}), (test::Rows{"other"}));
  ExpectInUse(other, client_);
  EXPECT_EQ(Setting("tankdata"), other);
  EXPECT_EQ(Setting("client"), "(none)");
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_EQ(host_.panels[0].first, PathPanel::kTank);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/other tank.mdb"));
}

TEST_F(ChangeDatabaseLocations, AnotherClientDatabaseIsOpenedAndKept) {
  const auto other = OtherClient();
  auto model = Opened();
  model.txtClientData.text = other;
  ExpectClientQuestion(Answer::kNo);
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  EXPECT_EQ(test::QueryRows(*session_.ClientDb, "SELECT * FROM tank", {"USER ID"}), (test::Rows{"other"}));
  ExpectInUse(tank_, other);
  EXPECT_EQ(Setting("client"), other);
  EXPECT_EQ(Setting("tankdata"), "(none)");
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_EQ(host_.panels[0].first, PathPanel::kClient);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/other client.mdb"));
}

TEST_F(ChangeDatabaseLocations, BothAreChangedTheTankDatabaseFirst) {
  const auto tank = OtherTank();
  const auto client = OtherClient();
  auto model = Opened();
  model.txtTankData.text = tank;
  model.txtClientData.text = client;
  ExpectTankQuestion(Answer::kNo);
  ExpectClientQuestion(Answer::kNo);
  ExpectDone();
  ClickOK(session_, model);
  ExpectInUse(tank, client);
  EXPECT_EQ(Setting("tankdata"), tank);
  EXPECT_EQ(Setting("client"), client);
}

TEST_F(ChangeDatabaseLocations, YesBacksUpTheDatabaseThatWasInUse) {
  test::AddRow(*session_.ReferenceDb, "deckseam", {{"NAME", "before"}});
  const auto backup = File("backup.mdb");
  auto model = Opened();
  model.txtTankData.text = OtherTank();
  ExpectTankQuestion(Answer::kYes);
  host_.ChooseFile(backup);
  ExpectPlain(tank_ + " was Copied to " + backup + ".");
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_EQ(host_.file_requests[0].title, "Backup Tank Database To");
  EXPECT_EQ(test::QueryRows(*store::Database::Open(backup), "SELECT * FROM deckseam", {"NAME"}),
            (test::Rows{"before"}));
  ExpectRestored();
}

TEST_F(ChangeDatabaseLocations, ACancelledBackupGoesOn) {
  const auto other = OtherClient();
  auto model = Opened();
  model.txtClientData.text = other;
  ExpectClientQuestion(Answer::kYes);
  host_.ChooseFile("");
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_EQ(host_.file_requests[0].title, "Backup Client Database To");
  ExpectInUse(tank_, other);
}

TEST_F(ChangeDatabaseLocations, AWrongTankDatabaseIsToldAndTheClientGoesOn) {
  const auto other = OtherClient();
  auto model = Opened();
  model.txtTankData.text = client_;
  model.txtClientData.text = other;
  ExpectNoTank();
  ExpectClientQuestion(Answer::kNo);
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  ExpectInUse(tank_, other);
  EXPECT_EQ(Setting("tankdata"), "(none)");
}

TEST_F(ChangeDatabaseLocations, AWrongClientDatabaseEndsIt) {
  const auto other = OtherTank();
  auto model = Opened();
  model.txtTankData.text = other;
  model.txtClientData.text = File("none.mdb");
  ExpectTankQuestion(Answer::kNo);
  ExpectNoClient();
  ClickOK(session_, model);
  EXPECT_FALSE(model.window.closed);
  ExpectInUse(other, client_);
  EXPECT_EQ(Setting("tankdata"), other);
  EXPECT_EQ(Setting("client"), "(none)");
  ExpectRestored();
}

TEST_F(ChangeDatabaseLocations, AnyFailureOfTheTestCounts) {
  test::WriteFile(File("text.mdb"), "Dear reader,\n");
  test::WriteFile(File("empty.mdb"), "");
  auto model = Opened();
  for (const auto& path : {File("text.mdb"), File("empty.mdb"), File("none/x.mdb"), std::string()}) {
    SCOPED_TRACE(path);
    const std::string before = test::FileContent(path);
    model.txtTankData.text = path;
    model.txtClientData.text = path;
    ExpectNoTank();
    ExpectNoClient();
    ClickOK(session_, model);
    EXPECT_FALSE(model.window.closed);
    EXPECT_EQ(test::FileContent(path), before);
  }
  ExpectInUse(tank_, client_);
}

TEST_F(ChangeDatabaseLocations, WhenTheOtherDatabaseCannotBeReopenedTheProgramGoesOnWithThoseItHas) {
  const auto other = OtherTank();
  auto model = Opened();
  model.txtTankData.text = other;
  fs::rename(client_, File("moved.mdb"));
  ExpectTankQuestion(Answer::kNo);
  host_.ExpectError(3024, "frmChange.");
  ClickOK(session_, model);
  EXPECT_FALSE(model.window.closed);
  EXPECT_EQ(Setting("tankdata"), "(none)");
  EXPECT_TRUE(host_.panels.empty());
  ExpectRestored();
  EXPECT_EQ(session_.TankPath, tank_);
  ASSERT_NE(session_.ClientDb, nullptr);
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 0);
  // The way on: first the file that is gone, then the other one.
  model.txtTankData.text = tank_;
  model.txtClientData.text = File("moved.mdb");
  ExpectClientQuestion(Answer::kNo);
  ExpectDone();
  ClickOK(session_, model);
  ExpectInUse(tank_, File("moved.mdb"));
}

TEST_F(ChangeDatabaseLocations, AFileThatGoesAwayDuringTheQuestionLeavesTheOldOneInUse) {
  const auto other = OtherClient();
  auto model = Opened();
  model.txtClientData.text = other;
  // The person answers Yes; while the file dialog is up, somebody else removes the file.
  class Removing : public test::ScriptedHost {
   public:
    std::string file;
    std::string SaveFile(const FileRequest& request) override {
      fs::remove(file);
      return ScriptedHost::SaveFile(request);
    }
  } host;
  host.file = other;
  Session session(host);
  session.application_folder = folder_.Path();
  OpenTankDatabase(session, tank_);
  OpenClientDatabase(session, client_);
  host.ExpectMessage("Do you want to backup the client database?", Answer::kYes);
  host.ChooseFile("");
  host.ExpectError(3024, "frmChange.");
  ClickOK(session, model);
  EXPECT_FALSE(model.window.closed);
  EXPECT_EQ(session.ClientPath, client_);
  EXPECT_NO_THROW(test::AddRow(*session.ClientDb, "tank", {{"USER ID", "in use"}}));
}

TEST_F(ChangeDatabaseLocations, ADatabaseThatIsNotOpenIsOpenedAtTheSamePathToo) {
  // As after a start at which another program held the tank database.
  session_.ReferenceDb.reset();
  session_.ClientDb.reset();
  session_.ClientPath.clear();
  session_.settings.SaveSetting("td40", "Startup", "client", client_);
  auto model = Opened();
  EXPECT_EQ(model.txtTankData.text, tank_);
  EXPECT_EQ(model.txtClientData.text, client_);
  // There is nothing to back up.
  ExpectDone();
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  ExpectInUse(tank_, client_);
}

TEST_F(ChangeDatabaseLocations, ADatabaseThatIsNotOpenDoesNotKeepTheOtherFromBeingOpened) {
  session_.ReferenceDb.reset();
  session_.ClientDb.reset();
  session_.ClientPath = File("none.mdb");
  auto model = Opened();
  ExpectNoClient();
  ClickOK(session_, model);
  EXPECT_NE(session_.ReferenceDb, nullptr);
  EXPECT_EQ(session_.ClientDb, nullptr);
  model.txtClientData.text = client_;
  ExpectDone();
  ClickOK(session_, model);
  ExpectInUse(tank_, client_);
}

TEST_F(ChangeDatabaseLocations, AnOlderClientDatabaseGetsItsNewFieldIfTheStartDidNotComeToIt) {
  const auto older = File("older.mdb");
  test::MakeOlderClient(older);
  session_.ClientDb.reset();
  session_.ClientPath = older;
  auto model = Opened();
  ExpectDone();
  ClickOK(session_, model);
  ASSERT_NE(session_.ClientDb, nullptr);
  EXPECT_EQ(session_.ClientDb->Fields("emission")[5].name, "CAS");
}

TEST_F(ChangeDatabaseLocations, SettingsThatCannotBeWrittenAreReported) {
  test::WriteFile(File("file"), "");
  session_.settings = Settings(File("file/orvex"));
  const auto other = OtherTank();
  auto model = Opened();
  model.txtTankData.text = other;
  ExpectTankQuestion(Answer::kNo);
  host_.ExpectError(3043, "frmChange.");
  ExpectDone();
  ClickOK(session_, model);
  ExpectInUse(other, client_);
}

TEST_F(ChangeDatabaseLocations, BrowseFillsTheField) {
  auto model = Opened();
  session_.settings.SaveSetting("td40", "Startup", "tankdata", "/one/tanks.mdb");
  session_.settings.SaveSetting("td40", "Startup", "client", "/two/clients.mdb");
  host_.ChooseFile("/a.mdb");
  host_.ChooseFile("/b.mdb");
  ClickBrowseTank(session_, model);
  ClickBrowseClient(session_, model);
  EXPECT_EQ(model.txtTankData.text, "/a.mdb");
  EXPECT_EQ(model.txtClientData.text, "/b.mdb");
  ASSERT_EQ(host_.file_requests.size(), 2U);
  EXPECT_EQ(host_.file_requests[0].title, "Locate Tank Database");
  EXPECT_EQ(host_.file_requests[0].file_name, "tankdata.mdb");
  EXPECT_EQ(host_.file_requests[0].folder, "/one");
  EXPECT_EQ(host_.file_requests[1].title, "Locate Client Database");
  EXPECT_EQ(host_.file_requests[1].file_name, "client1.mdb");
  EXPECT_EQ(host_.file_requests[1].folder, "/two");
  EXPECT_EQ(host_.status,
            (std::vector<std::string>{"Processing, please wait...", "Ready", "Processing, please wait...", "Ready"}));
  host_.ChooseFile("");
  ClickBrowseTank(session_, model);
  EXPECT_EQ(model.txtTankData.text, "/a.mdb");
  ExpectRestored();
}

TEST_F(ChangeDatabaseLocations, CloseChangesNothing) {
  auto model = Opened();
  model.txtTankData.text = OtherTank();
  ClickClose(session_, model);
  EXPECT_TRUE(model.window.closed);
  ExpectInUse(tank_, client_);
}

TEST_F(ChangeDatabaseLocations, HelpOpensItsTopic) {
  auto model = Opened();
  ClickHelp(session_, model);
  EXPECT_EQ(host_.help, (std::vector<std::string>{"database_locations"}));
}

}  // namespace
}  // namespace orvex::shell
