#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

#include "measurement.h"
#include "record_case.h"
#include "results.h"
#include "run_case.h"
#include "store/run_time_error.h"

using orvex::bench::Measurement;
using orvex::bench::Settings;

namespace {

void MeasureAll(const Settings& settings, const std::vector<std::string>& only) {
  const auto chosen = [&](std::string_view key) {
    return only.empty() || std::find(only.begin(), only.end(), key) != only.end();
  };
  std::vector<Measurement> results;
  const auto add = [&](Measurement measured) {
    fmt::print("{}\n", TableLine(measured));
    std::fflush(stdout);
    results.push_back(std::move(measured));
  };
  fmt::print("{}\n", orvex::bench::TableHead());
  for (const auto& run_case : orvex::bench::RunCases()) {
    if (chosen(run_case.key)) add(Measure(run_case, settings));
  }
  if (chosen(orvex::bench::kRecordCaseKey)) add(MeasureRecords(settings));
  if (const auto line = orvex::bench::GrowthLine(results); !line.empty()) fmt::print("\n{}\n", line);
  const auto json = settings.folder / "bench.json";
  WriteJson(json, results);
  fmt::print("\nWritten to {}\n", json.string());
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Times calculation runs, and the record layer, against the least that has to be done to the files.");
  Settings settings;
  std::vector<std::string> only;
  bool no_floor = false;
  app.add_option("--reference", settings.reference, "The reference database")->required()->check(CLI::ExistingFile);
  app.add_option("--folder", settings.folder, "Where databases are made, and bench.json is written")->required();
  app.add_option("--only", only, "Cases to measure, as a,c,e1")->delimiter(',');
  app.add_option("--repeat", settings.repetitions, "Repetitions, of which the fastest counts")
      ->check(CLI::Range(1, 99));
  app.add_flag("--no-floor", no_floor, "Run the program only, for a profiler");
  CLI11_PARSE(app, argc, argv);
  settings.with_floor = !no_floor;
  try {
    MeasureAll(settings, only);
    return 0;
  } catch (const orvex::store::RunTimeError& error) {
    fmt::print(stderr, "orvex-bench: {}\n", error.Description());
  } catch (const std::exception& error) {
    fmt::print(stderr, "orvex-bench: {}\n", error.what());
  }
  return 1;
}
