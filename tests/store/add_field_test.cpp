#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::Rows;

class AddField : public testing::Test {
 protected:
  AddField() {
    database = Database::Create(path, {});
    database->CreateTable("t",
                          {{"A", FieldType::kText, 20},
                           {"B", FieldType::kDouble, 0},
                           {"C", FieldType::kText, 5, "'none'"},
                           {"D", FieldType::kBoolean, 0}},
                          {{"by A", {"A"}, true}, {"by B", {"B", "A"}, false}});
    AddRow(*database, "t", {{"A", "one"}, {"B", 2.0}, {"D", true}});
    AddRow(*database, "t", {{"A", "two"}, {"B", 1.0}, {"C", "x"}});
  }
  [[nodiscard]] std::vector<std::string> FieldNames(std::string_view table = "t") {
    std::vector<std::string> names;
    for (const auto& stored : database->Fields(table)) names.push_back(stored.name);
    return names;
  }
  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "file.mdb";
  std::unique_ptr<Database> database;
  StoredField field{"CAS", FieldType::kText, 10};
};

TEST_F(AddField, PutsItAtItsPlaceCountedFromZero) {
  database->AddField("T", field, 2);
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "CAS", "C", "D"}));
  EXPECT_EQ(database->Fields("t")[2].type, FieldType::kText);
  EXPECT_EQ(database->Fields("t")[2].width, 10);
  database->AddField("t", {"First", FieldType::kLong, 0}, 0);
  database->AddField("t", {"Last", FieldType::kLong, 0}, 99);
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"First", "A", "B", "CAS", "C", "D", "Last"}));
  EXPECT_EQ(database->TableNames(), (std::vector<std::string>{"t"}));
}

TEST_F(AddField, KeepsTheRecordsAndTheirOrder) {
  AddRow(*database, "t", {{"A", "gone"}});
  AddRow(*database, "t", {{"A", "four"}});
  (void)database->Execute("DELETE * FROM t WHERE A = 'gone'");
  auto rows = database->OpenTable("t");
  rows.MoveLast();
  const auto last = rows.CurrentBookmark();
  rows.Close();
  database->AddField("t", field, 2);
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM t", {"A", "B", "C", "D", "CAS"}),
            (Rows{"one|2|-|-1|-", "two|1|x|0|-", "four|-|-|0|-"}));
  rows = database->OpenTable("t");
  rows.Move(last);
  EXPECT_EQ(rows.Text("A"), "four");
  AddRow(*database, "t", {{"A", "five"}, {"CAS", "00071-43-2"}});
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM t WHERE CAS = '00071-43-2'", {"A"}), (Rows{"five"}));
  EXPECT_TRUE(database->IntegrityCheck());
}

TEST_F(AddField, KeepsIndexesWidthsAndDefaults) {
  const auto before = database->Indexes("t");
  database->AddField("t", field, 0);
  const auto after = database->Indexes("t");
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(after[i].name, before[i].name);
    EXPECT_EQ(after[i].fields, before[i].fields);
    EXPECT_EQ(after[i].unique, before[i].unique);
  }
  EXPECT_RUN_TIME_ERROR(AddRow(*database, "t", {{"A", "ONE"}}), ErrorNumber::kDuplicateKey);
  EXPECT_RUN_TIME_ERROR(AddRow(*database, "t", {{"C", "longer"}}), ErrorNumber::kTextTooLong);
  test::RawFile(path).Run("INSERT INTO t (A) VALUES ('by another program')");
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM t WHERE C = 'none'", {"A"}), (Rows{"by another program"}));
}

