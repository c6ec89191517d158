#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "store/database.h"
#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

/// Files that another program has written or changed.
namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::RawFile;
using test::Rows;

class ForeignFile : public testing::Test {
 protected:
  /// A client database that another program changes with this SQL.
  std::unique_ptr<Database> Changed(const std::string& sql) {
    Database::Create(path, ClientTables());
    RawFile(path).Run(sql);
    return Database::Open(path);
  }
  /// A file that another program made with this SQL.
  std::unique_ptr<Database> Made(const std::string& sql) {
    RawFile(path).Run(sql);
    return Database::Open(path);
  }
  /// The description of the error that reading a field gives.
  template <typename Read>
  std::string Failure(ErrorNumber number, Read read) {
    try {
      read();
    } catch (const RunTimeError& error) {
      EXPECT_EQ(static_cast<int>(error.Number()), static_cast<int>(number)) << error.Description();
      return error.Description();
    }
    ADD_FAILURE() << "reading should fail";
    return {};
  }
  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "foreign.mdb";
};

void ExpectNamesField(const std::string& description) {
  EXPECT_NE(description.find("'DIAMETER'"), std::string::npos) << description;
  EXPECT_NE(description.find("'tank'"), std::string::npos) << description;
}

TEST_F(ForeignFile, ATextInANumberFieldIsAnErrorThatNamesTheField) {
  const auto client = Changed(R"(INSERT INTO tank ("USER ID", "DIAMETER") VALUES ('a', 'wide'))");
  auto tanks = client->OpenTable("tank");
  ExpectNamesField(Failure(ErrorNumber::kTypeMismatch, [&] { (void)tanks.Double("DIAMETER"); }));
  ExpectNamesField(Failure(ErrorNumber::kTypeMismatch, [&] { (void)tanks.DoubleOrZero("DIAMETER"); }));
  ExpectNamesField(Failure(ErrorNumber::kTypeMismatch, [&] { (void)tanks.Long("DIAMETER"); }));
  ExpectNamesField(Failure(ErrorNumber::kTypeMismatch, [&] { (void)tanks.Bool("DIAMETER"); }));
  EXPECT_EQ(tanks.Text("DIAMETER"), "wide") << "it can be shown";
  EXPECT_EQ(tanks.Text("USER ID"), "a") << "and its neighbours be read";
  tanks.Edit();
  tanks.Set("DIAMETER", 12.0);
  tanks.Update();
  EXPECT_EQ(tanks.Double("DIAMETER"), 12) << "and be mended";
}

TEST_F(ForeignFile, AnInfiniteNumberIsAnErrorThatNamesTheField) {
  const auto client = Changed(R"(INSERT INTO tank ("USER ID", "DIAMETER") VALUES ('a', 9e999), ('b', -9e999))");
  auto tanks = client->OpenTable("tank");
  for (; !tanks.AtEnd(); tanks.MoveNext()) {
    ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.Double("DIAMETER"); }));
    ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.DoubleOrZero("DIAMETER"); }));
    ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.Text("DIAMETER"); }));
    ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.Get("DIAMETER"); }));
  }
  tanks.MoveFirst();
  ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.GetRows(1); }));
  auto query = client->OpenQuery("SELECT DIAMETER FROM tank");
  EXPECT_NE(Failure(ErrorNumber::kOverflow, [&] { (void)query.Double("DIAMETER"); }).find("'DIAMETER'"),
            std::string::npos);
  EXPECT_RUN_TIME_ERROR(client->Execute("SELECT DIAMETER INTO copy FROM tank"), ErrorNumber::kOverflow);
  // What SQLite cannot count becomes null.
  EXPECT_EQ(QueryRows(*client, "SELECT DIAMETER - DIAMETER AS d FROM tank", {"d"}), (Rows{"-", "-"}));
}

TEST_F(ForeignFile, BytesInANumberFieldAreAnErrorThatNamesTheField) {
  const auto client = Changed(R"(INSERT INTO tank ("USER ID", "DIAMETER") VALUES (x'00', x'FFFE00'), ('b', x''))");
  auto tanks = client->OpenTable("tank");
  for (; !tanks.AtEnd(); tanks.MoveNext()) {
    ExpectNamesField(Failure(ErrorNumber::kTypeMismatch, [&] { (void)tanks.Double("DIAMETER"); }));
  }
  tanks.MoveFirst();
  EXPECT_EQ(tanks.Text("USER ID"), std::string(1, '\0'));
}

