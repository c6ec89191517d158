#include "store/file_renaming.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

[[noreturn]] void ThrowCannotWrite(const std::filesystem::path& file, int cause) {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be written: {}.", file.string(),
                                                            std::generic_category().message(cause)));
}

}  // namespace

void FlushFile(const std::filesystem::path& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = descriptor >= 0 && fsync(descriptor) == 0;
  const int cause = errno;
  if (descriptor >= 0) close(descriptor);
  if (!flushed) ThrowCannotWrite(file, cause);
}

void CopyRights(const std::filesystem::path& from, const std::filesystem::path& to) {
  struct stat rights {};
  if (stat(from.c_str(), &rights) != 0) return;
  // Only the system's own account may give files away, so a refusal is expected. It comes first: it takes rights away.
  if (chown(to.c_str(), rights.st_uid, rights.st_gid) != 0 && errno != EPERM) ThrowCannotWrite(to, errno);
  if (chmod(to.c_str(), rights.st_mode & 07777U) != 0) ThrowCannotWrite(to, errno);
}

void FlushFolderOf(const std::filesystem::path& file) {
  const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

int RenameAsNew(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  // Some file systems cannot rename so. A second name never takes a place, either.
  if (errno != EINVAL && errno != ENOSYS) return errno;
  if (link(from.c_str(), to.c_str()) != 0) return errno;
  unlink(from.c_str());
  return 0;
}

}  // namespace orvex::store
