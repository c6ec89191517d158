#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace orvex::test {

/// A database file as another program would use it: SQL of SQLite's own on a connection without any of our settings.
class RawFile {
 public:
  explicit RawFile(const std::filesystem::path& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(handle_));
  }
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile() { sqlite3_close(handle_); }

  void Run(const std::string& sql) {
    if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sql + ": " + sqlite3_errmsg(handle_));
    }
  }

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace orvex::test
