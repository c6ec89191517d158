#pragma once

#include <string>
#include <vector>

#include "windows/page_printer.h"

namespace orvex::pdf_app {

/// What the command line asks for.
struct Options {
  windows::PrintJob job;
  std::string text;  ///< of `--help` and `--version`: printed, and nothing else is done
};

/// Reads the arguments, without the program's name. Throws `report_app::Failure`.
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace orvex::pdf_app
