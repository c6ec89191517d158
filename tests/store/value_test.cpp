#include "store/value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "store/run_time_error.h"
#include "support/expect_error.h"

namespace orvex::store {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Value, NullReadsAsNothingOnlyWhereThatIsAskedFor) {
  const Value null{};
  EXPECT_TRUE(null.IsNull());
  EXPECT_RUN_TIME_ERROR(null.AsDouble(), ErrorNumber::kInvalidUseOfNull);
  EXPECT_RUN_TIME_ERROR(null.AsLong(), ErrorNumber::kInvalidUseOfNull);
  EXPECT_RUN_TIME_ERROR(null.AsBool(), ErrorNumber::kInvalidUseOfNull);
  EXPECT_RUN_TIME_ERROR(null.AsText(), ErrorNumber::kInvalidUseOfNull);
  EXPECT_EQ(null.DoubleOrZero(), 0.0);
  EXPECT_EQ(null.LongOrZero(), 0);
  EXPECT_FALSE(null.BoolOrFalse());
  EXPECT_EQ(null.TextOrEmpty(), "");
}

TEST(Value, ABooleanIsMinusOneOrZero) {
  EXPECT_EQ(Value(true).AsLong(), -1);
  EXPECT_EQ(Value(false).AsLong(), 0);
  EXPECT_EQ(Value(true).AsText(), "-1");
  EXPECT_TRUE(Value(5).AsBool());
  EXPECT_TRUE(Value(0.5).AsBool());
  EXPECT_FALSE(Value(0.0).BoolOrFalse());
}

TEST(Value, NumbersRoundToTheNearestWholeNumberAndHalvesToTheEvenOne) {
  EXPECT_EQ(Value(2.4).AsLong(), 2);
  EXPECT_EQ(Value(2.5).AsLong(), 2);
  EXPECT_EQ(Value(3.5).AsLong(), 4);
  EXPECT_EQ(Value(-2.5).AsLong(), -2);
  EXPECT_EQ(Value(2147483647.4).AsLong(), 2147483647);
  EXPECT_RUN_TIME_ERROR(Value(2147483647.6).AsLong(), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(Value(-2147483649.0).AsLong(), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(Value(std::numeric_limits<std::int64_t>::max()).LongOrZero(), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(Value(1e300).AsLong(), ErrorNumber::kOverflow);
}

TEST(Value, TextsOfNumbersAreNumbersWithADecimalPoint) {
  EXPECT_EQ(Value("12.5").AsDouble(), 12.5);
  EXPECT_EQ(Value("-3").AsLong(), -3);
  EXPECT_EQ(Value("1e3").AsDouble(), 1000);
  for (const char* text :
       {"", " ", "12,5", "1.000,5", " 1", "1 ", "one", "0x10", "1e", "inf", "-inf", "nan", "1e999"}) {
    EXPECT_RUN_TIME_ERROR(Value(text).AsDouble(), ErrorNumber::kTypeMismatch);
    EXPECT_RUN_TIME_ERROR(Value(text).LongOrZero(), ErrorNumber::kTypeMismatch);
    EXPECT_RUN_TIME_ERROR(Value(text).AsBool(), ErrorNumber::kTypeMismatch);
  }
}

TEST(Value, NumbersReadAsTextsInPlainDecimalNotation) {
  EXPECT_EQ(Value(14.7).AsText(), "14.7");
  EXPECT_EQ(Value(5.0).AsText(), "5");
  EXPECT_EQ(Value(1e21).AsText(), "1000000000000000000000");
  EXPECT_EQ(Value(1.5e-7).AsText(), "0.00000015");
  EXPECT_EQ(Value(-42).AsText(), "-42");
  EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).AsText(), "-9223372036854775808");
  EXPECT_EQ(Value(std::numeric_limits<double>::max()).AsText().size(), 309U);
  EXPECT_EQ(Value(-std::numeric_limits<double>::denorm_min()).AsText().substr(0, 4), "-0.0");
}

TEST(Value, NoNumberThatIsNotFiniteComesOut) {
  for (const double number : {kInfinity, -kInfinity, kNotANumber}) {
    const Value value(number);
    EXPECT_RUN_TIME_ERROR(value.AsDouble(), ErrorNumber::kOverflow);
    EXPECT_RUN_TIME_ERROR(value.AsLong(), ErrorNumber::kOverflow);
    EXPECT_RUN_TIME_ERROR(value.AsBool(), ErrorNumber::kOverflow);
    EXPECT_RUN_TIME_ERROR(value.AsText(), ErrorNumber::kOverflow);
    EXPECT_RUN_TIME_ERROR(value.DoubleOrZero(), ErrorNumber::kOverflow);
  }
}

TEST(Value, EqualMeansSameKindAndSameContent) {
  EXPECT_EQ(Value(), Value());
  EXPECT_EQ(Value(1), Value(std::int64_t{1}));
  EXPECT_EQ(Value(1.5), Value(1.5));
  EXPECT_EQ(Value("a"), Value(std::string("a")));
  EXPECT_FALSE(Value("a") == Value("A"));
  EXPECT_FALSE(Value(1) == Value(1.0));
  EXPECT_FALSE(Value(0) == Value());
  EXPECT_FALSE(Value("1") == Value(1));
}

TEST(Value, AValueCanChangeItsKindInPlace) {
  Value value("text");
  value.SetReal(2.5);
  EXPECT_EQ(value, Value(2.5));
  value.SetInteger(7);
  EXPECT_EQ(value, Value(7));
  value.SetText("again");
  EXPECT_EQ(value, Value("again"));
  value.SetNull();
  EXPECT_EQ(value, Value());
}

}  // namespace
}  // namespace orvex::store
