#include "orvex-report/csv_export.h"

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "store/file_replacement.h"

namespace orvex::report_app {
namespace {

std::string Shortest(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

}  // namespace

store::CsvCell ToCell(const store::Value& value) {
  switch (value.GetKind()) {
    case store::Value::Kind::kInteger:
      return std::to_string(value.RawInteger());
    case store::Value::Kind::kReal:
      return Shortest(value.RawReal());
    case store::Value::Kind::kText:
      return value.RawText();
    default:
      return std::nullopt;
  }
}

void WriteEmissionCsv(store::Database& client, const std::vector<ChosenTank>& tanks,
                      const std::filesystem::path& path) {
  store::FileReplacement file(path);
  store::Transaction view(client, store::Transaction::Purpose::kRead);
  std::vector<store::CsvCell> cells;
  for (auto& field : client.Fields("emission")) cells.emplace_back(std::move(field.name));
  file.Write(store::CsvLine(cells));
  for (const auto& tank : tanks) {
    for (auto rows = client.OpenMatching("emission", "COMPID", {tank.id}); !rows.AtEnd(); rows.MoveNext()) {
      for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = ToCell(rows.Get(static_cast<int>(i)));
      file.Write(store::CsvLine(cells));
    }
  }
  view.Commit();
  file.Commit();
}

}  // namespace orvex::report_app
