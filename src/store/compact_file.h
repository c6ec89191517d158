#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace orvex::store {

/// Where a database is compacted to before it takes the place of the old file: the path with "N" as its last character
/// ("client1.mdN" for "client1.mdb"), or with "M" where that is the path itself.
std::filesystem::path CompactionPath(const std::filesystem::path& path);

/// Called with the bytes written so far and those that it may become; what it throws stops the compaction, and the file
/// stays as it is.
using CompactionProgress = std::function<void(std::int64_t done, std::int64_t total)>;

/// Writes a database anew without the room that deleted records left in it. The new file is written beside the old one,
/// checked, and renamed over it: ended at any moment, the old or the new one stands there whole. What an ended program
/// left beside it is cleared away by the next compaction; a file of that name which is no such leftover is error 3010.
/// Other errors leave the file as it is: those of `Database::Open`, 3260 also when another program has it open, even
/// if it does nothing with it, 3027 when it may not be written.
void CompactFile(const std::filesystem::path& path, const CompactionProgress& progress = {});

}  // namespace orvex::store
