#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/connection.h"
#include "store/database.h"
#include "store/field_names.h"
#include "store/value.h"

namespace orvex::store {

using RowId = std::int64_t;
using RowValues = std::vector<Value>;

/// One table of an open file, shared by all record sets on it: its definition, its statements, and the rows last read.
///
/// Rows and key look-ups are remembered only while a transaction is open, when nothing but this connection can change
/// the file; every write through the table updates or drops what it touches, so edits are seen at once.
class Table {
 public:
  /// Reads the definition from the file; error 3011 if there is no such table.
  Table(std::shared_ptr<Connection> connection, std::string_view name);

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<StoredField>& Fields() const { return fields_; }
  [[nodiscard]] const std::vector<StoredIndex>& Indexes() const { return indexes_; }

  /// Position of a field; error 3265 if there is none. `hint` tells where the caller stands: behind the field that it
  /// named last, at first 0. Routines name fields in a fixed order, so that the field is mostly the one that followed
  /// last time.
  [[nodiscard]] std::size_t FieldPosition(std::string_view name, std::size_t& hint) {
    const std::size_t likely = followers_[hint];
    if (positions_.Is(likely, name)) {
      hint = likely + 1;
      return likely;
    }
    // A field is often asked twice, whether it is null and for its value.
    return hint > 0 && positions_.Is(hint - 1, name) ? hint - 1 : FindField(name, hint);
  }
  /// Number of an index; error 3265 if there is none.
  [[nodiscard]] std::size_t IndexNumber(std::string_view name) const;

  // Keys (table_keys.cpp) --------------------------------------------------------------------------------------------
  /// First row, in the order of an index, whose key begins with these values.
  std::optional<RowId> Seek(std::size_t index, std::span<const Value> key);
  /// All such rows, in the order of the file.
  std::shared_ptr<const std::vector<RowId>> Matching(std::size_t index, std::span<const Value> key);

  /// Deletes all such rows; their number.
  std::int64_t DeleteMatching(std::size_t index, std::span<const Value> key);

  /// Ends of the order of an index, or of the file without one.
  std::optional<RowId> First(std::optional<std::size_t> index) { return EndOf(index, false); }
  std::optional<RowId> Last(std::optional<std::size_t> index) { return EndOf(index, true); }
  /// Neighbour of a row, which need not exist any more; `key` is its key in the index.
  std::optional<RowId> Neighbour(std::optional<std::size_t> index, RowId row, std::span<const Value> key,
                                 bool backward);
  /// The key of a row in an index; error 3167 if the row is not there. `ReturnKey` keeps its memory for the next one.
  void CopyKey(std::size_t index, RowId row, std::vector<Value>& key);
  void ReturnKey(std::vector<Value> key) { spare_keys_.push_back(std::move(key)); }
  [[nodiscard]] std::int64_t Count();

  // Rows (table_rows.cpp) --------------------------------------------------------------------------------------------
  /// A row's values; valid until the next call of any member. Error 3167 if the row is not there.
  const RowValues& Row(RowId row);
  /// Whether the row is there; reads it anew unless a transaction protects what is remembered.
  bool Refresh(RowId row);
  /// Both take the content of `values` over and leave another buffer in it.
  RowId Insert(RowValues& values);
  /// Writes the fields in which `values` differs from the stored row. Error 3167 if the row is not there, 3251 if its
  /// Counter would change.
  void Update(RowId row, RowValues& values);
  /// Error 3167 if the row is not there.
  void Delete(RowId row);

  // Conversion (table_conversion.cpp) --------------------------------------------------------------------------------
  /// The value as the field stores it; see RecordSet::Set for the errors.
  void Convert(std::size_t field, const Value& value, Value& stored) const;
  void Convert(std::size_t field, double value, Value& stored) const;
  void Convert(std::size_t field, std::string_view value, Value& stored) const;

  /// Drops everything remembered: rows were changed by a statement that did not pass here.
  void Forget() { ++version_, ++key_version_; }

  /// A buffer for one row, given back by `ReturnBuffer`.
  RowValues TakeBuffer();
  void ReturnBuffer(RowValues buffer) { spare_buffers_.push_back(std::move(buffer)); }

