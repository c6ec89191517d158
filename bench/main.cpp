#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <vector>

#include "backup_case.h"
#include "entry_case.h"
#include "export_case.h"
#include "import_case.h"
#include "measurement.h"
#include "record_case.h"
#include "refdata_case.h"
#include "report_case.h"
#include "results.h"
#include "run_case.h"
#include "store/run_time_error.h"
#include "window_case.h"

using orvex::bench::Measurement;
using orvex::bench::Settings;

namespace {

struct Choice {
  std::vector<std::string> only;  ///< keys of the cases, or all
  int tanks = 0;                  ///< instead of those of the cases, unless 0
};

void MeasureAll(const Settings& settings, const Choice& choice) {
  const auto chosen = [&](std::string_view key) {
    return choice.only.empty() || std::find(choice.only.begin(), choice.only.end(), key) != choice.only.end();
  };
  std::vector<Measurement> results;
  const auto add = [&](Measurement measured) {
    fmt::print("{}\n", TableLine(measured));
    std::fflush(stdout);
    results.push_back(std::move(measured));
  };
  const auto measure = [&](const auto& cases) {
    for (const auto& one : cases)
      if (chosen(one.key)) add(Measure(one, settings));
  };
  fmt::print("{}\n", orvex::bench::TableHead());
  for (auto run_case : orvex::bench::RunCases()) {
    if (choice.tanks > 0) run_case.tanks = choice.tanks;
    if (chosen(run_case.key)) add(Measure(run_case, settings));
  }
  if (chosen(orvex::bench::kRecordCaseKey)) add(MeasureRecords(settings));
  measure(orvex::bench::ReportCases());
  if (chosen(orvex::bench::kWindowCaseKey)) add(MeasureTankWindow(settings));
  measure(orvex::bench::EntryCases());
  measure(orvex::bench::RefdataCases());
  measure(orvex::bench::BackupCases());
  measure(orvex::bench::ExportCases());
  if (chosen(orvex::bench::kImportCaseKey)) add(MeasureImport(settings));
  if (const auto lines = orvex::bench::GrowthLines(results); !lines.empty()) fmt::print("\n{}", lines);
  const auto json = settings.folder / "bench.json";
  WriteJson(json, results);
  fmt::print("\nWritten to {}\n", json.string());
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(
      "Times calculation runs, the record layer, reports, the list of tanks, tank entry, the reference editors and "
      "backups, imports and exports against the least that has to be done to the files.");
  Settings settings;
  Choice choice;
  bool no_floor = false;
  app.add_option("--reference", settings.reference, "The reference database")->required()->check(CLI::ExistingFile);
  app.add_option("--folder", settings.folder, "Where databases are made, and bench.json is written")->required();
  app.add_option("--only", choice.only, "Cases to measure, as a,c,e1")->delimiter(',');
  app.add_option("--repeat", settings.repetitions, "Repetitions, of which the fastest counts")
      ->check(CLI::Range(1, 99));
  app.add_option("--tanks", choice.tanks, "This many tanks in each case, for a quick look")
      ->check(CLI::Range(1, 1'000'000));
  app.add_flag("--no-floor", no_floor, "Run the program only, for a profiler");
  CLI11_PARSE(app, argc, argv);
  settings.with_floor = !no_floor;
  try {
    MeasureAll(settings, choice);
    return 0;
  } catch (const orvex::store::RunTimeError& error) {
    fmt::print(stderr, "orvex-bench: {}\n", error.Description());
  } catch (const std::exception& error) {
    fmt::print(stderr, "orvex-bench: {}\n", error.what());
  }
  return 1;
}
