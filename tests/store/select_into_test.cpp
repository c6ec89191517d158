#include "store/select_into.h"

#include <gtest/gtest.h>

#include <stdexcept>

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
       {"dBase V;database=x", "FoxPro 2.6", "Excel;database=x.xls", "xText;database=x", "database=x", "nonsense"}) {
    EXPECT_RUN_TIME_ERROR(client.Execute(std::string("SELECT * INTO [") + connect + "].tank FROM tank"),
                          ErrorNumber::kUnknownFormat);
  }
}

TEST_F(SelectInto, WritesTheFilesOfOtherFormats) {
  const auto into = [&](const std::string& connect, const std::string& name) {
    EXPECT_EQ(client.Execute("SELECT [USER ID], DIAMETER INTO [" + connect + "].[" + name + "] FROM tank"), 2);
  };
  const std::string folder = test.folder.Path();
  into("dBase IV;database=" + folder, "dbase");
  into("FOXPRO 2.6;DATABASE=" + folder, "foxpro");
  into("Excel 5.0;database=" + folder + "/book.xls", "sheet");
  into("text;database=" + folder, "text.csv");
  for (const char* file : {"dbase.dbf", "foxpro.dbf", "book.xls", "text.csv"})
    EXPECT_TRUE(std::filesystem::exists(test.folder.Path() / file)) << file;
  EXPECT_EQ(test::FileContent(test.folder.Path() / "text.csv"), "\"USER ID\",\"DIAMETER\"\r\n\"a\",1.5\r\n\"b\",\r\n");
  EXPECT_RUN_TIME_ERROR(into("Text;database=" + folder, "text.csv"), ErrorNumber::kAlreadyExists);
  EXPECT_RUN_TIME_ERROR(into("Text;database=" + folder + "/none", "text.csv"), ErrorNumber::kInvalidPath);
}

TEST_F(SelectInto, KnowsADbaseFileByItsNameInCapitals) {
  test::WriteFile(test.folder.Path() / "TANKS.DBF", "older");
  const std::string sql =
      "SELECT [USER ID] INTO [dBase IV;database=" + test.folder.Path().string() + "].tanks FROM tank";
  EXPECT_RUN_TIME_ERROR(client.Execute(sql), ErrorNumber::kAlreadyExists);
  IntoOptions options;
  options.existing = Existing::kReplace;
  EXPECT_EQ(client.SelectInto(sql, options).rows, 2);
  EXPECT_FALSE(std::filesystem::exists(test.folder.Path() / "tanks.dbf"));
  EXPECT_NE(test::FileContent(test.folder.Path() / "TANKS.DBF").find("USER_ID"), std::string::npos);
}

TEST_F(SelectInto, GivesBackWhatTheFormatCouldNotHold) {
  AddRow(client, "tank", {{"USER ID", "\u03B1"}});
  const auto result = client.SelectInto(
      "SELECT [USER ID] AS Name INTO [dBase IV;database=" + test.folder.Path().string() + "].tanks FROM tank", {});
  EXPECT_EQ(result.rows, 3);
  EXPECT_EQ(result.losses, Rows{"Fields with characters that the file cannot hold, written as '?': Name."});
  EXPECT_TRUE(client.SelectInto("SELECT [USER ID] INTO copy FROM tank", {}).losses.empty());
}

TEST_F(SelectInto, ReplacesATableOnDemand) {
  IntoOptions options;
  options.existing = Existing::kReplace;
  EXPECT_EQ(client.SelectInto("SELECT DIAMETER INTO copy FROM tank", options).rows, 2) << "there is none yet";
  EXPECT_EQ(client.SelectInto("SELECT [USER ID] INTO Copy FROM tank", options).rows, 2);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM copy", {"USER ID"}), (Rows{"a", "b"}));
  EXPECT_RUN_TIME_ERROR(client.SelectInto("SELECT Max([USER ID]) AS Last INTO copy FROM tank", options),
                        ErrorNumber::kDataConversion);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM copy", {"USER ID"}), (Rows{"a", "b"})) << "the old one is left";
  EXPECT_FALSE(client.HasTable("copy+"));
}

