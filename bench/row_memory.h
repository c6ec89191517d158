#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "sqlite_file.h"

namespace orvex::bench {

/// The rows of a query, kept in memory to be written elsewhere.
class RowMemory {
 public:
  /// Reads all rows of a query.
  RowMemory(SqliteFile& file, const std::string& sql);

  [[nodiscard]] std::size_t Size() const { return cells_.size() / static_cast<std::size_t>(columns_); }
  [[nodiscard]] int Columns() const { return columns_; }
  [[nodiscard]] std::int64_t Integer(std::size_t row, int column) const { return At(row, column).integer; }
  /// Binds a row's columns from `first_column` on to the parameters 1, 2, ...
  void Bind(std::size_t row, int first_column, SqliteStatement& statement) const;

 private:
  struct Cell {
    int type;
    int size;
    union {
      std::int64_t integer;
      double real;
      const char* text;
    };
  };
  [[nodiscard]] const Cell& At(std::size_t row, int column) const {
    return cells_[row * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column)];
  }

  int columns_;
  std::vector<Cell> cells_;
  std::unordered_set<std::string> texts_;  ///< each different text once
};

}  // namespace orvex::bench
