#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace orvex::report_app {

/// What the program finds around it.
struct Surroundings {
  std::ostream& out;
  std::ostream& err;
  std::filesystem::path program = {};         ///< the program's own file: the delivered files stand near it
  bool err_is_terminal = false;               ///< shows progress
  std::function<bool()> stop_requested = {};  ///< true when the person has asked to stop
  std::chrono::milliseconds pdf_limit = std::chrono::minutes(10);  ///< how long the printing of a PDF may take
};

/// Does what the arguments (without the program's name) ask for; the exit status.
int Run(const std::vector<std::string>& arguments, const Surroundings& surroundings);

}  // namespace orvex::report_app
