#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

#include "exchange/inventory_faults.h"
#include "exchange/inventory_files.h"
#include "store/csv.h"
#include "store/value.h"

namespace orvex::exchange {

/// The rows of one file as values of their fields. A cell that is at fault, or has no column, reads as in a new record:
/// false in a Boolean field, null elsewhere.
class InventoryRows {
 public:
  /// Reads the file of the folder and checks every cell by itself: type, width, choices. Rows of empty cells are passed
  /// over. Errors: 3024 the file is not there, 3043 it cannot be read or is far too large.
  InventoryRows(const InventoryFile& file, const std::filesystem::path& folder, Faults& faults);

  [[nodiscard]] const InventoryFile& File() const { return *file_; }
  [[nodiscard]] const std::vector<store::FieldInfo>& Columns() const { return columns_; }
  [[nodiscard]] std::size_t Count() const { return rows_.size(); }
  [[nodiscard]] std::size_t Line(std::size_t row) const { return rows_[row].line; }

  /// The place of a field among the columns.
  [[nodiscard]] std::size_t Place(std::string_view field) const;
  [[nodiscard]] const store::Value& At(std::size_t row, std::size_t place) const { return rows_[row].values[place]; }
  /// Null and empty texts read alike.
  [[nodiscard]] std::string_view Text(std::size_t row, std::size_t place) const;
  void Set(std::size_t row, std::size_t place, store::Value value) { rows_[row].values[place] = std::move(value); }

  /// False when keys of the rows (tank, mixture) could not be read: how they belong together cannot be told then.
  [[nodiscard]] bool KeysRead() const { return keys_read_; }

 private:
  struct Row {
    std::size_t line;
    std::vector<store::Value> values;
  };

  void CheckHeader(const store::CsvTable& table, Faults& faults);
  void ReadRows(const store::CsvTable& table, Faults& faults);

  const InventoryFile* file_;
  std::vector<store::FieldInfo> columns_;
  std::vector<Row> rows_;
  bool keys_read_ = true;
};

}  // namespace orvex::exchange
