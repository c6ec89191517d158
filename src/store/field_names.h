#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/letter_case.h"

namespace orvex::store {

/// The names of a table's fields and where they stand. Fields are read and written by name, a hundred for every row, so
/// that finding one takes no copy of a name, no memory, and mostly no look at single characters.
class FieldNames {
 public:
  /// Adds the name of the next position, 0, 1, ...; of two that differ by case only, the first one is found.
  void Add(std::string name) {
    ends_.emplace_back(name);
    names_.push_back(std::move(name));
    if (names_.size() * 4 > slots_.size()) return Rebuild();
    Place(names_.size() - 1);
  }

  /// Whether the name at a position is exactly this one; false for positions that are none.
  [[nodiscard]] bool Is(std::size_t position, std::string_view name) const {
    return position < ends_.size() && ends_[position] == TextEnds(name) &&
           (name.size() <= TextEnds::kWhole || names_[position] == name);
  }

  /// The position of a name without regard to case.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const {
    if (slots_.empty()) return std::nullopt;
    for (std::size_t i = HashNoCase(name);; ++i) {
      const std::uint32_t slot = slots_[i & (slots_.size() - 1)];
      if (slot == 0) return std::nullopt;
      if (Is(slot - 1, name) || EqualNoCase(names_[slot - 1], name)) return slot - 1;
    }
  }

 private:
  static constexpr std::size_t kSmallest = 64;

  void Place(std::size_t position) {
    if (Find(names_[position])) return;
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = HashNoCase(names_[position]);
    while (slots_[i & mask] != 0) ++i;
    slots_[i & mask] = static_cast<std::uint32_t>(position + 1);
  }

  void Rebuild() {
    slots_.assign(slots_.empty() ? kSmallest : 2 * slots_.size(), 0);
    for (std::size_t i = 0; i < names_.size(); ++i) Place(i);
  }

  std::vector<std::string> names_;
  std::vector<TextEnds> ends_;        ///< of the names
  std::vector<std::uint32_t> slots_;  ///< position + 1, or 0; a power of two of them, at most a quarter taken
};

}  // namespace orvex::store
