#pragma once

#include <filesystem>
#include <memory>

#include "store/database.h"

namespace orvex::store {

/// A database that takes the place of a file only when it is complete: it is made beside it, checked, flushed to the
/// disk and renamed. Left without `Commit`, nothing changes; a process that is killed leaves the unfinished file, which
/// the next replacement of the same file removes. Errors: 3044 the folder is not there, 3043 the disk refused or the
/// place is taken by something that is no file, 3260 another program works on the old file.
class DatabaseReplacement {
 public:
  explicit DatabaseReplacement(std::filesystem::path path);
  DatabaseReplacement(const DatabaseReplacement&) = delete;
  DatabaseReplacement& operator=(const DatabaseReplacement&) = delete;
  ~DatabaseReplacement();

  /// The new database, empty at first. No record set may be open on it at the end.
  [[nodiscard]] Database& New() { return *database_; }

  void Commit();

  /// Leaves the database as far as it got, if nothing has the place and it is sound.
  void KeepUnfinished();

 private:
  [[noreturn]] void Fail(int cause) const;

  std::filesystem::path path_;
  std::filesystem::path beside_;
  int lock_ = -1;  ///< tells others that the unfinished file is not given up
  std::unique_ptr<Database> database_;
};

}  // namespace orvex::store
