#pragma once

#include <span>
#include <string_view>

#include "measurement.h"

namespace orvex::bench {

/// An export of emissions to be timed.
struct ExportCase {
  std::string_view key;
  std::string_view description;
  std::string_view token;  ///< of the format
  std::string_view file;   ///< its name
  int tanks;               ///< whose rows are exported
};

std::span<const ExportCase> ExportCases();

/// Times an export, as a person asks for it, against writing a file of the same bytes, which is as lasting.
Measurement Measure(const ExportCase& export_case, const Settings& settings);

}  // namespace orvex::bench
