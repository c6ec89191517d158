#pragma once

#include <array>
#include <cstddef>

#include "entry/fixed_roof_entries.h"
#include "entry/floating_roof_entries.h"
#include "entry/identification_entries.h"
#include "entry/liquid_entries.h"

namespace orvex::entry {

/// The tables of entries one behind the other.
template <std::size_t... kCounts>
constexpr auto JoinEntries(const EntryInfo (&... tables)[kCounts]) {
  std::array<EntryInfo, (... + kCounts)> all{};
  std::size_t at = 0;
  const auto append = [&](const auto& table) {
    for (const auto& entry : table) all[at++] = entry;
  };
  (append(tables), ...);
  return all;
}

/// Every entry of the tank editor, section by section.
inline constexpr auto kEntryInfos =
    JoinEntries(kIdentificationEntries, kVerticalEntries, kHorizontalEntries, kInternalEntries, kExternalEntries,
                kSiteEntries, kMixtureEntries, kSingleEntries, kPartialEntries, kFullEntries);

}  // namespace orvex::entry
