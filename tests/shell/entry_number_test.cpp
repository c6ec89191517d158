#include "shell/entry_number.h"

#include <gtest/gtest.h>

#include <string>

#include "support/expect_error.h"

namespace orvex::shell {
namespace {

using store::ErrorNumber;

TEST(EntryNumber, TakesWhatAPersonWritesForANumber) {
  EXPECT_EQ(ParseEntryNumber("12"), 12);
  EXPECT_EQ(ParseEntryNumber(" -0.5 "), -0.5);
  EXPECT_EQ(ParseEntryNumber("+7"), 7);
  EXPECT_EQ(ParseEntryNumber(".25"), 0.25);
  EXPECT_EQ(ParseEntryNumber("5."), 5);
  EXPECT_EQ(ParseEntryNumber("1.5e3"), 1500);
  EXPECT_EQ(ParseEntryNumber("1E-05"), 0.00001);
}

TEST(EntryNumber, TakesCommasBetweenThousands) {
  EXPECT_EQ(ParseEntryNumber("1,234"), 1234);
  EXPECT_EQ(ParseEntryNumber("12,345,678.25"), 12345678.25);
  EXPECT_EQ(ParseEntryNumber("-1,000e2"), -100000);
}

TEST(EntryNumber, RefusesCommasThatPartNoThousands) {
  for (const auto* text : {"1,5", "1,2345", ",123", "1,,234", "1234,567", "1,23,456", "1,234,", "0.123,456", "1e1,000"})
    EXPECT_FALSE(ParseEntryNumber(text)) << text;
}

TEST(EntryNumber, RefusesWhatIsNoFiniteNumber) {
  for (const auto* text : {"",      " ",     "-",   ".",   "e5",  "nan",   "NaN", "inf", "-inf", "infinity", "0x10",
                           "1e999", "12 ft", "--1", "+-1", "1 2", "1.2.3", "\t1", "1\n", "1.5.", "１"})
    EXPECT_FALSE(ParseEntryNumber(text)) << text;
  EXPECT_FALSE(ParseEntryNumber(std::string("1\0", 2)));
  EXPECT_FALSE(ParseEntryNumber(std::string(400, '9')));
}

TEST(EntryNumber, TakesFourHundredDigitsThatMakeAFiniteNumber) {
  EXPECT_EQ(ParseEntryNumber("0." + std::string(400, '3')), 1.0 / 3);
  EXPECT_EQ(ParseEntryNumber(std::string(400, '0') + "12"), 12);
}

TEST(EntryNumber, IsATypeMismatchForAnythingElse) {
  EXPECT_RUN_TIME_ERROR(EntryNumber("twelve"), ErrorNumber::kTypeMismatch);
}

}  // namespace
}  // namespace orvex::shell
