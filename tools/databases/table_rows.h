#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/csv.h"
#include "store/database.h"

namespace orvex::databases {

/// The rows of a CSV file as records of a table. The columns are the fields of the table, save those that the store
/// fills itself; an empty cell is null.
class TableRows {
 public:
  /// Reads every cell by the type of its field. Error 3421, naming file, line and field, for a field without a column,
  /// a column that is no field, a text wider than its field, a number that is none (a Long also with decimals or out of
  /// range), and a Boolean other than -1 or 0.
  TableRows(store::CsvTable file, std::string_view table, std::span<const std::string_view> left_out = {});

  [[nodiscard]] std::size_t Count() const { return values_.size(); }
  [[nodiscard]] const store::TableInfo& Table() const { return *table_; }

  [[nodiscard]] const store::Value& At(std::size_t row, std::string_view field) const;
  [[nodiscard]] bool IsNull(std::size_t row, std::string_view field) const { return At(row, field).IsNull(); }
  /// Null reads as 0, false or an empty text.
  [[nodiscard]] double Number(std::size_t row, std::string_view field) const { return At(row, field).DoubleOrZero(); }
  [[nodiscard]] std::int32_t Long(std::size_t row, std::string_view field) const { return At(row, field).LongOrZero(); }
  [[nodiscard]] bool Flag(std::size_t row, std::string_view field) const { return At(row, field).BoolOrFalse(); }
  [[nodiscard]] std::string Text(std::size_t row, std::string_view field) const { return At(row, field).TextOrEmpty(); }

  /// Throws error 3421 with a description that names file, line and field.
  [[noreturn]] void Refuse(std::size_t row, std::string_view field, std::string_view reason) const {
    file_.Refuse(row, field, reason);
  }
  /// The same for a fault of the file as a whole.
  [[noreturn]] void RefuseFile(std::string_view reason) const;

  /// Adds the rows to the table of this name in their order. A Counter is left to the store, which numbers the rows of
  /// an empty table from 1.
  void AddTo(store::Database& database) const;

 private:
  [[nodiscard]] store::Value ReadCell(std::size_t row, const store::FieldInfo& field) const;

  store::CsvTable file_;
  const store::TableInfo* table_;
  std::vector<const store::FieldInfo*> fields_;
  std::vector<std::vector<store::Value>> values_;
};

}  // namespace orvex::databases
