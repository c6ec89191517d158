#include "store/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "store/utf8.h"

namespace orvex::store {
namespace {

constexpr unsigned char kFirstUpper = 0x80;

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < kFirstUpper; }

}  // namespace

CodePage::CodePage(const char* name) {
  auto* const converter = iconv_open("UTF-32LE", name);
  if (converter == reinterpret_cast<iconv_t>(-1)) return;  // NOLINT(performance-no-int-to-ptr): how iconv says no
  for (std::size_t i = 0; i < upper_half_.size(); ++i) {
    char byte = static_cast<char>(kFirstUpper + i);
    std::uint32_t character = 0;
    char* from = &byte;
    char* to = reinterpret_cast<char*>(&character);
    std::size_t from_left = 1, to_left = sizeof character;
    const bool defined = iconv(converter, &from, &from_left, &to, &to_left) == 0 && to_left == 0;
    upper_half_[i] = defined ? static_cast<char32_t>(character) : static_cast<char32_t>(kFirstUpper + i);
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
  }
  iconv_close(converter);
}

std::optional<std::string> CodePage::Decode(std::string_view bytes) const {
  if (std::ranges::all_of(bytes, IsAscii)) return std::string(bytes);
  std::string text;
  for (const char byte : bytes) {
    const char32_t character =
        IsAscii(byte) ? static_cast<char32_t>(byte) : upper_half_[static_cast<unsigned char>(byte) - kFirstUpper];
    if (character == 0 && byte != '\0') return std::nullopt;
    AppendCharacter(text, character);
  }
  return text;
}

EncodedText CodePage::Encode(std::string_view text) const {
  EncodedText encoded;
  while (!text.empty()) {
    const auto character = TakeCharacter(text);
    const auto byte = character && *character != 0 ? ByteOf(*character) : std::nullopt;
    encoded.bytes += byte.value_or(kReplacement);
    encoded.whole = encoded.whole && byte;
  }
  return encoded;
}

std::optional<char> CodePage::ByteOf(char32_t character) const {
  if (character < kFirstUpper) return static_cast<char>(character);
  const auto found = std::ranges::find(upper_half_, character);
  if (found == upper_half_.end()) return std::nullopt;
  return static_cast<char>(kFirstUpper + (found - upper_half_.begin()));
}

}  // namespace orvex::store
