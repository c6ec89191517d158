#include "backup_case.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "inventory.h"
#include "memory.h"
#include "shell/backup.h"
#include "shell/compact.h"
#include "shell/database_locations.h"
#include "shell/restore.h"
#include "silent_host.h"
#include "sqlite_file.h"

namespace orvex::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kTanks = 20'000;

constexpr BackupCase kCases[] = {
    {"m1", "Backup of 20,000 tanks, against copying the bytes", BackupStep::kBackup},
    {"m2", "Restore of 20,000 tanks, against copying the bytes", BackupStep::kRestore},
    {"m3", "Compaction of 20,000 tanks, against copying the bytes", BackupStep::kCompact},
};

/// The person who names one file, and is told of success in words that hold `told`.
class NamingHost : public SilentHost {
 public:
  NamingHost(std::string file, std::string told) : file_(std::move(file)), told_(std::move(told)) {}

  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override {
    if (text.find(told_) == std::string::npos) return SilentHost::ShowMessage(text, title, buttons, icon);
    return shell::Answer::kOk;
  }
  std::string OpenFile(const shell::FileRequest&) override { return file_; }
  std::string SaveFile(const shell::FileRequest&) override { return file_; }

 private:
  std::string file_, told_;
};

void Flush(const fs::path& file) {
  const int opened = open(file.c_str(), O_RDONLY);
  if (opened < 0 || fsync(opened) != 0) throw std::runtime_error("The copy was not flushed.");
  close(opened);
}

/// Carries the command out on the client database; seconds.
double Take(BackupStep step, const fs::path& client, const fs::path& backup) {
  NamingHost host(backup, step == BackupStep::kBackup ? " was copied to " : " was restored from ");
  shell::Session session(host);
  switch (step) {
    case BackupStep::kBackup:
      shell::OpenClientDatabase(session, client);
      return Time([&] { shell::BackupClient(session); });
    case BackupStep::kRestore:
      shell::OpenClientDatabase(session, client);
      return Time([&] { shell::RestoreClient(session); });
    case BackupStep::kCompact:
      return Time([&] { shell::Compact(session, client); });
  }
  return 0;
}

}  // namespace

std::span<const BackupCase> BackupCases() { return kCases; }

Measurement Measure(const BackupCase& backup_case, const Settings& settings) {
  fs::create_directories(settings.folder);
  const auto client = settings.folder / "bench_backup.mdb";
  const auto other = settings.folder / "bench_backup_other.mdb";
  const auto floor = settings.folder / "bench_backup_floor.mdb";
  fs::remove(client);
  MakeInventory(client, settings.reference, TankKind::kExternal, kTanks);
  const auto content = ContentHash(client);
  Measurement measured{
      .key = std::string(backup_case.key), .description = std::string(backup_case.description), .tanks = kTanks};
  const auto& written = backup_case.step == BackupStep::kBackup ? other : client;
  if (backup_case.step == BackupStep::kRestore) fs::copy_file(client, other, fs::copy_options::overwrite_existing);
  for (int i = 0; i < settings.repetitions; ++i) {
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Take(backup_case.step, client, other));
    if (i == 0) measured.peak_bytes = PeakMemory();
    if (ContentHash(written) != content) throw std::runtime_error("The file written holds something else.");
    if (!settings.with_floor) continue;
    fs::remove(floor);
    KeepBest(measured.floor_seconds, Time([&] {
               fs::copy_file(written, floor);
               Flush(floor);
             }));
  }
  for (const auto& file : {client, other, floor}) fs::remove(file);
  return measured;
}

}  // namespace orvex::bench
