#include "store/file_lock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

namespace orvex::store {

LockResult LockNow(int file) {
  if (flock(file, LOCK_EX | LOCK_NB) == 0) return LockResult::kLocked;
  return errno == EWOULDBLOCK ? LockResult::kHeldElsewhere : LockResult::kNoLocks;
}

bool TryLock(int file) { return LockNow(file) == LockResult::kLocked; }

void Lock(int file) {
  while (flock(file, LOCK_EX) != 0 && errno == EINTR) continue;
}

bool HasName(int file, const std::filesystem::path& path) {
  struct stat opened {
  }, named{};
  return fstat(file, &opened) == 0 && lstat(path.c_str(), &named) == 0 && S_ISREG(named.st_mode) &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace orvex::store
