#pragma once

#include <span>
#include <string_view>

#include "inventory.h"
#include "measurement.h"

namespace orvex::bench {

/// A Detail report to be timed, of tanks that have been computed.
struct ReportCase {
  std::string_view key;
  std::string_view description;
  TankKind kind;
  int tanks;
  bool monthly;  ///< all twelve months
};

std::span<const ReportCase> ReportCases();

/// Times the making of the report file against writing a file of the same bytes, which is as lasting. Throws when the
/// report leaves out a tank.
Measurement Measure(const ReportCase& report_case, const Settings& settings);

}  // namespace orvex::bench
