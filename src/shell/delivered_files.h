#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace orvex::shell {

inline constexpr std::string_view kReferenceFile = "tankdata.mdb";
inline constexpr std::string_view kClientFile = "client1.mdb";
/// The folder of the report pages among the delivered files.
inline constexpr std::string_view kDisplayFolder = "display";
/// The folder of the help among the delivered files.
inline constexpr std::string_view kHelpFolder = "help";

/// Finds a file or folder that the program is delivered with, by its name. `program` is the program's own file: the
/// delivered files stand near it, in one place when it is installed and in another where it was built. Error 3024
/// names both.
std::filesystem::path FindDelivered(const std::filesystem::path& program, std::string_view name);

/// The files of a delivered folder, ordered by name; error 3043 if it cannot be read.
std::vector<std::filesystem::path> DeliveredFiles(const std::filesystem::path& folder);

enum class Delivery { kNone, kAdded, kUpdated };

/// Copies a file that belongs to the program to a folder, unless one of the same content stands there. It is replaced
/// whole or not at all. Errors 3043 and 3044 name the file.
Delivery BringUpToDate(const std::filesystem::path& delivered, const std::filesystem::path& folder);

/// True for a file that holds the mark which every display file has somewhere, a newer or older version's included.
bool IsDisplayFile(const std::filesystem::path& path);

/// Copies a database to a folder, unless anything there has its name: a person's database is never touched. Whole or
/// not at all; true if it was copied. Errors 3043 and 3044 name the file.
bool AddDatabase(const std::filesystem::path& delivered, const std::filesystem::path& folder);

}  // namespace orvex::shell
