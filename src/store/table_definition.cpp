#include "store/table_definition.h"

#include <fmt/format.h>

#include "store/connection.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"

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

/// The fields of a query's result, as a table can hold them.
std::vector<StoredField> ResultFields(const Statement& query) {
  std::vector<StoredField> fields;
  for (int i = 0; i < query.ColumnCount(); ++i) fields.push_back(query.ResultField(i));
  return fields;
}

constexpr std::string_view kDatabaseConnect = ";database=";

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

std::int64_t SelectInto(Statement& select, Database& database, const Translation& translation) {
  std::unique_ptr<Database> other;
  if (!translation.target_connect.empty()) {
    if (!LowerCase(translation.target_connect).starts_with(kDatabaseConnect)) {
      throw RunTimeError(ErrorNumber::kUnknownFormat,
                         fmt::format("The file format of '[{}]' is not available.", translation.target_connect));
    }
    const std::filesystem::path path = translation.target_connect.substr(kDatabaseConnect.size());
    std::error_code ignored;
    if (!std::filesystem::equivalent(path, database.Path(), ignored)) other = Database::Open(path);
  }
  Database& target = other ? *other : database;
  const auto fields = ResultFields(select);
  Transaction transaction(target);
  target.CreateTable(translation.target_table, fields, {});
  auto rows = target.OpenTable(translation.target_table);
  std::int64_t count = 0;
  Value value;
  while (select.Step()) {
    rows.AddNew();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      select.Read(static_cast<int>(i), value);
      rows.Set(fields[i].name, value);
    }
    rows.Update();
    ++count;
  }
  transaction.Commit();
  return count;
}

}  // namespace orvex::store
