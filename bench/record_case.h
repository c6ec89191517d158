#pragma once

#include <string_view>

#include "measurement.h"

namespace orvex::bench {

inline constexpr std::string_view kRecordCaseKey = "f";

/// Times the record layer alone: AddNew, every field by its name, and Update on rows of `emission`, in one transaction,
/// against a prepared INSERT of the same values. No index, so that the layer itself is what takes the time.
Measurement MeasureRecords(const Settings& settings);

}  // namespace orvex::bench
