#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/letter_case.h"

namespace orvex::store {

/// A name as two machine words, its beginning and its end, which overlap in a short one. Names of up to 16 characters
/// are equal if these and the lengths are.
struct NameWords {
  static constexpr std::size_t kWhole = 16;

  NameWords() = default;
  explicit NameWords(std::string_view name) : size(name.size()) {
    const char* const start = name.data();
    const char* const end = start + name.size();
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

  friend bool operator==(const NameWords& a, const NameWords& b) {
    return a.size == b.size && a.first == b.first && a.last == b.last;
  }

  std::size_t size = 0;
  std::uint64_t first = 0, last = 0;

 private:
  template <typename Word>
  static std::uint64_t Load(const char* at) {
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
  }
};

/// The names of a table's fields and where they stand. Fields are read and written by name, a hundred for every row, so
/// that finding one takes no copy of a name, no memory, and mostly no look at single characters.
class FieldNames {
 public:
  /// Adds the name of the next position, 0, 1, ...; of two that differ by case only, the first one is found.
  void Add(std::string name) {
    words_.emplace_back(name);
    names_.push_back(std::move(name));
    if (names_.size() * 4 > slots_.size()) return Rebuild();
    Place(names_.size() - 1);
  }

  /// Whether the name at a position is exactly this one; false for positions that are none.
  [[nodiscard]] bool Is(std::size_t position, std::string_view name) const {
    return position < words_.size() && words_[position] == NameWords(name) &&
           (name.size() <= NameWords::kWhole || names_[position] == name);
  }

  /// The position of a name without regard to case.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const {
    if (slots_.empty()) return std::nullopt;
    for (std::size_t i = Hash(NameWords(name));; ++i) {
      const std::uint32_t slot = slots_[i & (slots_.size() - 1)];
      if (slot == 0) return std::nullopt;
      if (Is(slot - 1, name) || EqualNoCase(names_[slot - 1], name)) return slot - 1;
    }
  }

 private:
  static constexpr std::size_t kSmallest = 64;

  /// A letter's case is one bit, which counts for nothing.
  static std::size_t Hash(const NameWords& words) {
    constexpr std::uint64_t kCaseBits = 0x2020202020202020;
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    return (((words.first | kCaseBits) * kOdd + (words.last | kCaseBits) + words.size) * kOdd) >> 32U;
  }

  void Place(std::size_t position) {
    if (Find(names_[position])) return;
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = Hash(words_[position]);
    while (slots_[i & mask] != 0) ++i;
    slots_[i & mask] = static_cast<std::uint32_t>(position + 1);
  }

  void Rebuild() {
    slots_.assign(slots_.empty() ? kSmallest : 2 * slots_.size(), 0);
    for (std::size_t i = 0; i < names_.size(); ++i) Place(i);
  }

  std::vector<std::string> names_;
  std::vector<NameWords> words_;      ///< of the names
  std::vector<std::uint32_t> slots_;  ///< position + 1, or 0; a power of two of them, at most a quarter taken
};

}  // namespace orvex::store
