#pragma once

#include <string_view>

#include "measurement.h"

namespace orvex::bench {

inline constexpr std::string_view kWindowCaseKey = "j";

/// Times the opening of `Frmtankrep`, which lists all tanks of an inventory just opened, against reading their names
/// with one prepared statement. The drawing of the window is left out.
Measurement MeasureTankWindow(const Settings& settings);

}  // namespace orvex::bench
