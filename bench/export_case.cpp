#include "export_case.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "emission/run_report.h"
#include "inventory.h"
#include "memory.h"
#include "reports/export.h"
#include "shell/periods.h"
#include "silent_host.h"
#include "store/file_replacement.h"

namespace orvex::bench {
namespace {

namespace fs = std::filesystem;

// Each has 12 rows for itself and 12 for each component.
constexpr int kRowsOfATank = 12 * (1 + kComponents);
constexpr int kTanks = 926;
constexpr int kTanksOfASheet = 16'383 / kRowsOfATank;

constexpr ExportCase kCases[] = {
    {"n1", "Export 100,000 rows of emissions to a database", "gnDT_JETMDB", "bench_export.mdb", kTanks},
    {"n2", "Export 100,000 rows of emissions to dBASE IV", "gnDT_DBASEIV", "benchexp.dbf", kTanks},
    {"n3", "Export 100,000 rows of emissions to FoxPro 2.6", "gnDT_FOXPRO26", "benchexp.dbf", kTanks},
    {"n4", "Export 16,000 rows of emissions to Excel 5.0", "gnDT_EXCEL50", "bench_export.xls", kTanksOfASheet},
    {"n5", "Export 100,000 rows of emissions to text", "gnDT_TEXTFILE", "bench_export.txt", kTanks},
};

/// The person who names format, file and table, and is told of success and of what the format could not hold.
class NamingHost : public SilentHost {
 public:
  NamingHost(const ExportCase& export_case, std::string path) : case_(export_case), path_(std::move(path)) {}

  void ShowWindow(std::string_view name) override {
    if (session == nullptr) return;
    if (name == "Frmexformat") session->ExportFormat = case_.token;
    if (name == "frmexname") session->ExportTarget = path_;
  }
  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override {
    if (icon != shell::Icon::kInformation) return SilentHost::ShowMessage(text, title, buttons, icon);
    return shell::Answer::kOk;
  }

  shell::Session* session = nullptr;  ///< from when the windows are answered

 private:
  const ExportCase& case_;
  std::string path_;
};

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
  store::FileReplacement file(path);
  file.Write(bytes);
  file.Commit();
}

/// The tanks' emissions, computed.
void Compute(shell::Session& session, const fs::path& client, const Settings& settings, int tanks) {
  fs::remove(client);
  session.TankList = MakeInventory(client, settings.reference, TankKind::kSpeciation, tanks);
  session.ClientDb = store::Database::Open(client);
  session.ReferenceDb = store::Database::Open(settings.reference, store::OpenMode::kReadOnly);
  session.ClientPath = client;
  session.ReportType = "Detail";
  session.ReportTime = shell::kMonthly;
  session.MonthSelected.fill(true);
  emission::RunReport(session);
}

}  // namespace

std::span<const ExportCase> ExportCases() { return kCases; }

Measurement Measure(const ExportCase& export_case, const Settings& settings) {
  fs::create_directories(settings.folder);
  const auto client = settings.folder / "bench_client.mdb";
  const auto floor = settings.folder / "bench_floor.bin";
  const auto target = settings.folder / export_case.file;
  NamingHost host(export_case, target);
  shell::Session session(host);
  Compute(session, client, settings, export_case.tanks);
  host.session = &session;
  Measurement measured{.key = std::string(export_case.key),
                       .description = std::string(export_case.description),
                       .rows = session.ClientDb->OpenTable("emission").RecordCount()};
  if (measured.rows != std::int64_t{kRowsOfATank} * export_case.tanks)
    throw std::runtime_error(fmt::format("There are {} rows of emissions.", measured.rows));
  for (int i = 0; i < settings.repetitions; ++i) {
    fs::remove(target);
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Time([&] { reports::Export(session, "emission", session.ClientPath, ""); }));
    if (i == 0) measured.peak_bytes = PeakMemory();
    const auto bytes = Content(target);
    if (bytes.empty()) throw std::runtime_error("Nothing was exported.");
    if (settings.with_floor) KeepBest(measured.floor_seconds, Time([&] { WriteBytes(floor, bytes); }));
  }
  for (const auto& file : {client, floor, target}) fs::remove(file);
  return measured;
}

}  // namespace orvex::bench
