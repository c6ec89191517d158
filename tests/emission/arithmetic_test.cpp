#include "emission/arithmetic.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/expect_error.h"

namespace orvex::emission {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(Divide, GivesTheQuotient) { EXPECT_EQ(Divide(1, -4), -0.25); }

TEST(Divide, ByZeroIsError11WhateverTheDividend) {
  EXPECT_RUN_TIME_ERROR(Divide(1, 0), 11);
  EXPECT_RUN_TIME_ERROR(Divide(0, 0), 11);
  EXPECT_RUN_TIME_ERROR(Divide(1, -0.0), 11);
}

TEST(Divide, AQuotientOutsideTheRangeIsError6) { EXPECT_RUN_TIME_ERROR(Divide(kLargest, 0.5), 6); }

TEST(Divide, DoesNotHideAnOverflowFurtherUp) {
  EXPECT_RUN_TIME_ERROR(Divide(1, kInfinite), 6);
  EXPECT_RUN_TIME_ERROR(Divide(kInfinite, 2), 6);
  EXPECT_RUN_TIME_ERROR(Divide(kNoNumber, 2), 6);
}

TEST(Power, GivesThePower) {
  EXPECT_EQ(Power(2, 10), 1024);
  EXPECT_EQ(Power(9, 0.5), 3);
  EXPECT_EQ(Power(2, -2), 0.25);
  EXPECT_EQ(Power(-3, 3), -27);
}

TEST(Power, OfZero) {
  EXPECT_EQ(Power(0, 0), 1);
  EXPECT_EQ(Power(0, 1.5), 0);
  EXPECT_RUN_TIME_ERROR(Power(0, -1), 5);
}

TEST(Power, ABrokenPowerOfANegativeNumberIsError5) { EXPECT_RUN_TIME_ERROR(Power(-4, 0.5), 5); }

TEST(Power, OutsideTheRangeIsError6) {
  EXPECT_RUN_TIME_ERROR(Power(10, 309), 6);
  EXPECT_RUN_TIME_ERROR(Power(10, kInfinite), 6);
  EXPECT_RUN_TIME_ERROR(Power(10, -kInfinite), 6);
  EXPECT_RUN_TIME_ERROR(Power(kNoNumber, 1), 6);
  EXPECT_EQ(Power(10, -400), 0) << "too small to tell from nothing is no failure";
}

TEST(NaturalLog, GivesTheLogarithm) {
  EXPECT_EQ(NaturalLog(1), 0);
  EXPECT_DOUBLE_EQ(NaturalLog(10), 2.3025850929940457);
}

TEST(NaturalLog, AtOrBelowZeroIsError5) {
  EXPECT_RUN_TIME_ERROR(NaturalLog(0), 5);
  EXPECT_RUN_TIME_ERROR(NaturalLog(-1), 5);
}

TEST(NaturalLog, OfNoFiniteNumberIsError6) { EXPECT_RUN_TIME_ERROR(NaturalLog(kInfinite), 6); }

TEST(Exponential, GivesThePowerOfE) {
  EXPECT_EQ(Exponential(0), 1);
  EXPECT_DOUBLE_EQ(Exponential(1), 2.7182818284590452);
}

TEST(Exponential, OutsideTheRangeIsError6) {
  EXPECT_RUN_TIME_ERROR(Exponential(710), 6);
  EXPECT_RUN_TIME_ERROR(Exponential(-kInfinite), 6);
}

TEST(SquareRoot, GivesTheRoot) {
  EXPECT_EQ(SquareRoot(0), 0);
  EXPECT_EQ(SquareRoot(2.25), 1.5);
}

TEST(SquareRoot, BelowZeroIsError5) { EXPECT_RUN_TIME_ERROR(SquareRoot(-1e-300), 5); }

TEST(SquareRoot, OfNoFiniteNumberIsError6) { EXPECT_RUN_TIME_ERROR(SquareRoot(kInfinite), 6); }

TEST(Finite, PassesNumbersAndRefusesAllElseWithError6) {
  EXPECT_EQ(Finite(-kLargest), -kLargest);
  EXPECT_RUN_TIME_ERROR(Finite(kInfinite), 6);
  EXPECT_RUN_TIME_ERROR(Finite(-kInfinite), 6);
  EXPECT_RUN_TIME_ERROR(Finite(kNoNumber), 6);
}

TEST(RoundToWhole, TakesTheNearestAndOfTwoTheEvenOne) {
  EXPECT_EQ(RoundToWhole(2.4999), 2);
  EXPECT_EQ(RoundToWhole(2.5), 2);
  EXPECT_EQ(RoundToWhole(2.5001), 3);
  EXPECT_EQ(RoundToWhole(3.5), 4);
  EXPECT_EQ(RoundToWhole(-2.5), -2);
  EXPECT_EQ(RoundToWhole(0.5), 0);
}

TEST(RoundToWhole, OutsideALongIsError6) {
  EXPECT_EQ(RoundToWhole(2147483647.4), 2147483647);
  EXPECT_EQ(RoundToWhole(-2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_RUN_TIME_ERROR(RoundToWhole(2147483647.5), 6);
  EXPECT_RUN_TIME_ERROR(RoundToWhole(-2147483649.0), 6);
  EXPECT_RUN_TIME_ERROR(RoundToWhole(kNoNumber), 6);
}

TEST(SquareOf, MultipliesANumberByItself) { EXPECT_EQ(SquareOf(-1.5), 2.25); }

}  // namespace
}  // namespace orvex::emission
