#pragma once

#include <filesystem>
#include <memory>

#include "store/database.h"

namespace orvex::store {

/// A database that takes the place of a file only when it is complete: it is made beside it, checked, flushed to the
/// disk and renamed. Left without `Commit`, nothing changes. Errors: 3044 the folder is not there, 3043 the disk
/// refused or the place is taken by something that is no file, 3260 another program works on the old file.
class DatabaseReplacement {
 public:
  explicit DatabaseReplacement(std::filesystem::path path);
  DatabaseReplacement(const DatabaseReplacement&) = delete;
  DatabaseReplacement& operator=(const DatabaseReplacement&) = delete;
  ~DatabaseReplacement();

  /// The new database, empty at first. No record set may be open on it at the end.
  [[nodiscard]] Database& New() { return *database_; }

  void Commit();

  /// Leaves the database as far as it got, if nothing has the place.
  void KeepUnfinished();

 private:
  [[noreturn]] void Fail(int cause) const;

  std::filesystem::path path_;
  std::filesystem::path beside_;
  std::unique_ptr<Database> database_;
};

}  // namespace orvex::store
