#include "store/file_lock.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

enum class Use { kNone, kOpenElsewhere, kUnknown };

/// A lease on a file is given to nobody while it is open elsewhere.
Use TakeLease(int file) {
  // Somebody who opens the file meanwhile is told of to this program by a signal, which must not be the usual one: that
  // ends programs.
  if (fcntl(file, F_SETSIG, SIGURG) != 0) return Use::kUnknown;
  if (fcntl(file, F_SETLEASE, F_WRLCK) != 0) return errno == EAGAIN ? Use::kOpenElsewhere : Use::kUnknown;
  fcntl(file, F_SETLEASE, F_UNLCK);
  return Use::kNone;
}

}  // namespace

LockResult LockNow(int file) {
  if (flock(file, LOCK_EX | LOCK_NB) == 0) return LockResult::kLocked;
  return errno == EWOULDBLOCK ? LockResult::kHeldElsewhere : LockResult::kNoLocks;
}

bool TryLock(int file) { return LockNow(file) == LockResult::kLocked; }

void Lock(int file) {
  while (flock(file, LOCK_EX) != 0 && errno == EINTR) continue;
}

void RequireUnused(const std::filesystem::path& path) {
  constexpr int kAttempts = 20;
  constexpr std::chrono::milliseconds kPause{100};
  const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
  if (file < 0) return;
  Use use = TakeLease(file);
  for (int attempt = 0; use == Use::kOpenElsewhere && attempt < kAttempts; ++attempt) {
    std::this_thread::sleep_for(kPause);
    use = TakeLease(file);
  }
  close(file);
  if (use == Use::kOpenElsewhere) ThrowLocked(path);
}

void ThrowLocked(const std::filesystem::path& path) {
  throw RunTimeError(ErrorNumber::kFileLocked,
                     fmt::format("{} is locked: another program is using it.", path.string()));
}

bool HasName(int file, const std::filesystem::path& path) {
  struct stat opened {
  }, named{};
  return fstat(file, &opened) == 0 && lstat(path.c_str(), &named) == 0 && S_ISREG(named.st_mode) &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace orvex::store
