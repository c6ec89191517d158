#include "run_case.h"

#include <fmt/format.h>

#include <optional>
#include <stdexcept>

#include "emission/run_report.h"
#include "floor.h"
#include "memory.h"
#include "shell/number_format.h"
#include "shell/periods.h"
#include "silent_host.h"

namespace orvex::bench {
namespace {

constexpr RunCase kCases[] = {
    {"a", "vertical tanks, one chemical, annual", TankKind::kVertical, 10'000, false},
    {"b", "vertical tanks, one chemical, 12 months", TankKind::kVertical, 10'000, true},
    {"c", "external floating roofs, 12 fitting rows each, annual", TankKind::kExternal, 10'000, false},
    {"d", "tanks of 8 components fully speciated, annual", TankKind::kSpeciation, 10'000, false},
    {"e1", "vertical tanks, one chemical, annual", TankKind::kVertical, 1'000, false},
    {"e2", "vertical tanks, one chemical, annual", TankKind::kVertical, 100'000, false},
};

constexpr auto kPrimaryMonths = static_cast<std::int64_t>(shell::kMonths.size());

std::int64_t ExpectedRows(const RunCase& run_case) {
  const std::int64_t per_period = run_case.kind == TankKind::kSpeciation ? 1 + kComponents : 1;
  return run_case.tanks * per_period * (run_case.monthly ? kPrimaryMonths : 1);
}

/// Files of one case, removed at its end.
class CaseFiles {
 public:
  explicit CaseFiles(const std::filesystem::path& folder)
      : inventory_(folder / "bench_inventory.mdb"), run_(folder / "bench_run.mdb"), floor_(folder / "bench_floor.mdb") {
    std::filesystem::create_directories(folder);
  }
  CaseFiles(const CaseFiles&) = delete;
  CaseFiles& operator=(const CaseFiles&) = delete;
  ~CaseFiles() {
    std::error_code ignored;
    for (const auto& file : {inventory_, run_, floor_}) std::filesystem::remove(file, ignored);
  }

  [[nodiscard]] const std::filesystem::path& Inventory() const { return inventory_; }
  [[nodiscard]] const std::filesystem::path& FreshRun() const { return Copy(run_); }
  [[nodiscard]] const std::filesystem::path& FreshFloor() const { return Copy(floor_); }
  [[nodiscard]] const std::filesystem::path& Run() const { return run_; }
  [[nodiscard]] const std::filesystem::path& Floor() const { return floor_; }

 private:
  [[nodiscard]] const std::filesystem::path& Copy(const std::filesystem::path& to) const {
    std::filesystem::copy_file(inventory_, to, std::filesystem::copy_options::overwrite_existing);
    return to;
  }
  std::filesystem::path inventory_, run_, floor_;
};

double TimeRun(const RunCase& run_case, const std::filesystem::path& client, const std::filesystem::path& reference,
               const std::vector<std::string>& user_ids) {
  SilentHost host;
  shell::Session session(host);
  session.ClientDb = store::Database::Open(client);
  session.ReferenceDb = store::Database::Open(reference, store::OpenMode::kReadOnly);
  session.TankList = user_ids;
  session.ReportType = "Brief";
  session.ReportTime = run_case.monthly ? shell::kMonthly : shell::kAnnual;
  session.MonthSelected.fill(run_case.monthly);
  const double seconds = Time([&] { emission::RunReport(session); });
  const auto rows = session.ClientDb->OpenTable("emission").RecordCount();
  if (session.PrintMode != "Report" || rows != ExpectedRows(run_case)) {
    throw std::runtime_error(fmt::format("The run ended in '{}' with {} rows.", session.PrintMode, rows));
  }
  return seconds;
}

}  // namespace

std::span<const RunCase> RunCases() { return kCases; }

Measurement Measure(const RunCase& run_case, const Settings& settings) {
  const CaseFiles files(settings.folder);
  const auto user_ids = MakeInventory(files.Inventory(), settings.reference, run_case.kind, run_case.tanks);
  Measurement measured{.key = std::string(run_case.key),
                       .description = fmt::format("{} {}", shell::FormatWhole(run_case.tanks), run_case.description),
                       .tanks = run_case.tanks,
                       .rows = ExpectedRows(run_case)};
  std::optional<RunResult> result;
  for (int i = 0; i < settings.repetitions; ++i) {
    const auto& client = files.FreshRun();
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, TimeRun(run_case, client, settings.reference, user_ids));
    if (i == 0) measured.peak_bytes = PeakMemory();
    if (!settings.with_floor) continue;
    if (!result) result.emplace(files.Run());
    const auto& floor = files.FreshFloor();
    KeepBest(measured.floor_seconds,
             Time([&] { RunFloor(floor, settings.reference, run_case.kind, user_ids, *result); }));
    if (ContentHash(files.Floor()) != ContentHash(files.Run())) {
      throw std::runtime_error("The floor left other tables than the run.");
    }
  }
  return measured;
}

}  // namespace orvex::bench
