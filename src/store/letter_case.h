#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// Comparison without regard to case, as names and stored texts are compared: the letters A to Z only, which is what
/// the index order of the files does too.
namespace orvex::store {

constexpr char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && Folded(a[i]) != Folded(b[i])) return false;
  }
  return true;
}

inline std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = Folded(c);
  return lower;
}

/// Equal for texts that EqualNoCase finds equal: the bit that is a letter's case counts for nothing.
inline std::size_t HashNoCase(std::string_view text) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020;
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
  std::uint64_t hash = text.size();
  while (!text.empty()) {
    std::uint64_t word = 0;
    const std::size_t count = std::min(text.size(), sizeof word);
    std::memcpy(&word, text.data(), count);
    hash = (hash ^ (word | kCaseBits)) * kOdd;
    hash ^= hash >> 32U;
    text.remove_prefix(count);
  }
  return hash;
}

}  // namespace orvex::store
