#include "store/file_check.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <system_error>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

using namespace std::string_view_literals;

constexpr auto kMagic = "SQLite format 3\0"sv;
constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kPageSizeOffset = 16;
constexpr std::size_t kChangeCounterOffset = 24;
constexpr std::size_t kPageCountOffset = 28;
constexpr std::size_t kValidForOffset = 92;

using Header = std::array<unsigned char, kHeaderSize>;

std::uint32_t BigEndian32(const Header& header, std::size_t offset) {
  return (std::uint32_t{header[offset]} << 24) | (std::uint32_t{header[offset + 1]} << 16) |
         (std::uint32_t{header[offset + 2]} << 8) | std::uint32_t{header[offset + 3]};
}

/// Bytes that the file must have, by its header; 0 where the header does not tell.
std::uintmax_t DeclaredSize(const Header& header) {
  // The page count holds only if it was written together with the last change.
  if (BigEndian32(header, kChangeCounterOffset) != BigEndian32(header, kValidForOffset)) return 0;
  std::uintmax_t page_size = (std::uintmax_t{header[kPageSizeOffset]} << 8) | header[kPageSizeOffset + 1];
  if (page_size == 1) page_size = 65536;
  return page_size * BigEndian32(header, kPageCountOffset);
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

void CheckFolder(const std::filesystem::path& file) {
  const auto folder = file.parent_path();
  std::error_code ignored;
  if (!folder.empty() && !std::filesystem::is_directory(folder, ignored)) {
    throw RunTimeError(ErrorNumber::kInvalidPath,
                       fmt::format("{} is not a valid path: the folder was not found.", file.string()));
  }
}

void CheckFile(const std::filesystem::path& path) {
  CheckFolder(path);
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) {
    throw RunTimeError(ErrorNumber::kFileNotFound, fmt::format("The file {} was not found.", path.string()));
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw RunTimeError(ErrorNumber::kNotADatabase,
                       fmt::format("{} is not a database: it is not a file.", path.string()));
  }
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  if (!file) {
    throw RunTimeError(ErrorNumber::kDiskFailure,
                       fmt::format("{} cannot be read: {}.", path.string(), std::strerror(errno)));
  }
  Header header{};
  const std::size_t length = std::fread(header.data(), 1, header.size(), file.get());
  if (length == 0) {
    throw RunTimeError(ErrorNumber::kNotADatabase,
                       fmt::format("{} is not a database: the file is empty.", path.string()));
  }
  const std::size_t compared = std::min(length, kMagic.size());
  if (std::memcmp(header.data(), kMagic.data(), compared) != 0) {
    throw RunTimeError(ErrorNumber::kNotADatabase, fmt::format("{} is not a database.", path.string()));
  }
  // A journal beside the file means that its last change is still to be finished or undone: its size may be off till
  // then.
  const bool journal = std::filesystem::exists(path.string() + "-journal", error);
  if (length < kHeaderSize || (!journal && std::filesystem::file_size(path, error) < DeclaredSize(header))) {
    throw RunTimeError(ErrorNumber::kDamagedFile,
                       fmt::format("{} is cut off: a part of the database is missing.", path.string()));
  }
}

}  // namespace orvex::store
