#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvex::store {

/// The names that fields have in a dBASE file: in capitals, with '_' for all but letters and digits of ASCII, an F in
/// front where no letter stands there, cut to ten characters. A name that an earlier field has ends in the smallest
/// number from 2 on that makes it different, in place of its last characters where it would be too long.
std::vector<std::string> DbaseFieldNames(const std::vector<std::string>& names);

/// Error 3125 for a file whose name is longer than the eight characters and an extension that the format allows.
void CheckDbaseFileName(const std::filesystem::path& path);

}  // namespace orvex::store
