#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>

/// The least that is needed to use SQLite by hand.
namespace orvex::bench {

/// An open database file, set up as the program's own connections are.
class SqliteFile {
 public:
  explicit SqliteFile(const std::filesystem::path& path, int flags = SQLITE_OPEN_READWRITE);
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;
  ~SqliteFile() { sqlite3_close(handle_); }

  [[nodiscard]] sqlite3* Handle() const { return handle_; }
  void Execute(const char* sql);

 private:
  sqlite3* handle_ = nullptr;
};

/// A prepared statement. Failures end the benchmark.
class SqliteStatement {
 public:
  SqliteStatement(SqliteFile& file, const std::string& sql);
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;
  ~SqliteStatement() { sqlite3_finalize(statement_); }

  [[nodiscard]] sqlite3_stmt* Handle() const { return statement_; }
  /// True while there is a row.
  bool Step();
  void Reset() { sqlite3_reset(statement_); }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

/// A hash over the content of all tables, row by row in the order of the file.
std::uint64_t ContentHash(const std::filesystem::path& path);

}  // namespace orvex::bench
