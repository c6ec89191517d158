#include "store/database.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;

constexpr std::size_t kPage = 4096;

class DatabaseFile : public testing::Test {
 protected:
  std::filesystem::path File(const std::string& name) { return folder.Path() / name; }
  std::filesystem::path Client() {
    const auto path = File("client.mdb");
    Database::Create(path, ClientTables());
    return path;
  }
  /// Opening must fail with this error and a description that names the file, and must leave the folder as it is.
  void ExpectRefused(const std::filesystem::path& path, ErrorNumber number) {
    const int entries = test::EntryCount(folder.Path());
    for (const OpenMode mode : {OpenMode::kReadWrite, OpenMode::kReadOnly}) {
      try {
        Database::Open(path, mode);
        ADD_FAILURE() << path << " should be refused";
      } catch (const RunTimeError& error) {
        EXPECT_EQ(static_cast<int>(error.Number()), static_cast<int>(number)) << error.Description();
        EXPECT_NE(error.Description().find(path.string()), std::string::npos) << error.Description();
      }
    }
    EXPECT_EQ(test::EntryCount(folder.Path()), entries);
  }
  test::TemporaryFolder folder;
};

// Opening ------------------------------------------------------------------------------------------------------------

TEST_F(DatabaseFile, AMissingFileAndAMissingFolderAreToldApart) {
  ExpectRefused(File("none.mdb"), ErrorNumber::kFileNotFound);
  ExpectRefused(File("none") / "client.mdb", ErrorNumber::kInvalidPath);
  test::WriteFile(File("file"), "x");
  ExpectRefused(File("file") / "client.mdb", ErrorNumber::kInvalidPath);
  EXPECT_RUN_TIME_ERROR(Database::Open("no-such-file-in-this-folder.mdb"), ErrorNumber::kFileNotFound);
}

TEST_F(DatabaseFile, WhatIsNoDatabaseIsRefused) {
  std::filesystem::create_directory(File("folder.mdb"));
  ExpectRefused(File("folder.mdb"), ErrorNumber::kNotADatabase);
  test::WriteFile(File("empty.mdb"), "");
  ExpectRefused(File("empty.mdb"), ErrorNumber::kNotADatabase);
  test::WriteFile(File("text.mdb"), "Dear reader,\n");
  ExpectRefused(File("text.mdb"), ErrorNumber::kNotADatabase);
  test::WriteFile(File("long.mdb"), std::string(100000, 'x'));
  ExpectRefused(File("long.mdb"), ErrorNumber::kNotADatabase);
  std::string almost = test::FileContent(Client());
  almost[5] = 'X';
  test::WriteFile(File("almost.mdb"), almost);
  ExpectRefused(File("almost.mdb"), ErrorNumber::kNotADatabase);
}

TEST_F(DatabaseFile, AFileCutOffAnywhereIsRefused) {
  const std::string whole = test::FileContent(Client());
  const auto path = File("cut.mdb");
  std::vector<std::size_t> lengths = {1, 15, 16, 17, 99, 100, 101, whole.size() - 1};
  for (std::size_t length = kPage; length < whole.size(); length += kPage) lengths.push_back(length);
  for (std::size_t length = 511; length < whole.size(); length += 1009) lengths.push_back(length);
  for (const auto length : lengths) {
    SCOPED_TRACE(length);
    test::WriteFile(path, whole.substr(0, length));
    ExpectRefused(path, ErrorNumber::kDamagedFile);
  }
  test::WriteFile(path, whole);
  EXPECT_TRUE(Database::Open(path)->IntegrityCheck());
}

TEST_F(DatabaseFile, AFileCutOffIsRefusedAlsoWithAJournalBesideIt) {
  const std::string whole = test::FileContent(Client());
  test::WriteFile(File("cut.mdb"), whole.substr(0, 2 * kPage));
  test::WriteFile(File("cut.mdb-journal"), "no journal either");
  EXPECT_RUN_TIME_ERROR(Database::Open(File("cut.mdb")), ErrorNumber::kDamagedFile);
}

TEST_F(DatabaseFile, AHeaderFollowedByGarbageIsRefused) {
  std::string content = test::FileContent(Client());
  std::fill(content.begin() + 100, content.end(), '\xAA');
  test::WriteFile(File("garbage.mdb"), content);
  ExpectRefused(File("garbage.mdb"), ErrorNumber::kDamagedFile);
}

TEST_F(DatabaseFile, AFileOfANewerFormatIsRefused) {
  std::string content = test::FileContent(Client());
  content[44 + 3] = 9;  // the format number of the schema
  test::WriteFile(File("newer.mdb"), content);
  ExpectRefused(File("newer.mdb"), ErrorNumber::kDamagedFile);
}