TEST_F(SelectInto, MayReplaceTheTableThatItReads) {
  IntoOptions options;
  options.existing = Existing::kReplace;
  EXPECT_EQ(client.SelectInto("SELECT [USER ID], HEATED INTO tank FROM tank WHERE HEATED = True", options).rows, 1);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM tank", {"USER ID", "HEATED"}), Rows{"b|-1"});
  EXPECT_EQ(client.TableNames().size(), ClientTables().size());
}

TEST_F(SelectInto, MakesADatabaseOnDemand) {
  IntoOptions options;
  options.make_database = true;
  EXPECT_EQ(client.SelectInto("SELECT * INTO " + Target("new.mdb", "tank") + " FROM tank", options).rows, 2);
  EXPECT_EQ(Database::Open(test.folder.Path() / "new.mdb")->OpenTable("tank").RecordCount(), 2);
  EXPECT_RUN_TIME_ERROR(client.SelectInto("SELECT * INTO " + Target("no/x.mdb", "tank") + " FROM tank", options),
                        ErrorNumber::kInvalidPath);
  EXPECT_RUN_TIME_ERROR(
      client.SelectInto("SELECT Max([USER ID]) AS Last INTO " + Target("bad.mdb", "tank") + " FROM tank", options),
      ErrorNumber::kDataConversion);
  EXPECT_EQ(test::EntryCount(test.folder.Path()), 3) << "both databases of the program and the new one";
}

TEST_F(SelectInto, ATableNeedsANameThatItCanHave) {
  IntoOptions options;
  options.make_database = true;
  for (const std::string name : {"", "  ", "sqlite_copy", "SQLite_copy"}) {
    for (const auto* file : {"tankdata.mdb", "new.mdb"}) {
      EXPECT_RUN_TIME_ERROR(client.SelectInto("SELECT * INTO " + Target(file, name) + " FROM tank", options),
                            ErrorNumber::kInvalidName);
    }
  }
  EXPECT_EQ(test::EntryCount(test.folder.Path()), 2) << "both databases of the program";
}

TEST_F(SelectInto, WritesThroughADatabaseThatIsOpen) {
  IntoOptions options;
  Database* const open[] = {&test.reference()};
  options.open = open;
  // Held by a transaction, the file could not be written through a second connection.
  const Transaction transaction(test.reference());
  EXPECT_EQ(client.SelectInto("SELECT * INTO " + Target("tankdata.mdb", "copy") + " FROM tank", options).rows, 2);
  EXPECT_EQ(test.reference().OpenTable("copy").RecordCount(), 2);
}

TEST_F(SelectInto, TellsOfItsRows) {
  {
    Transaction transaction(client);
    for (int i = 0; i < 2000; ++i) AddRow(client, "tank", {{"USER ID", "more"}});
    transaction.Commit();
  }
  std::vector<std::int64_t> told;
  IntoOptions options;
  options.progress = [&](std::int64_t rows) { told.push_back(rows); };
  EXPECT_EQ(client.SelectInto("SELECT ID INTO copy FROM tank", options).rows, 2002);
  EXPECT_EQ(told, (std::vector<std::int64_t>{1000, 2000}));
  options.progress = [](std::int64_t) { throw std::runtime_error("stopped"); };
  EXPECT_THROW((void)client.SelectInto("SELECT ID INTO stopped FROM tank", options), std::runtime_error);
  EXPECT_FALSE(client.HasTable("stopped"));
}

TEST_F(SelectInto, AClosingBracketInANameIsDoubled) {
  EXPECT_EQ(client.Execute("SELECT [USER ID] INTO [a [1]] b] FROM tank"), 2);
  EXPECT_TRUE(client.HasTable("a [1] b"));
  EXPECT_EQ(client.OpenQuery("SELECT * FROM [a [1]] b]").RecordCount(), 2);
  EXPECT_RUN_TIME_ERROR(client.Execute("SELECT [USER ID] INTO [a]] FROM tank"), ErrorNumber::kQuerySyntax);
}

TEST_F(SelectInto, NeedsATarget) {
  EXPECT_RUN_TIME_ERROR(client.SelectInto("DELETE * FROM tank", {}), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(client.SelectInto("SELECT * FROM tank", {}), ErrorNumber::kOperationNotSupported);
  EXPECT_EQ(client.OpenTable("tank").RecordCount(), 2);
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
