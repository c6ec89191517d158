#include "store/csv.h"

#include <csv.h>
#include <fmt/core.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <new>

#include "store/letter_case.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::store {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The place of the first byte that is not part of a UTF-8 character (or is a NUL); npos when all are.
std::size_t FindBadByte(std::string_view text) {
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t place = text.size() - rest.size();
    if (rest.front() == '\0' || !TakeCharacter(rest)) return place;
  }
  return std::string_view::npos;
}

/// Whether a line has a carriage return that no line feed follows, outside of quotes; `quoted` goes from line to line.
bool HasBareReturn(std::string_view line, bool& quoted) {
  bool found = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    found = found || (line[i] == '\r' && !quoted && !line.substr(i + 1).starts_with('\n'));
  }
  return found;
}

[[noreturn]] void Fail(const std::string& description) {
  throw RunTimeError(ErrorNumber::kDataConversion, description);
}

/// Spreadsheet programs write semicolons between columns where the decimal sign is a comma. Such a file must not be
/// taken for one of a single column: its numbers would be misread, too.
void RefuseOtherSeparators(std::string_view text, const std::string& name) {
  const std::string_view header = text.substr(0, text.find('\n'));
  if (header.find(',') != std::string_view::npos) return;
  const bool semicolons = header.find(';') != std::string_view::npos;
  if (!semicolons && header.find('\t') == std::string_view::npos) return;
  Fail(fmt::format(
      "{}, line 1: the columns are parted by {}. Save the file with commas between the columns and points in "
      "the numbers.",
      name, semicolons ? "semicolons" : "tabs"));
}

/// libcsv's parser, fed line by line, and the rows it has told so far.
class Parser {
 public:
  Parser() {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL) != 0) {
      throw std::bad_alloc();
    }
    csv_set_space_func(&parser_, [](unsigned char) { return 0; });
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { csv_free(&parser_); }

  /// The number of bytes taken: fewer than given if the next one is wrong.
  std::size_t Feed(std::string_view text) {
    return csv_parse(&parser_, text.data(), text.size(), OnCell, OnRow, &rows_);
  }
  bool Finish() { return csv_fini(&parser_, OnCell, OnRow, &rows_) == 0; }

  /// Rows told by the feeds so far; the last one is still being filled.
  std::vector<std::vector<CsvCell>>& Rows() { return rows_; }

 private:
  using CellRows = std::vector<std::vector<CsvCell>>;

  static void OnCell(void* text, std::size_t size, void* rows) {
    auto& row = static_cast<CellRows*>(rows)->back();
    if (text == nullptr) {
      row.emplace_back();
    } else {
      row.emplace_back(std::string(static_cast<const char*>(text), size));
    }
  }
  static void OnRow(int, void* rows) { static_cast<CellRows*>(rows)->emplace_back(); }

  csv_parser parser_{};
  CellRows rows_{1};
};

std::optional<std::string> ReadAll(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  try {
    return std::string(std::istreambuf_iterator<char>(file), {});
  } catch (const std::ios_base::failure&) {
    return std::nullopt;
  }
}

}  // namespace

CsvTable CsvTable::Read(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    throw RunTimeError(ErrorNumber::kFileNotFound, fmt::format("The file '{}' is not there.", path.string()));
  }
  const auto text = ReadAll(path);
  if (!text) {
    throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be read.", path.string()));
  }
  return Parse(*text, path.filename().string());
}

CsvTable CsvTable::Parse(std::string_view text, std::string name) {
  CsvTable table(std::move(name));
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  RefuseOtherSeparators(text, table.name_);

  Parser parser;
  bool header_taken = false;
  const auto take = [&](Row row) {
    if (!header_taken) {
      table.TakeHeader(row);
      header_taken = true;
    } else if (row.cells.size() != table.columns_.size()) {
      Fail(fmt::format("{}, line {}: {} cells where the header has {} columns.", table.name_, row.line,
                       row.cells.size(), table.columns_.size()));
    } else {
      table.rows_.push_back(std::move(row));
    }
  };

  std::size_t line = 0;
  std::size_t first_line_of_row = 1;
  bool inside_row = false;
  bool quoted = false;
  while (!text.empty()) {
    ++line;
    const std::size_t end = text.find('\n');
    const std::string_view fed = end == std::string_view::npos ? text : text.substr(0, end + 1);
    text.remove_prefix(fed.size());
    if (const std::size_t bad = FindBadByte(fed); bad != std::string_view::npos) {
      Fail(fmt::format("{}, line {}, character {}: the text is not UTF-8.", table.name_, line, bad + 1));
    }
    const std::size_t taken = parser.Feed(fed);
    if (taken < fed.size()) {
      Fail(fmt::format("{}, line {}, character {}: a quote stands where none can be.", table.name_, line, taken + 1));
    }
    if (HasBareReturn(fed, quoted))
      Fail(fmt::format("{}, line {}: a carriage return stands alone.", table.name_, line));
    auto& rows = parser.Rows();
    if (rows.size() == 2) {
      take({first_line_of_row, std::move(rows.front())});
      rows.erase(rows.begin());
      inside_row = false;
    } else {
      // Either a line without anything, or a quoted cell that goes on in the next line.
      inside_row = inside_row || fed.find_first_not_of("\r\n") != std::string_view::npos;
    }
    if (!inside_row) first_line_of_row = line + 1;
  }
  if (!parser.Finish()) {
    Fail(fmt::format("{}, line {}: a quote is opened and never closed.", table.name_, first_line_of_row));
  }
  if (parser.Rows().size() == 2) take({first_line_of_row, std::move(parser.Rows().front())});
  if (!header_taken) Fail(fmt::format("{}, line 1: the file is empty.", table.name_));
  return table;
}

void CsvTable::TakeHeader(const Row& header) {
  for (std::size_t i = 0; i < header.cells.size(); ++i) {
    const std::string column = header.cells[i].value_or("");
    if (column.empty()) Fail(fmt::format("{}, line {}: column {} has no name.", name_, header.line, i + 1));
    if (FindColumn(column)) Fail(fmt::format("{}, line {}: two columns '{}'.", name_, header.line, column));
    columns_.push_back(column);
  }
}

std::optional<std::size_t> CsvTable::FindColumn(std::string_view column) const {
  const auto found = std::ranges::find_if(columns_, [&](const std::string& name) { return EqualNoCase(name, column); });
  if (found == columns_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - columns_.begin());
}

const CsvCell& CsvTable::Cell(std::size_t row, std::string_view column) const {
  const auto place = FindColumn(column);
  if (!place) {
    throw RunTimeError(ErrorNumber::kItemNotFound, fmt::format("{} has no column '{}'.", name_, column));
  }
  return rows_[row].cells[*place];
}

void CsvTable::Refuse(std::size_t row, std::string_view column, std::string_view reason) const {
  Fail(fmt::format("{}, line {}, {}: {}", name_, rows_[row].line, column, reason));
}

void AppendQuoted(std::string& line, std::string_view text) {
  line += '"';
  for (const char c : text) line.append(c == '"' ? 2 : 1, c);
  line += '"';
}

std::string CsvLine(std::span<const CsvCell> cells) {
  std::string line;
  for (const CsvCell& cell : cells) {
    if (&cell != cells.data()) line += ',';
    if (!cell) continue;
    if (!cell->empty() && cell->find_first_of("\",\r\n") == std::string::npos) {
      line += *cell;
      continue;
    }
    AppendQuoted(line, *cell);
  }
  return line + "\r\n";
}

}  // namespace orvex::store
