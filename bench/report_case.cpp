#include "report_case.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "emission/run_report.h"
#include "memory.h"
#include "reports/detail_report.h"
#include "shell/periods.h"
#include "silent_host.h"
#include "store/file_replacement.h"

namespace orvex::bench {
namespace {

constexpr ReportCase kCases[] = {
    {"g", "Detail report of 1,000 vertical tanks, annual", TankKind::kVertical, 1'000, false},
    {"h", "Detail report of 1,000 external floating roofs, 12 months", TankKind::kExternal, 1'000, true},
    {"i1", "Detail report of 500 vertical tanks, annual", TankKind::kVertical, 500, false},
    {"i2", "Detail report of 2,000 vertical tanks, annual", TankKind::kVertical, 2'000, false},
};

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void CheckTanks(const std::string& xml, int tanks) {
  int found = 0;
  for (auto at = xml.find("<EmissionTotals>"); at != std::string::npos; at = xml.find("<EmissionTotals>", at + 1))
    ++found;
  if (found != tanks) throw std::runtime_error(fmt::format("The report tells {} tanks of {}.", found, tanks));
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  store::FileReplacement file(path);
  file.Write(bytes);
  file.Commit();
}

}  // namespace

std::span<const ReportCase> ReportCases() { return kCases; }

Measurement Measure(const ReportCase& report_case, const Settings& settings) {
  std::filesystem::create_directories(settings.folder);
  const auto client = settings.folder / "bench_report.mdb";
  const auto floor = settings.folder / "bench_floor.xml";
  std::filesystem::remove(client);
  SilentHost host;
  shell::Session session(host);
  session.TankList = MakeInventory(client, settings.reference, report_case.kind, report_case.tanks);
  session.ClientDb = store::Database::Open(client);
  session.ReferenceDb = store::Database::Open(settings.reference, store::OpenMode::kReadOnly);
  session.ReportType = "Detail";
  session.ReportTime = report_case.monthly ? shell::kMonthly : shell::kAnnual;
  session.MonthSelected.fill(report_case.monthly);
  session.application_folder = settings.folder;
  emission::RunReport(session);

  const auto report = settings.folder / reports::kSummaryData;
  Measurement measured{.key = std::string(report_case.key),
                       .description = std::string(report_case.description),
                       .tanks = report_case.tanks,
                       .rows = session.ClientDb->OpenTable("emission").RecordCount()};
  for (int i = 0; i < settings.repetitions; ++i) {
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Time([&] { reports::DetailReport(session); }));
    if (i == 0) measured.peak_bytes = PeakMemory();
    const auto bytes = Content(report);
    if (i == 0) CheckTanks(bytes, report_case.tanks);
    if (settings.with_floor) KeepBest(measured.floor_seconds, Time([&] { WriteBytes(floor, bytes); }));
  }
  for (const auto& file : {client, floor, report}) std::filesystem::remove(file);
  return measured;
}

}  // namespace orvex::bench