TEST_F(DatabaseFile, AFileThatAnotherProgramHoldsIsLocked) {
  const auto path = Client();
  test::RawFile other(path);
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_RUN_TIME_ERROR(Database::Open(path), ErrorNumber::kFileLocked);
  other.Run("COMMIT");
  EXPECT_NO_THROW(Database::Open(path));
}

TEST_F(DatabaseFile, AFileOpenedForReadingCannotBeWritten) {
  const auto path = Client();
  AddRow(*Database::Open(path), "tank", {{"USER ID", "a"}});
  const std::string before = test::FileContent(path);
  const auto client = Database::Open(path, OpenMode::kReadOnly);
  EXPECT_TRUE(client->ReadOnly());
  EXPECT_FALSE(Database::Open(path)->ReadOnly());
  auto tanks = client->OpenTable("tank");
  EXPECT_EQ(tanks.Text("USER ID"), "a");
  EXPECT_RUN_TIME_ERROR(AddRow(*client, "tank", {{"USER ID", "b"}}), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(tanks.Delete(), ErrorNumber::kReadOnly);
  tanks.Edit();
  tanks.Set("USER ID", "b");
  EXPECT_RUN_TIME_ERROR(tanks.Update(), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(client->Execute("DELETE * FROM tank"), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(client->Execute("SELECT * INTO copy FROM tank"), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(client->DeleteTable("tank"), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(Transaction{*client}, ErrorNumber::kReadOnly);
  EXPECT_EQ(test::FileContent(path), before);
}

TEST_F(DatabaseFile, NamesBeyondAsciiAndWithBlanksAreFine) {
  const auto path = File("Lager T\xC3\xA4nke 'n' % ? #.mdb");
  AddRow(*Database::Create(path, ClientTables()), "tank", {{"USER ID", "T\xC3\xA4nk"}});
  EXPECT_EQ(Database::Open(path)->OpenTable("tank").Text("USER ID"), "T\xC3\xA4nk");
  EXPECT_EQ(Database::Open(path)->Path(), path);
}

// Creating -----------------------------------------------------------------------------------------------------------

TEST_F(DatabaseFile, CreateLeavesAnExistingFileAlone) {
  test::WriteFile(File("client.mdb"), "mine");
  EXPECT_RUN_TIME_ERROR(Database::Create(File("client.mdb"), ClientTables()), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(test::FileContent(File("client.mdb")), "mine");
  EXPECT_RUN_TIME_ERROR(Database::Create(folder.Path(), ClientTables()), ErrorNumber::kAlreadyExists);
  EXPECT_RUN_TIME_ERROR(Database::Create(File("none") / "client.mdb", ClientTables()), ErrorNumber::kInvalidPath);
  EXPECT_RUN_TIME_ERROR(Database::Create(File(std::string(300, 'x')), ClientTables()), ErrorNumber::kDiskFailure);
}

TEST_F(DatabaseFile, CreateThatFailsLeavesNoFile) {
  const test::FileSizeLimit full_disk(3 * kPage);
  EXPECT_RUN_TIME_ERROR(Database::Create(File("client.mdb"), ClientTables()), ErrorNumber::kDiskFailure);
  EXPECT_EQ(test::EntryCount(folder.Path()), 0);
}

TEST_F(DatabaseFile, TablesReadBackAsTheFieldTablesTellThem) {
  for (const auto tables : {ClientTables(), ReferenceTables()}) {
    const auto path = File(std::string(tables.front().name) + ".mdb");
    Database::Create(path, tables);
    const auto database = Database::Open(path);
    const auto names = database->TableNames();
    ASSERT_EQ(names.size(), tables.size());
    for (std::size_t t = 0; t < tables.size(); ++t) {
      const auto& table = tables[t];
      SCOPED_TRACE(table.name);
      EXPECT_EQ(names[t], table.name);
      EXPECT_TRUE(database->HasTable(table.name));
      const auto fields = database->Fields(table.name);
      ASSERT_EQ(fields.size(), table.fields.size());
      for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(fields[i].name, table.fields[i].name);
        EXPECT_EQ(fields[i].type, table.fields[i].type) << fields[i].name;
        EXPECT_EQ(fields[i].width, table.fields[i].width) << fields[i].name;
      }
      auto indexes = database->Indexes(table.name);
      ASSERT_EQ(indexes.size(), table.indexes.size());
      for (const auto& index : table.indexes) {
        const auto stored = std::find_if(indexes.begin(), indexes.end(),
                                         [&](const StoredIndex& candidate) { return candidate.name == index.name; });
        ASSERT_NE(stored, indexes.end()) << index.name;
        EXPECT_EQ(stored->unique, index.unique) << index.name;
        EXPECT_TRUE(std::equal(stored->fields.begin(), stored->fields.end(), index.fields.begin(), index.fields.end()))
            << index.name;
      }
    }
    EXPECT_TRUE(database->IntegrityCheck());
  }
}

// Table definitions --------------------------------------------------------------------------------------------------

TEST_F(DatabaseFile, ATableCanBeMadeAndDeleted) {
  const auto database = Database::Create(File("new.mdb"), {});
  EXPECT_TRUE(database->TableNames().empty());
  database->CreateTable("my \"table\"", {{"Row", FieldType::kCounter, 0}, {"A \"name\"", FieldType::kText, 5}},
                        {{"by name", {"A \"name\""}, true}});
  EXPECT_TRUE(database->HasTable("MY \"TABLE\""));
  AddRow(*database, "my \"table\"", {{"a \"name\"", "x"}});
  EXPECT_RUN_TIME_ERROR(AddRow(*database, "my \"table\"", {{"a \"name\"", "X"}}), ErrorNumber::kDuplicateKey);
  EXPECT_RUN_TIME_ERROR(database->CreateTable("My \"Table\"", {{"a", FieldType::kLong, 0}}, {}),
                        ErrorNumber::kAlreadyExists);
  database->DeleteTable("MY \"table\"");
  EXPECT_FALSE(database->HasTable("my \"table\""));
  EXPECT_RUN_TIME_ERROR(database->OpenTable("my \"table\""), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(database->Fields("my \"table\""), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(database->DeleteTable("my \"table\""), ErrorNumber::kObjectNotFound);
}

TEST_F(DatabaseFile, ATableWhoseIndexNamesNoFieldIsNotMade) {
  const auto database = Database::Create(File("new.mdb"), {});
  EXPECT_RUN_TIME_ERROR(database->CreateTable("t", {{"a", FieldType::kLong, 0}}, {{"i", {"b"}, false}}),
                        ErrorNumber::kDamagedFile);
  EXPECT_FALSE(database->HasTable("t"));
}

TEST_F(DatabaseFile, ATableMadeAnewUnderTheSameNameHasItsNewFields) {
  const auto database = Database::Create(File("new.mdb"), {});
  database->CreateTable("t", {{"a", FieldType::kLong, 0}}, {});
  AddRow(*database, "t", {{"a", 1}});
  database->DeleteTable("T");
  database->CreateTable("t", {{"b", FieldType::kText, 0}}, {});
  AddRow(*database, "t", {{"b", std::string(10000, 'x')}});
  EXPECT_EQ(database->OpenTable("t").Text("b").size(), 10000U) << "width 0 is no limit";
}

TEST_F(DatabaseFile, ARecordSetKeepsTheFileOpen) {
  auto database = Database::Create(File("client.mdb"), ClientTables());
  AddRow(*database, "tank", {{"USER ID", "a"}});
  auto table = database->OpenTable("tank");
  auto keyed = database->OpenQuery("SELECT * FROM tank");
  auto snapshot = database->OpenQuery("SELECT [USER ID] FROM tank");
  database.reset();
  table.Edit();
  table.Set("USER ID", "b");
  table.Update();
  EXPECT_EQ(keyed.Text("USER ID"), "b");
  EXPECT_EQ(snapshot.Text("USER ID"), "a");
  keyed.Requery();
  snapshot.Requery();
  EXPECT_EQ(keyed.Text("USER ID"), "b");
  EXPECT_EQ(snapshot.Text("USER ID"), "b");
}

TEST_F(DatabaseFile, AnIntegrityCheckFindsADamagedIndex) {
  const auto path = Client();
  {
    const auto client = Database::Open(path);
    Transaction transaction(*client);
    for (int i = 0; i < 50; ++i) AddRow(*client, "tank", {{"USER ID", "tank " + std::to_string(i)}});
    transaction.Commit();
    EXPECT_TRUE(client->IntegrityCheck());
  }
  std::string content = test::FileContent(path);
  // The index holds the text behind the table's pages, too: change the one in the index only.
  const auto at = content.rfind("tank 17");
  ASSERT_NE(at, content.find("tank 17"));
  content[at + 5] = '9';
  test::WriteFile(path, content);
  EXPECT_FALSE(Database::Open(path)->IntegrityCheck());
}

TEST_F(DatabaseFile, AnIntegrityCheckAnswersForAPageThatIsGarbage) {
  std::string content = test::FileContent(Client());
  std::fill(content.begin() + 2 * kPage, content.begin() + 3 * kPage, '\x55');
  test::WriteFile(File("damaged.mdb"), content);
  EXPECT_FALSE(Database::Open(File("damaged.mdb"))->IntegrityCheck());
}

}  // namespace
}  // namespace orvex::store
