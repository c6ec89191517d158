#include "shell/backup.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "shell/database_files_fixture.h"
#include "shell/restore.h"
#include "store/raw_file.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"
#include "support/query_rows.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::Database;

/// Every table of the copy is as in the original: fields, indexes and rows.
void ExpectSameContent(Database& copy, Database& original) {
  ASSERT_EQ(copy.TableNames(), original.TableNames());
  for (const auto& table : original.TableNames()) {
    SCOPED_TRACE(table);
    const auto fields = original.Fields(table);
    const auto copied = copy.Fields(table);
    ASSERT_EQ(copied.size(), fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(copied[i].name, fields[i].name);
      EXPECT_EQ(copied[i].type, fields[i].type);
      EXPECT_EQ(copied[i].width, fields[i].width);
    }
    EXPECT_EQ(copy.Indexes(table).size(), original.Indexes(table).size());
    EXPECT_EQ(copy.OpenTable(table).GetRows(100000), original.OpenTable(table).GetRows(100000));
  }
}

class BackupTest : public test::DatabaseFilesFixture {
 protected:
  BackupTest() {
    OpenBoth();
    store::Transaction client(*session_.ClientDb);
    store::Transaction tank(*session_.ReferenceDb);
    for (int i = 0; i < 30; ++i) {
      test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "T" + std::to_string(i)}, {"HEATED", true}});
      test::AddRow(*session_.ReferenceDb, "deckseam", {{"NAME", "D" + std::to_string(i)}, {"SWIDTH", 1.5 * i}});
    }
    client.Commit();
    tank.Commit();
  }
  void ExpectCopied(const std::string& name) {
    ExpectPlain(client_ + " was copied to " + name + ".");
    BackupClient(session_);
    ExpectRestored();
    ASSERT_TRUE(fs::exists(name));
    const auto copy = Database::Open(name);
    EXPECT_EQ(copy->OpenTable("tank").RecordCount(), 30);
    EXPECT_TRUE(copy->IntegrityCheck());
  }
  void ExpectInUseMessage() {
    host_.ExpectMessage("You cannot write the one of the data base paths currently in use.", "ORVEX", Buttons::kOk,
                        Icon::kExclamation);
  }
  /// A backup that fails is told and leaves an older one of the name as it was.
  void ExpectFailure(const std::string& name, int number) {
    const std::string before = test::FileContent(name);
    const int entries = test::EntryCount(folder_.Path());
    host_.ChooseFile(name);
    host_.ExpectError(number, "MDIForm1.");
    BackupClient(session_);
    ExpectRestored();
    ASSERT_FALSE(host_.messages.empty());
    EXPECT_NE(host_.messages.back().find(name), std::string::npos) << host_.messages.back();
    EXPECT_EQ(test::FileContent(name), before);
    EXPECT_EQ(test::EntryCount(folder_.Path()), entries);
  }
  std::string name_ = File("backup.mdb");
};

TEST_F(BackupTest, TheTankDatabaseIsCopiedWhole) {
  host_.ChooseFile(name_);
  ExpectPlain(tank_ + " was Copied to " + name_ + ".");
  BackupTank(session_);
  ExpectSameContent(*Database::Open(name_), *session_.ReferenceDb);
  ExpectRestored();
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, TheClientDatabaseIsCopiedWhole) {
  host_.ChooseFile(name_);
  ExpectPlain(client_ + " was copied to " + name_ + ".");
  BackupClient(session_);
  ExpectSameContent(*Database::Open(name_), *session_.ClientDb);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, ABackupIsAGoodDatabase) {
  host_.ChooseFile(name_);
  ExpectPlain(tank_ + " was Copied to " + name_ + ".");
  BackupTank(session_);
  EXPECT_NO_THROW((void)OpenGoodDatabase(DatabaseKind::kTank, name_));
}

TEST_F(BackupTest, TheDialogAndTheStatusAreAsTheyShouldBe) {
  ExpectCancelledDialogs(BackupTank, "Backup Tank Database To", BackupClient, "Backup Client Database To");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 2);
}

TEST_F(BackupTest, TheStatusTellsOfEachTable) {
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  std::vector<std::string> expected{"Processing, please wait..."};
  for (int table = 0; table < 6; ++table) {
    for (const auto* text : {"Copying table", "Copying data"}) {
      expected.push_back(std::string(text) + ", please wait...");
      expected.emplace_back("Processing, please wait...");
    }
  }
  expected.emplace_back("Ready");
  EXPECT_EQ(host_.status, expected);
}

