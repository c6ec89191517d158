#include <gtest/gtest.h>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::Rows;

class SelectInto : public testing::Test {
 protected:
  SelectInto() {
    AddRow(client, "tank", {{"USER ID", "a"}, {"DIAMETER", 1.5}});
    AddRow(client, "tank", {{"USER ID", "b"}, {"HEATED", true}});
  }
  std::string Target(const std::string& file, const std::string& table) {
    return "[;database=" + (test.folder.Path() / file).string() + "].[" + table + "]";
  }
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(SelectInto, MakesATableOfTheSameFileWithTheColumnsOfTheQuery) {
  EXPECT_EQ(client.Execute("SELECT [USER ID], DIAMETER, HEATED, ID AS Number INTO [my copy] FROM tank"), 2);
  const auto fields = client.Fields("my copy");
  ASSERT_EQ(fields.size(), 4U);
  EXPECT_EQ(fields[0].name, "USER ID");
  EXPECT_EQ(fields[0].type, FieldType::kText);
  EXPECT_EQ(fields[0].width, 255);
  EXPECT_EQ(fields[1].type, FieldType::kDouble);
  EXPECT_EQ(fields[2].type, FieldType::kBoolean);
  EXPECT_EQ(fields[3].name, "Number");
  EXPECT_EQ(fields[3].type, FieldType::kLong);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM [my copy]", {"USER ID", "DIAMETER", "HEATED", "Number"}),
            (Rows{"a|1.5|0|1", "b|-|-1|2"}));
  EXPECT_EQ(QueryRows(client, "SELECT * FROM [my copy] WHERE [USER ID] = 'A'", {"Number"}), (Rows{"1"}))
      << "texts still compare without regard to case";
}

TEST_F(SelectInto, KeepsTheOrderOfTheQueryAndItsSums) {
  EXPECT_EQ(client.Execute("SELECT HEATED, Sum(ID) AS Total INTO sums FROM tank GROUP BY HEATED"), 2);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM sums", {"HEATED", "Total"}), (Rows{"-1|2", "0|1"}));
  EXPECT_EQ(client.Execute("SELECT [USER ID] INTO sorted FROM tank ORDER BY [USER ID] DESC"), 2);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM sorted", {"USER ID"}), (Rows{"b", "a"}));
  EXPECT_EQ(client.Execute("SELECT * INTO nobody FROM tank WHERE ID > 5"), 0);
  EXPECT_EQ(client.OpenTable("nobody").RecordCount(), 0);
}

TEST_F(SelectInto, RefusesATargetThatExists) {
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO MIXTURES FROM tank"), ErrorNumber::kAlreadyExists);
  Database::Create(test.folder.Path() / "other.mdb", {});
  const std::string statement = "SELECT * INTO " + Target("other.mdb", "tank") + " FROM [tank]";
  EXPECT_EQ(client.Execute(statement), 2);
  EXPECT_RUN_TIME_ERROR(client.Execute(statement), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(Database::Open(test.folder.Path() / "other.mdb")->OpenTable("tank").RecordCount(), 2);
}

TEST_F(SelectInto, MayNameItsOwnFileAsTheTarget) {
  const Transaction transaction(client);
  EXPECT_EQ(client.Execute("SELECT * INTO " + Target("client1.mdb", "copy") + " FROM [tank]"), 2);
  EXPECT_EQ(client.OpenTable("copy").RecordCount(), 2);
}

TEST_F(SelectInto, NeedsTheTargetFile) {
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO " + Target("none.mdb", "tank") + " FROM [tank]"),
                        ErrorNumber::kFileNotFound);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO " + Target("none/x.mdb", "tank") + " FROM [tank]"),
                        ErrorNumber::kInvalidPath);
  EXPECT_FALSE(std::filesystem::exists(test.folder.Path() / "none.mdb"));
}

TEST_F(SelectInto, KnowsNoOtherFileFormats) {
  for (const char* connect :
       {"dBase IV;database=x", "FoxPro 2.6;database=x", "Excel 5.0;database=x.xls", "Text;database=x", "nonsense"}) {
    EXPECT_RUN_TIME_ERROR(client.Execute(std::string("SELECT * INTO [") + connect + "].tank FROM tank"),
                          ErrorNumber::kUnknownFormat);
  }
}

TEST_F(SelectInto, ReportsTheFaultsOfItsQuery) {
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO copy FROM nothing"), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT nothing INTO copy FROM tank"), ErrorNumber::kNoSuchField);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO copy FROM tank WHERE ((tank.[USER ID]= 'it's'))"),
                        ErrorNumber::kQuerySyntax);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO FROM tank"), ErrorNumber::kQuerySyntax);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO"), ErrorNumber::kQuerySyntax);
  EXPECT_FALSE(client.HasTable("copy"));
}

TEST_F(SelectInto, LeavesNoTableBehindWhenItFails) {
  // A text has no place in the field of a computed column, which holds numbers.
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT Max([USER ID]) AS Last INTO copy FROM tank"),
                        ErrorNumber::kDataConversion);
  EXPECT_FALSE(client.HasTable("copy"));
  EXPECT_RUN_TIME_ERROR(client.OpenTable("copy"), ErrorNumber::kObjectNotFound);
  EXPECT_EQ(client.Execute("SELECT ID INTO copy FROM tank"), 2);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM copy", {"ID"}), (Rows{"1", "2"}));
}

}  // namespace
}  // namespace orvex::store
