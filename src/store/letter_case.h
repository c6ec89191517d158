#pragma once

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

/// A text's beginning and end as two machine words, which overlap in a short one. Texts of up to 16 bytes are equal if
/// these and the lengths are.
struct TextEnds {
  static constexpr std::size_t kWhole = 16;

  TextEnds() = default;
  explicit TextEnds(std::string_view text) : size(text.size()) {
    const char* const start = text.data();
    const char* const end = start + size;
    if (size >= 8) {
      first = Load<std::uint64_t>(start);
      last = Load<std::uint64_t>(end - 8);
    } else if (size >= 4) {
      first = Load<std::uint32_t>(start);
      last = Load<std::uint32_t>(end - 4);
    } else if (size > 0) {
      first = Load<std::uint8_t>(start) | (Load<std::uint8_t>(start + size / 2) << 8U);
      last = Load<std::uint8_t>(end - 1);
    }
  }

  friend bool operator==(const TextEnds& a, const TextEnds& b) {
    return a.size == b.size && a.first == b.first && a.last == b.last;
  }

  std::size_t size = 0;
  std::uint64_t first = 0, last = 0;

  template <typename Word>
  static std::uint64_t Load(const char* at) {
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
  }
};

/// Equal for texts that EqualNoCase finds equal: the bit that is a letter's case counts for nothing.
inline std::size_t HashNoCase(std::string_view text) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020;
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
  const TextEnds ends(text);
  std::uint64_t hash = ((ends.first | kCaseBits) * kOdd + (ends.last | kCaseBits) + ends.size) * kOdd;
  for (std::size_t i = 8; i + 8 < text.size(); i += 8) {
    hash = ((hash ^ (hash >> 32U)) + (TextEnds::Load<std::uint64_t>(text.data() + i) | kCaseBits)) * kOdd;
  }
  return hash ^ (hash >> 32U);
}

/// For maps that are keyed by a name.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const { return HashNoCase(name); }
};
struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualNoCase(a, b); }
};

}  // namespace orvex::store
