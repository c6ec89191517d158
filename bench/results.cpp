#include "results.h"

#include <fmt/format.h>

#include <fstream>
#include <stdexcept>

namespace orvex::bench {
namespace {

constexpr double kBytesPerMegabyte = 1024.0 * 1024.0;
/// Two cases that differ in the number of tanks alone.
struct GrowthPair {
  std::string_view small_key, large_key;
  std::string_view json_name;
  std::string_view description;
};

constexpr GrowthPair kGrowth[] = {
    {"e1", "e2", "time_per_tank_growth", "Time per tank at 100,000 tanks over that at 1,000"},
    {"i1", "i2", "report_time_per_tank_growth", "Time per tank of a Detail report at 2,000 tanks over that at 500"},
};

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
double Growth(std::span<const Measurement> measured, const GrowthPair& pair) {
  const auto* const small = Find(measured, pair.small_key);
  const auto* const large = Find(measured, pair.large_key);
  if (small == nullptr || large == nullptr) return 0;
  return small->TanksPerSecond() / large->TanksPerSecond();
}

}  // namespace

std::string TableHead() {
  return fmt::format("{:4} {:62} {:>10} {:>10} {:>9} {:>9} {:>6} {:>8}", "case", "", "tanks/s", "rows/s", "run s",
                     "floor s", "ratio", "peak MB");
}

std::string TableLine(const Measurement& measured) {
  return fmt::format("{:4} {:62} {:>10} {:>10.0f} {:>9.4f} {:>9} {:>6} {:>8}", measured.key, measured.description,
                     OrDash(measured.TanksPerSecond(), "{:.0f}"), measured.RowsPerSecond(), measured.seconds,
                     OrDash(measured.floor_seconds, "{:.4f}"), OrDash(measured.Ratio(), "{:.2f}"),
                     OrDash(static_cast<double>(measured.peak_bytes) / kBytesPerMegabyte, "{:.1f}"));
}

std::string GrowthLines(std::span<const Measurement> measured) {
  std::string lines;
  for (const auto& pair : kGrowth) {
    if (const double growth = Growth(measured, pair); growth != 0)
      lines += fmt::format("{}: {:.2f}\n", pair.description, growth);
  }
  return lines;
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
  json += "\n  ]";
  for (const auto& pair : kGrowth) json += fmt::format(",\n  \"{}\": {}", pair.json_name, Growth(measured, pair));
  json += "\n}\n";
  std::ofstream file(path, std::ios::binary);
  file << json;
  file.close();
  if (!file) throw std::runtime_error(fmt::format("{} could not be written.", path.string()));
}

}  // namespace orvex::bench
