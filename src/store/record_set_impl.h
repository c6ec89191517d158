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

  Impl(Kind the_kind, Database::Impl& the_database, std::shared_ptr<Table> the_table)
      : kind(the_kind), database(&the_database), connection(the_database.connection), table(std::move(the_table)) {}
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl();

  // Rows of keyed sets and snapshots.
  void Fill();
  [[nodiscard]] std::int64_t ListSize() const;

  // Position.
  void Settle();  ///< a set just opened moves to its first record when it is first looked at
  void GoTo(std::optional<RowId> row, Place otherwise);
  void GoToListed(std::int64_t index);
  void RequireRecord();
  [[nodiscard]] const RowValues& CurrentRow();
  void RequireTable(const char* operation) const;
  void RequireEditable() const;

  // Content.
  [[nodiscard]] std::size_t Position(std::string_view field);
  [[nodiscard]] const Value& At(std::size_t position);
  [[nodiscard]] const Value& At(std::string_view field) { return At(Position(field)); }
  /// Not null; error 94 names the field.
  [[nodiscard]] const Value& Filled(std::string_view field);
  [[nodiscard]] Value& Edited(std::string_view field, std::size_t& position);
  void StopEditing();

  Kind kind;
  Database::Impl* database;                ///< for Requery; the set does not outlive its database otherwise
  std::shared_ptr<Connection> connection;  ///< keeps the file open while the set is
  std::shared_ptr<Table> table;            ///< none for snapshots
  RowSource source;

  std::optional<std::size_t> index;  ///< current index of a table
  bool no_match = false;

  Place place = Place::kUnread;
  RowId row = 0;                 ///< current row of a table or keyed set
  std::int64_t list_index = -1;  ///< place in keys or snapshot
  std::shared_ptr<const std::vector<RowId>> keys;
  std::vector<std::string> columns;  ///< of a snapshot
  std::vector<RowValues> snapshot;

  Editing editing = Editing::kNo;
  RowValues buffer;
  RowId last_modified = 0;
  std::size_t hint = 0;  ///< where the next field is expected
};

}  // namespace orvex::store
