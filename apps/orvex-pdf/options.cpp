#include "orvex-pdf/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>

#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"
#include "shell/status.h"

namespace orvex::pdf_app {
namespace {

using report_app::Failure;
using report_app::kWrongUse;
using report_app::TerminalText;
using windows::Paper;

constexpr const char* kDescription =
    "Prints the display page of a report to a PDF file, in landscape. Needs no display.\n";

constexpr const char* kFooter =
    "\nThe page gets the files of its own folder and nothing else. FILE is replaced when the PDF is complete, and left "
    "as it was otherwise.\n"
    "\nExit status: 0 done; 64 wrong use; 66 PAGE or FILE cannot be opened; 70 the page failed or the PDF could not be "
    "written.";

constexpr int kDayInSeconds = 24 * 60 * 60;

const std::map<std::string, Paper> kPapers = {{"letter", Paper::kLetter}, {"a4", Paper::kA4}};

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  std::string paper = "letter";
  auto limit = options.job.limit.count();
  CLI::App app(kDescription, "orvex-pdf");
  app.footer(kFooter);
  app.set_help_flag("-h,--help", "Print this help and end");
  app.set_version_flag("--version", fmt::format("orvex-pdf {}", shell::kVersion), "Print the version and end");
  app.add_option("PAGE", options.job.page, "Display page, with its report file beside it")->required();
  app.add_option("FILE", options.job.file, "PDF file to write")->required();
  app.add_option("--paper", paper, "Paper: letter or a4")->type_name("PAPER")->capture_default_str();
  app.add_option("--time-limit", limit, "Give up after so many seconds")
      ->type_name("SECONDS")
      ->check(CLI::Range(1, kDayInSeconds))
      ->capture_default_str();
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    options.text = app.help();
    return options;
  } catch (const CLI::CallForVersion& version) {
    options.text = std::string(version.what()) + "\n";
    return options;
  } catch (const CLI::ParseError& error) {
    throw Failure{kWrongUse, TerminalText(error.what())};
  }
  const auto known = kPapers.find(CLI::detail::to_lower(paper));
  if (known == kPapers.end())
    throw Failure{kWrongUse, fmt::format("--paper: unknown paper '{}'; use letter or a4", TerminalText(paper))};
  options.job.paper = known->second;
  options.job.limit = std::chrono::seconds(limit);
  return options;
}

}  // namespace orvex::pdf_app
