#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/database_impl.h"
#include "store/record_set.h"
#include "store/table.h"

namespace orvex::store {

struct RecordSet::Impl {
  enum class Kind : std::uint8_t { kTable, kKeyed, kSnapshot };
  enum class Place : std::uint8_t { kUnread, kAt, kBefore, kBehind, kNowhere };
  enum class Editing : std::uint8_t { kNo, kAdding, kChanging };

  Impl(Kind the_kind, std::shared_ptr<Database::Impl> the_database, std::shared_ptr<Table> the_table)
      : kind(the_kind), database(std::move(the_database)), table(std::move(the_table)) {}
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl();

  // Rows of keyed sets and snapshots.
  void Fill();
  [[nodiscard]] std::int64_t ListSize() const;

  // Position.
  void Settle();  ///< a set just opened moves to its first record when it is first looked at
  void GoTo(std::optional<RowId> row, Place otherwise);
  void GoToNeighbour(bool backward);
  void GoToListed(std::int64_t index);
  void RequireRecord();
  [[nodiscard]] const RowValues& CurrentRow();
  void RequireTable(const char* operation) const;
  void RequireEditable() const;

  // Content.
  [[nodiscard]] std::size_t Position(std::string_view field);
  [[nodiscard]] std::size_t FieldCount() const { return table ? table->Fields().size() : columns.size(); }
  [[nodiscard]] const std::string& FieldName(std::size_t position) const {
    return table ? table->Fields()[position].name : columns[position];
  }
  /// Error 6 names the field of a foreign file that holds an infinity.
  [[nodiscard]] const Value& At(std::size_t position);
  [[nodiscard]] const Value& At(std::string_view field) { return At(Position(field)); }
  /// One of the readers of Value; its errors name the field.
  template <typename Result>
  [[nodiscard]] Result Read(std::string_view field, Result (Value::*as)() const);
  [[nodiscard]] std::string FieldText(std::string_view field) const;
  [[nodiscard]] Value& Edited(std::string_view field, std::size_t& position);
  void StopEditing();

  Kind kind;
  std::shared_ptr<Database::Impl> database;  ///< keeps the file open while the set is
  std::shared_ptr<Table> table;              ///< none for snapshots
  RowSource source;

  std::optional<std::size_t> index;  ///< current index of a table
  bool no_match = false;

  Place place = Place::kUnread;
  RowId row = 0;                 ///< current row of a table or keyed set
  std::vector<Value> row_key;    ///< its key in the current index: where a walk goes on when the row has gone
  std::int64_t list_index = -1;  ///< place in keys or snapshot
  std::shared_ptr<const std::vector<RowId>> keys;
  std::vector<std::string> columns;  ///< of a snapshot
  std::vector<RowValues> snapshot;

  Editing editing = Editing::kNo;
  RowValues buffer;
  RowId last_modified = 0;
  std::size_t hint = 0;  ///< for FieldPosition
};

}  // namespace orvex::store
