#include "shell/delivered_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "store/file_replacement.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using store::RunTimeError;

/// Where the delivered files stand, as seen from the program's folder: when installed, and where they were built.
constexpr std::string_view kPlaces[] = {"../share/orvex", "../../data"};

/// What a crash may leave beside a database; it would be played back into a new one of that name.
constexpr std::string_view kLeftovers[] = {"-journal", "-wal"};

/// The pages' own name space, and their style's.
constexpr std::string_view kDisplayMark = "orvex";

[[noreturn]] void CannotRead(const fs::path& path) {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("'{}' cannot be read.", path.string()));
}

/// The content of a file, or nothing if it cannot be read.
std::optional<std::string> Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content;
  std::array<char, 1 << 16> part{};
  while (file.read(part.data(), part.size()) || file.gcount() > 0)
    content.append(part.data(), static_cast<std::size_t>(file.gcount()));
  // A folder can be opened, but not read.
  if (!file.eof()) return std::nullopt;
  return content;
}

std::string DeliveredContent(const fs::path& delivered) {
  std::error_code error;
  if (!fs::is_regular_file(delivered, error)) CannotRead(delivered);
  auto content = Content(delivered);
  if (!content) CannotRead(delivered);
  return *std::move(content);
}

bool IsAnything(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

void SetLeftoversAside(const fs::path& database) {
  for (const auto ending : kLeftovers) {
    auto leftover = database;
    leftover += ending;
    auto aside = leftover;
    aside += ".old";
    std::error_code not_there;
    if (IsAnything(leftover) && !IsAnything(database)) fs::rename(leftover, aside, not_there);
  }
}

}  // namespace

fs::path FindDelivered(const fs::path& program, std::string_view name) {
  std::string tried;
  for (const auto place : kPlaces) {
    auto path = (program.parent_path() / place / name).lexically_normal();
    std::error_code error;
    if (fs::exists(path, error)) return path;
    tried += fmt::format("{}'{}'", tried.empty() ? "" : " or ", path.string());
  }
  throw RunTimeError(ErrorNumber::kFileNotFound,
                     fmt::format("What the program is delivered with is not there: no {}.", tried));
}

std::vector<fs::path> DeliveredFiles(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code unknown; entry->is_regular_file(unknown)) files.push_back(entry->path());
  if (error) CannotRead(folder);
  std::ranges::sort(files);
  return files;
}

Delivery BringUpToDate(const fs::path& delivered, const fs::path& folder) {
  const auto content = DeliveredContent(delivered);
  const auto target = folder / delivered.filename();
  std::error_code error;
  const bool stands = fs::is_regular_file(target, error);
  store::RemoveUnfinished(target);
  if (stands && Content(target) == content) return Delivery::kNone;
  store::FileReplacement file(target);
  file.Write(content);
  file.Commit();
  return stands ? Delivery::kUpdated : Delivery::kAdded;
}

bool IsDisplayFile(const fs::path& path) {
  const auto content = Content(path);
  return content && store::LowerCase(*content).find(kDisplayMark) != std::string::npos;
}

bool AddDatabase(const fs::path& delivered, const fs::path& folder) {
  const auto target = folder / delivered.filename();
  if (IsAnything(target)) return false;
  const auto content = DeliveredContent(delivered);
  store::FileReplacement file(target);
  file.Write(content);
  SetLeftoversAside(target);
  return file.CommitAsNew();
}

}  // namespace orvex::shell
