#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "measurement.h"

namespace orvex::bench {

/// The heading of the table of results.
std::string TableHead();
/// One line of it; what was not measured shows as a dash.
std::string TableLine(const Measurement& measured);
/// How the time per tank grows from a small to a large inventory, a line for each pair of which both were measured.
std::string GrowthLines(std::span<const Measurement> measured);

/// Writes all results, times in seconds, memory in bytes.
void WriteJson(const std::filesystem::path& path, std::span<const Measurement> measured);

}  // namespace orvex::bench