TEST_F(AddField, ACounterGoesOnBehindTheNumbersItGave) {
  database->CreateTable("counted", {{"N", FieldType::kCounter, 0}, {"A", FieldType::kText, 20}}, {});
  for (const auto* name : {"one", "two", "three"}) AddRow(*database, "counted", {{"A", name}});
  (void)database->Execute("DELETE * FROM counted WHERE N > 1");
  database->AddField("counted", field, 1);
  AddRow(*database, "counted", {{"A", "four"}});
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM counted", {"N", "A"}), (Rows{"1|one", "4|four"}));
  (void)database->Execute("DELETE * FROM counted");
  database->AddField("counted", {"E", FieldType::kLong, 0}, 1);
  AddRow(*database, "counted", {{"A", "five"}});
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM counted", {"N", "A"}), (Rows{"5|five"}));
}

TEST_F(AddField, ARecordSetOpenedBeforeGoesOn) {
  auto rows = database->OpenTable("t");
  EXPECT_EQ(rows.Text("A"), "one");
  database->AddField("t", field, 0);
  rows.MoveNext();
  EXPECT_EQ(rows.Text("A"), "two");
  rows.Edit();
  rows.Set("B", 7.0);
  rows.Update();
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM t", {"CAS", "A", "B"}), (Rows{"-|one|2", "-|two|7"}));
}

TEST_F(AddField, AFieldThatIsThereInAnyCaseIsRefused) {
  EXPECT_RUN_TIME_ERROR(database->AddField("t", {"a", FieldType::kText, 10}, 0), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "C", "D"}));
}

TEST_F(AddField, AMissingTableAndAReadOnlyFileAreErrors) {
  EXPECT_RUN_TIME_ERROR(database->AddField("u", field, 0), ErrorNumber::kObjectNotFound);
  const auto reader = Database::Open(path, OpenMode::kReadOnly);
  const std::string before = test::FileContent(path);
  EXPECT_RUN_TIME_ERROR(reader->AddField("t", field, 0), ErrorNumber::kReadOnly);
  EXPECT_EQ(test::FileContent(path), before);
}

TEST_F(AddField, AFileThatAnotherProgramWritesIsRefused) {
  test::RawFile other(path);
  other.Run("BEGIN IMMEDIATE");
  EXPECT_RUN_TIME_ERROR(database->AddField("t", field, 0), ErrorNumber::kFileLocked);
  other.Run("COMMIT");
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "C", "D"}));
}

TEST_F(AddField, AFullDiskLeavesTheTableAsItWas) {
  for (int i = 0; i < 200; ++i) AddRow(*database, "t", {{"A", std::to_string(i)}});
  {
    const test::FileSizeLimit full_disk(std::filesystem::file_size(path) + 1024);
    EXPECT_RUN_TIME_ERROR(database->AddField("t", field, 0), ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_EQ(database->OpenTable("t").RecordCount(), 202);
  EXPECT_TRUE(database->IntegrityCheck());
  database->AddField("t", field, 0);
  EXPECT_EQ(database->OpenTable("t").RecordCount(), 202);
}

TEST_F(AddField, WhatAnotherProgramLeftInTheFileDoesNotMatter) {
  test::RawFile(path).Run(R"(CREATE VIEW v AS SELECT * FROM nowhere; CREATE VIEW w AS SELECT A FROM t;
                             CREATE TRIGGER g AFTER INSERT ON t BEGIN DELETE FROM t; END;
                             CREATE TABLE "t+" (rowid TEXT))");
  database->AddField("t", field, 4);
  database->AddField("t+", field, 0);
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "C", "D", "CAS"}));
  EXPECT_EQ(FieldNames("t+"), (std::vector<std::string>{"CAS", "rowid"}));
  EXPECT_EQ(database->OpenTable("t").RecordCount(), 2);
}

TEST_F(AddField, IsUndoneWithTheTransactionAroundIt) {
  {
    const Transaction outer(*database);
    database->AddField("t", field, 1);
    AddRow(*database, "t", {{"A", "three"}, {"CAS", "1"}});
  }
  EXPECT_EQ(FieldNames(), (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_EQ(QueryRows(*database, "SELECT * FROM t", {"A"}), (Rows{"one", "two"}));
}

}  // namespace
}  // namespace orvex::store
