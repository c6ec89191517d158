#include "shell/restore.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>

#include "shell/database_files_fixture.h"
#include "shell/editing.h"
#include "shell/older_client.h"
#include "shell/shell_commands.h"
#include "store/raw_file.h"
#include "support/child_process.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::Database;

constexpr const char* kWrongStructure = "The database you specified does not have the appropriate structure.";

class RestoreTest : public test::DatabaseFilesFixture {
 protected:
  RestoreTest() {
    OpenBoth();
    test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "current"}});
    test::AddRow(*session_.ReferenceDb, "deckseam", {{"NAME", "current"}});
  }
  [[nodiscard]] std::string CurrentTank() { return session_.ClientDb->OpenTable("tank").Text("USER ID"); }

  void ExpectClientRestored(const std::string& chosen) {
    const std::string before = test::FileContent(chosen);
    host_.ChooseFile(chosen);
    ExpectPlain(client_ + " was restored from " + chosen + ".");
    RestoreClient(session_);
    ExpectRestored();
    ASSERT_TRUE(session_.ClientDb);
    EXPECT_EQ(CurrentTank(), "other");
    EXPECT_TRUE(session_.ClientDb->IntegrityCheck());
    EXPECT_EQ(test::FileContent(chosen), before);
  }
  /// The restore is refused or fails, and the database in use is still that, as it was.
  void ExpectNothingChanged(const std::string& chosen) {
    const std::string before = test::FileContent(client_);
    const std::string chosen_before = test::FileContent(chosen);
    const int entries = test::EntryCount(folder_.Path());
    host_.ChooseFile(chosen);
    RestoreClient(session_);
    ExpectRestored();
    EXPECT_EQ(test::FileContent(client_), before);
    EXPECT_EQ(test::FileContent(chosen), chosen_before);
    EXPECT_EQ(test::EntryCount(folder_.Path()), entries);
    ASSERT_TRUE(session_.ClientDb);
    EXPECT_EQ(CurrentTank(), "current");
    // And it can be worked with.
    test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "later"}});
    EXPECT_EQ(Database::Open(client_)->OpenTable("tank").RecordCount(), 2);
  }
};

TEST_F(RestoreTest, TheTankDatabaseIsReplacedAndOpened) {
  const auto other = OtherTank();
  host_.ChooseFile(other);
  ExpectPlain(tank_ + " was restored from " + other + ".");
  RestoreTank(session_);
  ExpectRestored();
  EXPECT_EQ(session_.TankPath, tank_);
  EXPECT_EQ(session_.ReferenceDb->OpenTable("deckseam").Text("NAME"), "other");
  EXPECT_EQ(Database::Open(tank_)->OpenTable("deckseam").Text("NAME"), "other");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
}

TEST_F(RestoreTest, TheClientDatabaseIsReplacedAndOpened) {
  ExpectClientRestored(OtherClient());
  EXPECT_EQ(session_.ClientPath, client_);
  EXPECT_EQ(Database::Open(client_)->OpenTable("tank").Text("USER ID"), "other");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
  // The file chosen and the one in use go on apart.
  test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "later"}});
  EXPECT_EQ(Database::Open(File("Other Client.mdb"))->OpenTable("tank").RecordCount(), 1);
}

TEST_F(RestoreTest, TheDialogAndTheStatusAreAsTheyShouldBe) {
  ExpectCancelledDialogs(RestoreTank, "Restore Tank Database From", RestoreClient, "Restore Client Database From");
}

TEST_F(RestoreTest, ThePathInUseIsRefusedHoweverItIsWritten) {
  fs::create_symlink(client_, File("link.mdb"));
  fs::create_hard_link(client_, File("second name.mdb"));
  for (const auto& name : {client_, File("CLIENT1.MDB"), File("client1.mdb"), File("./Client1.mdb"), File("link.mdb"),
                           File("second name.mdb")}) {
    SCOPED_TRACE(name);
    ExpectPlain("Restore path is the same as the current database!");
    host_.ChooseFile(name);
    RestoreClient(session_);
    ExpectRestored();
    EXPECT_EQ(CurrentTank(), "current");
  }
}

