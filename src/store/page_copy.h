#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace orvex::store {

class Connection;

/// Called with the parts of a copy that are done and their number; what it throws ends the copy.
using CopyProgress = std::function<void(std::int64_t done, std::int64_t total)>;

/// Whether a database file was left in the midst of work, so that it can be read only once that has been played back:
/// by a journal beside it, or by its log without the program that kept it.
bool WasLeftAtWork(const std::filesystem::path& path);

/// Copies a whole database into an open one, page by page, as it stands at one moment. The file is only read.
void CopyPages(const std::filesystem::path& from, Connection& to, const CopyProgress& progress);

/// Copies a database file that was left in the midst of work, with what stands beside it, so that the work can be
/// played back in the copy. The file and the journal stay as they are. Error 3043.
void CopyWithJournals(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes what SQLite may keep beside a database.
void RemoveJournals(const std::filesystem::path& database);

}  // namespace orvex::store
