#include "store/lock_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "store/file_lock.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

bool IsRegular(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

/// -1 if it cannot be made. One that another account left can be locked without the right to write it.
int OpenFile(const fs::path& path) {
  constexpr int kSafely = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  int file = open(path.c_str(), O_RDWR | O_CREAT | kSafely, 0666);
  if (file < 0 && errno == EACCES) file = open(path.c_str(), O_RDONLY | kSafely);
  if (file >= 0 && !IsRegular(file)) close(std::exchange(file, -1));
  return file;
}

/// What stands there with a content is not this program's.
bool IsEmpty(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && status.st_size == 0;
}

}  // namespace

LockFile::LockFile(fs::path path, int file) : path_(std::move(path)), file_(file) {}

LockFile::~LockFile() {
  if (file_ < 0) return;
  // Before the lock is let go of: nobody can have locked it since.
  if (IsEmpty(file_) && HasName(file_, path_)) unlink(path_.c_str());
  close(file_);
}

std::shared_ptr<LockFile> LockFile::Take(const fs::path& path) {
  while (true) {
    const int file = OpenFile(path);
    const auto result = file < 0 ? LockResult::kNoLocks : LockNow(file);
    if (result == LockResult::kLocked && HasName(file, path))
      return std::shared_ptr<LockFile>(new LockFile(path, file));
    if (file >= 0) close(file);
    if (result == LockResult::kHeldElsewhere) return nullptr;
    if (result == LockResult::kNoLocks) return std::shared_ptr<LockFile>(new LockFile(path, -1));
    // Whoever held it has removed it between the opening and the locking.
  }
}

}  // namespace orvex::store
