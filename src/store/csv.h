#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvex::store {

/// A cell of a CSV file: nothing where the file has an empty cell, an empty text where it has "".
using CsvCell = std::optional<std::string>;

/// A CSV file in UTF-8: one header line, then rows with one cell a column. Cells are parted by commas and may stand in
/// double quotes, in which a quote is doubled and a line end is part of the text; blanks count. Lines end in LF or
/// CRLF, and lines without anything are passed over.
class CsvTable {
 public:
  /// Errors: 3024 the file is not there, 3043 it cannot be read, and those of `Parse`.
  static CsvTable Read(const std::filesystem::path& path);

  /// `name` is what messages call the file. Error 3421, naming file, line and place, for a text that is empty or not
  /// UTF-8, a header whose columns are parted by semicolons or tabs, a quote that is not closed or stands inside a bare
  /// cell, a bare carriage return, a column without a name or with the name of another, and a row that is longer or
  /// shorter than the header.
  static CsvTable Parse(std::string_view text, std::string name);

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }
  [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }

  /// The place of a column, its name compared without regard to case.
  [[nodiscard]] std::optional<std::size_t> FindColumn(std::string_view column) const;

  /// The cell of a row (from 0) under this name; error 3265 if there is no such column.
  [[nodiscard]] const CsvCell& Cell(std::size_t row, std::string_view column) const;

  /// The cell of a row in the column at this place.
  [[nodiscard]] const CsvCell& CellAt(std::size_t row, std::size_t column) const { return rows_[row].cells[column]; }

  /// The line of the file on which the row begins, from 1.
  [[nodiscard]] std::size_t Line(std::size_t row) const { return rows_[row].line; }

  /// Throws error 3421 with a description that names file, line and column.
  [[noreturn]] void Refuse(std::size_t row, std::string_view column, std::string_view reason) const;

 private:
  struct Row {
    std::size_t line;
    std::vector<CsvCell> cells;
  };

  explicit CsvTable(std::string name) : name_(std::move(name)) {}
  void TakeHeader(const Row& header);

  std::string name_;
  std::vector<std::string> columns_;
  std::vector<Row> rows_;
};

/// Adds a text in quotes; those in it are doubled.
void AppendQuoted(std::string& line, std::string_view text);

/// One line of a CSV file (RFC 4180) with its line end (CRLF); cells are quoted where they have to be.
std::string CsvLine(std::span<const CsvCell> cells);

}  // namespace orvex::store
