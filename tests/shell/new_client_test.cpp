#include "shell/new_client.h"

#include "shell/database_files_fixture.h"
#include "shell/editing.h"
#include "shell/shell_commands.h"
#include "store/raw_file.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::Database;

class NewClientTest : public test::DatabaseFilesFixture {
 protected:
  NewClientTest() {
    OpenBoth();
    test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "current"}});
  }
  void ExpectCreated(const std::string& name) {
    ExpectPlain(name + " was created.");
    NewClient(session_);
    ExpectRestored();
    ASSERT_TRUE(session_.ClientDb);
    EXPECT_EQ(session_.ClientPath, name);
    EXPECT_EQ(session_.ClientDb->Path(), name);
    for (const auto& table : session_.ClientDb->TableNames())
      EXPECT_EQ(session_.ClientDb->OpenTable(table).RecordCount(), 0) << table;
  }
  /// The command fails or is refused: the old database is still in use, and nothing else is left.
  void ExpectStillOld(const std::string& name, int number) {
    const std::string before = test::FileContent(name);
    const int entries = test::EntryCount(folder_.Path());
    host_.ChooseFile(name);
    host_.ExpectError(number, "MDIForm1.");
    NewClient(session_);
    ExpectRestored();
    EXPECT_NE(host_.messages.back().find(name), std::string::npos) << host_.messages.back();
    EXPECT_EQ(session_.ClientPath, client_);
    EXPECT_EQ(session_.ClientDb->OpenTable("tank").Text("USER ID"), "current");
    EXPECT_EQ(test::FileContent(name), before);
    EXPECT_EQ(test::EntryCount(folder_.Path()), entries);
  }
  std::string name_ = File("new.mdb");
};

TEST_F(NewClientTest, AnEmptyDatabaseWithTheSameTablesIsMadeAndOpened) {
  const auto tables = session_.ClientDb->TableNames();
  const auto fields = session_.ClientDb->Fields("emission");
  const auto indexes = session_.ClientDb->Indexes("emission");
  host_.ChooseFile(name_);
  ExpectCreated(name_);
  EXPECT_EQ(session_.ClientDb->TableNames(), tables);
  const auto made = session_.ClientDb->Fields("emission");
  ASSERT_EQ(made.size(), fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_EQ(made[i].name, fields[i].name);
    EXPECT_EQ(made[i].type, fields[i].type);
    EXPECT_EQ(made[i].width, fields[i].width);
  }
  EXPECT_EQ(session_.ClientDb->Indexes("emission").size(), indexes.size());
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
  // The old one is as it was.
  EXPECT_EQ(Database::Open(client_)->OpenTable("tank").Text("USER ID"), "current");
}

TEST_F(NewClientTest, TheDialogAsksForANewClientDatabase) {
  host_.ChooseFile("");
  NewClient(session_);
  ASSERT_EQ(host_.file_requests.size(), 1U);
  EXPECT_EQ(host_.file_requests[0].title, "New Client Database");
  EXPECT_EQ(host_.file_requests[0].file_name, "*.mdb");
  EXPECT_EQ(host_.file_requests[0].filter, "Access (*.mdb) |*.mdb|");
  EXPECT_EQ(host_.file_requests[0].folder, folder_.Path());
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(session_.ClientPath, client_);
  ExpectRestored();
}

TEST_F(NewClientTest, TheThirdPanelShowsTheNewPathInLowerCase) {
  host_.ChooseFile(File("New.MDB"));
  ExpectCreated(File("New.MDB"));
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_EQ(host_.panels[0].first, PathPanel::kClient);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/new.mdb")) << host_.panels[0].second;
}

TEST_F(NewClientTest, TheSettingsAreLeftAlone) {
  SaveClientPath(session_);
  host_.ChooseFile(name_);
  ExpectCreated(name_);
  EXPECT_EQ(Setting(kClientKey), client_);
}

TEST_F(NewClientTest, ANameWithoutAPointGetsTheEnding) {
  host_.ChooseFile(File("new"));
  ExpectCreated(File("new.MDB"));
}

TEST_F(NewClientTest, AnExistingFileIsReplacedWithoutAQuestion) {
  const auto other = OtherClient();
  host_.ChooseFile(other);
  ExpectCreated(other);
}

TEST_F(NewClientTest, ADatabaseInUseIsNeverReplaced) {
  for (const auto& name : {client_, tank_, File("CLIENT1.MDB"), File("./TankData.mdb")}) host_.ChooseFile(name);
  for (int i = 0; i < 4; ++i) {
    host_.ExpectMessage("You cannot write the one of the data base paths currently in use.", "ORVEX", Buttons::kOk,
                        Icon::kExclamation);
  }
  host_.ChooseFile(name_);
  ExpectCreated(name_);
  EXPECT_EQ(Database::Open(client_)->OpenTable("tank").Text("USER ID"), "current");
}

TEST_F(NewClientTest, AClientDatabaseThatAnotherProgramHasOpenIsKept) {
  const auto other = OtherClient();
  const test::RawFile theirs(other);
  ExpectStillOld(other, 3260);
}

TEST_F(NewClientTest, TablesOfTheSystemAreLeftOut) {
  session_.ClientDb->CreateTable("MSysObjects", {{"X", store::FieldType::kLong, 0}}, {});
  session_.ClientDb->CreateTable("notes", {{"X", store::FieldType::kLong, 0}}, {});
  host_.ChooseFile(name_);
  ExpectCreated(name_);
  EXPECT_FALSE(session_.ClientDb->HasTable("MSysObjects"));
  EXPECT_TRUE(session_.ClientDb->HasTable("notes"));
}

TEST_F(NewClientTest, AFullDiskIsToldAndTheOldDatabaseStaysInUse) {
  {
    const test::FileSizeLimit full_disk(12000);
    host_.ChooseFile(name_);
    host_.ExpectError(3043, "mDatabase.CopyStruct");
    NewClient(session_);
  }
  ExpectRestored();
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").Text("USER ID"), "current");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 2);
}

TEST_F(NewClientTest, APlaceThatIsNoneIsTold) {
  ExpectStillOld(File("none.dir/new.mdb"), 3044);
  fs::create_directory(File("folder.mdb"));
  ExpectStillOld(File("folder.mdb"), 3043);
}

TEST_F(NewClientTest, AFolderThatMayNotBeWrittenIsTold) {
  for (const auto& file : {tank_, client_}) fs::permissions(file, fs::perms{0666});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kClosedFolder, [&] { ExpectStillOld(name_, 3043); }));
}

TEST_F(NewClientTest, TheOldDatabaseIsKeptWhileAWindowEditsIt) {
  const auto editing = BeginEditing(session_, DatabaseKind::kClient);
  host_.ExpectMessage(
      "The client database " + client_ + " is being edited. Nothing was changed. Close the tank first, then try again.",
      "ORVEX", Buttons::kOk, Icon::kExclamation);
  NewClient(session_);
  EXPECT_EQ(session_.ClientPath, client_);
  EXPECT_TRUE(host_.file_requests.empty());
}

TEST_F(NewClientTest, WithoutAClientDatabaseItIsToldSo) {
  session_.ClientDb.reset();
  session_.commands.assign(std::begin(kShellCommands), std::end(kShellCommands));
  host_.ExpectError(3420, "MDIForm1.");
  RunCommand(session_, "mnuNewClient");
  EXPECT_TRUE(host_.file_requests.empty());
}

}  // namespace
}  // namespace orvex::shell
