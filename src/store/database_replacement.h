#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "store/database.h"
#include "store/page_copy.h"

namespace orvex::store {

/// A database that takes the place of a file only when it is complete: it is made beside it, checked, flushed to the
/// disk and renamed. Left without `Commit`, nothing changes; a process that is killed leaves the unfinished file, which
/// the next replacement of the same file removes. Errors: 3044 the folder is not there, 3043 the disk refused, the old
/// file may not be written, or the place is taken by something that is no file, 3260 another program has the old file
/// open: it would go on with a file that has no name any more.
class DatabaseReplacement {
 public:
  explicit DatabaseReplacement(std::filesystem::path path);
  DatabaseReplacement(const DatabaseReplacement&) = delete;
  DatabaseReplacement& operator=(const DatabaseReplacement&) = delete;
  ~DatabaseReplacement();

  /// The new database, empty at first. No record set may be open on it at the end.
  [[nodiscard]] Database& New() { return *database_; }

  /// Makes it a copy of a database file as that stands at one moment. The file is only read, even where a program was
  /// ended in the midst of work on it.
  void CopyFrom(const std::filesystem::path& source, const CopyProgress& progress);

  /// Sees the database onto the disk and reads it back: error 3049 unless it is sound. `look` may say more about what
  /// is found there, by throwing. `New` is closed then.
  void Check(const std::function<void(Database&)>& look = {});

  /// Checks it, unless that was done, and puts it into its place.
  void Commit();

  /// Leaves the database as far as it got, if nothing has the place and it is sound.
  void KeepUnfinished();

 private:
  [[noreturn]] void Fail(int cause) const;

  void Prepare();

  std::filesystem::path path_;
  std::filesystem::path beside_;
  int lock_ = -1;  ///< tells others that the unfinished file is not given up
  std::unique_ptr<Database> database_;
};

}  // namespace orvex::store
