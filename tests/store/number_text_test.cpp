#include "store/number_text.h"

#include <gtest/gtest.h>

namespace orvex::store {
namespace {

TEST(NumberText, WholeTextsThatAreNumbersAreRead) {
  EXPECT_EQ(ParseNumber("0"), 0.0);
  EXPECT_EQ(ParseNumber("-1"), -1.0);
  EXPECT_EQ(ParseNumber("7.38661"), 7.38661);
  EXPECT_EQ(ParseNumber("2e-5"), 0.00002);
  EXPECT_EQ(ParseNumber(".5"), 0.5);
}

TEST(NumberText, AnythingElseIsNoNumber) {
  for (const char* text : {"", " ", " 1", "1 ", "+1", "1,5", "1.5x", "0x10", "--1", "1e", "inf", "-inf", "nan", "1e400",
                           "1\t", "\xC2\xA0", "one"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << "'" << text << "'";
  }
}

TEST(NumberText, NumbersArePrintedInTheFewestDigitsThatReadBackTheSame) {
  EXPECT_EQ(ShortestNumber(0.1), "0.1");
  EXPECT_EQ(ShortestNumber(-0.0), "-0");
  EXPECT_EQ(ShortestNumber(1e308), "1e+308");
  for (const double number : {1.0 / 3, 5e-324, 123456789.125}) EXPECT_EQ(ParseNumber(ShortestNumber(number)), number);
}

TEST(NumberText, ATextThatHoldsANulIsNoNumber) { EXPECT_EQ(ParseNumber(std::string_view("1\0", 2)), std::nullopt); }

}  // namespace
}  // namespace orvex::store
