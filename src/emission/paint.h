#pragma once

#include <string>

#include "store/record_set.h"

namespace orvex::emission {

/// The paints of a tank's shell and roof: colour/shade and condition as the solar absorptance knows them.
struct Paint {
  std::string shell_colour, shell_condition, roof_colour, roof_condition;

  /// Solar absorptance {-} of the tank.
  [[nodiscard]] double Absorptance() const;
  /// Whether both texts are given.
  [[nodiscard]] bool HasShell() const { return !shell_colour.empty() && !shell_condition.empty(); }
  [[nodiscard]] bool HasRoof() const { return !roof_colour.empty() && !roof_condition.empty(); }
};

/// Reads them from a row of `tank`, each as a statement of its own; null reads as an empty text.
Paint ReadPaint(store::RecordSet& tank);

}  // namespace orvex::emission
