#include "store/compact_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <string>
#include <system_error>
#include <utility>

#include "store/connection.h"
#include "store/database.h"
#include "store/file_check.h"
#include "store/file_lock.h"
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

/// Tells, while a statement works, how large the file is that it writes, and stops it where the caller throws.
class WrittenSize {
 public:
  WrittenSize(const Connection& connection, fs::path file, std::int64_t expected, const CompactionProgress& progress)
      : handle_(connection.Handle()), file_(std::move(file)), expected_(expected), progress_(progress) {
    constexpr int kInstructions = 20000;
    if (progress_) sqlite3_progress_handler(handle_, kInstructions, &Look, this);
  }
  WrittenSize(const WrittenSize&) = delete;
  WrittenSize& operator=(const WrittenSize&) = delete;
  ~WrittenSize() { sqlite3_progress_handler(handle_, 0, nullptr, nullptr); }

  /// What the caller threw goes on here: it cannot pass through SQLite.
  void RethrowStop() const {
    if (stop_) std::rethrow_exception(stop_);
  }

 private:
  static int Look(void* self) {
    auto& size = *static_cast<WrittenSize*>(self);
    try {
      std::error_code not_there;
      const auto written = fs::file_size(size.file_, not_there);
      size.progress_(not_there ? 0 : std::min(static_cast<std::int64_t>(written), size.expected_), size.expected_);
      return 0;
    } catch (...) {
      size.stop_ = std::current_exception();
      return 1;
    }
  }

  sqlite3* handle_;
  fs::path file_;
  std::int64_t expected_;
  const CompactionProgress& progress_;
  std::exception_ptr stop_;
};

void WriteCompacted(const Connection& connection, const fs::path& target, const CompactionProgress& progress) {
  std::error_code gone;
  const auto expected = fs::file_size(connection.Path(), gone);
  if (gone) ThrowCannotWrite(connection.Path(), gone.value());
  const WrittenSize size(connection, target, static_cast<std::int64_t>(expected), progress);
  Statement vacuum(connection, "VACUUM INTO ?1");
  const Value name(target.string());
  vacuum.Bind(1, name);
  try {
    vacuum.Step();
  } catch (const RunTimeError&) {
    size.RethrowStop();
    throw;
  }
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

void CompactFile(const fs::path& path, const CompactionProgress& progress) {
  CheckFile(path);
  // Behind a link it is the file itself that is replaced.
  const fs::path file = fs::canonical(path);
  RequireUnused(file);
  Connection connection(file, SQLITE_OPEN_READWRITE);
  HoldAlone(connection);
  const FileBeside beside(CompactionPath(file));
  WriteCompacted(connection, beside.Path(), progress);
  CopyRights(file, beside.Path());
  RequireSound(beside.Path());
  FlushFile(beside.Path());
  if (rename(beside.Path().c_str(), file.c_str()) != 0) ThrowCannotWrite(file, errno);
  FlushFolderOf(file);
}

}  // namespace orvex::store