TEST_F(RestoreTest, AFileWithoutTheTablesIsRefused) {
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(OtherTank());
}

TEST_F(RestoreTest, AFileThatLacksOneTableIsRefused) {
  const auto lacking = OtherClient();
  Database::Open(lacking)->DeleteTable("error");
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(lacking);
}

TEST_F(RestoreTest, ATankDatabaseWithoutImportErrorsIsGoodEnough) {
  const auto other = OtherTank();
  Database::Open(other)->DeleteTable("import errors");
  host_.ChooseFile(other);
  ExpectPlain(tank_ + " was restored from " + other + ".");
  RestoreTank(session_);
  EXPECT_FALSE(session_.ReferenceDb->HasTable("import errors"));
}

TEST_F(RestoreTest, ATextFileIsRefused) {
  test::WriteFile(File("letter.mdb"), "Dear reader,\n");
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(File("letter.mdb"));
}

TEST_F(RestoreTest, ATextWithTheMarkOfALogIsRefused) {
  test::WriteFile(File("letter.mdb"), std::string(18, 'x') + "\x02\x02");
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(File("letter.mdb"));
}

TEST_F(RestoreTest, AFileThatIsNotThereIsRefused) {
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(File("none.mdb"));
}

TEST_F(RestoreTest, AFileThatIsCutOffIsRefused) {
  const auto cut = OtherClient();
  fs::resize_file(cut, fs::file_size(cut) - 1000);
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(cut);
}

TEST_F(RestoreTest, AFileThatIsDamagedWhereNobodyLooksAtFirstIsRefused) {
  const auto damaged = OtherClient();
  {
    const auto client = Database::Open(damaged);
    store::Transaction transaction(*client);
    for (int i = 0; i < 500; ++i) test::AddRow(*client, "tank", {{"DESC", std::string(200, 'd')}});
    transaction.Commit();
  }
  std::string content = test::FileContent(damaged);
  std::fill(content.end() - 5 * 4096, content.end(), '\x55');
  test::WriteFile(damaged, content);
  ExpectPlain(kWrongStructure);
  ExpectNothingChanged(damaged);
}

TEST_F(RestoreTest, AnotherProgramAtWorkOnTheFileChosenIsNotDisturbed) {
  const auto chosen = OtherClient();
  test::RawFile writer(chosen);
  // Rows that are not committed are no part of it.
  writer.Run(R"(BEGIN IMMEDIATE; INSERT INTO tank ("USER ID") VALUES ('unfinished'))");
  ExpectClientRestored(chosen);
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 1);
  writer.Run("COMMIT");
  EXPECT_EQ(Database::Open(chosen)->OpenTable("tank").RecordCount(), 2);
}

TEST_F(RestoreTest, AFileThatKeepsALogComesWithWhatStandsInTheLog) {
  const auto source = File("with log.mdb");
  const auto chosen = File("taken along.mdb");
  Database::Create(source, store::ClientTables());
  {
    test::RawFile writer(source);
    writer.Run(R"(PRAGMA journal_mode = WAL; INSERT INTO tank ("USER ID") VALUES ('other'))");
    // Once while the other program has it open, once the files as they were copied by hand meanwhile.
    ExpectClientRestored(source);
    fs::copy_file(source, chosen);
    fs::copy_file(source + "-wal", chosen + "-wal");
  }
  const std::string log = test::FileContent(chosen + "-wal");
  ExpectClientRestored(chosen);
  EXPECT_EQ(test::FileContent(chosen + "-wal"), log);
  EXPECT_FALSE(fs::exists(chosen + "-shm"));
  EXPECT_FALSE(fs::exists(client_ + "-wal"));
  EXPECT_EQ(test::FileContent(client_)[18], '\x01') << "The database in use keeps no log.";
}

