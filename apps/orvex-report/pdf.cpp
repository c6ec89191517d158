#include "orvex-report/pdf.h"

#include <fmt/format.h>
#include <unistd.h>

#include <ostream>
#include <system_error>

#include "orvex-report/child_program.h"
#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"

namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgram = "orvex-pdf";

std::string Name(const fs::path& path) { return TerminalText(path.string()); }

/// A line of the printing program, which may have its name in front already.
std::string Signed(std::string_view line) {
  const auto head = fmt::format("{}: ", kProgram);
  return (line.starts_with(head) ? "" : head) + TerminalText(line);
}

std::string Reason(const ChildEnd& end, std::chrono::milliseconds limit) {
  switch (end.how) {
    case ChildEnd::How::kSignalled:
      return fmt::format("orvex-pdf was ended by signal {}", end.code);
    case ChildEnd::How::kTimedOut:
      return fmt::format("orvex-pdf took longer than {} seconds and was ended",
                         std::chrono::duration_cast<std::chrono::seconds>(limit).count());
    default:
      return fmt::format("orvex-pdf ended with status {}", end.code);
  }
}

ChildEnd Start(const PdfRequest& request, const Surroundings& around) {
  // Absolute, so that no name is taken for an option.
  return RunChild({.program = FindPdfProgram(around.program),
                   .arguments = {fs::absolute(request.page), fs::absolute(request.file), "--paper", request.paper},
                   .limit = around.pdf_limit,
                   .stop_requested = around.stop_requested,
                   .on_line = [&](std::string_view line) { around.err << Signed(line) + "\n"
                                                                      << std::flush; }});
}

}  // namespace

fs::path FindPdfProgram(const fs::path& program) {
  auto path = program.parent_path() / kProgram;
  std::error_code error;
  // Without a folder of its own, whatever stands in the current one would be started.
  if (program.is_absolute() && fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0) return path;
  throw Failure{kCannotOpen, fmt::format("--pdf: there is no program '{}': this orvex-report was built or installed "
                                         "without windows",
                                         Name(path))};
}

void WritePdf(const PdfRequest& request, const Surroundings& around) {
  ChildEnd end{};
  try {
    end = Start(request, around);
  } catch (const std::system_error& error) {
    throw Failure{kRunTimeFailure,
                  fmt::format("the PDF '{}' was not made: {}", Name(request.file), TerminalText(error.what()))};
  }
  if (end.how == ChildEnd::How::kStopped)
    throw Failure{kInterrupted, fmt::format("Stopped; the report is written, the PDF '{}' is not", Name(request.file))};
  if (end.how != ChildEnd::How::kExited || end.code != 0)
    throw Failure{kRunTimeFailure,
                  fmt::format("the PDF '{}' was not made: {}", Name(request.file), Reason(end, around.pdf_limit))};
}

}  // namespace orvex::report_app
