#pragma once

#include <chrono>
#include <filesystem>
#include <stdexcept>

#include "windows/paper.h"

namespace orvex::windows {

/// A display page that could not be printed; the text is the page's own sentence where it has one.
class PageFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct PrintJob {
  std::filesystem::path page;
  std::filesystem::path file;
  Paper paper = Paper::kLetter;
  std::chrono::seconds limit{300};  ///< for loading, laying out and printing together
};

/// Prints a display page to a PDF file in landscape, on a process that has no QApplication yet; needs no display. The
/// file is replaced when the PDF is complete, and left as it was otherwise. Throws `PageFailure` for the page, and for
/// files `store::RunTimeError`: 3024 no such page, 3044 and 3043 the PDF cannot be written.
void PrintPage(const PrintJob& job);

}  // namespace orvex::windows