TEST_F(RestoreTest, AFileThatAKilledProgramLeftAtWorkIsRestoredAsItWasBeforeThat) {
  const auto chosen = OtherClient();
  test::ChildProcess writer([&] {
    test::RawFile file(chosen);
    // So little memory that changed pages reach the file before they are committed.
    file.Run(R"(PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE; UPDATE tank SET "USER ID" = 'torn';
                WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)
                INSERT INTO tank ("USER ID", DESC) SELECT i, hex(zeroblob(100)) FROM n)");
    kill(getpid(), SIGKILL);
    return 0;
  });
  EXPECT_EQ(writer.Wait(), -1);
  const std::string journal = test::FileContent(chosen + "-journal");
  ASSERT_FALSE(journal.empty());
  ExpectClientRestored(chosen);
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 1);
  EXPECT_EQ(test::FileContent(chosen + "-journal"), journal);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 4) << "two databases, the file chosen and its journal";
}

TEST_F(RestoreTest, AClientOfAnOlderReleaseIsBroughtUpToDate) {
  const auto older = File("older.mdb");
  test::MakeOlderClient(older);
  test::AddRow(*Database::Open(older), "tank", {{"USER ID", "other"}});
  ExpectClientRestored(older);
  EXPECT_EQ(session_.ClientDb->Fields("emission")[5].name, "CAS");
}

TEST_F(RestoreTest, ATankThatWasBeingCreatedInTheBackupIsOffered) {
  static int offered;
  offered = 0;
  session_.offerUnsavedTank = [](Session&) { ++offered; };
  ExpectClientRestored(OtherClient());
  EXPECT_EQ(offered, 1);
}

TEST_F(RestoreTest, ADamagedDatabaseThatIsNotOpenCanBeReplaced) {
  session_.ClientDb.reset();
  test::WriteFile(client_, "torn");
  session_.commands.assign(std::begin(kShellCommands), std::end(kShellCommands));
  host_.ChooseFile(OtherClient());
  ExpectPlain(client_ + " was restored from " + File("Other Client.mdb") + ".");
  RunCommand(session_, "mnuRestoreClient");
  ASSERT_TRUE(session_.ClientDb);
  EXPECT_EQ(CurrentTank(), "other");
}

TEST_F(RestoreTest, ADatabaseThatHasGoneIsReplacedWhereTheSettingsHaveIt) {
  session_.ReferenceDb.reset();
  session_.TankPath.clear();
  fs::remove(tank_);
  const auto place = (session_.application_folder / "tankdata.mdb").string();
  host_.ChooseFile(OtherTank());
  ExpectPlain(place + " was restored from " + File("Other Tank.mdb") + ".");
  RestoreTank(session_);
  EXPECT_EQ(session_.TankPath, place);
  EXPECT_EQ(session_.ReferenceDb->OpenTable("deckseam").Text("NAME"), "other");
}

TEST_F(RestoreTest, TheFileBehindALinkIsReplacedWithItsRights) {
  const auto real = File("real.mdb");
  session_.ClientDb.reset();
  fs::rename(client_, real);
  fs::create_symlink(real, client_);
  fs::permissions(real, fs::perms{0640});
  OpenClientDatabase(session_, client_);
  ExpectClientRestored(OtherClient());
  EXPECT_TRUE(fs::is_symlink(client_));
  EXPECT_EQ(Database::Open(real)->OpenTable("tank").Text("USER ID"), "other");
  EXPECT_EQ(fs::status(real).permissions(), fs::perms{0640});
}

TEST_F(RestoreTest, AWriteProtectedBackupGivesADatabaseThatCanBeWritten) {
  const auto chosen = OtherClient();
  fs::permissions(chosen, fs::perms{0444});
  ExpectClientRestored(chosen);
  EXPECT_NE(fs::status(client_).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(RestoreTest, AWriteProtectedDatabaseIsKept) {
  const auto chosen = OtherClient();
  fs::permissions(client_, fs::perms{0444});
  for (const auto& file : {tank_, chosen}) fs::permissions(file, fs::perms{0666});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kOpenFolder, [&] {
    host_.ChooseFile(chosen);
    host_.ExpectError(3043, "MDIForm1.");
    RestoreClient(session_);
    EXPECT_EQ(CurrentTank(), "current");
    EXPECT_NE(host_.messages.back().find(client_), std::string::npos) << host_.messages.back();
  }));
}

