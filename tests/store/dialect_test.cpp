#include "store/dialect.h"

#include <gtest/gtest.h>

#include "store/database.h"
#include "store/run_time_error.h"
#include "store/utf8.h"
#include "support/expect_error.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::Rows;

class Dialect : public testing::Test {
 protected:
  void AddSeam(const char* name, Value construction = {}, double width = 0) {
    AddRow(reference, "deckseam", {{"NAME", name}, {"CONSTRUC", construction}, {"SWIDTH", width}});
  }
  Rows Names(const std::string& condition) {
    return QueryRows(reference, "SELECT NAME FROM deckseam WHERE " + condition, {"NAME"});
  }
  /// The description of the syntax error that a query fails with.
  std::string SyntaxError(const std::string& query) {
    try {
      reference.OpenQuery(query);
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQuerySyntax) << query << "\n" << error.Description();
      return error.Description();
    }
    ADD_FAILURE() << "this should be a syntax error: " << query;
    return {};
  }
  test::TestSession test;
  Database& reference = test.reference();
};

// Constants ----------------------------------------------------------------------------------------------------------

TEST_F(Dialect, TextsStandInSingleOrDoubleQuotesAndADoubledQuoteIsOne) {
  AddSeam("it's");
  AddSeam("6\" wide");
  EXPECT_EQ(Names("NAME = 'it''s'"), (Rows{"it's"}));
  EXPECT_EQ(Names("NAME = \"it's\""), (Rows{"it's"}));
  EXPECT_EQ(Names("NAME = \"6\"\" wide\""), (Rows{"6\" wide"}));
  EXPECT_EQ(Names("NAME = '6\" wide'"), (Rows{"6\" wide"}));
}

TEST_F(Dialect, NumbersHaveADecimalPointWhateverTheLocale) {
  AddSeam("a", {}, 7.5);
  AddSeam("b", {}, 0.5);
  AddSeam("c", {}, 1200);
  EXPECT_EQ(Names("SWIDTH = 7.5"), (Rows{"a"}));
  EXPECT_EQ(Names("SWIDTH = .5"), (Rows{"b"}));
  EXPECT_EQ(Names("SWIDTH = 1.2e3"), (Rows{"c"}));
  EXPECT_EQ(Names("SWIDTH = 12E+2"), (Rows{"c"}));
  EXPECT_EQ(Names("SWIDTH > -1 AND SWIDTH < 12e-1"), (Rows{"b"}));
  EXPECT_EQ(Names("SWIDTH = 3 * 2.5 OR SWIDTH BETWEEN 0.4 AND 0.6"), (Rows{"a", "b"}));
  SyntaxError("SELECT * FROM deckseam WHERE SWIDTH = 1.2.3");
  SyntaxError("SELECT * FROM deckseam WHERE SWIDTH = 1e999");
  SyntaxError("SELECT * FROM deckseam WHERE SWIDTH = 1e");
}

TEST_F(Dialect, TrueIsMinusOneAndFalseIsZero) {
  AddRow(reference, "deckseam", {{"NAME", "yes"}, {"USER_DEF", true}});
  AddRow(reference, "deckseam", {{"NAME", "no"}, {"USER_DEF", false}});
  EXPECT_EQ(Names("USER_DEF = True"), (Rows{"yes"}));
  EXPECT_EQ(Names("USER_DEF = -1"), (Rows{"yes"}));
  EXPECT_EQ(Names("USER_DEF = FALSE"), (Rows{"no"}));
  EXPECT_EQ(Names("USER_DEF"), (Rows{"yes"}));
  EXPECT_EQ(Names("Not USER_DEF"), (Rows{"no"}));
  EXPECT_EQ(QueryRows(reference, "SELECT True AS t, False AS f FROM deckseam WHERE USER_DEF", {"t", "f"}),
            (Rows{"-1|0"}));
}

// Names --------------------------------------------------------------------------------------------------------------

TEST_F(Dialect, NamesMatchWithoutRegardToCaseAndMayStandInBrackets) {
  AddSeam("a");
  EXPECT_EQ(QueryRows(reference, "select DeckSeam.[name] from [DECKSEAM] where [deckseam].name = 'A'", {"NaMe"}),
            (Rows{"a"}));
  EXPECT_EQ(QueryRows(reference, "SELECT deckseam!NAME FROM deckseam WHERE deckseam![NAME] = 'a'", {"NAME"}),
            (Rows{"a"}));
}