TEST_F(ForeignFile, ANumberOutsideALongIsAnErrorThatNamesTheField) {
  const auto client = Changed(R"(INSERT INTO tank ("ID", "DIAMETER") VALUES (9000000000, 3e9))");
  auto tanks = client->OpenTable("tank");
  ExpectNamesField(Failure(ErrorNumber::kOverflow, [&] { (void)tanks.Long("DIAMETER"); }));
  EXPECT_RUN_TIME_ERROR(tanks.Long("ID"), ErrorNumber::kOverflow);
}

TEST_F(ForeignFile, NullsNameTheirField) {
  const auto client = Changed(R"(INSERT INTO tank ("USER ID") VALUES ('a'))");
  auto tanks = client->OpenTable("tank");
  ExpectNamesField(Failure(ErrorNumber::kInvalidUseOfNull, [&] { (void)tanks.Double("DIAMETER"); }));
}

TEST_F(ForeignFile, TriggersDoNothing) {
  const auto client = Changed(R"(
    INSERT INTO tank ("USER ID") VALUES ('a');
    CREATE TRIGGER t1 AFTER INSERT ON tank BEGIN DELETE FROM tank; END;
    CREATE TRIGGER t2 AFTER UPDATE ON tank BEGIN DELETE FROM tank; END;
    CREATE TRIGGER t3 BEFORE DELETE ON tank BEGIN SELECT RAISE(ABORT, 'no'); END;)");
  AddRow(*client, "tank", {{"USER ID", "b"}});
  test::ChangeRow(*client, "tank", "USER ID", {"b"}, {{"DIAMETER", 1.0}});
  EXPECT_EQ(client->OpenTable("tank").RecordCount(), 2);
  EXPECT_EQ(client->Execute("DELETE * FROM tank WHERE ID = 1"), 1);
}

TEST_F(ForeignFile, AViewIsNoTable) {
  const auto client = Changed(R"(DROP TABLE tank; CREATE VIEW tank AS SELECT * FROM mixtures)");
  EXPECT_FALSE(client->HasTable("tank"));
  EXPECT_RUN_TIME_ERROR(client->OpenTable("tank"), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(client->OpenQuery("SELECT * FROM tank"), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(client->OpenQuery("SELECT ID FROM tank"), ErrorNumber::kQuerySyntax);
}

TEST_F(ForeignFile, AMissingTableOrFieldHasItsOwnError) {
  const auto client = Changed(R"(DROP TABLE error; ALTER TABLE mixtures DROP COLUMN "CAS")");
  EXPECT_RUN_TIME_ERROR(client->OpenTable("error"), ErrorNumber::kObjectNotFound);
  auto mixtures = client->OpenTable("mixtures");
  mixtures.AddNew();
  EXPECT_RUN_TIME_ERROR(mixtures.Set("CAS", "1"), ErrorNumber::kItemNotFound);
}

TEST_F(ForeignFile, AFieldThatAnotherProgramAddsDoesNotShiftTheOthers) {
  Database::Create(path, ClientTables());
  const auto client = Database::Open(path);
  AddRow(*client, "tank", {{"USER ID", "a"}});
  RawFile(path).Run("ALTER TABLE tank ADD COLUMN extra TEXT DEFAULT 'x'");
  AddRow(*client, "tank", {{"USER ID", "b"}, {"TANK_CONSTRUCT", "Welded"}});
  auto tanks = client->OpenTable("tank");
  tanks.MoveLast();
  EXPECT_EQ(tanks.Text("TANK_CONSTRUCT"), "Welded");
}

TEST_F(ForeignFile, ComputedColumnsAndOtherIndexesAreLeftAlone) {
  const auto file = Made(R"(
    CREATE TABLE t (a LONG INTEGER, twice AS (a * 2), b VARCHAR(7), c BLOB, d CHARACTER);
    CREATE INDEX "t.b" ON t (b);
    CREATE INDEX "t.mixed" ON t (b, a + 1);
    CREATE INDEX "t.computed" ON t (twice);
    CREATE INDEX "t.expression" ON t (a + 1);
    CREATE INDEX other ON t (a);
    INSERT INTO t (a, b) VALUES (1, 'x'))");
  const auto fields = file->Fields("t");
  ASSERT_EQ(fields.size(), 4U);
  EXPECT_EQ(fields[1].name, "b");
  EXPECT_EQ(fields[1].width, 7);
  EXPECT_EQ(fields[2].type, FieldType::kDouble);
  EXPECT_EQ(fields[3].type, FieldType::kText);
  EXPECT_EQ(fields[3].width, 0);
  std::vector<std::string> names;
  for (const auto& index : file->Indexes("t")) names.push_back(index.name + "/" + index.fields.front());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Rows{"b/b", "mixed/b"}));
  auto rows = file->OpenTable("t");
  EXPECT_EQ(rows.Text("b"), "x");
  rows.AddNew();
  rows.Set("b", "y");
  rows.Set("a", 2);
  rows.Update();
  rows.SetIndex("mixed");
  rows.Seek({"y"});
  EXPECT_EQ(rows.Long("a"), 2);
}

