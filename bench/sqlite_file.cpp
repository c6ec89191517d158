#include "sqlite_file.h"

#include <stdexcept>
#include <string_view>
#include <vector>

namespace orvex::bench {
namespace {

[[noreturn]] void Fail(sqlite3* handle) { throw std::runtime_error(sqlite3_errmsg(handle)); }

class Hash {
 public:
  void Add(const void* data, std::size_t size) {
    for (const char c : std::string_view(static_cast<const char*>(data), size)) {
      value_ = (value_ ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    }
  }
  void AddColumn(sqlite3_stmt* row, int column) {
    const int type = sqlite3_column_type(row, column);
    Add(&type, sizeof type);
    const void* content = sqlite3_column_blob(row, column);
    Add(content, static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
  }
  [[nodiscard]] std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037ULL;
};

}  // namespace

SqliteFile::SqliteFile(const std::filesystem::path& path, int flags) {
  if (sqlite3_open_v2(path.string().c_str(), &handle_, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
    Fail(handle_);
  Execute("PRAGMA cache_size = -65536");
  Execute("PRAGMA cell_size_check = ON");
}

void SqliteFile::Execute(const char* sql) {
  if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(handle_);
}

SqliteStatement::SqliteStatement(SqliteFile& file, const std::string& sql) {
  if (sqlite3_prepare_v3(file.Handle(), sql.c_str(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                         &statement_, nullptr) != SQLITE_OK) {
    Fail(file.Handle());
  }
}

bool SqliteStatement::Step() {
  const int code = sqlite3_step(statement_);
  if (code != SQLITE_ROW && code != SQLITE_DONE) Fail(sqlite3_db_handle(statement_));
  return code == SQLITE_ROW;
}

std::uint64_t ContentHash(const std::filesystem::path& path) {
  SqliteFile file(path, SQLITE_OPEN_READONLY);
  std::vector<std::string> tables;
  SqliteStatement names(file, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
  while (names.Step()) tables.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(names.Handle(), 0)));
  Hash hash;
  for (const auto& table : tables) {
    SqliteStatement rows(file, "SELECT rowid, * FROM \"" + table + "\" ORDER BY rowid");
    while (rows.Step()) {
      for (int i = 0; i < sqlite3_column_count(rows.Handle()); ++i) hash.AddColumn(rows.Handle(), i);
    }
  }
  return hash.Value();
}

}  // namespace orvex::bench
