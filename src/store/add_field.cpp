#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "store/database_impl.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"
#include "store/table_definition.h"

namespace orvex::store {
namespace {

/// SQLite's names for a record's own number; a field may have taken one of them.
constexpr std::string_view kRowNumberNames[] = {"rowid", "_rowid_", "oid"};

bool HasField(const std::vector<StoredField>& fields, std::string_view name) {
  return std::ranges::any_of(fields, [&](const StoredField& field) { return EqualNoCase(field.name, name); });
}

/// What is copied from the old table to the new one: the fields, and the records' own numbers, which hold their order.
std::string CopiedColumns(const std::vector<StoredField>& fields) {
  std::string columns;
  const auto add = [&](std::string_view column) { columns += (columns.empty() ? "" : ", ") + Quoted(column); };
  if (std::ranges::none_of(fields, [](const StoredField& field) { return field.type == FieldType::kCounter; })) {
    const auto free = std::ranges::find_if(kRowNumberNames, [&](auto name) { return !HasField(fields, name); });
    if (free != std::end(kRowNumberNames)) add(*free);
  }
  for (const auto& field : fields) add(field.name);
  return columns;
}

/// The last number that the table's Counter gave; nothing if it has none.
std::optional<std::int64_t> LastCount(const Connection& connection, const Table& table) {
  if (std::ranges::none_of(table.Fields(), [](const auto& field) { return field.type == FieldType::kCounter; }))
    return std::nullopt;
  Statement last(connection, "SELECT seq FROM sqlite_sequence WHERE name = ?1");
  const Value name(table.Name());
  last.Bind(1, name);
  return last.Step() ? std::optional(last.Integer(0)) : std::nullopt;
}

void SetLastCount(const Connection& connection, const Table& table, std::int64_t number) {
  const Value name(table.Name());
  Statement remove(connection, "DELETE FROM sqlite_sequence WHERE name = ?1");
  remove.Bind(1, name);
  remove.Step();
  Statement add(connection, "INSERT INTO sqlite_sequence (name, seq) VALUES (?1, ?2)");
  add.Bind(1, name);
  add.Bind(2, number);
  add.Step();
}

}  // namespace

/// SQLite adds fields at the end only, so the table is made anew in one transaction.
void Database::AddField(std::string_view table_name, const StoredField& field, std::size_t position) {
  Connection& connection = *impl_->connection;
  Transaction transaction(*this);
  const Table table(impl_->connection, table_name);
  if (HasField(table.Fields(), field.name)) {
    throw RunTimeError(ErrorNumber::kAlreadyExists, fmt::format("The table '{}' of {} has a field '{}' already.",
                                                                table.Name(), Path().string(), field.name));
  }
  auto fields = table.Fields();
  fields.insert(fields.begin() + static_cast<std::ptrdiff_t>(std::min(position, fields.size())), field);
  std::string made = table.Name();
  while (HasTable(made)) made += "+";
  const std::string columns = CopiedColumns(table.Fields());
  const auto last_count = LastCount(connection, table);

  connection.Execute(TableDefinition(made, fields));
  connection.Execute(
      fmt::format("INSERT INTO {0} ({1}) SELECT {1} FROM {2}", Quoted(made), columns, Quoted(table.Name())));
  connection.Execute("DROP TABLE " + Quoted(table.Name()));
  RenameTable(connection, made, table.Name());
  // They are listed the newest first.
  auto indexes = table.Indexes();
  std::ranges::reverse(indexes);
  for (const auto& index : indexes) connection.Execute(IndexDefinition(table.Name(), index));
  if (last_count) SetLastCount(connection, table, *last_count);
  transaction.Commit();

  const auto old = impl_->tables.find(table_name);
  if (old == impl_->tables.end()) return;
  old->second->Forget();
  impl_->tables.erase(old);
}

}  // namespace orvex::store