TEST_F(Dialect, FieldsMayBeNamedAsKeywordsAre) {
  AddRow(test.client(), "emission", {{"MONTH", "May"}, {"DESC", "text"}, {"PRIMARY", true}});
  EXPECT_EQ(QueryRows(test.client(), "SELECT emission.DESC, Month, PRIMARY FROM emission WHERE [DESC] = 'text'",
                      {"DESC", "MONTH", "PRIMARY"}),
            (Rows{"text|May|-1"}));
}

TEST_F(Dialect, AnUnknownFieldAndAnUnknownTableHaveTheirOwnErrors) {
  for (const char* sql : {"SELECT * FROM deckseam WHERE WIDTH = 5", "SELECT [no such] FROM deckseam",
                          "SELECT * FROM deckseam WHERE chemical.NAME = 'a'", "SELECT [] FROM deckseam"}) {
    EXPECT_RUN_TIME_ERROR(reference.OpenQuery(sql), ErrorNumber::kNoSuchField);
  }
  for (const char* sql : {"SELECT * FROM tank", "SELECT NAME FROM tank", "SELECT * FROM [deck seam]"}) {
    EXPECT_RUN_TIME_ERROR(reference.OpenQuery(sql), ErrorNumber::kObjectNotFound);
  }
  EXPECT_RUN_TIME_ERROR(reference.Execute("DELETE * FROM tank"), ErrorNumber::kObjectNotFound);
  EXPECT_RUN_TIME_ERROR(reference.Execute("DELETE * FROM deckseam WHERE WIDTH = 5"), ErrorNumber::kNoSuchField);
}

TEST_F(Dialect, AMisspeltFieldIsNeverTakenForAText) {
  AddSeam("NAMES");
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery("SELECT * FROM deckseam WHERE NAME = [NAMES]"), ErrorNumber::kNoSuchField);
}

// Operators ----------------------------------------------------------------------------------------------------------

TEST_F(Dialect, TheAmpersandJoinsTextsAndTakesNullAsAnEmptyOne) {
  AddSeam("a", "Sheet", 5);
  AddSeam("b", {}, 7.5);
  EXPECT_EQ(QueryRows(reference, "SELECT NAME & '/' & CONSTRUC & '/' & SWIDTH AS t FROM deckseam", {"t"}),
            (Rows{"a/Sheet/5", "b//7.5"}));
  EXPECT_EQ(Names("NAME & CONSTRUC = 'aSheet'"), (Rows{"a"}));
}

TEST_F(Dialect, LikeKnowsTheWildcardsAndDisregardsCase) {
  for (const char* name : {"Sheet: 5 Ft Wide", "Sheet: 6 Ft Wide", "Panel: 5 x 12 Ft", "Sheet: W Ft Wide", "[x]"}) {
    AddSeam(name);
  }
  EXPECT_EQ(Names("NAME Like '*PANEL*'"), (Rows{"Panel: 5 x 12 Ft"}));
  EXPECT_EQ(Names("NAME Like 'Sheet: # Ft Wide'"), (Rows{"Sheet: 5 Ft Wide", "Sheet: 6 Ft Wide"}));
  EXPECT_EQ(Names("NAME Like 'Sheet: ? Ft*'"), (Rows{"Sheet: 5 Ft Wide", "Sheet: 6 Ft Wide", "Sheet: W Ft Wide"}));
  EXPECT_EQ(Names("NAME Like '*: [a-z] *'"), (Rows{"Sheet: W Ft Wide"}));
  EXPECT_EQ(Names("NAME Like 'Sheet: [!a-z5] *'"), (Rows{"Sheet: 6 Ft Wide"}));
  EXPECT_EQ(Names("NAME Like '[[]x]'"), (Rows{"[x]"}));
  EXPECT_EQ(Names("NAME Not Like '*Wide'"), (Rows{"Panel: 5 x 12 Ft", "[x]"}));
  EXPECT_EQ(Names("NAME Like '%5%'"), Rows{}) << "the wildcards of other dialects are plain characters";
  EXPECT_EQ(Names("Counter Like '1*'"), (Rows{"Sheet: 5 Ft Wide"})) << "numbers are compared as texts";
}

