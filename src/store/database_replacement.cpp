#include "store/database_replacement.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/file_renaming.h"
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
  // A name of this process's own: two programs that write the same file must not share the half-written one.
  for (int attempt = 0; !database_; ++attempt) {
    beside_ = With(path_, fmt::format(".{}-{}.new", getpid(), attempt));
    try {
      database_ = Database::Create(beside_, {});
    } catch (const RunTimeError& error) {
      if (error.Number() != ErrorNumber::kAlreadyExists) throw;
    }
  }
}

DatabaseReplacement::~DatabaseReplacement() {
  if (beside_.empty()) return;
  database_.reset();
  std::error_code ignored;
  fs::remove(beside_, ignored);
  for (const auto ending : kCompanions) fs::remove(With(beside_, ending), ignored);
}

void DatabaseReplacement::Commit() {
  if (!database_->IntegrityCheck()) {
    throw RunTimeError(ErrorNumber::kDamagedFile, fmt::format("{} was not written as it should be.", path_.string()));
  }
  database_.reset();
  FlushFile(beside_);
  PartFromCompanions(path_);
  if (rename(beside_.c_str(), path_.c_str()) != 0) Fail(errno);
  beside_.clear();
  FlushFolderOf(path_);
}

void DatabaseReplacement::KeepUnfinished() {
  database_.reset();
  // On a disk that is full, not even the last work on it may have been undone.
  std::error_code ignored;
  if (fs::exists(With(beside_, kCompanions[0]), ignored)) return;
  if (RenameAsNew(beside_, path_) == 0) beside_.clear();
}

void DatabaseReplacement::Fail(int cause) const {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be written: {}.", path_.string(),
                                                            std::generic_category().message(cause)));
}

}  // namespace orvex::store
