#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "store/csv.h"
#include "store/run_time_error.h"

namespace orvex::fuzz {
namespace {

std::string Written(const store::CsvTable& table) {
  std::vector<store::CsvCell> cells(table.Columns().begin(), table.Columns().end());
  std::string text = store::CsvLine(cells);
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    cells.clear();
    for (const auto& column : table.Columns()) cells.push_back(table.Cell(row, column));
    text += store::CsvLine(cells);
  }
  return text;
}

}  // namespace

/// What is read comes back from what is written of it.
void FuzzCsv(std::string_view bytes) {
  try {
    const auto table = store::CsvTable::Parse(bytes, "t.csv");
    // A line without anything is passed over, so a row of one empty cell has no form of its own.
    if (table.Columns().size() == 1) return;
    // Nor has a column whose name begins with the mark that a file may begin with.
    if (table.Columns().front().starts_with("\xEF\xBB\xBF")) return;
    const std::string written = Written(table);
    const auto again = store::CsvTable::Parse(written, "t.csv");
    Require(again.Columns() == table.Columns() && again.RowCount() == table.RowCount());
    Require(Written(again) == written);
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
      for (const auto& column : table.Columns()) Require(again.Cell(row, column) == table.Cell(row, column));
    }
  } catch (const store::RunTimeError& error) {
    Require(error.Number() == store::ErrorNumber::kDataConversion);
  }
}

}  // namespace orvex::fuzz
