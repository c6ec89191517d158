#include "store/connection.h"

#include <fmt/format.h>

#include <charconv>

#include "store/letter_case.h"
#include "store/run_time_error.h"
#include "store/sql_functions.h"

namespace orvex::store {
namespace {

constexpr int kBusyTimeoutMilliseconds = 2000;
constexpr std::size_t kMaxPrepared = 500;

/// Settings of every connection: nothing that a foreign file brings along (views, triggers, functions in its schema)
/// may act, and a misspelt field name is an error instead of a text.
void Harden(sqlite3* handle) {
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

struct Failure {
  int code;
  ErrorNumber number;
  std::string_view text;
};

/// SQLite's result codes, primary or extended, as this program's errors; `{0}` is the file, `{1}` SQLite's own words.
constexpr Failure kFailures[] = {
    {SQLITE_CONSTRAINT_UNIQUE, ErrorNumber::kDuplicateKey, "The change would create a duplicate key in {0} ({1})."},
    {SQLITE_CONSTRAINT_PRIMARYKEY, ErrorNumber::kDuplicateKey, "The change would create a duplicate key in {0} ({1})."},
    {SQLITE_CONSTRAINT_ROWID, ErrorNumber::kDuplicateKey, "The change would create a duplicate key in {0} ({1})."},
    {SQLITE_CONSTRAINT, ErrorNumber::kDataConversion, "{0} does not accept the record ({1})."},
    {SQLITE_MISMATCH, ErrorNumber::kTypeMismatch, "{0}: {1}"},
    {SQLITE_BUSY, ErrorNumber::kFileLocked, "{0} is locked: another program is using it."},
    {SQLITE_LOCKED, ErrorNumber::kFileLocked, "{0} is locked: another program is using it."},
    {SQLITE_READONLY, ErrorNumber::kReadOnly, "Cannot update. {0} is read-only."},
    {SQLITE_CORRUPT, ErrorNumber::kDamagedFile, "{0} is damaged."},
    {SQLITE_NOTADB, ErrorNumber::kNotADatabase, "{0} is not a database."},
    {SQLITE_FULL, ErrorNumber::kDiskFailure, "The disk is full: {0} could not be written."},
    {SQLITE_IOERR, ErrorNumber::kDiskFailure, "A disk error occurred while {0} was read or written."},
    {SQLITE_CANTOPEN, ErrorNumber::kDiskFailure, "{0} or its journal cannot be opened."},
    {SQLITE_PERM, ErrorNumber::kDiskFailure, "{0} may not be opened."},
    {SQLITE_TOOBIG, ErrorNumber::kTextTooLong, "A text is too long for {0}."},
};

}  // namespace

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

FieldType TypeOf(std::string_view declared, bool primary_key, int& width) {
  width = 0;
  const std::string type = LowerCase(declared);
  if (primary_key && type == "integer") return FieldType::kCounter;
  if (type == "boolean") return FieldType::kBoolean;
  if (type.starts_with("text") || type.find("char") != std::string::npos) {
    const auto open = type.find('(');
    if (open != std::string::npos) std::from_chars(type.data() + open + 1, type.data() + type.size(), width);
    return FieldType::kText;
  }
  if (type.find("int") != std::string::npos) return FieldType::kLong;
  return FieldType::kDouble;
}

Connection::Connection(std::filesystem::path path, int flags) : path_(std::move(path)) {
  sqlite3* handle = nullptr;
  // The program has one thread, so that no call needs to take a lock.
  constexpr int kAlways = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(path_.string().c_str(), &handle, flags | kAlways, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) Fail(code);
  sqlite3_busy_timeout(handle, kBusyTimeoutMilliseconds);
  Harden(handle);
  RegisterSqlFunctions(handle);
  // Large enough that a run over ten thousand tanks keeps its changed pages in memory until it commits.
  Execute("PRAGMA cache_size = -65536");
  Execute("PRAGMA cell_size_check = ON");
}

bool Connection::ReadOnly() const { return sqlite3_db_readonly(Handle(), "main") != 0; }

void Connection::Fail(int code) const {
  const std::string file = path_.string();
  const int primary = code & 0xff;
  const std::string reason = sqlite3_errmsg(Handle());
  if (primary == SQLITE_ERROR && reason.starts_with("no such table")) {
    throw RunTimeError(ErrorNumber::kObjectNotFound, fmt::format("{}: {}.", file, reason));
  }
  for (const auto& failure : kFailures) {
    if (failure.code != code && failure.code != primary) continue;
    throw RunTimeError(failure.number, fmt::format(fmt::runtime(failure.text), file, reason));
  }
  // SQLite says of some damaged files that its memory is exhausted.
  throw RunTimeError(ErrorNumber::kDamagedFile, fmt::format("{} cannot be used: {}.", file, reason));
}

void Connection::Execute(const std::string& sql) {
  const int code = sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code);
}

Statement& Connection::Prepared(const std::string& sql) {
  const auto found = prepared_.find(sql);
  if (found != prepared_.end()) return *found->second;
  if (prepared_.size() >= kMaxPrepared) prepared_.clear();
  return *prepared_.emplace(sql, std::make_unique<Statement>(*this, sql)).first->second;
}

bool Connection::Begin(bool write) {
  if (depth_ > 0) {
    RequireTransactionAlive();
    ++depth_;
    return false;
  }
  // SQLite itself would begin to read here, and fail at the first change.
  if (write && ReadOnly()) Fail(SQLITE_READONLY);
  Execute(write ? "BEGIN IMMEDIATE" : "BEGIN");
  ++depth_;
  ++epoch_;
  return true;
}

void Connection::Flush() {
  RequireTransactionAlive();
  const int code = sqlite3_db_cacheflush(Handle());
  if (code != SQLITE_OK) Fail(code);
}

void Connection::CommitOutermost() {
  RequireTransactionAlive();
  Execute("COMMIT");
  --depth_;
  ++epoch_;
}

void Connection::RollBackOutermost() noexcept {
  if (sqlite3_get_autocommit(Handle()) == 0) sqlite3_exec(Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  --depth_;
  ++epoch_;
  ++undone_;
}

void Connection::RequireTransactionAlive() const {
  if (depth_ > 0 && sqlite3_get_autocommit(Handle()) != 0) {
    throw RunTimeError(ErrorNumber::kTransactionLost,
                       fmt::format("The changes to {} had to be undone after a failure of the disk.", path_.string()));
  }
}

Statement::Statement(const Connection& connection, const std::string& sql) : connection_(connection) {
  const int code = sqlite3_prepare_v3(connection.Handle(), sql.c_str(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
  if (code != SQLITE_OK) connection.Fail(code);
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::Bind(int parameter, const Value& value) {
  int code = SQLITE_OK;
  switch (value.GetKind()) {
    case Value::Kind::kNull:
      code = sqlite3_bind_null(statement_, parameter);
      break;
    case Value::Kind::kInteger:
      code = sqlite3_bind_int64(statement_, parameter, value.RawInteger());
      break;
    case Value::Kind::kReal:
      code = sqlite3_bind_double(statement_, parameter, value.RawReal());
      break;
    case Value::Kind::kText:
      code = sqlite3_bind_text(statement_, parameter, value.RawText().data(), static_cast<int>(value.RawText().size()),
                               SQLITE_STATIC);
      break;
  }
  if (code != SQLITE_OK) connection_.Fail(code);
}

void Statement::Bind(int parameter, std::int64_t value) {
  const int code = sqlite3_bind_int64(statement_, parameter, value);
  if (code != SQLITE_OK) connection_.Fail(code);
}

void Statement::Bind(std::span<const Value> values) {
  for (std::size_t i = 0; i < values.size(); ++i) Bind(static_cast<int>(i + 1), values[i]);
}

bool Statement::Step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  const int failure = sqlite3_reset(statement_);
  connection_.Fail(failure == SQLITE_OK ? code : failure);
}

StoredField Statement::ResultField(int column) const {
  StoredField field{ColumnName(column), FieldType::kDouble, 0};
  const char* declared = sqlite3_column_decltype(statement_, column);
  // A Counter's values are copied, not counted anew.
  if (declared != nullptr) field.type = TypeOf(declared, false, field.width);
  return field;
}

std::string Statement::Text(int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

void Statement::Read(int column, Value& value) {
  sqlite3_value* const content = sqlite3_column_value(statement_, column);
  switch (sqlite3_value_type(content)) {
    case SQLITE_INTEGER:
      value.SetInteger(sqlite3_value_int64(content));
      return;
    case SQLITE_FLOAT:
      value.SetReal(sqlite3_value_double(content));
      return;
    case SQLITE_NULL:
      value.SetNull();
      return;
    default: {
      // A blob, which no field of ours holds, reads as the text of its bytes. The text comes before its size, which it
      // settles where the file holds texts in another encoding.
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(content));
      const auto size = static_cast<std::size_t>(sqlite3_value_bytes(content));
      value.SetText(text == nullptr ? std::string_view() : std::string_view(text, size));
      return;
    }
  }
}

}  // namespace orvex::store
