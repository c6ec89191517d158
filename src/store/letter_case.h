#pragma once

#include <cstddef>
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

/// FNV-1a over the folded text.
constexpr std::size_t HashNoCase(std::string_view text) {
  std::size_t hash = 14695981039346656037ULL;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(Folded(c))) * 1099511628211ULL;
  return hash;
}

}  // namespace orvex::store
