#pragma once

#include <span>
#include <string_view>

#include "inventory.h"
#include "measurement.h"

namespace orvex::bench {

/// A whole calculation run to be timed.
struct RunCase {
  std::string_view key;
  std::string_view description;  ///< of its tanks
  TankKind kind;
  int tanks;
  bool monthly;  ///< all twelve months
};

std::span<const RunCase> RunCases();

/// Times the run against its floor, turn by turn, each on a copy of the inventory made just before. Throws when the run
/// does not end in a report, when rows are missing, or when the floor leaves other tables than the run.
Measurement Measure(const RunCase& run_case, const Settings& settings);

}  // namespace orvex::bench
