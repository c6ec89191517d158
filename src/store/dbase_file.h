#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/dbase_head.h"
#include "store/value.h"

namespace orvex::store {

/// A dBASE III, dBASE IV or FoxPro table (.dbf), read record by record. Records that are marked as deleted are passed
/// over. What is kept in memory does not grow with the file, and no number in its head is believed before it has been
/// compared with the size of the file.
///
/// A blank field is null, whatever its type; a logical one is null for '?', a date for zeros, too. Texts come in UTF-8
/// from the code page that the head names (1252 if it names none), up to the first NUL and without the blanks at their
/// end. Numbers come as Double, dates as a text of eight digits. Memos, and types that only other programs know, are
/// not read: such a field is null when blank and an error otherwise.
///
/// Errors, which name the file: 3024 it is not there, 3044 its folder is not there, 3043 it cannot be read, 3274 it is
/// no such table or is damaged, 3265 there is no such field, 3021 no current record, 3421 a field that does not hold
/// what its type promises (with the record's number and the field's name), which asterisks in place of a number that
/// was too wide are as well.
class DbaseTable {
 public:
  explicit DbaseTable(const std::filesystem::path& path);
  DbaseTable(DbaseTable&&) noexcept;
  DbaseTable& operator=(DbaseTable&&) noexcept;
  ~DbaseTable();

  [[nodiscard]] const std::vector<DbaseField>& Fields() const;
  /// Names of fields compare without regard to case.
  [[nodiscard]] bool HasField(std::string_view field) const;
  /// Records in the file, deleted ones among them.
  [[nodiscard]] std::int64_t RecordCount() const;

  // On the first record at first. Where moving fails, because the disk does, the table is at its end.
  [[nodiscard]] bool AtEnd() const;
  void MoveFirst();
  void MoveNext();
  /// The number of the current record in the file, from 1, for coming back to it.
  [[nodiscard]] std::int64_t Position() const;
  /// Error 3021 if there is no such record or it is deleted.
  void MoveTo(std::int64_t position);

  // Of the current record, as in a `RecordSet`.
  [[nodiscard]] Value Get(std::string_view field) const;
  [[nodiscard]] bool IsNull(std::string_view field) const;
  [[nodiscard]] std::string TextOrEmpty(std::string_view field) const;
  [[nodiscard]] double DoubleOrZero(std::string_view field) const;
  [[nodiscard]] bool BoolOrFalse(std::string_view field) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace orvex::store
