#include "shell/periods.h"

#include <algorithm>

namespace orvex::shell {

std::optional<std::size_t> MonthIndex(std::string_view name) {
  const auto* found = std::find_if(kMonths.begin(), kMonths.end(), [&](const Month& m) { return m.name == name; });
  if (found == kMonths.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kMonths.begin());
}

}  // namespace orvex::shell
