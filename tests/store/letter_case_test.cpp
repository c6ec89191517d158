#include "store/letter_case.h"

#include <gtest/gtest.h>

namespace orvex::store {
namespace {

TEST(LetterCase, TheLettersAToZCompareWithoutRegardToCase) {
  EXPECT_TRUE(EqualNoCase("User ID", "USER id"));
  EXPECT_FALSE(EqualNoCase("USER ID", "USER_ID"));
  EXPECT_FALSE(EqualNoCase("USER", "USER ID"));
  EXPECT_TRUE(EqualNoCase("", ""));
  EXPECT_FALSE(EqualNoCase("[", "{")) << "characters a case apart from each other are not letters";
  EXPECT_FALSE(EqualNoCase("@", "`"));
}

TEST(LetterCase, OtherLettersStayAsTheyAre) {
  EXPECT_FALSE(EqualNoCase("\xC3\x9C", "\xC3\xBC")) << "as in the index order of the files";
  EXPECT_EQ(LowerCase("\xC3\x9C"
                      "BER 9"),
            "\xC3\x9C"
            "ber 9");
}

TEST(LetterCase, EqualTextsHaveEqualHashes) {
  EXPECT_EQ(HashNoCase("Mechanical SHOE"), HashNoCase("mechanical shoe"));
  EXPECT_NE(HashNoCase("a"), HashNoCase("b"));
}

}  // namespace
}  // namespace orvex::store
