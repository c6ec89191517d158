#include <algorithm>
#include <random>

#include "exchange/tank_import_fixture.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"

namespace orvex::exchange {
namespace {

using test::FileContent;
using test::kCorruptedMessage;
using test::kImportedMessage;
using test::kSetUpMessage;
using test::Rows;

constexpr const char* kSteps[] = {"mDatabase.IChemical", "mDatabase.IMet", "mDatabase.IFit", "mDatabase.IRim"};

class TankImportFaultsTest : public test::TankImportTest {
 protected:
  void AddTanks(int count) {
    for (int i = 1; i <= count; ++i) {
      const auto key = std::to_string(i);
      files_.AddTank(key, "T-" + key, {{"DESC", std::string(200, 'd')}});
      files_.AddFitting(key);
      files_.AddComponent(key, "1");
    }
  }

  /// All eight files, good, and their paths.
  void WriteAll() {
    files_.Write(test_.folder.Path());
    TypePaths();
    constexpr const char* kTables[] = {"chemical", "met", "fitting", "rimseal"};
    for (std::size_t i = 0; i < 4; ++i) {
      test::WriteReferenceFile(File(4 + i), test_.reference(), kTables[i]);
      TypePath(test_.session, form_, 4 + i, File(4 + i).string());
    }
  }

