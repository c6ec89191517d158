#include "store/table_definition.h"

#include <fmt/format.h>

#include "store/connection.h"

namespace orvex::store {
namespace {

std::string TypeText(const StoredField& field) {
  switch (field.type) {
    case FieldType::kBoolean:
      return "BOOLEAN";
    case FieldType::kLong:
      return "LONG INTEGER";
    case FieldType::kDouble:
      return "DOUBLE";
    case FieldType::kCounter:
      return "INTEGER PRIMARY KEY AUTOINCREMENT";  // a number is never given twice
    case FieldType::kText:
      return field.width > 0 ? fmt::format("TEXT({}) COLLATE NOCASE", field.width) : "TEXT COLLATE NOCASE";
  }
  return "";
}

/// Lets a table be renamed without a look at views of the file, which may be broken and which nobody uses here.
class PlainRenaming {
 public:
  explicit PlainRenaming(sqlite3* handle) : handle_(handle) { Set(1); }
  PlainRenaming(const PlainRenaming&) = delete;
  PlainRenaming& operator=(const PlainRenaming&) = delete;
  ~PlainRenaming() { Set(0); }

 private:
  void Set(int on) { sqlite3_db_config(handle_, SQLITE_DBCONFIG_LEGACY_ALTER_TABLE, on, nullptr); }
  sqlite3* handle_;
};

}  // namespace

std::string TableDefinition(std::string_view name, const std::vector<StoredField>& fields) {
  std::string sql = "CREATE TABLE " + Quoted(name) + " (";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    sql += fmt::format("{}{} {}", i == 0 ? "" : ", ", Quoted(fields[i].name), TypeText(fields[i]));
    // On a line of its own: the expression may end in a comment.
    if (!fields[i].default_value.empty()) sql += fmt::format(" DEFAULT ({}\n)", fields[i].default_value);
  }
  return sql + ")";
}

std::string IndexDefinition(std::string_view table, const StoredIndex& index) {
  std::string sql = fmt::format("CREATE {}INDEX {} ON {} (", index.unique ? "UNIQUE " : "",
                                Quoted(fmt::format("{}.{}", table, index.name)), Quoted(table));
  for (std::size_t i = 0; i < index.fields.size(); ++i) sql += (i == 0 ? "" : ", ") + Quoted(index.fields[i]);
  return sql + ")";
}

void RenameTable(Connection& connection, std::string_view from, std::string_view to) {
  const PlainRenaming plain(connection.Handle());
  connection.Execute(fmt::format("ALTER TABLE {} RENAME TO {}", Quoted(from), Quoted(to)));
}

}  // namespace orvex::store