TEST_F(ForeignFile, ARecordThatBreaksTheFilesOwnRulesIsRefused) {
  const auto file = Made("CREATE TABLE t (a LONG INTEGER NOT NULL CHECK (a < 10))");
  EXPECT_RUN_TIME_ERROR(AddRow(*file, "t", {{"a", 10}}), ErrorNumber::kDataConversion);
  EXPECT_RUN_TIME_ERROR(AddRow(*file, "t", {}), ErrorNumber::kDataConversion);
  EXPECT_NO_THROW(AddRow(*file, "t", {{"a", 9}}));
}

TEST_F(ForeignFile, ATableWithoutRowNumbersCannotBeUsed) {
  const auto file = Made("CREATE TABLE t (a TEXT PRIMARY KEY) WITHOUT ROWID");
  auto rows = file->OpenTable("t");
  EXPECT_RUN_TIME_ERROR(rows.MoveFirst(), ErrorNumber::kDamagedFile);
}

TEST_F(ForeignFile, AWalkAlongADamagedIndexEndsWithAnErrorInsteadOfGoingInCircles) {
  // The index is filled from `b` and then said to order `a`, so that each row seems to stand behind itself.
  const auto database = Made(R"(CREATE TABLE t (a DOUBLE, b DOUBLE); CREATE INDEX "t.a" ON t (b);
                                INSERT INTO t VALUES (1, 2), (2, 3), (3, 4);
                                PRAGMA writable_schema = ON;
                                UPDATE sqlite_master SET sql = 'CREATE INDEX "t.a" ON t (a)' WHERE name = 't.a')");
  auto rows = database->OpenTable("t");
  rows.SetIndex("a");
  EXPECT_EQ(rows.Double("a"), 1);
  EXPECT_RUN_TIME_ERROR(rows.MoveNext(), ErrorNumber::kDamagedFile);
}

TEST_F(ForeignFile, TextsInAnotherEncodingAreRead) {
  const auto file =
      Made("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t (a TEXT(20)); INSERT INTO t VALUES ('T\xC3\xA4nk')");
  auto rows = file->OpenTable("t");
  EXPECT_EQ(rows.Text("a"), "T\xC3\xA4nk");
  AddRow(*file, "t", {{"a", "\xE2\x82\xAC"}});
  rows.MoveLast();
  EXPECT_EQ(rows.Text("a"), "\xE2\x82\xAC");
}

/// A file whose other program keeps changes in a log beside it.
class LoggedFile : public ForeignFile {
 protected:
  void SetUp() override {
    Database::Create(path, ClientTables());
    RawFile(path).Run(R"(PRAGMA journal_mode = WAL; INSERT INTO tank ("USER ID") VALUES ('a'))");
  }
};

TEST_F(LoggedFile, IsReadAndWritten) {
  {
    const auto client = Database::Open(path);
    EXPECT_EQ(client->OpenTable("tank").Text("USER ID"), "a");
    AddRow(*client, "tank", {{"USER ID", "b"}});
    Transaction transaction(*client);
    AddRow(*client, "tank", {{"USER ID", "c"}});
    transaction.Commit();
    {
      const Transaction undone(*client);
      AddRow(*client, "tank", {{"USER ID", "d"}});
    }
    EXPECT_TRUE(client->IntegrityCheck());
  }
  EXPECT_EQ(QueryRows(*Database::Open(path), "SELECT * FROM tank", {"USER ID"}), (Rows{"a", "b", "c"}));
}

