#include "store/page_copy.h"

#include <fmt/format.h>

#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>

#include "store/connection.h"
#include "store/database.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kJournal = "-journal";
constexpr std::string_view kLog = "-wal";
constexpr std::string_view kLogIndex = "-shm";

fs::path With(fs::path path, std::string_view ending) { return path += ending; }

bool IsThere(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

/// Whether the file says of itself that its last changes may stand in a log beside it.
bool KeepsLog(const fs::path& path) {
  constexpr std::streamoff kFormatOffset = 18;
  constexpr int kWithLog = 2;
  std::ifstream file(path, std::ios::binary);
  file.seekg(kFormatOffset);
  return file.get() == kWithLog;
}

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

void CopyFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
  // The copy is worked on, even where the original may not be written.
  if (!error) fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
  if (error) {
    throw RunTimeError(ErrorNumber::kDiskFailure,
                       fmt::format("{} cannot be copied to {}: {}.", from.string(), to.string(), error.message()));
  }
}

}  // namespace

bool WasLeftAtWork(const fs::path& path) {
  if (KeepsLog(path)) return !IsThere(With(path, kLogIndex));
  if (!IsThere(With(path, kJournal))) return false;
  // The journal may be that of a program at work, which has not touched the file yet.
  try {
    (void)Database::Open(path, OpenMode::kReadOnly);
    return false;
  } catch (const RunTimeError& error) {
    if (error.Number() != ErrorNumber::kReadOnly) throw;
    return true;
  }
}

void CopyPages(const fs::path& path, Connection& to, const CopyProgress& progress) {
  constexpr int kPagesAtOnce = 1000;
  Connection from(path, SQLITE_OPEN_READONLY);
  // One view of the file for all pages: it is taken with the first look.
  from.Execute("BEGIN; SELECT COUNT(*) FROM sqlite_master");
  const std::unique_ptr<sqlite3_backup, FinishBackup> backup(
      sqlite3_backup_init(to.Handle(), "main", from.Handle(), "main"));
  if (!backup) to.Fail(sqlite3_errcode(to.Handle()));
  int code = SQLITE_OK;
  while (code == SQLITE_OK) {
    code = sqlite3_backup_step(backup.get(), kPagesAtOnce);
    const int total = sqlite3_backup_pagecount(backup.get());
    if (code == SQLITE_OK) progress(total - sqlite3_backup_remaining(backup.get()), total);
  }
  if (code != SQLITE_DONE) to.Fail(code);
}

void CopyWithJournals(const fs::path& from, const fs::path& to) {
  CopyFile(from, to);
  for (const auto ending : {kJournal, kLog})
    if (IsThere(With(from, ending))) CopyFile(With(from, ending), With(to, ending));
}

void RemoveJournals(const fs::path& database) {
  std::error_code ignored;
  for (const auto ending : {kJournal, kLog, kLogIndex}) fs::remove(With(database, ending), ignored);
}

}  // namespace orvex::store