 private:
  struct CachedRow {
    RowId row = 0;
    std::uint64_t version = 0;
    std::uint64_t epoch = 0;
    RowValues values;
  };
  struct CachedKey {
    std::uint64_t key_version = 0;
    std::uint64_t epoch = 0;
    std::size_t index = 0;
    std::vector<Value> key;
    std::optional<RowId> first;                    ///< result of Seek
    std::shared_ptr<std::vector<RowId>> matching;  ///< result of Matching
  };
  static constexpr std::size_t kRowSlots = 512;
  static constexpr std::size_t kKeySlots = 2048;  ///< so that the cities and chemicals hardly meet in one

  void ReadDefinition();
  [[nodiscard]] std::size_t FindField(std::string_view name, std::size_t& hint);
  [[nodiscard]] std::string FieldList() const;
  [[nodiscard]] std::string NameError(std::string_view what, std::string_view name) const;
  /// The row found, or error 3049 when it does not stand behind (or before) `row` in the order walked: in a damaged
  /// file a walk would go in circles.
  RowId RequireBeyond(RowId found, RowId row, std::span<const Value> key, std::span<const std::size_t> positions,
                      bool backward);
  std::optional<RowId> EndOf(std::optional<std::size_t> index, bool last);
  std::optional<RowId> FirstRow(Statement& statement, std::span<const Value> key);
  static CachedKey& KeySlot(std::vector<CachedKey>& slots, std::size_t index, std::span<const Value> key);
  [[nodiscard]] bool Holds(const CachedKey& slot, std::size_t index, std::span<const Value> key) const;
  /// Whether a key is that of the Counter, which is the row's own number and needs no look into the index.
  [[nodiscard]] bool IsCounter(std::size_t index, std::span<const Value> key) const;
  std::optional<RowId> CounterRow(std::span<const Value> key);
  /// Whether a look-up that is remembered, if any, is one for rows with these values.
  [[nodiscard]] bool Covers(const CachedKey* slot, const RowValues& values) const;
  void Remember(CachedKey& slot, std::size_t index, std::span<const Value> key) const;
  /// The statement for what `sql` makes, prepared once per index and number of key values.
  template <typename Build>
  Statement& IndexStatement(char purpose, std::size_t index, std::size_t depth, Build build);
  CachedRow& Slot(RowId row) { return rows_[static_cast<std::size_t>(row) % kRowSlots]; }
  [[nodiscard]] bool Holds(const CachedRow& slot, RowId row) const;
  bool Load(CachedRow& slot, RowId row);
  [[nodiscard]] std::string KeyCondition(std::size_t index, std::size_t depth) const;
  [[nodiscard]] std::string Order(std::optional<std::size_t> index, bool backward) const;
  void RequireWritable() const;
  /// Error 3167 if the statement just run met no row.
  void RequireWritten(RowId row);

  std::shared_ptr<Connection> connection_;
  std::string name_;
  std::vector<StoredField> fields_;
  std::vector<StoredIndex> indexes_;
  std::vector<std::vector<std::size_t>> index_fields_;  ///< positions of each index's fields
  std::vector<bool> indexed_;                           ///< whether any index holds the field
  std::optional<std::size_t> counter_;                  ///< position of the Counter field

  FieldNames positions_;
  std::vector<std::size_t> followers_;  ///< by the field's position + 1, and at 0 the first: what was named next
  std::unordered_map<std::uint64_t, std::unique_ptr<Statement>> index_statements_;
  std::unordered_map<std::string, std::unique_ptr<Statement>> update_statements_;  ///< by the set of fields written
  std::unique_ptr<Statement> read_, insert_, delete_;

  std::uint64_t version_ = 1, key_version_ = 1;
  std::vector<CachedRow> rows_;
  std::vector<CachedKey> seeks_, matches_;  ///< empty until first used
  CachedKey* missed_ = nullptr;             ///< the last Seek that asked the file, if it found nothing
  CachedKey* matched_ = nullptr;            ///< the last Matching
  std::vector<RowValues> spare_buffers_;
  std::vector<std::vector<Value>> spare_keys_;
};

}  // namespace orvex::store
