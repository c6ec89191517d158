#include "store/biff_workbook.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "store/biff_globals.h"
#include "store/biff_records.h"
#include "store/little_endian.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

constexpr std::size_t kOffsetSize = 4;  ///< a BOUNDSHEET begins with the place of its sheet in the stream
constexpr std::size_t kNameSizeAt = 2;  ///< then come visibility, type, and the name behind its length
constexpr std::size_t kNameAt = 3;

/// Why a stream is no workbook that a sheet could be added to, as the end of a sentence.
struct Refused {
  std::string reason;
};

constexpr const char* kDamaged = "it is damaged";

void Require(bool condition) {
  if (!condition) throw Refused{kDamaged};
}

biff::RecordView Take(std::string_view& stream) {
  const auto record = biff::TakeRecord(stream);
  Require(record.has_value());
  return *record;
}

/// Takes what begins the globals or a sheet; the type of it.
std::uint16_t TakeBegin(std::string_view& stream, std::string& to) {
  const auto begin = Take(stream);
  Require(begin.number == biff::kBeginOfFile && begin.content.size() >= 4);
  const auto version = Read16(begin.content, 0);
  if (version == biff::kVersion8) throw Refused{"it is of a later version of Excel"};
  Require(version == biff::kVersion5);
  to += begin.bytes;
  return Read16(begin.content, 2);
}

/// The records of the sheet that the stream begins with; charts in it have a beginning and an end of their own.
std::string_view SheetRecords(std::string_view stream) {
  std::string_view rest = stream;
  std::string begin;
  TakeBegin(rest, begin);
  for (int depth = 1; depth > 0;) {
    const auto record = Take(rest);
    if (record.number == biff::kBeginOfFile) ++depth;
    if (record.number == biff::kEndOfFile) --depth;
  }
  return stream.substr(0, stream.size() - rest.size());
}

/// Excel holds the letters of the whole code page for the same, whatever their case.
unsigned char FoldedByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const bool capital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
  if (capital) return static_cast<unsigned char>(byte + 0x20);
  if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<unsigned char>(byte + 0x10);
  return byte == 0x9F ? 0xFF : byte;
}

/// Moves the places in the stream that a sheet's table of rows holds.
void MoveIndex(std::string& records, std::size_t from, std::size_t to) {
  constexpr std::size_t kFirstPlace = 8;
  std::string_view rest = records;
  while (const auto record = biff::TakeRecord(rest)) {
    if (record->number != biff::kIndex) continue;
    const std::size_t content_at = records.size() - rest.size() - record->content.size();
    for (std::size_t at = kFirstPlace; at + 4 <= record->content.size(); at += 4) {
      const std::size_t place = Read32(records, content_at + at);
      if (place >= from && place - from < records.size()) Replace32(records, content_at + at, place - from + to);
    }
  }
}

}  // namespace

std::string_view BiffWorkbook::Sheet::Name() const { return std::string_view(entry).substr(kNameAt); }

BiffWorkbook::BiffWorkbook() : BiffWorkbook(NewBiffGlobals()) { sheet_entries_at_ = globals_.size(); }

BiffWorkbook BiffWorkbook::Parse(std::string_view stream, const std::string& file) {
  try {
    return Parse(stream);
  } catch (const Refused& refused) {
    throw RunTimeError(ErrorNumber::kWrongFormat,
                       fmt::format("No sheet can be added to the workbook '{}': {}.", file, refused.reason));
  }
}

BiffWorkbook BiffWorkbook::Parse(std::string_view stream) {
  BiffWorkbook workbook{std::string()};
  std::string_view rest = stream;
  Require(TakeBegin(rest, workbook.globals_) == biff::kGlobals);
  int code_page = 0, formats = 0;
  for (;;) {
    const auto record = Take(rest);
    if (record.number == biff::kEndOfFile) break;
    switch (record.number) {
      case biff::kFilePassword:
        throw Refused{"it is protected by a password"};
      case biff::kBoundSheet:
        if (workbook.sheets_.empty()) workbook.sheet_entries_at_ = workbook.globals_.size();
        workbook.AddEntry(record.content);
        continue;
      case biff::kCodePage:
        Require(record.content.size() >= 2);
        code_page = Read16(record.content, 0);
        break;
      case biff::kCellFormat:
        ++formats;
        break;
      default:
        break;
    }
    workbook.globals_ += record.bytes;
  }
  if (code_page != biff::kCodePage1252) throw Refused{"its texts are not in code page 1252"};
  Require(!workbook.sheets_.empty() && formats > biff::kDefaultFormat);
  workbook.TakeSheets(stream, stream.size() - rest.size());
  return workbook;
}

void BiffWorkbook::AddEntry(std::string_view content) {
  Require(content.size() >= kOffsetSize + kNameAt);
  Sheet sheet{std::string(content.substr(kOffsetSize)), {}, Read32(content, 0)};
  Require(sheet.Name().size() == static_cast<unsigned char>(sheet.entry[kNameSizeAt]));
  sheets_.push_back(std::move(sheet));
}

/// Takes the sheets out of the stream, behind the globals. Two that share bytes would be written twice, and a damaged
/// file could grow without end.
void BiffWorkbook::TakeSheets(std::string_view stream, std::size_t globals_end) {
  std::vector<Sheet*> by_place;
  for (auto& sheet : sheets_) by_place.push_back(&sheet);
  std::ranges::sort(by_place, {}, &Sheet::old_start);
  std::size_t end = globals_end;
  for (auto* const sheet : by_place) {
    Require(sheet->old_start >= end && sheet->old_start < stream.size());
    sheet->records = SheetRecords(stream.substr(sheet->old_start));
    end = sheet->old_start + sheet->records.size();
  }
}

BiffWorkbook::Sheet* BiffWorkbook::Find(std::string_view name) {
  const auto found = std::ranges::find_if(
      sheets_, [&](const Sheet& sheet) { return std::ranges::equal(sheet.Name(), name, {}, FoldedByte, FoldedByte); });
  return found == sheets_.end() ? nullptr : &*found;
}

bool BiffWorkbook::HasSheet(std::string_view name) { return Find(name) != nullptr; }

void BiffWorkbook::PutSheet(std::string_view name, const BiffSheet& sheet) {
  std::string entry(kNameSizeAt, '\0');  // a visible worksheet
  entry += static_cast<char>(name.size());
  entry += name;
  Sheet* place = Find(name);
  // The globals tell which sheet is in front, and stay: a sheet is chosen like the one whose place it takes.
  const bool chosen = place == nullptr ? sheets_.empty() : IsChosen(place->records);
  if (place == nullptr) place = &sheets_.emplace_back();
  *place = {std::move(entry), sheet.Records(chosen)};
}

std::string BiffWorkbook::Stream() const {
  std::string entries, end;
  AppendRecord(end, biff::kEndOfFile, {});
  for (const auto& sheet : sheets_)
    AppendRecord(entries, biff::kBoundSheet, std::string(kOffsetSize, '\0') + sheet.entry);

  std::string stream = globals_;
  stream.insert(sheet_entries_at_, entries);
  stream += end;
  std::size_t entry_at = sheet_entries_at_ + 4;
  for (const auto& sheet : sheets_) {
    Replace32(stream, entry_at, stream.size());
    entry_at += 4 + kOffsetSize + sheet.entry.size();
    std::string records = sheet.records;
    MoveIndex(records, sheet.old_start, stream.size());
    stream += records;
  }
  return stream;
}

}  // namespace orvex::store
