#pragma once

#include <filesystem>

/// How a file that was written beside its place gets there for good.
namespace orvex::store {

/// Sees onto the disk what lies in the system's memory. Error 3043 names the file.
void FlushFile(const std::filesystem::path& file);

/// A rename lasts only when its folder has reached the disk. Some file systems cannot flush a folder, so a refusal is
/// no failure.
void FlushFolderOf(const std::filesystem::path& file);

/// Renames a file unless something has the new name, be it a link that leads nowhere; 0 or the number of the error.
int RenameAsNew(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace orvex::store