TEST_F(RestoreTest, AFolderThatMayNotBeWrittenIsToldAndTheDatabaseKept) {
  const auto chosen = OtherClient();
  for (const auto& file : {tank_, client_, chosen}) fs::permissions(file, fs::perms{0666});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kClosedFolder, [&] {
    host_.ChooseFile(chosen);
    host_.ExpectError(3043, "MDIForm1.");
    RestoreClient(session_);
    EXPECT_EQ(CurrentTank(), "current");
    EXPECT_NE(host_.messages.back().find(client_), std::string::npos) << host_.messages.back();
  }));
}

TEST_F(RestoreTest, AFullDiskIsToldAndTheDatabaseKept) {
  const auto chosen = OtherClient();
  {
    const test::FileSizeLimit full_disk(12000);
    host_.ChooseFile(chosen);
    host_.ExpectError(3043, "MDIForm1.");
    RestoreClient(session_);
  }
  EXPECT_NE(host_.messages.back().find(client_), std::string::npos) << host_.messages.back();
  EXPECT_EQ(CurrentTank(), "current");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
  ExpectRestored();
}

TEST_F(RestoreTest, ADatabaseThatAnotherProgramHasOpenIsKept) {
  const auto chosen = OtherClient();
  test::RawFile other(client_);
  other.Run("SELECT * FROM tank");
  host_.ExpectError(3260, "MDIForm1.");
  ExpectNothingChanged(chosen);
  // Nothing of what the other one does later is lost.
  other.Run(R"(INSERT INTO tank ("USER ID") VALUES ('theirs'))");
  EXPECT_EQ(session_.ClientDb->OpenTable("tank").RecordCount(), 3);
}

TEST_F(RestoreTest, ADatabaseThatAnotherProgramEditsIsKept) {
  const auto editing = store::LockFile::Take(EditingPath(client_));
  host_.ExpectMessage("The client database " + client_ +
                          " is being edited by another program. Nothing was changed. Close the tank there, then try "
                          "again.",
                      "ORVEX", Buttons::kOk, Icon::kExclamation);
  ExpectNothingChanged(OtherClient());
}

TEST_F(RestoreTest, ADatabaseIsKeptWhileAWindowOfThisProgramEditsIt) {
  const auto editing = BeginEditing(session_, DatabaseKind::kClient);
  host_.ExpectMessage(
      "The client database " + client_ + " is being edited. Nothing was changed. Close the tank first, then try again.",
      "ORVEX", Buttons::kOk, Icon::kExclamation);
  RestoreClient(session_);
  EXPECT_TRUE(host_.file_requests.empty());
  EXPECT_EQ(CurrentTank(), "current");
}

TEST_F(RestoreTest, OpenWindowsAreClosedBeforeTheFileGoes) {
  ExpectClientRestored(OtherClient());
  EXPECT_EQ(host_.closed_but, std::vector<std::string>{""});
}

/// The person who stops a command as soon as it tells how far it is.
class StoppingHost : public test::ScriptedHost {
 public:
  void Progress(std::int64_t, std::int64_t) override { throw Interrupted(); }
};

TEST_F(RestoreTest, AStoppedRestoreLeavesTheDatabaseInUse) {
  const auto chosen = OtherClient();
  {
    const auto client = Database::Open(chosen);
    store::Transaction transaction(*client);
    for (int i = 0; i < 30000; ++i) test::AddRow(*client, "tank", {{"DESC", std::string(200, 'd')}});
    transaction.Commit();
  }
  const std::string before = test::FileContent(client_);
  StoppingHost host;
  Session session(host);
  OpenClientDatabase(session, client_);
  host.ChooseFile(chosen);
  EXPECT_THROW(RestoreClient(session), Interrupted);
  EXPECT_EQ(session.ClientDb->OpenTable("tank").Text("USER ID"), "current");
  EXPECT_EQ(test::FileContent(client_), before);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);
  EXPECT_EQ(host.status.back(), "Ready");
}

}  // namespace
}  // namespace orvex::shell