  /// The import ends with the told messages, and both databases are as they were.
  void ExpectRefused(std::size_t file, int number) {
    const auto client = FileContent(test_.client().Path());
    const auto reference = FileContent(test_.reference().Path());
    if (file >= 4) test_.host.ExpectError(number, kSteps[file - 4]);
    test_.host.ExpectMessage(kSetUpMessage);
    if (file < 4) test_.host.ExpectError(number, "frmImport.");
    ClickOK(test_.session, form_);
    EXPECT_FALSE(form_.window.closed);
    EXPECT_TRUE(test_.host.windows.empty());
    EXPECT_EQ(test_.host.status.back(), "Ready");
    EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
    EXPECT_TRUE(FileContent(test_.client().Path()) == client);
    EXPECT_TRUE(FileContent(test_.reference().Path()) == reference);
  }
};

TEST_F(TankImportFaultsTest, AFileThatIsNotThereEndsTheImportInEachOfTheEightPlaces) {
  AddTanks(2);
  for (std::size_t file = 0; file < 8; ++file) {
    SCOPED_TRACE(kImportFiles[file].file);
    WriteAll();
    std::filesystem::remove(File(file));
    ExpectRefused(file, 3024);
  }
}

TEST_F(TankImportFaultsTest, AFileOfAnotherKindEndsTheImportInEachOfTheEightPlaces) {
  AddTanks(2);
  std::mt19937 random(7);
  std::string noise(5000, ' ');
  for (auto& c : noise) c = static_cast<char>(random());
  for (std::size_t file = 0; file < 8; ++file) {
    SCOPED_TRACE(kImportFiles[file].file);
    for (const auto& content : {std::string(), std::string("\x03"), std::string("IDX_ID,ID\n1,T-1\n"), noise}) {
      WriteAll();
      test::WriteFile(File(file), content);
      ExpectRefused(file, 3274);
    }
  }
}

TEST_F(TankImportFaultsTest, AFileThatIsCutOffEndsTheImportInEachOfTheEightPlaces) {
  AddTanks(3);
  for (std::size_t file = 0; file < 8; ++file) {
    SCOPED_TRACE(kImportFiles[file].file);
    WriteAll();
    const auto whole = FileContent(File(file));
    for (const std::size_t size : {whole.size() - 10, whole.size() / 2, std::size_t{100}, std::size_t{31}}) {
      test::WriteFile(File(file), whole.substr(0, size));
      ExpectRefused(file, 3274);
    }
  }
}

TEST_F(TankImportFaultsTest, AHeadThatLiesEndsTheImportInEachOfTheEightPlaces) {
  AddTanks(2);
  for (std::size_t file = 0; file < 8; ++file) {
    SCOPED_TRACE(kImportFiles[file].file);
    // Number of records at 4, size of the head at 8, of a record at 10; little-endian.
    for (const auto& [place, bytes] :
         std::initializer_list<std::pair<std::size_t, std::string>>{{4, "\xff\xff\xff\x7f"},
                                                                    {8, std::string("\x01\x00", 2)},
                                                                    {10, std::string("\x00\x00", 2)},
                                                                    {10, "\xff\xff"}}) {
      WriteAll();
      auto content = FileContent(File(file));
      content.replace(place, bytes.size(), bytes);
      test::WriteFile(File(file), content);
      ExpectRefused(file, 3274);
    }
  }
}

TEST_F(TankImportFaultsTest, ATableOfOtherFieldsEndsTheImportInEachOfTheEightPlaces) {
  AddTanks(2);
  for (std::size_t file = 0; file < 8; ++file) {
    SCOPED_TRACE(kImportFiles[file].file);
    WriteAll();
    test::DbaseWriter(File(file), {test::TextColumn("IDX_ID", 10), test::TextColumn("NOTE", 10)}).Add({{"NOTE", "x"}});
    ExpectRefused(file, 3265);
  }
}

TEST_F(TankImportFaultsTest, AFolderInPlaceOfAFileEndsTheImport) {
  AddTanks(1);
  WriteAll();
  std::filesystem::remove(File(1));
  std::filesystem::create_directory(File(1));
  ExpectRefused(1, 3274);
}

// Records that cannot be imported -------------------------------------------------------------------------------------

TEST_F(TankImportFaultsTest, ARecordThatCannotBeReadIsLoggedAsCorruptedAndTheNextOneImported) {
  files_.AddTank("1", "Bad", {{"DIAMETER", "twenty"}});
  files_.AddTank("2", "Good");
  Import();
  EXPECT_EQ(Log(), (Rows{std::string("1|Bad|") + kCorruptedMessage, "2|Good|Record was successfully imported."}));
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM tank", {"USER ID"}), Rows{"Good"});
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(TankImportFaultsTest, NothingIsLeftOfATankThatFailsAtItsLastComponent) {
  test::AddRow(test_.client(), "tank", {{"USER ID", "Mine"}});
  files_.AddTank("1", "Bad");
  files_.AddFitting("1");
  files_.AddComponent("1", "1");
  files_.AddComponent("1", "first");
  files_.AddTank("2", "Good");
  files_.AddFitting("2");
  files_.AddComponent("2", "1");
  Import();
  EXPECT_EQ(Told(), (Rows{kCorruptedMessage, kImportedMessage}));
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM tank", {"USER ID"}), (Rows{"Mine", "Good"}));
  for (const auto* table : {"mixtures", "fittings", "components"}) EXPECT_EQ(Count(table), 1) << table;
  EXPECT_EQ(Row("components").Long("ID"), test_.client().OpenAt("tank", "USER ID", {"Good"}).Long("ID"));
}

TEST_F(TankImportFaultsTest, ValuesThatTheTablesCannotHoldAreCorrupted) {
  files_.AddTank("1", "Long name");
  files_.AddMixture("1", "2", {{"NAME", std::string(51, 'n')}, {"COMPONENT", "Multiple"}});
  files_.AddTank("2", "No number of a mixture");
  files_.AddComponent("2", "");
  files_.AddTank("3", "Too wide a number", {{"VOLUME", std::string(19, '*')}});
  files_.AddTank("4", "A mark that is none", {{"HEATED", "x"}});
  Import();
  EXPECT_EQ(Told(), Rows(4, kCorruptedMessage));
  for (const auto* table : {"tank", "mixtures", "components"}) EXPECT_EQ(Count(table), 0) << table;
}

TEST_F(TankImportFaultsTest, ARecordWhoseMarkIsDamagedIsNamedByItsNumber) {
  AddTanks(3);
  WriteAll();
  auto content = FileContent(File(0));
  const auto head =
      static_cast<std::size_t>(static_cast<unsigned char>(content[8])) + 256U * static_cast<unsigned char>(content[9]);
  const auto record = static_cast<std::size_t>(static_cast<unsigned char>(content[10])) +
                      256U * static_cast<unsigned char>(content[11]);
  content[head + record] = 'x';
  test::WriteFile(File(0), content);
  for (std::size_t i = 4; i < 8; ++i) TypePath(test_.session, form_, i, "");
  ClickOK(test_.session, form_);
  EXPECT_EQ(Log(), (Rows{"1|T-1|Record was successfully imported.", std::string("-|Record 2|") + kCorruptedMessage,
                         "3|T-3|Record was successfully imported."}));
}

TEST_F(TankImportFaultsTest, ADuplicateThatIsCorruptedTooLeavesTheTankThatIsThere) {
  test::AddVerticalTank(test_, {{"USER ID", "T-1"}});
  files_.AddTank("1", "T-1", {{"DIAMETER", "twenty"}});
  files_.AddComponent("1", "first");
  Import();
  EXPECT_EQ(Told(), Rows{"Duplicate tank (ID) in this client database."});
  EXPECT_EQ(Count("tank"), 1);
  EXPECT_EQ(Count("mixtures"), 1);
}

// Disks and databases -------------------------------------------------------------------------------------------------

TEST_F(TankImportFaultsTest, AFullDiskIsToldAndNothingHasChanged) {
  AddTanks(400);
  WriteAll();
  const auto client = FileContent(test_.client().Path());
  const auto reference = FileContent(test_.reference().Path());
  test_.host.ExpectError(3043, "frmImport.");
  {
    const test::FileSizeLimit limit(std::max(client.size(), reference.size()) + 20000);
    ClickOK(test_.session, form_);
  }
  EXPECT_FALSE(form_.window.closed);
  // The journal is played back by whoever reads first.
  EXPECT_TRUE(test_.client().IntegrityCheck());
  EXPECT_TRUE(test_.reference().IntegrityCheck());
  EXPECT_TRUE(FileContent(test_.client().Path()) == client);
  EXPECT_TRUE(FileContent(test_.reference().Path()) == reference);
  ClickOK(test_.session, form_);
  EXPECT_EQ(Count("tank"), 400) << "with room again";
}

TEST_F(TankImportFaultsTest, ADiskWithoutRoomForTheJournalIsTold) {
  AddTanks(400);
  WriteAll();
  const auto client = FileContent(test_.client().Path());
  test_.host.ExpectMessage(kSetUpMessage);
  test_.host.ExpectError(3043, "frmImport.");
  test::AddRow(test_.reference(), "import errors", {{"Error", "old"}});
  const auto logged = FileContent(test_.reference().Path());
  {
    const test::FileSizeLimit limit(100);
    ClickOK(test_.session, form_);
  }
  EXPECT_TRUE(FileContent(test_.client().Path()) == client);
  EXPECT_TRUE(FileContent(test_.reference().Path()) == logged);
}

TEST_F(TankImportFaultsTest, AReadOnlyDatabaseIsToldAndNothingHasChanged) {
  AddTanks(2);
  WriteAll();
  const auto client_path = test_.client().Path(), reference_path = test_.reference().Path();
  test_.session.ClientDb.reset();
  test_.session.ReferenceDb.reset();
  for (const auto& read_only : {client_path, reference_path}) {
    SCOPED_TRACE(read_only.filename().string());
    for (const auto& path : {client_path, reference_path})
      std::filesystem::permissions(path, std::filesystem::perms{path == read_only ? 0444U : 0666U});
    const auto before = FileContent(client_path) + FileContent(reference_path);
    EXPECT_TRUE(test::AsOrdinaryPerson(test_.folder.Path(), test::kOpenFolder, [&] {
      test_.session.ClientDb = store::Database::Open(client_path);
      test_.session.ReferenceDb = store::Database::Open(reference_path);
      test_.host.ExpectError(3027, "frmImport.");
      ClickOK(test_.session, form_);
      EXPECT_FALSE(form_.window.closed);
      EXPECT_EQ(test_.host.messages.size(), 1U);
    }));
    EXPECT_TRUE(FileContent(client_path) + FileContent(reference_path) == before);
  }
}

TEST_F(TankImportFaultsTest, AnotherProgramThatWritesOrReadsKeepsBothDatabasesAsTheyWere) {
  AddTanks(2);
  WriteAll();
  for (const auto purpose : {store::Transaction::Purpose::kWrite, store::Transaction::Purpose::kRead}) {
    for (auto* const database : {test_.session.ClientDb.get(), test_.session.ReferenceDb.get()}) {
      const auto before = FileContent(test_.client().Path()) + FileContent(test_.reference().Path());
      const auto other = store::Database::Open(database->Path());
      const store::Transaction held(*other, purpose);
      (void)other->OpenTable(other->TableNames().front()).RecordCount();
      test_.host.ExpectError(3260, "frmImport.");
      ClickOK(test_.session, form_);
      EXPECT_TRUE(FileContent(test_.client().Path()) + FileContent(test_.reference().Path()) == before);
    }
  }
  ClickOK(test_.session, form_);
  EXPECT_EQ(Count("tank"), 2);
}

// Stopped by the person -----------------------------------------------------------------------------------------------

class StoppingHost : public test::ScriptedHost {
 public:
  void Progress(std::int64_t done, std::int64_t total) override {
    ScriptedHost::Progress(done, total);
    if (static_cast<int>(progress.size()) == stop_at) throw shell::Interrupted{};
  }
  int stop_at = 0;
};

TEST_F(TankImportFaultsTest, AnImportThatThePersonStopsIsUndone) {
  AddTanks(20);
  WriteAll();
  const auto client = FileContent(test_.client().Path());
  const auto reference = FileContent(test_.reference().Path());
  StoppingHost host;
  shell::Session session(host);
  session.ClientDb = std::move(test_.session.ClientDb);
  session.ReferenceDb = std::move(test_.session.ReferenceDb);
  // Among the chemicals, at the first tank, at the last one.
  for (const int stop : {1, 8, 26}) {
    SCOPED_TRACE(stop);
    host.progress.clear();
    host.stop_at = stop;
    EXPECT_THROW(ClickOK(session, form_), shell::Interrupted);
    EXPECT_FALSE(form_.window.closed);
    EXPECT_TRUE(host.windows.empty());
    EXPECT_EQ(host.status.back(), "Ready");
    EXPECT_TRUE(FileContent(session.ClientDb->Path()) == client);
    EXPECT_TRUE(FileContent(session.ReferenceDb->Path()) == reference);
  }
  host.stop_at = 0;
  host.progress.clear();
  ClickOK(session, form_);
  EXPECT_EQ(session.ClientDb->OpenTable("tank").RecordCount(), 20);
  EXPECT_EQ(host.progress.back(), (std::pair<std::int64_t, std::int64_t>{20, 20}));
}

TEST_F(TankImportFaultsTest, ALongFileOfOneTankCanBeStopped) {
  files_.AddTank("1", "T-1");
  for (int i = 0; i < 2500; ++i) files_.AddFitting("1");
  files_.Write(test_.folder.Path());
  TypePaths();
  StoppingHost host;
  shell::Session session(host);
  session.ClientDb = std::move(test_.session.ClientDb);
  session.ReferenceDb = std::move(test_.session.ReferenceDb);
  // 2,500 records are read three times: found, checked and copied.
  host.stop_at = 7;
  EXPECT_THROW(ClickOK(session, form_), shell::Interrupted);
  EXPECT_EQ(host.progress.back(), (std::pair<std::int64_t, std::int64_t>{0, 1}));
  EXPECT_EQ(session.ClientDb->OpenTable("tank").RecordCount(), 0);
}

}  // namespace
}  // namespace orvex::exchange