TEST_F(BackupTest, ANameOfADatabaseInUseIsAskedForAgain) {
  for (const auto& name : {tank_, client_, File("TANKDATA.MDB"), File("client1.mdb"), File("./TankData.mdb")})
    host_.ChooseFile(name);
  for (int i = 0; i < 5; ++i) ExpectInUseMessage();
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  EXPECT_EQ(host_.file_requests.size(), 6U);
}

TEST_F(BackupTest, ALinkToADatabaseInUseIsAskedForAgain) {
  fs::create_symlink(client_, File("link.mdb"));
  host_.ChooseFile(File("link.mdb"));
  ExpectInUseMessage();
  host_.ChooseFile("");
  BackupClient(session_);
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 30);
}

TEST_F(BackupTest, ANameThatIsInUseWithItsEndingIsAskedForAgain) {
  const auto base = File("plain");
  fs::rename(client_, base + ".MDB");
  OpenClientDatabase(session_, base + ".MDB");
  host_.ChooseFile(base);
  ExpectInUseMessage();
  host_.ChooseFile("");
  BackupClient(session_);
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 30);
}

TEST_F(BackupTest, AnotherExtensionIsKept) {
  host_.ChooseFile(File("backup.old"));
  ExpectCopied(File("backup.old"));
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, ANameWithoutAPointGetsTheEnding) {
  host_.ChooseFile(File("backup"));
  ExpectCopied(File("backup.MDB"));
  EXPECT_FALSE(fs::exists(File("backup")));
}

TEST_F(BackupTest, APointAnywhereInThePathKeepsTheEndingAway) {
  fs::create_directory(File("version 1.2"));
  host_.ChooseFile(File("version 1.2/backup"));
  ExpectCopied(File("version 1.2/backup"));
  EXPECT_FALSE(fs::exists(File("version 1.2/backup.MDB")));
}

TEST_F(BackupTest, AnExistingFileIsReplacedWithoutAQuestion) {
  for (const auto* content : {"", "an older backup"}) {
    test::WriteFile(name_, content);
    host_.ChooseFile(name_);
    ExpectCopied(name_);
  }
  // And a backup by a newer one.
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, TablesOfTheSystemAreLeftOut) {
  session_.ClientDb->CreateTable("MSysObjects", {{"X", store::FieldType::kLong, 0}}, {});
  session_.ClientDb->CreateTable("MySystem", {{"X", store::FieldType::kLong, 0}}, {});
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  EXPECT_FALSE(Database::Open(name_)->HasTable("MSysObjects"));
  EXPECT_TRUE(Database::Open(name_)->HasTable("MySystem"));
}

TEST_F(BackupTest, ATableThatCannotBeCopiedIsToldTwice) {
  test::RawFile(client_).Run("UPDATE tank SET DIAMETER = 'wide' WHERE ID = 20");
  host_.ChooseFile(name_);
  host_.ExpectError(3421, "mDatabase.CopyData");
  host_.ExpectMessage("The following Error occurred:\r\n\r\n\r\nNumber: 0\r\n in MDIForm1.", "ORVEX", Buttons::kOk,
                      Icon::kNone);
  BackupClient(session_);
  ExpectRestored();
  // The new database stays as far as it got: the tables before, and of this one nothing but the structure.
  const auto copy = Database::Open(name_);
  EXPECT_EQ(copy->TableNames(), (std::vector<std::string>{"components", "emission", "fittings", "mixtures", "tank"}));
  EXPECT_EQ(copy->OpenTable("tank").RecordCount(), 0);
}

TEST_F(BackupTest, AFailureKeepsTheOlderBackup) {
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  const std::string older = test::FileContent(name_);
  test::RawFile(client_).Run("UPDATE tank SET DIAMETER = 'wide' WHERE ID = 20");
  host_.ChooseFile(name_);
  host_.ExpectError(3421, "mDatabase.CopyData");
  host_.ExpectError(0, "MDIForm1.");
  BackupClient(session_);
  EXPECT_EQ(test::FileContent(name_), older);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, AFullDiskIsToldWithThePathAndKeepsTheOlderBackup) {
  test::WriteFile(name_, "an older backup");
  {
    const test::FileSizeLimit full_disk(12000);
    host_.ChooseFile(name_);
    host_.ExpectError(3043, "mDatabase.CopyStruct");
    host_.ExpectError(0, "MDIForm1.");
    BackupClient(session_);
  }
  EXPECT_NE(host_.messages.front().find(name_), std::string::npos) << host_.messages.front();
  EXPECT_EQ(test::FileContent(name_), "an older backup");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
  ExpectRestored();
}

