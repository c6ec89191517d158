#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/field_table.h"
#include "store/record_set.h"

namespace orvex::store {

class Connection;
class Transaction;
struct IntoOptions;
struct IntoResult;

enum class OpenMode : std::uint8_t { kReadWrite, kReadOnly };

/// A field of a table as the file defines it.
struct StoredField {
  std::string name;
  FieldType type;
  int width;
  std::string default_value = {};  ///< an expression of SQLite's SQL for programs other than this one; mostly empty
};

/// An index of a table as the file defines it.
struct StoredIndex {
  std::string name;
  std::vector<std::string> fields;
  bool unique;
};

/// One database file. It stays open while a record set or a transaction on it lives.
class Database {
 public:
  /// Opens an existing file; never creates one. A file that may not be written is opened read-only, and writing to it
  /// is error 3027. Errors, each naming the file: 3044 the folder is not there, 3024 the file is not there, 3343 it is
  /// empty or no database, 3049 it is cut off or damaged, 3260 another program holds it, 3043 it cannot be read.
  static std::unique_ptr<Database> Open(const std::filesystem::path& path, OpenMode mode = OpenMode::kReadWrite);

  /// Makes a new file with these tables, empty; error 3010 if the file exists, 3044 if its folder does not, 3043 if it
  /// cannot be written. A failure leaves no file behind.
  static std::unique_ptr<Database> Create(const std::filesystem::path& path, std::span<const TableInfo> tables);

  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  [[nodiscard]] const std::filesystem::path& Path() const;
  [[nodiscard]] bool ReadOnly() const;

  /// The table as a record set on its first record in the order of the file; error 3011 if there is none.
  RecordSet OpenTable(std::string_view name);

  /// The table with this index, on the first row whose key begins with these values; without one `NoMatch` is true.
  RecordSet OpenAt(std::string_view table, std::string_view index, std::initializer_list<Value> key);

  /// The rows of a table whose index begins with these values, in the order of the file, as a keyed set.
  RecordSet OpenMatching(std::string_view table, std::string_view index, std::initializer_list<Value> key);

  /// Deletes those rows instead; their number.
  std::int64_t DeleteMatching(std::string_view table, std::string_view index, std::initializer_list<Value> key);

  /// Runs a query in the program's SQL dialect. Whole rows of one table come as a keyed set, all else as a snapshot.
  /// Errors: 3075 syntax, 3061 an unknown field, 3011 an unknown table.
  RecordSet OpenQuery(std::string_view sql);

  /// Runs a statement of the dialect that gives no rows (DELETE, SELECT ... INTO); the number of rows it wrote.
  std::int64_t Execute(std::string_view sql);

  /// Runs SELECT ... INTO as its options tell (store/select_into.h).
  IntoResult SelectInto(std::string_view sql, const IntoOptions& options);

  /// A number that the file keeps for the program beside its tables, 0 in a new file. It belongs to the transaction in
  /// which it is set, and stays when the file is compacted; a copy made table by table begins with 0 again.
  [[nodiscard]] std::int32_t Mark();
  /// Error 3027 when the file is read-only.
  void SetMark(std::int32_t mark);

  // Table definitions ------------------------------------------------------------------------------------------------
  [[nodiscard]] std::vector<std::string> TableNames();
  [[nodiscard]] bool HasTable(std::string_view name);
  /// Fields in the order of the table; error 3011 if there is no such table.
  [[nodiscard]] std::vector<StoredField> Fields(std::string_view table);
  [[nodiscard]] std::vector<StoredIndex> Indexes(std::string_view table);
  /// Error 3010 if the table exists.
  void CreateTable(const TableInfo& table);
  void CreateTable(const std::string& name, const std::vector<StoredField>& fields,
                   const std::vector<StoredIndex>& indexes);
  void DeleteTable(std::string_view name);
  /// Adds a field in front of the one at `position`, counted from 0; null in the records that are there. Ended at any
  /// moment, the table is as it was or has the field. Errors: 3010 if the table has a field of that name, 3011, 3027.
  void AddField(std::string_view table, const StoredField& field, std::size_t position);

  /// True when the file's own structures are consistent (reads the whole file).
  [[nodiscard]] bool IntegrityCheck();

 private:
  friend class RecordSet;
  friend class Transaction;
  friend class DatabaseReplacement;
  friend class RowCopy;
  friend class DatabaseSink;
  struct Impl;
  explicit Database(std::shared_ptr<Impl> impl);
  std::shared_ptr<Impl> impl_;
};

/// A stretch of work that is written whole or not at all. Ends undone unless `Commit` was called. A transaction opened
/// inside another one is part of it.
class Transaction {
 public:
  enum class Purpose : std::uint8_t {
    kWrite,  ///< takes the file for writing at once; error 3260 if another program holds it, 3027 if it is read-only
    kRead,   ///< one consistent view of the file while it lives; other programs can't write meanwhile
  };
  explicit Transaction(Database& database, Purpose purpose = Purpose::kWrite);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  /// Error 3034 once the store had to undo the work (disk full, read failure).
  void RequireAlive() const;

  /// Writes to the file what `Commit` makes lasting then, so that a full disk (3043) or another reader of the file
  /// (3260) is met while the work can still be undone: for commands that write to two files.
  void Flush();

  /// Makes the work lasting. Error 3034 as for `RequireAlive`.
  void Commit();

 private:
  std::shared_ptr<Connection> connection_;
  bool outermost_;
  bool done_ = false;
};

}  // namespace orvex::store
