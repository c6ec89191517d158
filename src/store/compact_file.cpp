#include "store/compact_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "store/connection.h"
#include "store/database.h"
#include "store/file_check.h"
#include "store/file_renaming.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

fs::path With(fs::path path, const char* ending) { return path += ending; }

bool IsThere(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

void Remove(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

[[noreturn]] void ThrowLocked(const fs::path& path) {
  throw RunTimeError(ErrorNumber::kFileLocked,
                     fmt::format("{} is locked: another program is using it.", path.string()));
}

[[noreturn]] void ThrowCannotWrite(const fs::path& path, int cause) {
  throw RunTimeError(ErrorNumber::kDiskFailure,
                     fmt::format("{} cannot be written: {}.", path.string(), std::generic_category().message(cause)));
}

/// The file beside a database into which it is compacted, and a mark that it is this program's: an empty file that
/// stands there as long. Only a file with that mark is ever removed.
class FileBeside {
 public:
  explicit FileBeside(fs::path path) : path_(std::move(path)), mark_(With(path_, ".compacting")), lock_(TakeMark()) {
    // Left over from a program that was ended.
    Clear();
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside() {
    Clear();
    Remove(mark_);
  }
  [[nodiscard]] const fs::path& Path() const { return path_; }

 private:
  /// The locked mark; the lock ends with the program.
  Descriptor TakeMark() {
    while (true) {
      if (IsThere(path_) && !IsThere(mark_)) {
        throw RunTimeError(ErrorNumber::kAlreadyExists,
                           fmt::format("The file {} already exists; it is not this program's.", path_.string()));
      }
      Descriptor mark(open(mark_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
      if (mark.Number() < 0) ThrowCannotWrite(mark_, errno);
      if (flock(mark.Number(), LOCK_EX | LOCK_NB) != 0) ThrowLocked(path_);
      // The program that had the lock before may have removed the mark.
      struct stat held {
      }, there{};
      if (fstat(mark.Number(), &held) == 0 && stat(mark_.c_str(), &there) == 0 && held.st_ino == there.st_ino)
        return mark;
    }
  }
  void Clear() const {
    Remove(path_);
    Remove(With(path_, "-journal"));
  }

  fs::path path_, mark_;
  Descriptor lock_;
};

/// Error 3260 if any program has the file open, and keeps it so for a while: one that looks through all new files lets
/// go of them soon. A file system that cannot tell lets it pass; then SQLite's own locks have to do.
void RequireUnused(const fs::path& path) {
  constexpr int kAttempts = 20;
  constexpr std::chrono::milliseconds kPause{100};
  const Descriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC));
  // Who may not write is told so when the database is opened.
  if (file.Number() < 0) return;
  // Somebody who opens the file meanwhile is told of to this program by a signal, which must not be the usual one: that
  // ends programs.
  if (fcntl(file.Number(), F_SETSIG, SIGURG) != 0) return;
  for (int attempt = 0; fcntl(file.Number(), F_SETLEASE, F_WRLCK) != 0; ++attempt) {
    if (errno != EAGAIN) return;
    if (attempt == kAttempts) ThrowLocked(path);
    std::this_thread::sleep_for(kPause);
  }
  fcntl(file.Number(), F_SETLEASE, F_UNLCK);
}

std::string JournalMode(const Connection& connection) {
  Statement mode(connection, "PRAGMA journal_mode");
  mode.Step();
  return mode.Text(0);
}

/// Keeps every other program out of the file for as long as the connection lives, and lets nothing of it stand in a
/// journal.
void HoldAlone(Connection& connection) {
  if (connection.ReadOnly()) connection.Fail(SQLITE_READONLY);
  if (JournalMode(connection) == "wal") connection.Execute("PRAGMA journal_mode = DELETE");
  connection.Execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
}

void WriteCompacted(const Connection& connection, const fs::path& target) {
  Statement vacuum(connection, "VACUUM INTO ?1");
  const Value name(target.string());
  vacuum.Bind(1, name);
  vacuum.Step();
}

/// Whoever could use the old file can use the new one.
void CopyRights(const fs::path& from, const fs::path& to) {
  struct stat rights {};
  if (stat(from.c_str(), &rights) != 0) return;
  // Only the system's own account may give files away, so a refusal is expected. It comes first: it takes rights away.
  if (chown(to.c_str(), rights.st_uid, rights.st_gid) != 0 && errno != EPERM) ThrowCannotWrite(to, errno);
  if (chmod(to.c_str(), rights.st_mode & 07777U) != 0) ThrowCannotWrite(to, errno);
}

void RequireSound(const fs::path& path) {
  if (Database::Open(path, OpenMode::kReadOnly)->IntegrityCheck()) return;
  throw RunTimeError(ErrorNumber::kDamagedFile, fmt::format("{} was not written as it should be.", path.string()));
}

}  // namespace

fs::path CompactionPath(const fs::path& path) {
  std::string name = path.string();
  const bool is_n = name.ends_with('N');
  // A character of UTF-8 goes as a whole.
  while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U) name.pop_back();
  if (!name.empty()) name.pop_back();
  return name + (is_n ? 'M' : 'N');
}

void CompactFile(const fs::path& path) {
  CheckFile(path);
  // Behind a link it is the file itself that is replaced.
  const fs::path file = fs::canonical(path);
  RequireUnused(file);
  Connection connection(file, SQLITE_OPEN_READWRITE);
  HoldAlone(connection);
  const FileBeside beside(CompactionPath(file));
  WriteCompacted(connection, beside.Path());
  CopyRights(file, beside.Path());
  RequireSound(beside.Path());
  FlushFile(beside.Path());
  if (rename(beside.Path().c_str(), file.c_str()) != 0) ThrowCannotWrite(file, errno);
  FlushFolderOf(file);
}

}  // namespace orvex::store
