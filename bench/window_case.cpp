#include "window_case.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "inventory.h"
#include "memory.h"
#include "reports/frmtankrep.h"
#include "shell/number_format.h"
#include "silent_host.h"
#include "sqlite_file.h"

namespace orvex::bench {
namespace {

constexpr int kTanks = 5'000;

void CheckTanks(std::size_t listed) {
  if (listed != kTanks) throw std::runtime_error(fmt::format("{} tanks of {} are listed.", listed, kTanks));
}

std::size_t OpenWindow(shell::Session& session) { return reports::OpenFrmtankrep(session).lstTanks.items.size(); }

std::size_t ReadNames(const std::filesystem::path& client) {
  SqliteFile file(client);
  SqliteStatement names(file, "SELECT \"USER ID\" FROM tank NOT INDEXED WHERE \"USER ID\" IS NOT NULL");
  std::vector<std::string> items;
  while (names.Step()) items.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(names.Handle(), 0)));
  return items.size();
}

}  // namespace

Measurement MeasureTankWindow(const Settings& settings) {
  std::filesystem::create_directories(settings.folder);
  const auto client = settings.folder / "bench_window.mdb";
  std::filesystem::remove(client);
  MakeInventory(client, settings.reference, TankKind::kVertical, kTanks);
  SilentHost host;
  Measurement measured{.key = std::string(kWindowCaseKey),
                       .description = fmt::format("Choose tanks out of {}: list them", shell::FormatWhole(kTanks)),
                       .tanks = kTanks};
  for (int i = 0; i < settings.repetitions; ++i) {
    shell::Session session(host);
    session.ClientDb = store::Database::Open(client);
    if (i == 0) ResetPeakMemory();
    std::size_t listed = 0;
    KeepBest(measured.seconds, Time([&] { listed = OpenWindow(session); }));
    if (i == 0) measured.peak_bytes = PeakMemory();
    CheckTanks(listed);
    session.ClientDb.reset();
    if (settings.with_floor) {
      KeepBest(measured.floor_seconds, Time([&] { listed = ReadNames(client); }));
      CheckTanks(listed);
    }
  }
  std::filesystem::remove(client);
  return measured;
}

}  // namespace orvex::bench
