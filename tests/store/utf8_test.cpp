#include "store/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvex::store {
namespace {

/// The characters of a text; 0 stands for bytes that are none.
std::vector<char32_t> Characters(std::string_view text) {
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text).value_or(0));
  return characters;
}

using List = std::vector<char32_t>;

TEST(Utf8, TakesCharactersOfEveryLength) {
  EXPECT_EQ(Characters("aé€\U0001F6E2z"), (List{'a', 0xE9, 0x20AC, 0x1F6E2, 'z'}));
}

TEST(Utf8, ReadsBackEveryCharacter) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    std::string text;
    AppendCharacter(text, character);
    std::string_view rest = text;
    ASSERT_EQ(TakeCharacter(rest), character);
    ASSERT_TRUE(rest.empty());
  }
}

TEST(Utf8, RefusesOverlongForms) {
  EXPECT_EQ(Characters("\xC0\xAF"), (List{0, 0}));
  EXPECT_EQ(Characters("\xE0\x80\xAF"), (List{0, 0, 0}));
  EXPECT_EQ(Characters("\xF0\x80\x80\xAF"), (List{0, 0, 0, 0}));
}

TEST(Utf8, RefusesSurrogatesAndNumbersThatAreTooGreat) {
  EXPECT_EQ(Characters("\xED\xA0\x80"), (List{0, 0, 0}));
  EXPECT_EQ(Characters("\xF4\x90\x80\x80"), (List{0, 0, 0, 0}));
  EXPECT_EQ(Characters("\xFF"), (List{0}));
}

TEST(Utf8, ACutOffCharacterDoesNotSwallowTheNextOne) {
  EXPECT_EQ(Characters("\xE2\x82z"), (List{0, 'z'}));
  EXPECT_EQ(Characters("\xC3"), (List{0}));
  EXPECT_EQ(Characters("\x80z"), (List{0, 'z'}));
}

TEST(Utf8, CountsCharactersRatherThanBytes) {
  EXPECT_EQ(CharacterCount(""), 0U);
  EXPECT_EQ(CharacterCount("Öl 油"), 4U);
  EXPECT_EQ(CharacterCount("a\xFFz"), 3U);
}

}  // namespace
}  // namespace orvex::store
