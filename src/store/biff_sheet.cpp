#include "store/biff_sheet.h"

#include <algorithm>
#include <cstdint>

#include "store/little_endian.h"

namespace orvex::store {
namespace {

constexpr std::size_t kDefaultWidth = 9;  ///< room for a number or a logical value
constexpr std::size_t kWidestColumn = 60;

// Marks in the record of a sheet's window.
constexpr std::uint16_t kShown = 0x00B6;  ///< grid, headings, zeros and outline, in automatic colours
constexpr std::uint16_t kChosen = 0x0200;
constexpr std::uint16_t kInFront = 0x0400;

std::string ColumnInfo(int column, std::size_t characters) {
  constexpr std::size_t kUnitsPerCharacter = 256;
  const auto width = std::clamp(characters + characters / 4 + 1, kDefaultWidth, kWidestColumn);
  std::string content;
  Append16(content, static_cast<std::uint64_t>(column));  // from here
  Append16(content, static_cast<std::uint64_t>(column));  // to here
  Append16(content, width * kUnitsPerCharacter);
  Append16(content, biff::kDefaultFormat);
  Append32(content, 0);
  return content;
}

std::string Dimensions(int rows, int columns) {
  std::string content;
  for (const int number : {0, rows, 0, columns, 0}) Append16(content, static_cast<std::uint64_t>(number));
  return content;
}

std::string Window(bool chosen) {
  std::string content;
  Append16(content, chosen ? kShown | kChosen | kInFront : kShown);
  content.resize(10);
  return content;
}

}  // namespace

void BiffSheet::AddNumber(int row, int column, double number) {
  biff::AppendNumber(cells_, row, column, number);
  Widen(row, column, 0);
}

void BiffSheet::AddBool(int row, int column, bool flag) {
  biff::AppendBool(cells_, row, column, flag);
  Widen(row, column, 0);
}

void BiffSheet::AddText(int row, int column, std::string_view text) {
  biff::AppendLabel(cells_, row, column, text);
  Widen(row, column, text.size());
}

void BiffSheet::Widen(int row, int column, std::size_t width) {
  rows_ = std::max(rows_, row + 1);
  columns_ = std::max(columns_, column + 1);
  auto& widest = widths_.at(static_cast<std::size_t>(column));
  widest = std::max(widest, width);
}

std::string BiffSheet::Records(bool chosen) const {
  std::string records;
  biff::AppendBegin(records, biff::kWorksheet);
  for (int column = 0; column < columns_; ++column)
    biff::AppendRecord(records, biff::kColumnInfo, ColumnInfo(column, widths_.at(static_cast<std::size_t>(column))));
  biff::AppendRecord(records, biff::kDimensions, Dimensions(rows_, columns_));
  records += cells_;
  biff::AppendRecord(records, biff::kWindow2, Window(chosen));
  biff::AppendRecord(records, biff::kEndOfFile, {});
  return records;
}

bool IsChosen(std::string_view records) {
  while (const auto record = biff::TakeRecord(records)) {
    if (record->number == biff::kWindow2 && record->content.size() >= 2)
      return (Read16(record->content, 0) & kChosen) != 0;
  }
  return false;
}

}  // namespace orvex::store
