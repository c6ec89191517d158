#pragma once

#include <filesystem>

#include "store/run_time_error.h"

namespace orvex::windows {

/// Where the desktop program keeps a person's files and finds its own.
struct ProgramPlaces {
  std::filesystem::path application_folder;
  std::filesystem::path settings_folder;
  std::filesystem::path program;  ///< its own file
};

/// The desktop program from start to exit: fills the application's folder, runs the starting sequence, and comes back
/// when the last window is closed. Needs a `WebApplication`. Gives the exit status of the process.
int RunDesktopProgram(const ProgramPlaces& places);

/// Tells that the program can't start at all, and gives its exit status.
int TellCannotStart(const store::RunTimeError& error);

}  // namespace orvex::windows
