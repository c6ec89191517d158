#include "refdata/chart_axis.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace orvex::refdata {
namespace {

std::vector<std::string> Labels(const Axis& axis) {
  std::vector<std::string> labels;
  for (const auto& tick : axis.ticks) labels.push_back(tick.label);
  return labels;
}

using Texts = std::vector<std::string>;

// 22 to 89 spans 67; a fourth of it is 16.75, the next round step 25. 22 is less than half of 89, so that it begins at
// 0.
TEST(LinearAxis, HasRoundTicksAroundItsValues) {
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{22, 89})), (Texts{"0", "25", "50", "75", "100"}));
}

// 8 to 11.3 spans 3.3, a fourth is 0.825, the step 1.
TEST(LinearAxis, LeavesOutZeroWhereItWouldTakeMostOfTheRoom) {
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{8, 11.3})), (Texts{"8", "9", "10", "11", "12"}));
}

// -10 to 0.5: a fourth is 2.625, the step 5.
TEST(LinearAxis, CrossesZero) {
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{-10, 0.5})), (Texts{"-10", "-5", "0", "5"}));
}

// One value gets a tenth of itself on both sides: 45 to 55, a fourth of which is 2.5.
TEST(LinearAxis, SurroundsASingleValue) {
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{50})), (Texts{"45", "47.5", "50", "52.5", "55"}));
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{0})), (Texts{"0", "0.25", "0.5", "0.75", "1"}));
}

TEST(LinearAxis, HasNoTicksWithoutValues) {
  EXPECT_TRUE(LinearAxis({}).ticks.empty());
  EXPECT_TRUE(ReadableAxis({}).ticks.empty());
}

TEST(LinearAxis, SaysNoMoreThanThirtyDigitsOfSize) {
  EXPECT_EQ(Labels(LinearAxis(std::vector<double>{0, 1e300})).back(), "1E+30");
}

TEST(ReadableAxis, IsLogarithmicWhereAValueIsFiftyTimesAnother) {
  EXPECT_EQ(ReadableAxis(std::vector<double>{1, 50}).scale, Scale::kLinear);
  const auto axis = ReadableAxis(std::vector<double>{0.002, 5});
  EXPECT_EQ(axis.scale, Scale::kLogarithmic);
  EXPECT_EQ(Labels(axis), (Texts{"0.001", "0.01", "0.1", "1", "10"}));
  EXPECT_EQ(ReadableAxis(std::vector<double>{-1, 50}).scale, Scale::kLinear);
}

TEST(ReadableAxis, ShowsTwelveDecadesAtMost) {
  const auto axis = ReadableAxis(std::vector<double>{1e-20, 1});
  EXPECT_EQ(Labels(axis), (Texts{"1E-12", "1E-10", "1E-08", "1E-06", "0.0001", "0.01", "1"}));
  EXPECT_EQ(Share(axis, 1e-20), 0);
}

TEST(Axis, PlacesValuesByTheirPartOfTheWay) {
  const auto linear = LinearAxis(std::vector<double>{0, 100});
  EXPECT_DOUBLE_EQ(Share(linear, 25), 0.25);
  EXPECT_EQ(Share(linear, 1e300), 1);
  EXPECT_EQ(Share(linear, -5), 0);
  // From 0.001 to 10 are four decades; 0.1 stands behind two of them.
  EXPECT_DOUBLE_EQ(Share(ReadableAxis(std::vector<double>{0.002, 5}), 0.1), 0.5);
}

RC_GTEST_PROP(AnyAxis, HasFewRisingTicksAndPlacesEveryValueOnIt, (std::vector<double> mantissas, int exponent)) {
  std::vector<double> values;
  for (const double mantissa : mantissas) {
    const double value = std::ldexp(mantissa, exponent % 1000);
    if (std::isfinite(value)) values.push_back(value);
  }
  for (const auto& axis : {LinearAxis(values), ReadableAxis(values)}) {
    RC_ASSERT(axis.low < axis.high);
    RC_ASSERT(axis.ticks.size() <= 9U);
    for (std::size_t i = 0; i + 1 < axis.ticks.size(); ++i) {
      RC_ASSERT(axis.ticks[i].value < axis.ticks[i + 1].value);
      RC_ASSERT(axis.ticks[i].label != axis.ticks[i + 1].label);
    }
    for (const double value : values) {
      const double share = Share(axis, value);
      RC_ASSERT(share >= 0 && share <= 1);
    }
  }
}

}  // namespace
}  // namespace orvex::refdata
