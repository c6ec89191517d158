#pragma once

#include <filesystem>

/// Locks by which programs that use the same file tell each other that they are at work. A lock belongs to an opening
/// of the file and ends with the process.
namespace orvex::store {

/// False if somebody else has the lock, or if the file system has no locks.
bool TryLock(int file);

/// The same, told apart.
enum class LockResult { kLocked, kHeldElsewhere, kNoLocks };
LockResult LockNow(int file);

/// Waits until it has the lock.
void Lock(int file);

/// Error 3260 if any program has the file open, this one included, and keeps it so for a while: one that looks through
/// all new files lets go of them soon. A file system that cannot tell lets it pass, and so does a file that may not be
/// written; then SQLite's own locks have to do.
void RequireUnused(const std::filesystem::path& path);

/// Error 3260, which names the file.
[[noreturn]] void ThrowLocked(const std::filesystem::path& path);

/// Whether an open file is still the regular file that a name stands for.
bool HasName(int file, const std::filesystem::path& path);

}  // namespace orvex::store
