#include "results.h"

#include <fmt/format.h>

#include <fstream>
#include <stdexcept>

namespace orvex::bench {
namespace {

constexpr double kBytesPerMegabyte = 1024.0 * 1024.0;
constexpr std::string_view kSmallKey = "e1";
constexpr std::string_view kLargeKey = "e2";

const Measurement* Find(std::span<const Measurement> measured, std::string_view key) {
  for (const auto& one : measured) {
    if (one.key == key) return &one;
  }
  return nullptr;
}

std::string OrDash(double value, std::string_view format) {
  return value > 0 ? fmt::format(fmt::runtime(format), value) : "-";
}

/// Time per tank of the large inventory over that of the small one; 0 unless both were measured.
double Growth(std::span<const Measurement> measured) {
  const auto* const small = Find(measured, kSmallKey);
  const auto* const large = Find(measured, kLargeKey);
  if (small == nullptr || large == nullptr) return 0;
  return small->TanksPerSecond() / large->TanksPerSecond();
}

}  // namespace

std::string TableHead() {
  return fmt::format("{:4} {:62} {:>10} {:>10} {:>9} {:>9} {:>6} {:>8}", "case", "", "tanks/s", "rows/s", "run s",
                     "floor s", "ratio", "peak MB");
}

std::string TableLine(const Measurement& measured) {
  return fmt::format("{:4} {:62} {:>10} {:>10.0f} {:>9.3f} {:>9} {:>6} {:>8}", measured.key, measured.description,
                     OrDash(measured.TanksPerSecond(), "{:.0f}"), measured.RowsPerSecond(), measured.seconds,
                     OrDash(measured.floor_seconds, "{:.3f}"), OrDash(measured.Ratio(), "{:.2f}"),
                     OrDash(static_cast<double>(measured.peak_bytes) / kBytesPerMegabyte, "{:.1f}"));
}

std::string GrowthLine(std::span<const Measurement> measured) {
  const double growth = Growth(measured);
  if (growth == 0) return {};
  return fmt::format("Time per tank of case e2 over that of e1: {:.2f}", growth);
}

void WriteJson(const std::filesystem::path& path, std::span<const Measurement> measured) {
  std::string json = "{\n  \"cases\": [";
  std::string_view separator = "\n";
  for (const auto& one : measured) {
    json += fmt::format(
        "{}    {{\"key\": \"{}\", \"description\": \"{}\", \"tanks\": {}, \"rows\": {}, \"seconds\": {}, "
        "\"floor_seconds\": {}, \"tanks_per_second\": {}, \"rows_per_second\": {}, \"ratio\": {}, "
        "\"peak_bytes\": {}}}",
        separator, one.key, one.description, one.tanks, one.rows, one.seconds, one.floor_seconds, one.TanksPerSecond(),
        one.RowsPerSecond(), one.Ratio(), one.peak_bytes);
    separator = ",\n";
  }
  json += fmt::format("\n  ],\n  \"time_per_tank_growth\": {}\n}}\n", Growth(measured));
  std::ofstream file(path, std::ios::binary);
  file << json;
  file.close();
  if (!file) throw std::runtime_error(fmt::format("{} could not be written.", path.string()));
}

}  // namespace orvex::bench
