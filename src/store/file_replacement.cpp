#include "store/file_replacement.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

constexpr std::size_t kBufferSize = 1 << 16;

/// A rename lasts only when its folder has reached the disk. Some file systems cannot flush a folder, so a refusal
/// is no failure.
void FlushFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

/// Renames a file unless something has the new name; 0 or the number of the error.
int RenameAsNew(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  // Some file systems cannot rename so. A second name never takes a place, either.
  if (errno != EINVAL && errno != ENOSYS) return errno;
  if (link(from.c_str(), to.c_str()) != 0) return errno;
  unlink(from.c_str());
  return 0;
}

}  // namespace

FileReplacement::FileReplacement(std::filesystem::path path) : path_(std::move(path)) {
  const auto folder = path_.has_parent_path() ? path_.parent_path() : std::filesystem::path(".");
  std::error_code ignored;
  if (!std::filesystem::is_directory(folder, ignored))
    throw RunTimeError(ErrorNumber::kInvalidPath,
                       fmt::format("'{}' is not a valid path: its folder is not there.", path_.string()));
  // A name of this process's own: two programs that write the same file must not share the half-written one.
  for (int attempt = 0; file_ < 0; ++attempt) {
    beside_ = path_;
    beside_ += fmt::format(".{}-{}.new", getpid(), attempt);
    file_ = open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ < 0 && errno != EEXIST) Fail(errno);
  }
  buffer_.reserve(kBufferSize);
}

FileReplacement::~FileReplacement() {
  if (file_ < 0) return;
  close(file_);
  std::error_code ignored;
  std::filesystem::remove(beside_, ignored);
}

void FileReplacement::Write(std::string_view content) {
  buffer_ += content;
  if (buffer_.size() >= kBufferSize) Flush();
}

void FileReplacement::Commit() {
  Flush();
  if (fsync(file_) != 0) Fail(errno);
  if (rename(beside_.c_str(), path_.c_str()) != 0) Fail(errno);
  Finish();
}

bool FileReplacement::CommitAsNew() {
  Flush();
  if (fsync(file_) != 0) Fail(errno);
  const int error = RenameAsNew(beside_, path_);
  if (error == EEXIST) return false;
  if (error != 0) Fail(error);
  Finish();
  return true;
}

void FileReplacement::Finish() {
  close(std::exchange(file_, -1));
  FlushFolder(path_.has_parent_path() ? path_.parent_path() : std::filesystem::path("."));
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

}  // namespace orvex::store