TEST_F(Dialect, LikeFindsNoNull) {
  AddSeam("a");
  EXPECT_EQ(Names("CONSTRUC Like '*'"), Rows{});
  EXPECT_EQ(Names("NAME Like Null"), Rows{});
}

TEST_F(Dialect, DatesOrderByTheCalendarAndRefuseWhatIsNoDate) {
  const auto dates = [&](const std::string& expression) {
    return QueryRows(reference, "SELECT cvdate(" + expression + ") AS d FROM deckseam", {"d"});
  };
  AddSeam("a");
  // Days since 1 January 1970: 29 years with 7 leap days, then 31 + 28 days to the first of March.
  EXPECT_EQ(dates("'January 01, 1999'"), (Rows{"10592"}));
  EXPECT_EQ(dates("'march 1, 1999'"), (Rows{"10651"}));
  EXPECT_EQ(dates("Null"), (Rows{"-"}));
  for (const char* text : {"'Annual 01, 1999'", "'January'", "'January 01 1999'", "'January, 01 1999'", "''",
                           "'January 32, 1999'", "'February 29, 1999'", "'January x, 1999'", "'January 01, x'",
                           "'January 0, 1999'", "'January 1, 99999'", "7"}) {
    EXPECT_RUN_TIME_ERROR(dates(text), ErrorNumber::kTypeMismatch);
  }
}

// Order --------------------------------------------------------------------------------------------------------------

TEST_F(Dialect, RowsThatTheOrderLeavesEqualStayInTheOrderOfTheFile) {
  for (const auto& [name, construction] : {std::pair{"c", "Sheet"}, {"B", "panel"}, {"a", "Panel"}, {"d", "sheet"}}) {
    AddSeam(name, construction);
  }
  for (const char* list : {"*", "NAME", "NAME, CONSTRUC"}) {
    const std::string select = std::string("SELECT ") + list + " FROM deckseam ";
    EXPECT_EQ(QueryRows(reference, select + "ORDER BY CONSTRUC", {"NAME"}), (Rows{"B", "a", "c", "d"}));
    EXPECT_EQ(QueryRows(reference, select + "ORDER BY CONSTRUC DESC", {"NAME"}), (Rows{"c", "d", "B", "a"}));
    EXPECT_EQ(QueryRows(reference, select + "WHERE NAME > 'A'", {"NAME"}), (Rows{"c", "B", "d"}))
        << "an index that serves the condition does not change the order";
    EXPECT_EQ(QueryRows(reference, select + "ORDER BY NAME", {"NAME"}), (Rows{"a", "B", "c", "d"}));
  }
}

TEST_F(Dialect, RowsAreNotOrderedByTheNumberOfAColumn) {
  AddRow(reference, "deckseam", {{"NAME", "b"}, {"CONSTRUC", "x"}});
  AddRow(reference, "deckseam", {{"NAME", "a"}, {"CONSTRUC", "y"}});
  for (const char* sql :
       {"SELECT NAME FROM deckseam ORDER BY 1", "SELECT * FROM deckseam ORDER BY 2 DESC",
        "SELECT * FROM deckseam ORDER BY NAME, 1", "SELECT * FROM deckseam ORDER BY 1 ASC, NAME",
        "SELECT * FROM deckseam ORDER BY 'NAME'", "SELECT NAME, Count(*) AS n FROM deckseam GROUP BY 1"}) {
    EXPECT_NE(SyntaxError(sql).find("by fields, not by"), std::string::npos) << sql;
  }
  EXPECT_EQ(QueryRows(reference, "SELECT NAME FROM deckseam ORDER BY NAME & '1', CONSTRUC & 2", {"NAME"}),
            (Rows{"a", "b"}))
      << "a constant may be a part of what they are ordered by";
}

