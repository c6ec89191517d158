#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orvex::store {

constexpr char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Names of tables, fields and indexes are the same whatever the case of their (ASCII) letters.
constexpr bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, LowerLetter, LowerLetter);
}

inline std::string LowerText(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), LowerLetter);
  return lower;
}

}  // namespace orvex::store
