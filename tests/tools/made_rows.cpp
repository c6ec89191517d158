#include "tools/made_rows.h"

#include <algorithm>

namespace orvex::test {
namespace {

constexpr std::string_view kLeftOut[] = {"Counter", "USER_DEF", "USER DEF", "User"};

}  // namespace

Cells With(Cells cells, const Cells& changes) {
  for (const auto& [field, text] : changes) cells[field] = text;
  return cells;
}

databases::TableRows MakeRows(std::string_view table, const std::vector<Cells>& rows) {
  std::vector<store::CsvCell> header;
  std::vector<std::vector<store::CsvCell>> lines(rows.size());
  for (const store::FieldInfo& field : store::FindTable(table).fields) {
    if (std::ranges::find(kLeftOut, field.name) != std::end(kLeftOut)) continue;
    header.emplace_back(field.name);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      const auto cell = rows[row].find(std::string(field.name));
      if (cell != rows[row].end() && !cell->second.empty()) {
        lines[row].emplace_back(cell->second);
      } else {
        lines[row].push_back(field.type == store::FieldType::kBoolean ? store::CsvCell("0") : store::CsvCell());
      }
    }
  }
  std::string text = store::CsvLine(header);
  for (const auto& line : lines) text += store::CsvLine(line);
  return {store::CsvTable::Parse(text, "made.csv"), table, kLeftOut};
}

}  // namespace orvex::test
