#include "store/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace orvex::store {
namespace {

TEST(CodePage, EveryByteComesBackFromItsCharacter) {
  for (const char* name : {"CP437", "CP850", "CP1252"}) {
    const CodePage code_page(name);
    for (int byte = 0; byte < 256; ++byte) {
      const auto text = code_page.Decode(std::string(1, static_cast<char>(byte)));
      ASSERT_TRUE(text);
      std::u32string characters;
      for (char32_t c = 0; c < 0x10000 && characters.empty(); ++c) {
        if (code_page.ByteOf(c) == static_cast<char>(byte)) characters += c;
      }
      ASSERT_EQ(characters.size(), 1U) << name << byte;
      EXPECT_EQ(code_page.Decode(std::string(1, *code_page.ByteOf(characters[0]))), text);
    }
  }
}

TEST(CodePage, CharactersOfOtherCodePagesHaveNoByte) {
  EXPECT_EQ(CodePage("CP1252").ByteOf(U'\u20AC'), '\x80');
  EXPECT_EQ(CodePage("CP437").ByteOf(U'\u20AC'), std::nullopt);
  EXPECT_EQ(CodePage("CP1252").ByteOf(U'\u0394'), std::nullopt) << "a Greek letter";
  EXPECT_EQ(CodePage("CP1252").ByteOf(U'\U0001F6E2'), std::nullopt) << "an oil drum";
}

TEST(CodePage, AQuestionMarkStandsForEachCharacterThatItHasNot) {
  const CodePage code_page("CP1252");
  const auto text = code_page.Encode("5 \u20AC, \u00E9");
  EXPECT_EQ(text.bytes, "5 \x80, \xE9");
  EXPECT_TRUE(text.whole);
  // A Greek letter, a byte that is no UTF-8, and a NUL, which would end the text for many readers.
  const auto replaced = code_page.Encode(std::string("\u0394T \xFF a\0b", 9));
  EXPECT_EQ(replaced.bytes, "?T ? a?b");
  EXPECT_FALSE(replaced.whole);
}

TEST(CodePage, OneThatNobodyKnowsIsAsciiAlone) {
  for (const CodePage& code_page : {CodePage(), CodePage("NO SUCH CODE PAGE")}) {
    EXPECT_EQ(code_page.Decode("Benzene\t\x7F"), "Benzene\t\x7F");
    EXPECT_EQ(code_page.Decode("Benz\xE9ne"), std::nullopt);
    EXPECT_EQ(code_page.ByteOf(U'\u00E9'), std::nullopt);
    EXPECT_EQ(code_page.ByteOf(U'e'), 'e');
  }
}

}  // namespace
}  // namespace orvex::store
