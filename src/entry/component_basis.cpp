#include "entry/component_basis.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

namespace orvex::entry {

const ComponentBasis& FindBasis(std::string_view option, std::string_view mode) {
  const auto* found = std::ranges::find_if(
      kComponentBases, [&](const ComponentBasis& basis) { return basis.option == option && basis.mode == mode; });
  if (found == std::end(kComponentBases))
    throw std::out_of_range("A mixture of \"" + std::string(option) + "\" has no components.");
  return *found;
}

}  // namespace orvex::entry
