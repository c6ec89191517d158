#include "store/utf8.h"

namespace orvex::store {
namespace {

constexpr unsigned char kContinuation = 0x80;

unsigned char Byte(std::string_view text, std::size_t place) { return static_cast<unsigned char>(text[place]); }

/// What a first byte announces: how many bytes follow, the bits it carries, and the bounds of the second byte, which
/// keep out overlong forms, surrogates and numbers that are too great.
struct Lead {
  unsigned char first, last;
  int following;
  unsigned int bits;
  unsigned char second_from, second_to;
};

constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 1, 0x1F, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0x0F, 0xA0, 0xBF}, {0xE1, 0xEC, 2, 0x0F, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x0F, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x0F, 0x80, 0xBF}, {0xF0, 0xF0, 3, 0x07, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x07, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x07, 0x80, 0x8F},
};

}  // namespace

std::optional<char32_t> TakeCharacter(std::string_view& text) {
  const unsigned char first = Byte(text, 0);
  text.remove_prefix(1);
  if (first < kContinuation) return first;
  for (const auto& lead : kLeads) {
    if (first < lead.first || first > lead.last) continue;
    char32_t character = first & lead.bits;
    for (int i = 0; i < lead.following; ++i) {
      const unsigned char from = i == 0 ? lead.second_from : 0x80;
      const unsigned char to = i == 0 ? lead.second_to : 0xBF;
      if (text.empty() || Byte(text, 0) < from || Byte(text, 0) > to) return std::nullopt;
      character = (character << 6) | (Byte(text, 0) & 0x3FU);
      text.remove_prefix(1);
    }
    return character;
  }
  return std::nullopt;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) static_cast<void>(TakeCharacter(text));
  return count;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6));
    append(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xF0 | (character >> 18));
    append(0x80 | ((character >> 12) & 0x3F));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

}  // namespace orvex::store
