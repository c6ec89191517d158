#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/database.h"
#include "store/value.h"

/// The thin wrapper around SQLite's C interface. Only the store's own sources include it.
namespace orvex::store {

class Connection;

/// A prepared statement.
class Statement {
 public:
  Statement(const Connection& connection, const std::string& sql);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement();

  /// Parameters count from 1. A text must live until the statement is reset.
  void Bind(int parameter, const Value& value);
  void Bind(int parameter, std::int64_t value);
  /// All parameters, from the first on.
  void Bind(std::span<const Value> values);
  /// True while there is a row. Errors are thrown after a reset.
  bool Step();
  void Reset() { sqlite3_reset(statement_); }

  [[nodiscard]] int ColumnCount() const { return sqlite3_column_count(statement_); }
  [[nodiscard]] std::string ColumnName(int column) const { return sqlite3_column_name(statement_, column); }
  /// A result column as a field that can hold it: the field it comes from, or a Double (sums and counts).
  [[nodiscard]] StoredField ResultField(int column) const;
  [[nodiscard]] std::int64_t Integer(int column) { return sqlite3_column_int64(statement_, column); }
  [[nodiscard]] std::string Text(int column);
  /// The column's content into `value`, which keeps its buffer.
  void Read(int column, Value& value);

 private:
  const Connection& connection_;
  sqlite3_stmt* statement_ = nullptr;
};

/// Runs a statement once on the way in and resets it on the way out, so that no lock outlives the call.
class Execution {
 public:
  explicit Execution(Statement& statement) : statement_(statement) {}
  Execution(const Execution&) = delete;
  Execution& operator=(const Execution&) = delete;
  ~Execution() { statement_.Reset(); }

 private:
  Statement& statement_;
};

struct CloseHandle {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};

/// One open database file.
class Connection {
 public:
  /// `flags` of sqlite3_open_v2.
  Connection(std::filesystem::path path, int flags);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] bool ReadOnly() const;

  /// Runs a text of SQLite's own SQL.
  void Execute(const std::string& sql);
  /// A prepared statement that is kept; valid until the next call, since when there are very many all make room.
  Statement& Prepared(const std::string& sql);

  /// Throws the run-time error for an SQLite result code.
  [[noreturn]] void Fail(int code) const;

  // Transactions nest: only the outermost one counts.
  [[nodiscard]] bool InTransaction() const { return depth_ > 0; }
  /// Counts begins and ends of transactions; what was read under another number may be out of date.
  [[nodiscard]] std::uint64_t Epoch() const { return epoch_; }
  bool Begin(bool write);
  void Leave() { --depth_; }
  void Flush();
  void CommitOutermost();
  void RollBackOutermost() noexcept;
  /// Counts the transactions undone; tables read from the file before may be defined otherwise now.
  [[nodiscard]] std::uint64_t Undone() const { return undone_; }
  /// Error 3034 when the transaction that is thought to be open was undone underneath.
  void RequireTransactionAlive() const;

 private:
  std::filesystem::path path_;
  std::unique_ptr<sqlite3, CloseHandle> handle_;  ///< closed after the statements
  std::unordered_map<std::string, std::unique_ptr<Statement>> prepared_;
  int depth_ = 0;
  std::uint64_t epoch_ = 1;
  std::uint64_t undone_ = 0;
};

/// A declared column type as a field type; a Counter is what SQLite calls the integer primary key.
FieldType TypeOf(std::string_view declared, bool primary_key, int& width);

/// A name as an SQL identifier.
std::string Quoted(std::string_view name);

}  // namespace orvex::store
