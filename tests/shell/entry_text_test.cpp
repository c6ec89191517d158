#include "shell/entry_text.h"

#include <gtest/gtest.h>

namespace orvex::shell {
namespace {

constexpr const char* kTooLong = "Please enter no more than 4 characters.";
constexpr const char* kControls = "Please enter a text without control characters.";

TEST(EntryText, MayBeAsLongAsItsFieldIsWide) {
  EXPECT_EQ(TextRefusal("", 4), "");
  EXPECT_EQ(TextRefusal("abcd", 4), "");
  EXPECT_EQ(TextRefusal("abcde", 4), kTooLong);
}

TEST(EntryText, IsMeasuredInCharactersAndNotInBytes) {
  EXPECT_EQ(TextRefusal("Zoë\u2030", 4), "");
  EXPECT_EQ(TextRefusal("Zoë\u2030!", 4), kTooLong);
}

TEST(EntryText, OfAFieldWithoutAWidthMayHaveAnyLength) { EXPECT_EQ(TextRefusal(std::string(100'000, 'a'), 0), ""); }

TEST(EntryText, HasNoControlCharacters) {
  for (const auto* text : {"a\tb", "a\n", "\r", "\x01", "\x1F", "\x7F"}) EXPECT_EQ(TextRefusal(text, 4), kControls);
  EXPECT_EQ(TextRefusal(std::string_view("a\0b", 3), 4), kControls);
  EXPECT_EQ(TextRefusal("a\tbcdefgh", 4), kControls);
}

}  // namespace
}  // namespace orvex::shell
