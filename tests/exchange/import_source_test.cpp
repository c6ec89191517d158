#include "exchange/import_source.h"

#include <gtest/gtest.h>

#include "exchange/previous_version_files.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

namespace orvex::exchange {
namespace {

using store::ErrorNumber;

/// One record with a text, a number and a flag in fields of their types.
class ImportSourceTest : public testing::Test {
 protected:
  ImportSource Holding(const test::DbaseRow& row) {
    const auto path = folder_.Path() / "source.dbf";
    test::WriteDbase(path, {test::TextColumn("TEXT", 20), test::NumberColumn("NUMBER"), test::LogicalColumn("FLAG")},
                     {row});
    return ImportSource(path);
  }

  test::TemporaryFolder folder_;
};

TEST_F(ImportSourceTest, ReadsWhatIsBlankAsNothing) {
  const auto source = Holding({});
  for (const auto* field : {"TEXT", "NUMBER", "FLAG"}) {
    EXPECT_TRUE(source.IsNull(field));
    EXPECT_EQ(source.Text(field), "");
    EXPECT_EQ(source.Number(field), 0);
    EXPECT_FALSE(source.Flag(field));
  }
}

TEST_F(ImportSourceTest, ReadsANumberAsTextAndFlag) {
  const auto source = Holding({{"NUMBER", 12.5}});
  EXPECT_EQ(source.Number("NUMBER"), 12.5);
  EXPECT_EQ(source.Text("NUMBER"), "12.5");
  EXPECT_TRUE(source.Flag("NUMBER"));
}

TEST_F(ImportSourceTest, ReadsATextAsNumber) {
  EXPECT_EQ(Holding({{"TEXT", "  -7.25"}}).Number("TEXT"), -7.25);
  EXPECT_EQ(Holding({{"TEXT", "1e3"}}).Number("TEXT"), 1000);
  for (const auto* text : {"7,25", "seven", "7 25", "nan", "inf", "1e999"})
    EXPECT_RUN_TIME_ERROR(Holding({{"TEXT", text}}).Number("TEXT"), ErrorNumber::kDataConversion);
}

TEST_F(ImportSourceTest, ReadsATextAsFlag) {
  for (const auto* yes : {"T", "y", "True", "YES", "-1", "1"})
    EXPECT_TRUE(Holding({{"TEXT", yes}}).Flag("TEXT")) << yes;
  for (const auto* no : {"F", "n", "False", "no", "0"}) EXPECT_FALSE(Holding({{"TEXT", no}}).Flag("TEXT")) << no;
  EXPECT_RUN_TIME_ERROR(Holding({{"TEXT", "perhaps"}}).Flag("TEXT"), ErrorNumber::kDataConversion);
}

TEST_F(ImportSourceTest, CountsRecordsForTheProgress) {
  const auto path = folder_.Path() / "source.dbf";
  test::WriteDbase(path, {test::TextColumn("TEXT", 20)}, {{{"TEXT", "a"}}, {{"TEXT", "b"}}});
  ImportSource source(path);
  EXPECT_EQ(source.RecordCount(), 2);
  EXPECT_EQ(source.Position(), 1);
  source.MoveNext();
  EXPECT_EQ(source.Position(), 2);
  source.MoveNext();
  EXPECT_TRUE(source.AtEnd());
}

}  // namespace
}  // namespace orvex::exchange
