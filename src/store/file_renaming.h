#pragma once

#include <filesystem>

/// How a file that was written beside its place gets there for good.
namespace orvex::store {

/// Sees onto the disk what lies in the system's memory. Error 3043 names the file.
void FlushFile(const std::filesystem::path& file);

/// Gives a file the owner and the permissions of the one whose place it is to take: whoever could use that can use the
/// new one. Nothing to do where there is no old one. Error 3043.
void CopyRights(const std::filesystem::path& from, const std::filesystem::path& to);

/// A rename lasts only when its folder has reached the disk. Some file systems cannot flush a folder, so a refusal is
/// no failure.
void FlushFolderOf(const std::filesystem::path& file);

/// Renames a file unless something has the new name, be it a link that leads nowhere; 0 or the number of the error.
int RenameAsNew(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace orvex::store
