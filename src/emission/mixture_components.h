#pragma once

#include <cstdint>

#include "shell/session.h"

namespace orvex::emission {

/// The rows of `components` that belong to a mixture, in the order of the file.
inline store::RecordSet OpenComponents(shell::Session& session, std::int32_t ID, std::int32_t MixID) {
  return session.ClientDb->OpenMatching("components", "IDMIX", {ID, MixID});
}

/// The component's weight share: its percent where that is above 0, else its relative weight.
inline double WeightShare(store::RecordSet& components) {
  const double percent = components.DoubleOrZero("WT_FRACT");
  return percent > 0 ? percent : components.DoubleOrZero("WEIGHT");
}

}  // namespace orvex::emission
