#include "refdata/profile_plot.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include "refdata/plot_fixture.h"
#include "refdata/profile_types.h"

namespace orvex::refdata {
namespace {

using test::Picture;
using ::testing::Contains;
using ::testing::HasSubstr;

using Components = std::vector<std::pair<std::string, double>>;

/// A profile of these components with their shares.
ProfileRecord ProfileOf(const std::string& type, const Components& components, bool relative = false) {
  ProfileRecord profile{.Name = {}, .Type = type, .relative = relative, .components = {}};
  const auto* info = FindShare(profile);
  for (const auto& [name, share] : components) {
    auto& component = profile.components.emplace_back();
    component.NAME = name;
    if (info != nullptr) component.*info->share = share;
  }
  return profile;
}

// The bars stand between x = 10 + 15 x 7.2 + 6 = 124 and 258, from 0 to 100 percent:
//   Toluene from 30 to 80: x = 124 + 134 x 0.3 = 164.2, width 134 x 0.5 = 67
TEST(ProfilePlot, BeginsEachBarWhereTheOneBeforeEnds) {
  const Picture picture(ProfilePlot(ProfileOf("Partial", {{"Benzene", 30}, {"Toluene", 50}})));
  const auto bars = picture.Parts("share");
  ASSERT_EQ(bars.size(), 2U);
  EXPECT_DOUBLE_EQ(Picture::Number(bars[0], "x"), 124);
  EXPECT_DOUBLE_EQ(Picture::Number(bars[0], "width"), 40.2);
  EXPECT_DOUBLE_EQ(Picture::Number(bars[1], "x"), 164.2);
  EXPECT_DOUBLE_EQ(Picture::Number(bars[1], "width"), 67);
  for (const auto* text : {"Benzene", "30.00", "Toluene", "80.00"}) EXPECT_THAT(picture.Texts(), Contains(text));
}

TEST(ProfilePlot, HasALineAtOneHundredAndARangeForAFullProfileOnly) {
  for (const auto* type : {"Partial", "Full", "Vapor"}) {
    const Picture picture(ProfilePlot(ProfileOf(type, {{"Benzene", 50}})));
    const auto lines = picture.Parts("whole");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_DOUBLE_EQ(Picture::Number(lines.front(), "x1"), 258);
    EXPECT_EQ(picture.Parts("range").size(), std::string_view(type) == "Full" ? 1U : 0U);
  }
}

TEST(ProfilePlot, SaysWhetherTheSumWillDo) {
  EXPECT_EQ(ProfileSummary(ProfileOf("Full", {{"a", 60}, {"b", 39.95}})), "The shares add up to 99.95 percent.");
  EXPECT_EQ(ProfileSummary(ProfileOf("Full", {{"a", 99.8}})),
            "The shares add up to 99.80 percent. A full profile needs 100.");
  EXPECT_EQ(ProfileSummary(ProfileOf("Partial", {{"a", 30}})), "The shares add up to 30.00 percent.");
  for (const auto* type : {"Full", "Partial", "Vapor"}) {
    EXPECT_EQ(ProfileSummary(ProfileOf(type, {{"a", 100.1}})), "The shares add up to 100.10 percent.");
    EXPECT_EQ(ProfileSummary(ProfileOf(type, {{"a", 100.2}})), "The shares add up to 100.20 percent, more than 100.");
  }
}

// 33.3 three times is 99.89999999999999 in binary numbers, and stands for 99.9.
TEST(ProfilePlot, ForgivesTheNoiseOfAddingUp) {
  EXPECT_EQ(ProfileSummary(ProfileOf("Full", {{"a", 33.3}, {"b", 33.3}, {"c", 33.3}})),
            "The shares add up to 99.90 percent.");
}

// 1 and 3 lb are 25 and 75 percent: the second bar begins at 124 + 134 / 4 = 157.5.
TEST(ProfilePlot, DrawsRelativeWeightsAsPercentsOfTheirSum) {
  const auto profile = ProfileOf("Full", {{"Benzene", 1}, {"Toluene", 3}}, true);
  const Picture picture(ProfilePlot(profile));
  EXPECT_DOUBLE_EQ(Picture::Number(picture.Parts("share")[1], "x"), 157.5);
  EXPECT_THAT(picture.Words(), HasSubstr("The relative weights add up to 4.00."));
}

TEST(ProfilePlot, GivesTheLastOfManyComponentsOneBar) {
  Components components(14, {"Component", 5});
  EXPECT_EQ(Picture(ProfilePlot(ProfileOf("Full", components))).Parts("share").size(), 14U);
  components.emplace_back("One more", 20);
  components.emplace_back("The last", 10);
  const Picture picture(ProfilePlot(ProfileOf("Full", components)));
  EXPECT_EQ(picture.Parts("share").size(), 14U);
  for (const auto* text : {"3 others", "65.00", "100.00"}) EXPECT_THAT(picture.Texts(), Contains(text));
}

TEST(ProfilePlot, ShortensNamesAndTakesAnyLetters) {
  const Picture picture(
      ProfilePlot(ProfileOf("Full", {{"Xylene (mixed isomers)", 1}, {"<&>\"", 2}, {"\xFF\x01", 3}, {"", 4}})));
  EXPECT_THAT(picture.Texts(), Contains("Xylene (mixed …"));
  EXPECT_THAT(picture.Texts(), Contains("<&>\""));
}

TEST(ProfilePlot, RefusesNoSumOfRelativeWeights) {
  EXPECT_EQ(ProfileSummary(ProfileOf("Full", {{"a", 0}}, true)), "The relative weights add up to 0.00.");
  EXPECT_EQ(ProfileSummary(ProfileOf("Full", {{"a", 250}}, true)), "The relative weights add up to 250.00.");
}

TEST(ProfilePlot, OfAProfileWithoutATypeHasNoBars) {
  EXPECT_TRUE(Picture(ProfilePlot(ProfileOf("", {{"Benzene", 50}}))).Parts("share").empty());
}

TEST(ProfilePlot, OfNoComponentsIsEmpty) {
  const Picture picture(ProfilePlot(ProfileOf("Full", {})));
  EXPECT_TRUE(picture.Parts("share").empty());
  EXPECT_THAT(picture.Words(), HasSubstr("The shares add up to 0.00 percent. A full profile needs 100."));
}

RC_GTEST_PROP(AnyProfilePlot, IsAWholePictureOnThePaper, ()) {
  const std::vector<double> hostile = {0, -1, 1e300, -1e308, 1e-300, 1e-320, 99.95, 100.05, 33.3, 1e5, -60, 1e308};
  const auto type = *rc::gen::element<std::string>("Partial", "Full", "Vapor", "", "other");
  Components components;
  const auto count = *rc::gen::inRange(0, 30);
  for (int i = 0; i < count; ++i)
    components.emplace_back(*rc::gen::arbitrary<std::string>(), *rc::gen::elementOf(hostile));
  Picture(ProfilePlot(ProfileOf(type, components, *rc::gen::arbitrary<bool>()))).ExpectAllOnThePaper();
}

}  // namespace
}  // namespace orvex::refdata
