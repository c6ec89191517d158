#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The records of a workbook of Excel 5.0 (BIFF5). A workbook is a stream of them: the globals, then each sheet, all
/// between BOF and EOF. Each record is its number, its size (2 bytes each) and its content.
namespace orvex::store::biff {

enum Record : std::uint16_t {
  kEndOfFile = 0x000A,
  kDateMode = 0x0022,
  kFilePassword = 0x002F,
  kFont = 0x0031,
  kWindow1 = 0x003D,
  kCodePage = 0x0042,
  kColumnInfo = 0x007D,
  kBoundSheet = 0x0085,
  kCellFormat = 0x00E0,
  kDimensions = 0x0200,
  kNumber = 0x0203,
  kLabel = 0x0204,
  kBoolOrError = 0x0205,
  kIndex = 0x020B,
  kWindow2 = 0x023E,
  kStyle = 0x0293,
  kBeginOfFile = 0x0809,
};

inline constexpr std::uint16_t kVersion5 = 0x0500;
inline constexpr std::uint16_t kVersion8 = 0x0600;
enum StreamType : std::uint16_t { kGlobals = 0x0005, kWorksheet = 0x0010 };

inline constexpr std::uint16_t kCodePage1252 = 1252;

/// Style formats come first; this is the first format of cells, the one of cells without any.
inline constexpr std::uint16_t kDefaultFormat = 15;

inline constexpr int kMaxRows = 16384;
inline constexpr int kMaxColumns = 256;
inline constexpr std::size_t kMaxText = 255;      ///< characters of a cell
inline constexpr std::size_t kMaxSheetName = 31;  ///< characters

/// A record as it stands in a stream.
struct RecordView {
  std::uint16_t number;
  std::string_view content;
  std::string_view bytes;  ///< with number and size
};

/// Takes the first record off a stream; nothing if the stream ends before the record does.
std::optional<RecordView> TakeRecord(std::string_view& stream);

void AppendRecord(std::string& stream, Record number, std::string_view content);
void AppendBegin(std::string& stream, StreamType type);

/// Cells by row and column, from 0. The text has `kMaxText` bytes at most, in the workbook's code page.
void AppendNumber(std::string& stream, int row, int column, double number);
void AppendBool(std::string& stream, int row, int column, bool flag);
void AppendLabel(std::string& stream, int row, int column, std::string_view text);

}  // namespace orvex::store::biff
