#include "shell/svg.h"

#include <gmock/gmock.h>

namespace orvex::svg {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(SvgTexts, AreShortenedToTheirRoom) {
  EXPECT_EQ(Shortened("Toluene", 7), "Toluene");
  EXPECT_EQ(Shortened("Toluene", 6), "Tolue…");
  EXPECT_EQ(Shortened("Ätherische Öle", 5), "Äthe…");
  EXPECT_EQ(Shortened("", 3), "");
}

TEST(SvgTexts, AreShortenedWholeLettersAtATimeEvenIfSomeAreNone) {
  EXPECT_EQ(Shortened("\xFF\xFFtext", 3), "\xEF\xBF\xBD\xEF\xBF\xBD…");
}

TEST(SvgTexts, AreBrokenBetweenWords) {
  EXPECT_THAT(Lines("one two three", 7), ElementsAre("one two", "three"));
  EXPECT_THAT(Lines("one two three", 6), ElementsAre("one", "two", "three"));
  EXPECT_THAT(Lines("one", 2), ElementsAre("one"));
  EXPECT_TRUE(Lines("", 10).empty());
}

TEST(Svg, DrawsCirclesAndLettersOfTheSizeAskedFor) {
  Svg svg(20, 10, 12);
  svg.Circle({4, 5.5}, 3, {.fill = "#ffffff", .stroke = {}}, "mark");
  EXPECT_THAT(svg.Finish(), HasSubstr("font-size=\"12\""));
  EXPECT_THAT(svg.Finish(), HasSubstr("<circle cx=\"4.00\" cy=\"5.50\" r=\"3.00\" class=\"mark\" fill=\"#ffffff\"/>"));
}

}  // namespace
}  // namespace orvex::svg
