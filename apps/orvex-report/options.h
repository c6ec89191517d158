#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "orvex-report/report_kind.h"

namespace orvex::report_app {

/// What the command line asks for.
struct Options {
  std::filesystem::path client;
  std::filesystem::path reference;  ///< empty: the delivered one
  std::vector<std::string> tanks;   ///< the values of `--tanks`, as given; empty: all tanks
  bool monthly = false;
  std::array<bool, 12> months{};  ///< January first; the chosen ones of a monthly report
  Kind kind = Kind::kBrief;
  std::filesystem::path out = ".";
  std::filesystem::path csv;  ///< empty: none is written
  std::filesystem::path pdf;  ///< empty: none is made
  std::string paper;          ///< of the PDF: "letter" or "a4"
  bool list = false;
  std::filesystem::path import_csv;  ///< folder of CSV files whose tanks are added; empty: none are
  std::filesystem::path export_csv;  ///< folder to which the tanks are written as CSV files; empty: they are not
  bool quiet = false;
  std::string text;  ///< of `--help` and `--version`: printed, and nothing else is done
};

/// Reads the arguments, without the program's name. Throws `Failure`.
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace orvex::report_app
