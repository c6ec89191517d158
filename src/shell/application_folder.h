#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/run_time_error.h"

/// The application's folder: where a person's databases lie until they are moved, and where the report files stand
/// beside the pages that show them.
namespace orvex::shell {

/// What tells where a person's files are kept; empty where it is not set.
struct PersonFolders {
  std::string data_home;         ///< XDG_DATA_HOME
  std::string home;              ///< HOME
  std::string account_home;      ///< the home that the system knows for the account
  std::string config_home = {};  ///< XDG_CONFIG_HOME
};

/// As they are set for this process.
PersonFolders FindPersonFolders();

/// Where the application's folder is. A path that is not absolute counts as not set; error 3044 if none is left.
std::filesystem::path ApplicationFolder(const PersonFolders& person);

/// Makes a folder and those above it that are missing, for nobody but the person. Errors 3043 and 3044 name it.
void MakeFolder(const std::filesystem::path& folder);

/// What `FillApplicationFolder` did.
struct Filling {
  bool first_start = false;  ///< nobody had filled the folder to its end before
  std::vector<std::filesystem::path> added;
  std::vector<std::filesystem::path> updated;  ///< the program's own files that were not those of this program
  std::vector<store::RunTimeError> failures;   ///< each names a file or folder; what could be done was done
};

/// Makes the folder if need be and fills it from the files that the program is delivered with (`program` is its own
/// file). Pages and help belong to the program and are brought up to date. The databases belong to the person: they
/// are put there on the first start, never over anything, and one that is gone later stays gone, so that the person is
/// asked where it is instead of finding an empty one. Ended at any moment it leaves whole files only, and unfinished
/// ones under names of their own; the next start removes these and goes on. Two programs may do it at once.
Filling FillApplicationFolder(const std::filesystem::path& folder, const std::filesystem::path& program);

/// The failures as a person reads them: the first ones, and how many there are besides. Empty if there are none.
std::string FailureText(const Filling& filling);

}  // namespace orvex::shell
