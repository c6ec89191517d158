#pragma once

#include <string_view>

namespace orvex::store {

/// The text without the blanks, or the characters that count as such, at both of its ends.
constexpr std::string_view WithoutBlanks(std::string_view text, std::string_view blanks = " ") {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace orvex::store
