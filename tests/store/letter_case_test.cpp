#include "store/letter_case.h"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>
#include <vector>

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

TEST(LetterCase, EqualTextsOfEveryLengthHaveEqualHashes) {
  // Each length has its own way through the hash. The texts stand alone in memory, so that a sanitizer sees a read
  // beyond them.
  for (std::size_t length = 0; length < 70; ++length) {
    std::vector<char> upper(length);
    for (std::size_t i = 0; i < length; ++i) upper[i] = static_cast<char>('A' + i % 26);
    std::vector<char> lower(upper);
    for (char& c : lower) c = Folded(c);
    const std::string_view text(upper.data(), length);
    const std::string_view folded(lower.data(), length);
    EXPECT_TRUE(EqualNoCase(text, folded));
    EXPECT_EQ(HashNoCase(text), HashNoCase(folded)) << length;
    for (char& c : lower) {
      const char whole = std::exchange(c, '#');
      EXPECT_NE(HashNoCase(text), HashNoCase(folded)) << length << " characters, another one in the midst";
      c = whole;
    }
  }
}

}  // namespace
}  // namespace orvex::store
