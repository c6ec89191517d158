#include "databases/table_rows.h"

#include <gmock/gmock.h>

#include "support/test_databases.h"
#include "tools/made_rows.h"

namespace orvex::databases {
namespace {

using test::RefusalOf;
using ::testing::HasSubstr;

constexpr std::string_view kFitFile = "ID,FIT ID,FIT_TYPE,COVR_TYPE,K_FA,K_FB,K_M,QUANTITY\n";

TableRows Fittings(const std::string& lines) {
  return {store::CsvTable::Parse(std::string(kFitFile) + lines, "fittings.csv"), "fittings"};
}

TableRows Seams(const std::string& header, const std::string& line) {
  constexpr std::string_view kLeftOut[] = {"Counter"};
  return {store::CsvTable::Parse(header + "\n" + line + "\n", "deckseam.csv"), "deckseam", kLeftOut};
}

TEST(TableRows, CellsAreReadByTheTypeOfTheirField) {
  const TableRows rows = Fittings("1,2,\"Sock, blue\",,0,1.5e-1,-2,3\n");
  EXPECT_EQ(rows.Count(), 1u);
  EXPECT_EQ(rows.Long(0, "FIT ID"), 2);
  EXPECT_EQ(rows.Text(0, "fit_type"), "Sock, blue");
  EXPECT_TRUE(rows.IsNull(0, "COVR_TYPE"));
  EXPECT_FALSE(rows.IsNull(0, "K_FA"));
  EXPECT_EQ(rows.Number(0, "K_FA"), 0.0);
  EXPECT_EQ(rows.Number(0, "K_FB"), 0.15);
  EXPECT_EQ(rows.Number(0, "K_M"), -2.0);
}

TEST(TableRows, ATextWiderThanItsFieldIsRefused) {
  EXPECT_NO_THROW(Fittings("1,1," + std::string(50, 'x') + ",,0,0,0,1\n"));
  EXPECT_THAT(RefusalOf([] { Fittings("1,1,a,,0,0,0,1\n1,2," + std::string(51, 'x') + ",,0,0,0,1\n"); }),
              HasSubstr("fittings.csv, line 3, FIT_TYPE: the text has 51 characters, the field holds 50."));
}

TEST(TableRows, WidthCountsCharactersAndNotBytes) {
  std::string text;
  for (int i = 0; i < 50; ++i) text += "\xC3\xBC";
  EXPECT_NO_THROW(Fittings("1,1," + text + ",,0,0,0,1\n"));
}

TEST(TableRows, ATextWhereANumberBelongsIsRefused) {
  EXPECT_THAT(RefusalOf([] { Fittings("1,1,a,,x,0,0,1\n"); }),
              HasSubstr("fittings.csv, line 2, K_FA: 'x' is not a number."));
  EXPECT_THAT(RefusalOf([] { Fittings("1,1,a,,\"1,5\",0,0,1\n"); }), HasSubstr("'1,5' is not a number."));
  EXPECT_THAT(RefusalOf([] { Fittings("1,1,a,,\"\",0,0,1\n"); }), HasSubstr("'' is not a number."));
}

TEST(TableRows, AWholeNumberFieldRefusesDecimalsAndWhatALongCannotHold) {
  EXPECT_THAT(RefusalOf([] { Fittings("1.5,1,a,,0,0,0,1\n"); }),
              HasSubstr("line 2, ID: '1.5' is not a whole number of 32 bits."));
  EXPECT_THAT(RefusalOf([] { Fittings("2147483648,1,a,,0,0,0,1\n"); }), HasSubstr("line 2, ID"));
  EXPECT_EQ(Fittings("2147483647,1,a,,0,0,0,1\n").Long(0, "ID"), 2147483647);
}

TEST(TableRows, AFlagIsMinusOneOrZero) {
  const std::string header = "NAME,CONSTRUC,SWIDTH,PWIDTH,PLENGTH,SD,KD,APICERT,USER_DEF";
  EXPECT_TRUE(Seams(header, "a,Sheet,5,,,0.2,0.14,,-1").Flag(0, "USER_DEF"));
  EXPECT_FALSE(Seams(header, "a,Sheet,5,,,0.2,0.14,,0").Flag(0, "USER_DEF"));
  for (const std::string flag : {"1", "", "true", "-1.0"}) {
    EXPECT_THAT(RefusalOf([&] { Seams(header, "a,Sheet,5,,,0.2,0.14,," + flag); }),
                HasSubstr("deckseam.csv, line 2, USER_DEF: '" + flag + "' is neither -1 nor 0."));
  }
}

TEST(TableRows, AFieldWithoutAColumnIsRefused) {
  EXPECT_THAT(RefusalOf([] { Seams("NAME,CONSTRUC", "a,Sheet"); }),
              HasSubstr("deckseam.csv: there is no column 'SWIDTH'."));
}

TEST(TableRows, AColumnThatIsNoFieldOrLeftToTheStoreIsRefused) {
  const std::string header = "NAME,CONSTRUC,SWIDTH,PWIDTH,PLENGTH,SD,KD,APICERT,USER_DEF";
  EXPECT_THAT(RefusalOf([&] { Seams(header + ",COLOR", "a,Sheet,5,,,0.2,0.14,,0,red"); }),
              HasSubstr("the column 'COLOR' is no field"));
  EXPECT_THAT(RefusalOf([&] { Seams(header + ",Counter", "a,Sheet,5,,,0.2,0.14,,0,1"); }),
              HasSubstr("the column 'Counter' is no field"));
}

TEST(TableRows, RowsAreAddedInTheirOrderWithNullsKept) {
  test::TestSession test;
  Fittings("1,1,b,,0,1,2,3\n1,2,a,open,0.5,1,2,3\n").AddTo(test.client());
  auto records = test.client().OpenTable("fittings");
  EXPECT_EQ(records.RecordCount(), 2);
  EXPECT_EQ(records.Text("FIT_TYPE"), "b");
  EXPECT_TRUE(records.IsNull("COVR_TYPE"));
  EXPECT_EQ(records.Double("K_FA"), 0.0);
  records.MoveNext();
  EXPECT_EQ(records.Text("COVR_TYPE"), "open");
  EXPECT_EQ(records.Double("K_FA"), 0.5);
}

}  // namespace
}  // namespace orvex::databases
