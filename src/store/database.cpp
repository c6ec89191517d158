#include "store/database.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "store/database_impl.h"
#include "store/dialect_tokens.h"
#include "store/file_check.h"
#include "store/letter_case.h"
#include "store/record_set_impl.h"
#include "store/run_time_error.h"
#include "store/select_into.h"
#include "store/table_definition.h"

namespace orvex::store {
namespace {

/// Makes an empty file; errors 3044, 3010 and 3043.
void MakeFile(const std::filesystem::path& path) {
  CheckFolder(path);
  std::FILE* file = std::fopen(path.c_str(), "wbx");
  if (file == nullptr && errno == EEXIST) {
    throw RunTimeError(ErrorNumber::kAlreadyExists, fmt::format("The file {} already exists.", path.string()));
  }
  if (file == nullptr) {
    throw RunTimeError(ErrorNumber::kDiskFailure,
                       fmt::format("{} cannot be made: {}.", path.string(), std::strerror(errno)));
  }
  std::fclose(file);
}

}  // namespace

std::shared_ptr<Table> Database::Impl::GetTable(std::string_view name) {
  // A table made in a transaction that was undone is gone, or another one under the same name has come back.
  if (undone != connection->Undone()) {
    std::erase_if(tables, [](const auto& entry) { return entry.second.use_count() == 1; });
    undone = connection->Undone();
  }
  const auto found = tables.find(name);
  if (found != tables.end()) return found->second;
  auto table = std::make_shared<Table>(connection, name);
  tables.emplace(name, table);
  return table;
}

Statement& Database::Impl::Prepare(const std::string& sqlite_sql, std::string_view query) {
  try {
    return connection->Prepared(sqlite_sql);
  } catch (const RunTimeError&) {
    const int code = sqlite3_errcode(connection->Handle());
    if (code != SQLITE_ERROR) throw;
    const std::string reason = sqlite3_errmsg(connection->Handle());
    if (reason.starts_with("no such table")) {
      throw RunTimeError(ErrorNumber::kObjectNotFound,
                         fmt::format("{}: a table of the query '{}' was not found ({}).", connection->Path().string(),
                                     QueryExcerpt(query), reason));
    }
    if (reason.starts_with("no such column")) {
      throw RunTimeError(ErrorNumber::kNoSuchField,
                         fmt::format("A field of the query '{}' was not found ({}).", QueryExcerpt(query), reason));
    }
    ThrowQuerySyntax(query, reason);
  }
}

Database::Database(std::shared_ptr<Impl> impl) : impl_(std::move(impl)) {}
Database::~Database() = default;

std::unique_ptr<Database> Database::Open(const std::filesystem::path& path, OpenMode mode) {
  CheckFile(path);
  auto connection =
      std::make_shared<Connection>(path, mode == OpenMode::kReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
  // Reads the header and the schema: a file of another kind, a damaged or a locked one shows here.
  {
    Statement schema(*connection, "SELECT COUNT(*) FROM sqlite_master");
    schema.Step();
  }
  return std::unique_ptr<Database>(new Database(std::make_shared<Impl>(std::move(connection))));
}

std::unique_ptr<Database> Database::Create(const std::filesystem::path& path, std::span<const TableInfo> tables) {
  MakeFile(path);
  try {
    auto connection = std::make_shared<Connection>(path, SQLITE_OPEN_READWRITE);
    std::unique_ptr<Database> database(new Database(std::make_shared<Impl>(std::move(connection))));
    Transaction transaction(*database);
    for (const auto& table : tables) database->CreateTable(table);
    transaction.Commit();
    return database;
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    throw;
  }
}

const std::filesystem::path& Database::Path() const { return impl_->connection->Path(); }
bool Database::ReadOnly() const { return impl_->connection->ReadOnly(); }

RecordSet Database::OpenTable(std::string_view name) {
  return RecordSet(std::make_unique<RecordSet::Impl>(RecordSet::Impl::Kind::kTable, impl_, impl_->GetTable(name)));
}

RecordSet Database::OpenAt(std::string_view table, std::string_view index, std::initializer_list<Value> key) {
  RecordSet set = OpenTable(table);
  set.SetIndex(index);
  set.Seek(key);
  return set;
}

RecordSet Database::OpenMatching(std::string_view table_name, std::string_view index,
                                 std::initializer_list<Value> key) {
  auto table = impl_->GetTable(table_name);
  auto set = std::make_unique<RecordSet::Impl>(RecordSet::Impl::Kind::kKeyed, impl_, table);
  set->source.index = table->IndexNumber(index);
  set->source.key = key;
  set->Fill();
  return RecordSet(std::move(set));
}

std::int64_t Database::DeleteMatching(std::string_view table_name, std::string_view index,
                                      std::initializer_list<Value> key) {
  const auto table = impl_->GetTable(table_name);
  return table->DeleteMatching(table->IndexNumber(index), {key.begin(), key.size()});
}

RecordSet Database::OpenQuery(std::string_view sql) {
  Translation translation = TranslateSql(sql);
  if (translation.kind == QueryKind::kDelete || translation.kind == QueryKind::kSelectInto) {
    throw RunTimeError(ErrorNumber::kOperationNotSupported, fmt::format("The query '{}' gives no rows.", sql));
  }
  const bool keyed = translation.kind == QueryKind::kWholeRows;
  auto set = std::make_unique<RecordSet::Impl>(keyed ? RecordSet::Impl::Kind::kKeyed : RecordSet::Impl::Kind::kSnapshot,
                                               impl_, keyed ? impl_->GetTable(translation.table) : nullptr);
  set->source.query = std::make_unique<const Query>(Query{std::string(sql), std::move(translation)});
  set->Fill();
  return RecordSet(std::move(set));
}

std::vector<std::string> Database::TableNames() {
  std::vector<std::string> names;
  Statement tables(*impl_->connection,
                   "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT GLOB 'sqlite_*'");
  while (tables.Step()) names.push_back(tables.Text(0));
  return names;
}

bool Database::HasTable(std::string_view name) {
  for (const auto& table : TableNames()) {
    if (EqualNoCase(table, name)) return true;
  }
  return false;
}

std::vector<StoredField> Database::Fields(std::string_view table) { return impl_->GetTable(table)->Fields(); }
std::vector<StoredIndex> Database::Indexes(std::string_view table) { return impl_->GetTable(table)->Indexes(); }

void Database::CreateTable(const TableInfo& table) {
  std::vector<StoredField> fields;
  for (const auto& field : table.fields) fields.push_back({std::string(field.name), field.type, field.width});
  std::vector<StoredIndex> indexes;
  for (const auto& index : table.indexes) {
    StoredIndex stored{std::string(index.name), {}, index.unique};
    for (const auto field : index.fields) stored.fields.emplace_back(field);
    indexes.push_back(std::move(stored));
  }
  CreateTable(std::string(table.name), fields, indexes);
}

void Database::CreateTable(const std::string& name, const std::vector<StoredField>& fields,
                           const std::vector<StoredIndex>& indexes) {
  if (HasTable(name)) {
    throw RunTimeError(ErrorNumber::kAlreadyExists,
                       fmt::format("The table '{}' already exists in {}.", name, Path().string()));
  }
  Transaction transaction(*this);
  impl_->connection->Execute(TableDefinition(name, fields));
  for (const auto& index : indexes) impl_->connection->Execute(IndexDefinition(name, index));
  transaction.Commit();
}

void Database::DeleteTable(std::string_view name) {
  const auto table = impl_->GetTable(name);
  impl_->connection->RequireTransactionAlive();
  impl_->connection->Execute("DROP TABLE " + Quoted(table->Name()));
  table->Forget();
  impl_->tables.erase(impl_->tables.find(name));
}

std::int64_t Database::Execute(std::string_view sql) {
  const Translation translation = TranslateSql(sql);
  if (translation.kind == QueryKind::kSelectInto) return SelectInto(sql, {}).rows;
  if (translation.kind != QueryKind::kDelete) {
    throw RunTimeError(ErrorNumber::kOperationNotSupported, fmt::format("The query '{}' gives rows.", sql));
  }
  impl_->connection->RequireTransactionAlive();
  auto table = impl_->GetTable(translation.table);
  auto& statement = impl_->Prepare(translation.sql, sql);
  const Execution execution(statement);
  statement.Bind(translation.parameters);
  statement.Step();
  const auto changed = static_cast<std::int64_t>(sqlite3_changes64(impl_->connection->Handle()));
  if (changed > 0) table->Forget();
  return changed;
}

std::int32_t Database::Mark() {
  Statement mark(*impl_->connection, "PRAGMA user_version");
  mark.Step();
  return static_cast<std::int32_t>(mark.Integer(0));
}

void Database::SetMark(std::int32_t mark) {
  impl_->connection->RequireTransactionAlive();
  impl_->connection->Execute(fmt::format("PRAGMA user_version = {}", mark));
}

bool Database::IntegrityCheck() {
  try {
    Statement check(*impl_->connection, "PRAGMA integrity_check(1)");
    return check.Step() && check.Text(0) == "ok";
  } catch (const RunTimeError& error) {
    if (error.Number() != ErrorNumber::kDamagedFile) throw;
    return false;
  }
}

// Transactions --------------------------------------------------------------------------------------------------------

Transaction::Transaction(Database& database, Purpose purpose)
    : connection_(database.impl_->connection), outermost_(connection_->Begin(purpose == Purpose::kWrite)) {}

Transaction::~Transaction() {
  if (done_) return;
  if (outermost_) {
    connection_->RollBackOutermost();
  } else {
    connection_->Leave();
  }
}

void Transaction::RequireAlive() const { connection_->RequireTransactionAlive(); }

void Transaction::Flush() { connection_->Flush(); }

void Transaction::Commit() {
  if (outermost_) {
    connection_->CommitOutermost();
  } else {
    connection_->RequireTransactionAlive();
    connection_->Leave();
  }
  done_ = true;
}

}  // namespace orvex::store
