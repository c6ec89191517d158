#include "refdata/deck_seam_sizes.h"

#include <gtest/gtest.h>

#include "support/expect_error.h"

namespace orvex::refdata {
namespace {

TEST(DeckSeamSizes, NameASeam) {
  EXPECT_EQ(PanelSeamName(5, 7.5, ""), "Panel: 5 x 7.5 ft");
  EXPECT_EQ(PanelSeamName(5, 12, "A-1"), "Panel: 5 x 12 ft (A-1)");
  EXPECT_EQ(SheetSeamName(5, ""), "Sheet: 5 ft Wide");
  EXPECT_EQ(SheetSeamName(0.0625, "A-1"), "Sheet: 0.0625 ft Wide (A-1)");
  EXPECT_EQ(SheetSeamName(1234.5, ""), "Sheet: 1234.5 ft Wide");
}

TEST(DeckSeamSizes, OneFootOfSeamGoesWithEachWidthOfASheet) {
  EXPECT_DOUBLE_EQ(SheetSeamFactor(5), 0.2);
  EXPECT_DOUBLE_EQ(SheetSeamFactor(8), 0.125);
}

// The texts are joined, not added: 510 / (5 * 10) = 10.2, and 57.5 / (5 * 7.5) = 57.5 / 37.5 = 1.5333...
TEST(DeckSeamSizes, TheTextsOfAPanelAreReadAsOneNumber) {
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5", "10"), 10.2);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5", "7.5"), 57.5 / 37.5);
}

// "5.5" and "10.5" are joined as "5.510.5", which begins with 5.51: 5.51 / 57.75. "5.0" and "10" are 5.01.
TEST(DeckSeamSizes, AJoinedTextCountsAsFarAsItIsANumber) {
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5.5", "10.5"), 5.51 / 57.75);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5.0", "10"), 5.01 / 50);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5", "-10"), 5.0 / -50);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("-5", "10"), -510.0 / -50);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("5.", "10"), 5.1 / 50);
  EXPECT_DOUBLE_EQ(PanelSeamFactor(".5", "10"), 0.51 / 5);
}

// 1234 and 2 are 12342, by 2468.
TEST(DeckSeamSizes, CommasBlanksSignsAndExponentsAreNoPartOfTheText) {
  EXPECT_DOUBLE_EQ(PanelSeamFactor("1,234", "2"), 12342.0 / 2468);
  EXPECT_DOUBLE_EQ(PanelSeamFactor(" 5 ", " 10 "), 10.2);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("+5", "+10"), 10.2);
  EXPECT_DOUBLE_EQ(PanelSeamFactor("1e3", "2"), 10002.0 / 2000);
}

TEST(DeckSeamSizes, WhatIsOutOfRangeIsAnError) {
  EXPECT_RUN_TIME_ERROR(PanelSeamFactor("1e300", "1e300"), store::ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(PanelSeamFactor("1e200", "1e150"), store::ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(SheetSeamFactor(1e-310), store::ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(PanelSeamFactor("1e-200", "1e-200"), store::ErrorNumber::kDivisionByZero);
}

}  // namespace
}  // namespace orvex::refdata