TEST_F(Dialect, GroupsAndDifferentRowsDisregardCase) {
  for (const char* construction : {"sheet", "Panel", "Sheet"}) AddSeam("x", construction, 2);
  EXPECT_EQ(QueryRows(reference, "SELECT CONSTRUC, Count(*) AS n, Sum(SWIDTH) AS s FROM deckseam GROUP BY CONSTRUC",
                      {"CONSTRUC", "n", "s"}),
            (Rows{"Panel|1|2", "sheet|2|4"}));
  EXPECT_EQ(QueryRows(reference, "SELECT DISTINCT CONSTRUC FROM deckseam ORDER BY CONSTRUC", {"CONSTRUC"}),
            (Rows{"Panel", "sheet"}));
  EXPECT_EQ(QueryRows(reference,
                      "SELECT CONSTRUC, Max(SWIDTH) AS m FROM deckseam GROUP BY CONSTRUC HAVING Count(*) > 1 "
                      "ORDER BY CONSTRUC",
                      {"CONSTRUC", "m"}),
            (Rows{"sheet|2"}));
}

// What is no query -------------------------------------------------------------------------------------------------

TEST_F(Dialect, WhatIsNoQueryIsASyntaxErrorThatQuotesIt) {
  for (const char* sql : {"",
                          " \t\r\n",
                          ";",
                          "deckseam",
                          "SELECT",
                          "SELECT *",
                          "SELECT * deckseam",
                          "SELECT FROM deckseam",
                          "SELECT * FROM",
                          "SELECT * FROM deckseam WHERE",
                          "SELECT * FROM deckseam WHERE ()",
                          "SELECT * FROM deckseam WHERE (NAME = 'a'",
                          "SELECT * FROM deckseam WHERE NAME = 'a')",
                          "SELECT * FROM deckseam WHERE NAME = 'a' OR",
                          "SELECT * FROM deckseam WHERE NAME = 'a' OR OR NAME = 'b'",
                          "SELECT NAME OR CONSTRUC, NAME FROM deckseam",
                          "SELECT * FROM deckseam WHERE NAME = 'a",
                          "SELECT * FROM deckseam WHERE [NAME = 'a'",
                          "SELECT * FROM deckseam WHERE NAME = 'a' & ",
                          "SELECT * FROM deckseam WHERE NAME ^ 2",
                          "SELECT * FROM deckseam WHERE NAME = ?1",
                          "SELECT * FROM deckseam WHERE NAME = @a",
                          "SELECT * FROM deckseam ORDER NAME",
                          "SELECT * FROM deckseam GROUP NAME",
                          "SELECT * FROM deckseam ORDER BY NAME WHERE NAME = 'a'",
                          "SELECT * FROM deckseam; DELETE * FROM deckseam",
                          "SELECT * FROM deckseam WHERE NAME IN (SELECT NAME FROM deckseam)",
                          "SELECT * FROM deckseam WHERE load_extension('x')",
                          "SELECT NAME. FROM deckseam",
                          "SELECT deckseam.= FROM deckseam",
                          "SELECT TOP 5 * FROM deckseam",
                          "SELECT * FROM deckseam WHERE Sum(SWIDTH) > 5",
                          "UPDATE deckseam SET NAME = 'a'",
                          "INSERT INTO deckseam VALUES (1)",
                          "DROP TABLE deckseam",
                          "PRAGMA writable_schema = 1"}) {
    const std::string description = SyntaxError(sql);
    EXPECT_NE(description.find(sql), std::string::npos) << description;
  }
  EXPECT_EQ(reference.OpenTable("deckseam").RecordCount(), 0);
}

TEST_F(Dialect, ALongQueryIsQuotedAsFarAsItCanBeRead) {
  std::string names = "NAME = 'a'";
  for (int i = 0; i < 5000; ++i) names += " OR NAME = '\u00D6l'";
  for (const std::string& sql :
       {"SELECT * deckseam WHERE " + names, "SELECT * FROM deckseam WHERE NAME NAME " + names}) {
    const auto description = SyntaxError(sql);
    EXPECT_TRUE(description.starts_with("Syntax error in query '" + sql.substr(0, 300))) << description;
    EXPECT_NE(description.find("...': "), std::string::npos) << description;
    EXPECT_EQ(CharacterCount(description.substr(0, description.find("...': "))),
              CharacterCount("Syntax error in query '") + 400);
  }
}

