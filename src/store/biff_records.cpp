#include "store/biff_records.h"

#include <bit>

#include "store/little_endian.h"

namespace orvex::store::biff {
namespace {

std::string CellHead(int row, int column) {
  std::string content;
  Append16(content, static_cast<std::uint64_t>(row));
  Append16(content, static_cast<std::uint64_t>(column));
  Append16(content, kDefaultFormat);
  return content;
}

}  // namespace

std::optional<RecordView> TakeRecord(std::string_view& stream) {
  constexpr std::size_t kHead = 4;
  if (stream.size() < kHead) return std::nullopt;
  const std::size_t size = Read16(stream, 2);
  if (stream.size() - kHead < size) return std::nullopt;
  const RecordView record{Read16(stream, 0), stream.substr(kHead, size), stream.substr(0, kHead + size)};
  stream.remove_prefix(kHead + size);
  return record;
}

void AppendRecord(std::string& stream, Record number, std::string_view content) {
  Append16(stream, number);
  Append16(stream, content.size());
  stream += content;
}

void AppendBegin(std::string& stream, StreamType type) {
  constexpr std::uint64_t kBuild = 0x096C, kYear = 1993;
  std::string content;
  for (const std::uint64_t number : {std::uint64_t{kVersion5}, std::uint64_t{type}, kBuild, kYear})
    Append16(content, number);
  AppendRecord(stream, kBeginOfFile, content);
}

void AppendNumber(std::string& stream, int row, int column, double number) {
  std::string content = CellHead(row, column);
  AppendLittle(content, std::bit_cast<std::uint64_t>(number), 8);
  AppendRecord(stream, kNumber, content);
}

void AppendBool(std::string& stream, int row, int column, bool flag) {
  std::string content = CellHead(row, column);
  Append16(content, flag ? 1 : 0);  // the value, then 0 for "no error"
  AppendRecord(stream, kBoolOrError, content);
}

void AppendLabel(std::string& stream, int row, int column, std::string_view text) {
  std::string content = CellHead(row, column);
  Append16(content, text.size());
  content += text;
  AppendRecord(stream, kLabel, content);
}

}  // namespace orvex::store::biff
