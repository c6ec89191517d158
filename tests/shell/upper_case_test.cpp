#include "shell/upper_case.h"

#include <gtest/gtest.h>

namespace orvex::shell {
namespace {

TEST(UpperCase, RaisesAllLettersAndNothingElse) {
  EXPECT_EQ(UpperCase("Panel: 5 x 7.5 ft (a-1)"), "PANEL: 5 X 7.5 FT (A-1)");
  EXPECT_EQ(UpperCase("Öl für café"), "ÖL FÜR CAFÉ");
  EXPECT_EQ(UpperCase("δ я"), "Δ Я");
  EXPECT_EQ(UpperCase(""), "");
}

TEST(UpperCase, LeavesBytesThatAreNoCharacterAsTheyAre) {
  EXPECT_EQ(UpperCase("a\xFFz"), "A\xFFZ");
  EXPECT_NE(UpperCase("\xFE"), UpperCase("\xFF"));
}

}  // namespace
}  // namespace orvex::shell
