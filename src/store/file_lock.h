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

/// Whether an open file is still the regular file that a name stands for.
bool HasName(int file, const std::filesystem::path& path);

}  // namespace orvex::store