TEST_F(LoggedFile, StandsWholeInOneFileOnceItIsClosed) {
  {
    const auto client = Database::Open(path);
    AddRow(*client, "tank", {{"USER ID", "b"}});
    EXPECT_TRUE(std::filesystem::exists(path.string() + "-wal"));
  }
  EXPECT_FALSE(std::filesystem::exists(path.string() + "-wal"));
  const auto copy = folder.Path() / "copy.mdb";
  std::filesystem::copy_file(path, copy);
  EXPECT_EQ(QueryRows(*Database::Open(copy), "SELECT * FROM tank", {"USER ID"}), (Rows{"a", "b"}));
}

TEST_F(LoggedFile, ChangesThatItsProgramLeftInTheLogAreSeen) {
  // As after a crash: file and log were copied while the program that wrote them still had them open.
  const auto copy = folder.Path() / "crashed.mdb";
  {
    RawFile writer(path);
    writer.Run(R"(INSERT INTO tank ("USER ID") VALUES ('in the log'))");
    std::filesystem::copy_file(path, copy);
    std::filesystem::copy_file(path.string() + "-wal", copy.string() + "-wal");
  }
  const auto client = Database::Open(copy);
  EXPECT_EQ(QueryRows(*client, "SELECT * FROM tank", {"USER ID"}), (Rows{"a", "in the log"}));
  EXPECT_TRUE(client->IntegrityCheck());
}

TEST_F(LoggedFile, ATransactionThatReadKeepsItsViewWhileAnotherProgramWrites) {
  const auto client = Database::Open(path);
  RawFile writer(path);
  auto tanks = client->OpenTable("tank");
  {
    Transaction reading(*client, Transaction::Purpose::kRead);
    EXPECT_EQ(tanks.RecordCount(), 1);
    writer.Run(R"(INSERT INTO tank ("USER ID") VALUES ('b'))");
    EXPECT_EQ(tanks.RecordCount(), 1);
    // Writing from a view that is out of date would lose the other program's row.
    EXPECT_RUN_TIME_ERROR(AddRow(*client, "tank", {{"USER ID", "c"}}), ErrorNumber::kFileLocked);
    reading.Commit();
  }
  EXPECT_EQ(tanks.RecordCount(), 2);
  AddRow(*client, "tank", {{"USER ID", "c"}});
  EXPECT_EQ(tanks.RecordCount(), 3);
}

TEST_F(LoggedFile, IsReadOnlyWhenItIsOpenedSo) {
  const auto client = Database::Open(path, OpenMode::kReadOnly);
  EXPECT_EQ(client->OpenTable("tank").RecordCount(), 1);
  EXPECT_RUN_TIME_ERROR(AddRow(*client, "tank", {{"USER ID", "b"}}), ErrorNumber::kReadOnly);
}

TEST_F(ForeignFile, ARowThatAnotherProgramDeletedCannotBeWritten) {
  const auto client = Changed(R"(INSERT INTO tank ("USER ID") VALUES ('a'), ('b'))");
  auto tanks = client->OpenTable("tank");
  tanks.Edit();
  tanks.Set("DIAMETER", 5.0);
  RawFile(path).Run("DELETE FROM tank WHERE ID = 1");
  EXPECT_RUN_TIME_ERROR(tanks.Update(), ErrorNumber::kRecordDeleted);
  EXPECT_RUN_TIME_ERROR(tanks.Delete(), ErrorNumber::kRecordDeleted);
  tanks.MoveNext();
  EXPECT_EQ(tanks.Text("USER ID"), "b");
  RawFile(path).Run("DELETE FROM tank WHERE ID = 2");
  EXPECT_RUN_TIME_ERROR(tanks.Delete(), ErrorNumber::kRecordDeleted);
}

TEST_F(ForeignFile, ATableThatAnotherProgramDropsIsReported) {
  const auto client = Changed("");
  auto tanks = client->OpenTable("tank");
  EXPECT_TRUE(tanks.AtEnd());
  RawFile(path).Run("DROP TABLE tank");
  EXPECT_RUN_TIME_ERROR(tanks.MoveFirst(), ErrorNumber::kObjectNotFound);
  EXPECT_FALSE(client->HasTable("tank"));
}

}  // namespace
}  // namespace orvex::store
