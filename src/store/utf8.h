#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orvex::store {

/// What is shown in place of bytes that are no character.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Takes the first character off a UTF-8 text that is not empty. Nothing for bytes that are no character (overlong and
/// cut-off forms, surrogates, numbers above U+10FFFF); then the bytes up to the next possible start are taken, one at
/// least.
std::optional<char32_t> TakeCharacter(std::string_view& text);

/// Number of characters of a text; each byte that is no part of one counts as one.
std::size_t CharacterCount(std::string_view text);

/// Appends a character in UTF-8.
void AppendCharacter(std::string& text, char32_t character);

}  // namespace orvex::store