TEST_F(BackupTest, AFolderThatMayNotBeWrittenIsToldWithThePath) {
  test::WriteFile(name_, "an older backup");
  for (const auto& file : {tank_, client_}) fs::permissions(file, fs::perms{0666});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kClosedFolder, [&] { ExpectFailure(name_, 3043); }));
}

TEST_F(BackupTest, APlaceThatIsNoneIsToldWithThePath) {
  ExpectFailure(File("none.dir/backup.mdb"), 3044);
  fs::create_directory(File("folder.mdb"));
  ExpectFailure(File("folder.mdb"), 3043);
}

TEST_F(BackupTest, ADatabaseThatAnotherProgramWritesIsToldAndKeepsTheOlderBackup) {
  test::WriteFile(name_, "an older backup");
  test::RawFile other(client_);
  other.Run("BEGIN EXCLUSIVE");
  host_.ChooseFile(name_);
  host_.ExpectError(3260, "MDIForm1.");
  BackupClient(session_);
  EXPECT_EQ(test::FileContent(name_), "an older backup");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(BackupTest, AnOlderBackupThatAnotherProgramHasOpenIsKept) {
  const auto other = OtherClient();
  test::RawFile theirs(other);
  ExpectFailure(other, 3260);
  // Nothing of what the other one does later is lost.
  theirs.Run(R"(INSERT INTO tank ("USER ID") VALUES ('theirs'))");
  EXPECT_EQ(Database::Open(other)->OpenTable("tank").RecordCount(), 2);
}

TEST_F(BackupTest, AnOlderBackupThatIsWriteProtectedIsKept) {
  test::WriteFile(name_, "an older backup");
  for (const auto& file : {tank_, client_}) fs::permissions(file, fs::perms{0666});
  fs::permissions(name_, fs::perms{0444});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kOpenFolder, [&] { ExpectFailure(name_, 3043); }));
}

TEST_F(BackupTest, ThePersonSeesHowFarItIs) {
  {
    store::Transaction transaction(*session_.ClientDb);
    for (int i = 0; i < 2500; ++i) test::AddRow(*session_.ClientDb, "fittings", {{"ID", i}, {"FIT ID", 1}});
    transaction.Commit();
  }
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  ASSERT_FALSE(host_.progress.empty());
  // All records are copied and read back: 2500 fittings and 30 tanks, twice.
  constexpr std::int64_t kTotal = 2 * (2500 + 30);
  for (const auto& [done, total] : host_.progress) {
    EXPECT_EQ(total, kTotal);
    EXPECT_LE(done, total);
  }
  EXPECT_TRUE(std::is_sorted(host_.progress.begin(), host_.progress.end()));
  EXPECT_EQ(host_.progress.back().first, kTotal);
  EXPECT_NE(
      std::find(host_.progress.begin(), host_.progress.end(), std::pair<std::int64_t, std::int64_t>(1000, kTotal)),
      host_.progress.end())
      << "after each 1000 records";
}

/// The person who stops a command when it has told so often how far it is.
class StoppingHost : public test::ScriptedHost {
 public:
  explicit StoppingHost(int after) : left_(after) {}
  void Progress(std::int64_t, std::int64_t) override {
    if (left_-- == 0) throw Interrupted();
  }

 private:
  int left_;
};

TEST_F(BackupTest, AStoppedOneKeepsTheOlderBackupAtWhateverMomentItIsStopped) {
  // Each table tells once when it is copied and once when it is read back.
  for (int moment = 0; moment < 12; ++moment) {
    SCOPED_TRACE(moment);
    test::WriteFile(name_, "an older backup");
    StoppingHost host(moment);
    Session session(host);
    OpenClientDatabase(session, client_);
    host.ChooseFile(name_);
    EXPECT_THROW(BackupClient(session), Interrupted);
    EXPECT_EQ(test::FileContent(name_), "an older backup");
    EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
    EXPECT_EQ(host.status.back(), "Ready");
    // The database in use is not held on to.
    test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "later"}});
  }
}

TEST_F(BackupTest, ABackupCanBeRestored) {
  host_.ChooseFile(name_);
  ExpectCopied(name_);
  (void)session_.ClientDb->Execute("DELETE * FROM tank");
  host_.ChooseFile(name_);
  ExpectPlain(client_ + " was restored from " + name_ + ".");
  RestoreClient(session_);
  ExpectSameContent(*session_.ClientDb, *Database::Open(name_));
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 30);
}

TEST_F(BackupTest, WithoutADatabaseItIsToldSo) {
  session_.ClientDb.reset();
  host_.ExpectError(3420, "MDIForm1.");
  BackupClient(session_);
  EXPECT_TRUE(host_.file_requests.empty());
  ExpectRestored();
}

}  // namespace
}  // namespace orvex::shell
