#pragma once

#include <filesystem>

namespace orvex::store {

/// Error 3044 unless the folder of a file is there.
void CheckFolder(const std::filesystem::path& file);

/// Looks at a database file before it is opened: errors 3044 (folder not there), 3024 (file not there), 3343 (a folder,
/// an empty file, no database), 3049 (shorter than its header says), 3043 (can't be read).
void CheckFile(const std::filesystem::path& file);

}  // namespace orvex::store
