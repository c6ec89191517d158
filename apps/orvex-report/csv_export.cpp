#include "orvex-report/csv_export.h"

#include <array>
#include <charconv>

#include "store/file_replacement.h"

namespace orvex::report_app {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string Shortest(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

/// Blanks at the ends are quoted, too: some readers take them off.
std::string CsvText(std::string_view text) {
  const bool plain = !text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos && text.front() != ' ' &&
                     text.back() != ' ';
  return plain ? std::string(text) : Quoted(text);
}

}  // namespace

std::string CsvField(const store::Value& value) {
  switch (value.GetKind()) {
    case store::Value::Kind::kNull:
      return {};
    case store::Value::Kind::kInteger:
      return std::to_string(value.RawInteger());
    case store::Value::Kind::kReal:
      return Shortest(value.RawReal());
    case store::Value::Kind::kText:
      return CsvText(value.RawText());
  }
  return {};
}

void WriteEmissionCsv(store::Database& client, const std::vector<ChosenTank>& tanks,
                      const std::filesystem::path& path) {
  store::FileReplacement file(path);
  store::Transaction view(client, store::Transaction::Purpose::kRead);
  std::string line;
  const auto end_line = [&] {
    line.pop_back();
    file.Write(line += kLineEnd);
    line.clear();
  };
  for (const auto& field : client.Fields("emission")) line += CsvText(field.name) + ',';
  end_line();
  for (const auto& tank : tanks) {
    for (auto rows = client.OpenMatching("emission", "COMPID", {tank.id}); !rows.AtEnd(); rows.MoveNext()) {
      for (int i = 0; i < rows.FieldCount(); ++i) line += CsvField(rows.Get(i)) + ',';
      end_line();
    }
  }
  view.Commit();
  file.Commit();
}

}  // namespace orvex::report_app