TEST_F(Dialect, ADeleteStatementIsChecked) {
  AddSeam("a");
  AddSeam("b");
  for (const char* sql : {"DELETE", "DELETE deckseam", "DELETE deckseam. FROM deckseam", "DELETE = FROM deckseam",
                          "DELETE * deckseam", "DELETE * FROM 5", "DELETE * FROM deckseam ORDER BY NAME"}) {
    EXPECT_RUN_TIME_ERROR(reference.Execute(sql), ErrorNumber::kQuerySyntax);
  }
  EXPECT_EQ(reference.Execute("DELETE deckseam.* FROM deckseam WHERE NAME = 'a'"), 1);
  EXPECT_EQ(reference.Execute("DELETE FROM deckseam"), 1);
}

TEST_F(Dialect, QueriesAndStatementsAreNotMixedUp) {
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery("DELETE * FROM deckseam"), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery("SELECT * INTO copy FROM deckseam"), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(reference.Execute("SELECT * FROM deckseam"), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(reference.Execute("SELECT NAME FROM deckseam"), ErrorNumber::kOperationNotSupported);
}

TEST_F(Dialect, DeepNestingIsRefusedWithoutACrash) {
  const auto nested = [](std::size_t depth) {
    return "SELECT * FROM deckseam WHERE " + std::string(depth, '(') + "1" + std::string(depth, ')');
  };
  EXPECT_NO_THROW(reference.OpenQuery(nested(50)));
  SyntaxError(nested(201));
  SyntaxError(nested(100000));
}

TEST_F(Dialect, CommentsOfOtherDialectsCutNothingOff) {
  AddSeam("a");
  SyntaxError("SELECT * FROM deckseam WHERE NAME = 'b' /* ' OR True */");
  EXPECT_EQ(Names("SWIDTH = 5 --5"), (Rows{})) << "two minus signs are two minus signs";
  EXPECT_EQ(Names("SWIDTH = 5 --5 + 10 - 20 OR SWIDTH = 5 --5 - 10"), (Rows{"a"}));
}

TEST_F(Dialect, WholeRowsOfOneTableCanBeEditedAndOtherRowsCannot) {
  AddSeam("a");
  for (const char* sql : {"SELECT * FROM deckseam", "SELECT deckseam.* FROM deckseam",
                          "SELECT DISTINCTROW DECKSEAM.* FROM [deckseam] WHERE NAME = 'a' ORDER BY NAME;"}) {
    auto rows = reference.OpenQuery(sql);
    EXPECT_NO_THROW(rows.Edit()) << sql;
  }
  for (const char* sql : {"SELECT NAME FROM deckseam", "SELECT DISTINCT * FROM deckseam",
                          "SELECT s.* FROM deckseam AS s", "SELECT * FROM deckseam GROUP BY NAME",
                          "SELECT deckseam.* FROM deckseam INNER JOIN fitting ON deckseam.NAME = fitting.FIT_TYPE"}) {
    auto rows = reference.OpenQuery(sql);
    EXPECT_RUN_TIME_ERROR(rows.Edit(), ErrorNumber::kOperationNotSupported);
  }
}

TEST_F(Dialect, QueriesThatDifferInAConstantOnlyShareTheirText) {
  const auto one = TranslateSql("SELECT * FROM tank WHERE ID = 1 AND NAME = 'a'");
  const auto other = TranslateSql("SELECT * FROM tank WHERE ID = 27 AND NAME = 'it''s'");
  EXPECT_EQ(one.sql, other.sql);
  EXPECT_EQ(other.parameters, (std::vector<Value>{Value(std::int64_t{27}), Value("it's")}));
}

TEST_F(Dialect, ManyDifferentQueriesRunOneAfterTheOther) {
  AddSeam("a", {}, 1);
  for (int i = 1; i <= 600; ++i) {
    std::string sum = "1";
    for (int j = 0; j < i % 300; ++j) sum += "+0";
    const std::string query = "SELECT NAME FROM deckseam WHERE SWIDTH = " + sum + (i > 300 ? " AND NAME = 'a'" : "");
    ASSERT_EQ(QueryRows(reference, query, {"NAME"}), (Rows{"a"})) << query;
  }
}

}  // namespace
}  // namespace orvex::store
