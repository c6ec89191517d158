#include "store/csv_cell.h"

#include <gtest/gtest.h>

namespace orvex::store {
namespace {

TEST(CsvCell, NullIsNoCellAndAnEmptyTextIsOne) {
  EXPECT_EQ(ToCell(Value()), std::nullopt);
  EXPECT_EQ(ToCell(""), "");
}

TEST(CsvCell, NumbersReadBackAsTheSameNumber) {
  EXPECT_EQ(ToCell(0.1), "0.1");
  EXPECT_EQ(ToCell(1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(ToCell(1e300), "1e+300");
  EXPECT_EQ(ToCell(true), "-1");
  EXPECT_EQ(ToCell(42), "42");
}

TEST(CsvCell, TextThatLooksLikeAFormulaStaysAsItIs) { EXPECT_EQ(ToCell("=1+1"), "=1+1"); }

}  // namespace
}  // namespace orvex::store
