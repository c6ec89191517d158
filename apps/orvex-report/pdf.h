#pragma once

#include <filesystem>
#include <string>

#include "orvex-report/run.h"

namespace orvex::report_app {

/// The program that prints a report page to a PDF file. It is a program of its own, so that this one needs no window
/// toolkit. Throws `Failure` where it was not installed.
std::filesystem::path FindPdfProgram(const std::filesystem::path& program);

/// What is printed, and where to.
struct PdfRequest {
  std::filesystem::path page;
  std::filesystem::path file;
  std::string paper;  ///< "letter" or "a4"
};

/// Prints a page; what the printing program says is passed on. Throws `Failure`.
void WritePdf(const PdfRequest& request, const Surroundings& around);

}  // namespace orvex::report_app
