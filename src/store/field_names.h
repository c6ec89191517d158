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

/// Finds the position of a name without regard to case. Fields are read and written by name, a hundred for every row,
/// so that this takes no copy of a name and no memory.
class FieldNames {
 public:
  /// Names stand at the positions 0, 1, ...; of two that differ by case only, the first one is found.
  void Add(std::string name) {
    names_.push_back(std::move(name));
    if (names_.size() * 4 > slots_.size()) return Rebuild();
    Place(names_.size() - 1);
  }

  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const {
    if (slots_.empty()) return std::nullopt;
    for (std::size_t i = Hash(name);; ++i) {
      const std::uint32_t slot = slots_[i & (slots_.size() - 1)];
      if (slot == 0) return std::nullopt;
      const std::string& found = names_[slot - 1];
      if (found == name || EqualNoCase(found, name)) return slot - 1;
    }
  }

 private:
  static constexpr std::size_t kSmallest = 64;

  template <typename Word>
  static std::uint64_t Load(const char* at) {
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
  }

  /// Over both ends of a name, which overlap in a short one, a word at a time. A letter's case is one bit, which counts
  /// for nothing.
  static std::size_t Hash(std::string_view name) {
    constexpr std::uint64_t kCaseBits = 0x2020202020202020;
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    const char* const start = name.data();
    const char* const end = start + name.size();
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (name.size() >= 8) {
      first = Load<std::uint64_t>(start);
      last = Load<std::uint64_t>(end - 8);
    } else if (name.size() >= 4) {
      first = Load<std::uint32_t>(start);
      last = Load<std::uint32_t>(end - 4);
    } else if (!name.empty()) {
      first = Load<std::uint8_t>(start);
      last = Load<std::uint8_t>(end - 1) + (Load<std::uint8_t>(start + name.size() / 2) << 8U);
    }
    const std::uint64_t mixed = ((first | kCaseBits) * kOdd + (last | kCaseBits) + name.size()) * kOdd;
    return mixed >> 32U;
  }

  void Place(std::size_t position) {
    if (Find(names_[position])) return;
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = Hash(names_[position]);
    while (slots_[i & mask] != 0) ++i;
    slots_[i & mask] = static_cast<std::uint32_t>(position + 1);
  }

  void Rebuild() {
    slots_.assign(slots_.empty() ? kSmallest : 2 * slots_.size(), 0);
    for (std::size_t i = 0; i < names_.size(); ++i) Place(i);
  }

  std::vector<std::string> names_;
  std::vector<std::uint32_t> slots_;  ///< position + 1, or 0; a power of two of them, at most a quarter taken
};

}  // namespace orvex::store
