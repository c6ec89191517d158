#pragma once

#include <string_view>

#include "measurement.h"

namespace orvex::bench {

inline constexpr std::string_view kImportCaseKey = "o1";

/// Times the import of 5,000 external floating roof tanks with 12 lines of fittings each from dBASE files, against
/// copying and flushing the bytes that it reads and those that it writes.
Measurement MeasureImport(const Settings& settings);

}  // namespace orvex::bench
