#include "row_memory.h"

#include <stdexcept>

namespace orvex::bench {

RowMemory::RowMemory(SqliteFile& file, const std::string& sql) {
  SqliteStatement rows(file, sql);
  columns_ = sqlite3_column_count(rows.Handle());
  while (rows.Step()) {
    for (int i = 0; i < columns_; ++i) {
      Cell cell{sqlite3_column_type(rows.Handle(), i), 0, {0}};
      if (cell.type == SQLITE_INTEGER) cell.integer = sqlite3_column_int64(rows.Handle(), i);
      if (cell.type == SQLITE_FLOAT) cell.real = sqlite3_column_double(rows.Handle(), i);
      if (cell.type == SQLITE_TEXT) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(rows.Handle(), i));
        cell.size = sqlite3_column_bytes(rows.Handle(), i);
        cell.text = texts_.emplace(text, static_cast<std::size_t>(cell.size)).first->data();
      }
      cells_.push_back(cell);
    }
  }
}

void RowMemory::Bind(std::size_t row, int first_column, SqliteStatement& statement) const {
  for (int i = first_column; i < columns_; ++i) {
    const Cell& cell = At(row, i);
    const int parameter = i - first_column + 1;
    int code = SQLITE_OK;
    switch (cell.type) {
      case SQLITE_INTEGER:
        code = sqlite3_bind_int64(statement.Handle(), parameter, cell.integer);
        break;
      case SQLITE_FLOAT:
        code = sqlite3_bind_double(statement.Handle(), parameter, cell.real);
        break;
      case SQLITE_TEXT:
        code = sqlite3_bind_text(statement.Handle(), parameter, cell.text, cell.size, SQLITE_STATIC);
        break;
      default:
        code = sqlite3_bind_null(statement.Handle(), parameter);
        break;
    }
    if (code != SQLITE_OK) throw std::runtime_error("A value could not be bound.");
  }
}

}  // namespace orvex::bench
