#include "store/file_replacement.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "store/file_lock.h"
#include "store/file_renaming.h"
#include "store/page_copy.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = 1 << 16;
constexpr std::string_view kEnding = ".new";
constexpr std::string_view kDigits = "0123456789";

fs::path FolderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

/// Takes a number off the front of a text; false if there is none.
bool TakeNumber(std::string_view& text) {
  const auto end = std::min(text.find_first_not_of(kDigits), text.size());
  text.remove_prefix(end);
  return end > 0;
}

bool TakeText(std::string_view& text, std::string_view part) {
  if (!text.starts_with(part)) return false;
  text.remove_prefix(part.size());
  return true;
}

/// What a replacement of the file `name` calls its unfinished file: the process and a count keep two apart.
std::string UnfinishedName(const std::string& name, int attempt) {
  return fmt::format("{}.{}-{}{}", name, getpid(), attempt, kEnding);
}

/// The reverse, for any process.
bool IsUnfinished(std::string_view name, std::string_view of) {
  return TakeText(name, of) && TakeText(name, ".") && TakeNumber(name) && TakeText(name, "-") && TakeNumber(name) &&
         name == kEnding;
}

/// Whoever writes an unfinished file holds its lock. Where a file system has no locks, nobody can tell that a file is
/// given up, and none is removed.
void RemoveIfGivenUp(const fs::path& path) {
  const int file = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return;
  if (HasName(file, path) && TryLock(file) && HasName(file, path)) {
    // They go first: without the file, nobody would look for them.
    RemoveJournals(path);
    unlink(path.c_str());
  }
  close(file);
}

}  // namespace

FileReplacement::FileReplacement(fs::path path) : path_(std::move(path)) {
  std::error_code ignored;
  if (!fs::is_directory(FolderOf(path_), ignored))
    throw RunTimeError(ErrorNumber::kInvalidPath,
                       fmt::format("'{}' is not a valid path: its folder is not there.", path_.string()));
  if (fs::is_other(fs::status(path_, ignored)))
    throw RunTimeError(ErrorNumber::kInvalidPath,
                       fmt::format("'{}' is not a valid path: it is a device or the like.", path_.string()));
  RemoveUnfinished(path_);
  Open();
  buffer_.reserve(kBufferSize);
}

FileReplacement::~FileReplacement() {
  if (file_ < 0) return;
  std::error_code ignored;
  fs::remove(beside_, ignored);
  close(file_);
}

/// Makes the unfinished file, under a name of this process's own: two programs that write the same file must not share
/// the half-written one.
void FileReplacement::Open() {
  for (int attempt = 0; file_ < 0; ++attempt) {
    beside_ = FolderOf(path_) / UnfinishedName(path_.filename(), attempt);
    file_ = open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ < 0 && errno != EEXIST) Fail(errno);
    if (file_ < 0) continue;
    // Between the making and the locking another program may take it for given up, and lock it to remove it.
    Lock(file_);
    struct stat named {};
    if (lstat(beside_.c_str(), &named) != 0) close(std::exchange(file_, -1));
  }
}

void FileReplacement::Write(std::string_view content) {
  buffer_ += content;
  if (buffer_.size() >= kBufferSize) Flush();
}

void FileReplacement::Complete() {
  Flush();
  if (fsync(file_) != 0) Fail(errno);
}

void FileReplacement::Commit() {
  Complete();
  if (rename(beside_.c_str(), path_.c_str()) != 0) Fail(errno);
  Finish();
}

bool FileReplacement::CommitAsNew() {
  Complete();
  const int error = RenameAsNew(beside_, path_);
  if (error == EEXIST) return false;
  if (error != 0) Fail(error);
  Finish();
  return true;
}

void FileReplacement::Finish() {
  close(std::exchange(file_, -1));
  FlushFolderOf(path_);
}

void FileReplacement::Flush() {
  std::string_view rest = buffer_;
  while (!rest.empty()) {
    const auto written = write(file_, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) Fail(errno);
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  buffer_.clear();
}

void FileReplacement::Fail(int cause) const {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be written: {}.", path_.string(),
                                                            std::generic_category().message(cause)));
}

void RemoveUnfinished(const fs::path& path) {
  const std::string name = path.filename();
  // Listed first: what a folder shows while files are removed from it is left open.
  std::vector<fs::path> unfinished;
  std::error_code error;
  for (fs::directory_iterator entry(FolderOf(path), error), end; !error && entry != end; entry.increment(error))
    if (IsUnfinished(entry->path().filename().native(), name)) unfinished.push_back(entry->path());
  for (const auto& file : unfinished) RemoveIfGivenUp(file);
}

}  // namespace orvex::store
