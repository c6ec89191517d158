#include "store/database_replacement.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/database_impl.h"
#include "store/file_lock.h"
#include "store/file_renaming.h"
#include "store/file_replacement.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

/// What SQLite may keep beside a database.
constexpr std::string_view kCompanions[] = {"-journal", "-wal", "-shm"};

fs::path With(fs::path path, std::string_view ending) { return path += ending; }

/// Work on the old file that was broken off is finished or undone, so that it stays whole without the companions; what
/// is left of them goes aside, since it would be played back into the new file.
void PartFromCompanions(const fs::path& path) {
  try {
    (void)Database::Open(path);
  } catch (const RunTimeError& error) {
    // Anything may have the place of a backup, a database or not.
    if (error.Number() == ErrorNumber::kFileLocked) throw;
  }
  for (const auto ending : kCompanions) {
    std::error_code not_there;
    fs::rename(With(path, ending), With(With(path, ending), ".old"), not_there);
  }
}

}  // namespace

DatabaseReplacement::DatabaseReplacement(fs::path path) : path_(std::move(path)) {
  std::error_code ignored;
  const auto status = fs::status(path_, ignored);
  if (fs::exists(status) && !fs::is_regular_file(status)) Fail(fs::is_directory(status) ? EISDIR : EEXIST);
  if (fs::exists(status) && faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) Fail(errno);
  RemoveUnfinished(path_);
  // A name of this process's own: two programs that write the same file must not share the half-written one.
  for (int attempt = 0; !database_; ++attempt) {
    beside_ = With(path_, fmt::format(".{}-{}.new", getpid(), attempt));
    try {
      database_ = Database::Create(beside_, {});
    } catch (const RunTimeError& error) {
      if (error.Number() != ErrorNumber::kAlreadyExists) throw;
    }
  }
  lock_ = open(beside_.c_str(), O_RDONLY | O_CLOEXEC);
  flock(lock_, LOCK_EX | LOCK_NB);
  Prepare();
}

/// The file counts for nothing until it is complete and flushed, so that no journal is needed beside it.
void DatabaseReplacement::Prepare() {
  database_->impl_->connection->Execute("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
}

DatabaseReplacement::~DatabaseReplacement() {
  database_.reset();
  std::error_code ignored;
  if (!beside_.empty()) {
    RemoveJournals(beside_);
    fs::remove(beside_, ignored);
  }
  // Not before: SQLite would lose its own locks on the file.
  close(lock_);
}

void DatabaseReplacement::CopyFrom(const fs::path& source, const CopyProgress& progress) {
  if (WasLeftAtWork(source)) {
    database_.reset();
    CopyWithJournals(source, beside_);
    database_ = Database::Open(beside_);
  } else {
    CopyPages(source, *database_->impl_->connection, progress);
  }
  // A log has no place beside the new file. Whether the pages that were copied say so shows when they are looked at.
  (void)database_->TableNames();
  database_->impl_->connection->Execute("PRAGMA journal_mode = DELETE");
  Prepare();
}

void DatabaseReplacement::Check(const std::function<void(Database&)>& look) {
  database_.reset();
  FlushFile(beside_);
  const auto written = Database::Open(beside_, OpenMode::kReadOnly);
  if (!written->IntegrityCheck())
    throw RunTimeError(ErrorNumber::kDamagedFile, fmt::format("{} was not written as it should be.", path_.string()));
  if (look) look(*written);
}

void DatabaseReplacement::Commit() {
  if (database_) Check();
  PartFromCompanions(path_);
  std::error_code ignored;
  if (fs::is_regular_file(fs::symlink_status(path_, ignored))) {
    RequireUnused(path_);
    CopyRights(path_, beside_);
  }
  if (rename(beside_.c_str(), path_.c_str()) != 0) Fail(errno);
  beside_.clear();
  FlushFolderOf(path_);
}

void DatabaseReplacement::KeepUnfinished() {
  // On a disk that is full, not even the last work on it may have been undone.
  if (!database_->IntegrityCheck()) return;
  database_.reset();
  if (RenameAsNew(beside_, path_) == 0) beside_.clear();
}

void DatabaseReplacement::Fail(int cause) const {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be written: {}.", path_.string(),
                                                            std::generic_category().message(cause)));
}

}  // namespace orvex::store
