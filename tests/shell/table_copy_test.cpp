#include "shell/table_copy.h"

#include "shell/database_files_fixture.h"
#include "store/raw_file.h"
#include "support/query_rows.h"

namespace orvex::shell {
namespace {

using store::FieldType;

class TableCopy : public test::DatabaseFilesFixture {
 protected:
  TableCopy() {
    from->CreateTable("source",
                      {{"N", FieldType::kCounter, 0},
                       {"TEXT", FieldType::kText, 8, "'none'"},
                       {"NUMBER", FieldType::kDouble, 0, "1.5"},
                       {"FLAG", FieldType::kBoolean, 0},
                       {"LONG", FieldType::kLong, 0}},
                      {{"text", {"TEXT"}, false}, {"both", {"LONG", "TEXT"}, true}});
  }
  void AddRows(int count) {
    store::Transaction transaction(*from);
    for (int i = 0; i < count; ++i)
      test::AddRow(*from, "source", {{"TEXT", std::to_string(i)}, {"LONG", i}, {"FLAG", i % 2 == 0}});
    transaction.Commit();
  }
  std::unique_ptr<store::Database> from = store::Database::Create(File("from.mdb"), {});
  std::unique_ptr<store::Database> to = store::Database::Create(File("to.mdb"), {});
  const TableOf source{*from, "source"};
  const TableOf target{*to, "target"};
};

TEST_F(TableCopy, TheStructureHasAllFieldsAndIndexes) {
  EXPECT_TRUE(CopyStruct(session_, source, target));
  const auto expected = from->Fields("source");
  const auto fields = to->Fields("target");
  ASSERT_EQ(fields.size(), expected.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_EQ(fields[i].name, expected[i].name);
    EXPECT_EQ(fields[i].type, expected[i].type);
    EXPECT_EQ(fields[i].width, expected[i].width);
  }
  for (const auto& index : from->Indexes("source")) {
    bool found = false;
    for (const auto& copied : to->Indexes("target"))
      found = found || (copied.name == index.name && copied.fields == index.fields && copied.unique == index.unique);
    EXPECT_TRUE(found) << index.name;
  }
  EXPECT_EQ(to->OpenTable("target").RecordCount(), 0);
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Copying table, please wait...", "Ready"}));
  ExpectRestored();
}

TEST_F(TableCopy, DefaultsAreCopied) {
  EXPECT_TRUE(CopyStruct(session_, source, target));
  test::RawFile(File("to.mdb")).Run("INSERT INTO target (LONG) VALUES (3)");
  EXPECT_EQ(test::QueryRows(*to, "SELECT * FROM target", {"N", "TEXT", "NUMBER", "FLAG", "LONG"}),
            (test::Rows{"1|none|1.5|-|3"}));
}

TEST_F(TableCopy, AllRecordsAreCopiedWithTheirNumbers) {
  AddRows(3);
  (void)from->Execute("DELETE * FROM source WHERE N = 2");
  EXPECT_TRUE(CopyStruct(session_, source, target));
  EXPECT_TRUE(CopyData(session_, source, target));
  EXPECT_EQ(test::QueryRows(*to, "SELECT * FROM target", {"N", "TEXT", "NUMBER", "FLAG", "LONG"}),
            (test::Rows{"1|0|-|-1|0", "3|2|-|-1|2"}));
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.status[2], "Copying data, please wait...");
  // The Counter goes on behind the copied numbers.
  test::AddRow(*to, "target", {{"LONG", 9}});
  EXPECT_EQ(test::QueryRows(*to, "SELECT * FROM target WHERE LONG = 9", {"N"}), (test::Rows{"4"}));
}

TEST_F(TableCopy, AnyNumberOfRecordsIsCopied) {
  for (const int count : {0, 1, 999, 1000, 1001, 2500}) {
    SCOPED_TRACE(count);
    (void)from->Execute("DELETE * FROM source");
    AddRows(count);
    if (to->HasTable("target")) to->DeleteTable("target");
    EXPECT_TRUE(CopyStruct(session_, source, target));
    EXPECT_TRUE(CopyData(session_, source, target));
    EXPECT_EQ(to->OpenTable("target").RecordCount(), count);
  }
}

TEST_F(TableCopy, AFailureKeepsTheThousandsThatWereWritten) {
  AddRows(2500);
  EXPECT_TRUE(CopyStruct(session_, source, target));
  // Another program wrote a text where the copy takes none: the record after 2000 and some.
  test::RawFile(File("from.mdb")).Run("UPDATE source SET NUMBER = 'wide' WHERE N = 2300");
  host_.ExpectError(3421, "mDatabase.CopyData");
  EXPECT_FALSE(CopyData(session_, source, target));
  EXPECT_EQ(to->OpenTable("target").RecordCount(), 2000);
  ExpectRestored();
}

TEST_F(TableCopy, FailuresAreTold) {
  host_.ExpectError(3011, "mDatabase.CopyStruct");
  EXPECT_FALSE(CopyStruct(session_, {*from, "none"}, target));
  host_.ExpectError(3011, "mDatabase.CopyData");
  EXPECT_FALSE(CopyData(session_, source, target));
  EXPECT_TRUE(CopyStruct(session_, source, target));
  host_.ExpectError(3010, "mDatabase.CopyStruct");
  EXPECT_FALSE(CopyStruct(session_, source, target));
  ExpectRestored();
}

}  // namespace
}  // namespace orvex::shell
