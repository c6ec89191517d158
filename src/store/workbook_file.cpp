#include "store/workbook_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

constexpr std::u16string_view kStream = u"Book";
constexpr std::u16string_view kStreamOfLaterVersions = u"Workbook";

/// A workbook of Excel 5.0 opens with a double click by this: {00020810-0000-0000-C000-000000000046}.
constexpr std::string_view kClassId("\x10\x08\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);

/// The places of sheets in a workbook are numbers of 32 bits, and a full one has to be held in memory.
constexpr std::uintmax_t kMaxSize = std::uintmax_t{1} << 30;

[[noreturn]] void Refuse(const fs::path& path, std::string_view reason) {
  throw RunTimeError(ErrorNumber::kWrongFormat,
                     fmt::format("No sheet can be added to the workbook '{}': {}.", path.string(), reason));
}

std::string Content(const fs::path& path) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  if (!error && size > kMaxSize) Refuse(path, "it is too large");
  std::string content;
  std::ifstream file(path, std::ios::binary);
  if (!error && file) {
    content.resize(size);
    file.read(content.data(), static_cast<std::streamsize>(size));
  }
  if (error || !file)
    throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be read.", path.string()));
  return content;
}

auto Find(std::vector<OleStream>& streams, std::u16string_view name) {
  return std::ranges::find(streams, name, &OleStream::name);
}

}  // namespace

WorkbookFile WorkbookFile::ReadOrNew(const fs::path& path) {
  std::error_code ignored;
  if (!fs::exists(path, ignored)) return {{std::string(kClassId), {}}, {}};
  auto container = ReadOleFile(Content(path));
  if (!container) Refuse(path, "it is no workbook of Excel 5.0, or is damaged");
  auto& streams = container->streams;
  if (Find(streams, kStreamOfLaterVersions) != streams.end()) Refuse(path, "it is of a later version of Excel");
  const auto found = Find(streams, kStream);
  if (found == streams.end()) Refuse(path, "it is no workbook of Excel 5.0");
  if (container->has_storages) Refuse(path, "it holds macros or objects, which would be lost");
  const std::string stream = std::move(found->content);
  streams.erase(found);
  return {std::move(*container), BiffWorkbook::Parse(stream, path.string())};
}

std::string WorkbookFile::Bytes() const {
  OleFile file = container;
  file.streams.push_back({std::u16string(kStream), workbook.Stream()});
  return WriteOleFile(file);
}

}  // namespace orvex::store
