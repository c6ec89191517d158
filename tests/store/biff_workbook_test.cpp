#include "store/biff_workbook.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "store/biff_records.h"
#include "store/little_endian.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"

namespace orvex::store {
namespace {

constexpr const char* kFile = "tanks.xls";

BiffSheet SheetOf(int row_count) {
  BiffSheet sheet;
  for (int row = 0; row < row_count; ++row) sheet.AddNumber(row, 0, row);
  return sheet;
}

std::string Record(std::uint16_t number, std::string_view content) {
  std::string record;
  biff::AppendRecord(record, static_cast<biff::Record>(number), content);
  return record;
}

/// A workbook of one sheet of these records between its beginning and its end.
std::string StreamWith(std::string_view records) {
  BiffWorkbook workbook;
  workbook.PutSheet("one", SheetOf(0));
  auto stream = workbook.Stream();
  stream.insert(stream.size() - 4, records);
  return stream;
}

/// Where each sheet begins, as the globals tell, in their order.
std::vector<std::size_t> Starts(std::string_view stream) {
  std::vector<std::size_t> starts;
  for (std::string_view rest = stream; const auto record = biff::TakeRecord(rest);) {
    if (record->number == biff::kEndOfFile) break;
    if (record->number == biff::kBoundSheet) starts.push_back(Read32(record->content, 0));
  }
  return starts;
}

TEST(BiffWorkbook, ASheetThatIsAddedLeavesTheOthersByteForByte) {
  BiffWorkbook workbook;
  std::vector<std::string> sheets;
  for (int i = 0; i < 10; ++i) {
    workbook = i == 0 ? BiffWorkbook() : BiffWorkbook::Parse(workbook.Stream(), kFile);
    workbook.PutSheet("sheet " + std::to_string(i), SheetOf(i * 3));
    const auto stream = workbook.Stream();
    const auto starts = Starts(stream);
    ASSERT_EQ(starts.size(), sheets.size() + 1);
    for (std::size_t k = 0; k < sheets.size(); ++k) EXPECT_EQ(stream.substr(starts[k], sheets[k].size()), sheets[k]);
    sheets.push_back(stream.substr(starts.back()));
  }
}

constexpr std::uint16_t kChosen = 0x0200;

/// Which sheets are chosen.
std::vector<bool> Chosen(std::string_view stream) {
  std::vector<bool> chosen;
  while (const auto record = biff::TakeRecord(stream))
    if (record->number == biff::kWindow2) chosen.push_back((Read16(record->content, 0) & kChosen) != 0);
  return chosen;
}

TEST(BiffWorkbook, OnlyItsFirstSheetIsChosen) {
  BiffWorkbook workbook;
  for (const char* name : {"one", "two", "ONE"}) workbook.PutSheet(name, SheetOf(1));
  EXPECT_EQ(Chosen(workbook.Stream()), (std::vector<bool>{true, false}));
}

TEST(BiffWorkbook, TheSheetThatAPersonHasChosenStaysTheOnlyOne) {
  BiffWorkbook made;
  for (const char* name : {"one", "two"}) made.PutSheet(name, SheetOf(1));
  auto stream = made.Stream();
  // The program in which it was looked at has put the second sheet in front.
  std::uint16_t marks = 0;
  for (std::string_view rest = stream; const auto record = biff::TakeRecord(rest);) {
    if (record->number != biff::kWindow2) continue;
    const std::size_t place = stream.size() - rest.size() - record->content.size();
    stream[place + 1] = static_cast<char>(marks >> 8U);
    marks = kChosen;
  }
  ASSERT_EQ(Chosen(stream), (std::vector<bool>{false, true}));
  for (const char* name : {"one", "two", "three"}) {
    auto workbook = BiffWorkbook::Parse(stream, kFile);
    workbook.PutSheet(name, SheetOf(3));
    stream = workbook.Stream();
  }
  EXPECT_EQ(Chosen(stream), (std::vector<bool>{false, true, false}));
}

TEST(BiffWorkbook, KeepsRecordsThatItDoesNotKnow) {
  auto stream = StreamWith(Record(0x1234, "of the sheet"));
  const auto globals = Record(0x4321, "of the globals");
  const std::size_t place = stream.find(Record(biff::kDateMode, std::string(2, '\0')));
  stream.insert(place, globals);
  const std::size_t entry = stream.find(std::string("\x85\0", 2), place);
  Replace32(stream, entry + 4, Read32(stream, entry + 4) + globals.size());
  auto workbook = BiffWorkbook::Parse(stream, kFile);
  EXPECT_EQ(workbook.Stream(), stream);
  workbook.PutSheet("two", SheetOf(2));
  EXPECT_NE(workbook.Stream().find(globals), std::string::npos);
  EXPECT_NE(workbook.Stream().find(Record(0x1234, "of the sheet")), std::string::npos);
}

TEST(BiffWorkbook, MovesThePlacesInATableOfRowsWithTheSheet) {
  // An INDEX holds rows 0 to 1 and two places in the stream; a third leads elsewhere and stays as it is.
  const auto empty = StreamWith("");
  const std::size_t start = Starts(empty).front();
  std::string content;
  for (const std::uint64_t number : {std::uint64_t{0}, std::uint64_t{1 << 16}, std::uint64_t{start + 20},
                                     std::uint64_t{start + 40}, std::uint64_t{5}})
    Append32(content, number);
  auto workbook = BiffWorkbook::Parse(StreamWith(Record(biff::kIndex, content)), kFile);
  workbook.PutSheet("two", SheetOf(2));
  const auto stream = workbook.Stream();
  const std::size_t moved = Starts(stream).front();
  // The globals have grown by the entry of "two": 4 bytes, then 4, 2, 1 and 3 of the name.
  EXPECT_EQ(moved, start + 14);
  const auto index = stream.find(Record(biff::kIndex, content).substr(0, 12), moved);
  ASSERT_NE(index, std::string::npos);
  EXPECT_EQ(Read32(stream, index + 12), moved + 20);
  EXPECT_EQ(Read32(stream, index + 16), moved + 40);
  EXPECT_EQ(Read32(stream, index + 20), 5U);
}

TEST(BiffWorkbook, AChartInASheetIsPartOfIt) {
  std::string chart;
  biff::AppendBegin(chart, static_cast<biff::StreamType>(0x0020));
  chart += Record(biff::kEndOfFile, "") + Record(0x1234, "behind the chart");
  auto workbook = BiffWorkbook::Parse(StreamWith(chart), kFile);
  workbook.PutSheet("two", SheetOf(2));
  EXPECT_NE(workbook.Stream().find(chart), std::string::npos);
}

/// The message of the refusal.
std::string Refusal(std::string_view stream) {
  try {
    (void)BiffWorkbook::Parse(stream, kFile);
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kWrongFormat);
    return error.Description();
  }
  return "";
}

/// A workbook of one empty sheet with a record more in its globals, in front of the one of the fonts.
std::string StreamWithGlobal(std::uint16_t number, std::string_view content) {
  auto stream = StreamWith("");
  const auto record = Record(number, content);
  const std::size_t entry = stream.find(std::string("\x85\0", 2));
  Replace32(stream, entry + 4, Starts(stream).front() + record.size());
  return stream.insert(stream.find(Record(biff::kDateMode, std::string(2, '\0'))), record);
}

TEST(BiffWorkbook, SaysWhyItCannotTakeASheet) {
  const std::string refused = "No sheet can be added to the workbook 'tanks.xls': ";
  auto later = StreamWith("");
  later[5] = 6;
  EXPECT_EQ(Refusal(later), refused + "it is of a later version of Excel.");
  EXPECT_EQ(Refusal(StreamWithGlobal(biff::kFilePassword, "1234")), refused + "it is protected by a password.");
  auto cyrillic = StreamWith("");
  const auto place = cyrillic.find(std::string("\x42\0\x02\0\xE4\x04", 6));
  ASSERT_NE(place, std::string::npos);
  cyrillic[place + 4] = '\xE3';  // 1251
  EXPECT_EQ(Refusal(cyrillic), refused + "its texts are not in code page 1252.");
  EXPECT_EQ(Refusal(""), refused + "it is damaged.");
}

TEST(BiffWorkbook, AStreamThatIsCutOffAnywhereIsDamaged) {
  BiffWorkbook workbook;
  for (const char* name : {"one", "two"}) workbook.PutSheet(name, SheetOf(5));
  const auto stream = workbook.Stream();
  for (std::size_t size = 0; size < stream.size(); ++size)
    EXPECT_FALSE(Refusal(std::string_view(stream).substr(0, size)).empty()) << size;
}

TEST(BiffWorkbook, SheetsThatShareBytesOrLieOutsideAreDamage) {
  BiffWorkbook workbook;
  for (const char* name : {"one", "two"}) workbook.PutSheet(name, SheetOf(5));
  const auto stream = workbook.Stream();
  const auto starts = Starts(stream);
  std::string old_place;
  Append32(old_place, starts[1]);
  const auto at = stream.find(old_place);
  for (const std::size_t place : {starts[0], std::size_t{0}, starts[1] + 1, stream.size(), std::size_t{0xFFFFFFFF}}) {
    auto damaged = stream;
    Replace32(damaged, at, place);
    EXPECT_FALSE(Refusal(damaged).empty()) << place;
  }
}

}  // namespace
}  // namespace orvex::store
