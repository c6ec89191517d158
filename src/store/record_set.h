#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace orvex::store {

class Table;
class Database;

/// Where a record stands; valid as long as the record exists.
using Bookmark = std::int64_t;

/// A view of records with a current one. Three kinds, made by `Database`:
/// - a table (`OpenTable`): all rows in the order of the file or of the current index; only this kind can `Seek`;
/// - a keyed set (`OpenMatching`, and `OpenQuery` of whole rows of one table): the keys are fixed when it is opened or
///   requeried, the content is read from the table, and the rows can be edited;
/// - a snapshot (`OpenQuery` of anything else): read-only.
/// Record sets on one table see each other's edits at once. Fields are named without regard to case.
///
/// Errors: 3021 when there is no current record, 3167 when it has been deleted, 3265 for an unknown field, 3020 for an
/// Update without AddNew or Edit, 3251 for an operation that the kind does not offer, 94 for a null read as a value,
/// 3420 when the set has been closed.
class RecordSet {
 public:
  RecordSet(RecordSet&&) noexcept;
  RecordSet& operator=(RecordSet&&) noexcept;
  RecordSet(const RecordSet&) = delete;
  RecordSet& operator=(const RecordSet&) = delete;
  ~RecordSet();

  // Position ---------------------------------------------------------------------------------------------------------
  /// Makes an index of the table current; an empty name returns to the order of the file. Moves to the first record.
  void SetIndex(std::string_view name);
  /// Moves to the first record whose index begins with these values, or leaves no current record and sets NoMatch.
  void Seek(std::initializer_list<Value> key) { Seek(std::span<const Value>(key.begin(), key.size())); }
  void Seek(std::span<const Value> key);
  [[nodiscard]] bool NoMatch() const;
  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  void MoveLast();
  void Move(Bookmark bookmark);
  [[nodiscard]] bool AtEnd();
  [[nodiscard]] bool AtStart();
  [[nodiscard]] Bookmark CurrentBookmark();
  /// The record last added or updated through this record set.
  [[nodiscard]] Bookmark LastModified() const;
  /// Number of records (for a table counted when asked).
  [[nodiscard]] std::int64_t RecordCount();
  /// Place of the current record in a keyed set or snapshot, from 0; -1 without a current record.
  [[nodiscard]] std::int64_t AbsolutePosition();
  /// Runs the query of a keyed set or snapshot again and moves to its first record.
  void Requery();

  // Content ----------------------------------------------------------------------------------------------------------
  [[nodiscard]] int FieldCount() const;
  [[nodiscard]] std::string FieldName(int position) const;
  [[nodiscard]] Value Get(std::string_view field);
  [[nodiscard]] Value Get(int position);
  [[nodiscard]] bool IsNull(std::string_view field);
  /// Error 94 when null.
  [[nodiscard]] double Double(std::string_view field);
  [[nodiscard]] std::int32_t Long(std::string_view field);
  [[nodiscard]] bool Bool(std::string_view field);
  [[nodiscard]] std::string Text(std::string_view field);
  /// Null reads as 0, false or an empty text.
  [[nodiscard]] double DoubleOrZero(std::string_view field);
  [[nodiscard]] std::int32_t LongOrZero(std::string_view field);
  [[nodiscard]] bool BoolOrFalse(std::string_view field);
  [[nodiscard]] std::string TextOrEmpty(std::string_view field);
  /// Up to `count` records from the current one on, moving behind them; one vector of field values a record.
  [[nodiscard]] std::vector<std::vector<Value>> GetRows(std::int64_t count);

  // Edits ------------------------------------------------------------------------------------------------------------
  /// Starts a record: Booleans are false, all else null.
  void AddNew();
  void Edit();
  /// Writes the record being added or edited, in one statement. The current record does not change.
  void Update();
  void CancelUpdate();
  void Delete();
  /// Sets a field of the record being added or edited. Errors: 3163 a text wider than the field, 6 a number that is not
  /// finite or outside a Long, 3421 a value that the type cannot hold.
  void Set(std::string_view field, const Value& value);
  void Set(std::string_view field, double value);
  void Set(std::string_view field, std::string_view value);
  void Set(std::string_view field, const std::string& value) { Set(field, std::string_view(value)); }
  void Set(std::string_view field, const char* value) { Set(field, std::string_view(value)); }
  void Set(std::string_view field, std::int32_t value);
  void Set(std::string_view field, bool value);

  void Close();

 private:
  friend class Database;
  struct Impl;
  explicit RecordSet(std::unique_ptr<Impl> impl);
  [[nodiscard]] Impl& Live() const;
  std::unique_ptr<Impl> impl_;
};

}  // namespace orvex::store
