#include "orvex-report/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "orvex-report/failure.h"
#include "orvex-report/list_text.h"
#include "orvex-report/terminal_text.h"
#include "shell/periods.h"
#include "shell/status.h"
#include "store/letter_case.h"

namespace orvex::report_app {
namespace {

constexpr const char* kDescription =
    "Computes the emissions of the tanks of a client database and writes their report, or brings tanks from and to CSV "
    "files.\n";

constexpr const char* kFooter =
    "\nUSER IDs are matched without regard to case; one that holds a comma or a quote is quoted as in a CSV file: "
    "--tanks '\"T-1, north\",T-2'.\n"
    "\nThe folder of --import-csv and --export-csv holds tanks.csv, mixtures.csv, components.csv and fittings.csv. "
    "Their columns are the fields of the tables; an empty client database gives a template. Cells are parted by "
    "commas, numbers have a decimal point, an empty cell is an empty field, and a switch is Yes or No. The rows of "
    "the last three files name their tank by its USER ID, its ID or both. A tank keeps its ID where the database has "
    "nothing under it, and gets the next free one otherwise. All tanks are added, or, on any fault, none.\n"
    "\nExit status: 0 done; 2 stopped on faults of the data or of CSV files, which are listed; 64 wrong use; 66 a file "
    "cannot be opened or a part of the program is not there; 70 a run-time failure was reported, or an output could "
    "not be written to its end; 130 stopped by Ctrl-C.";

constexpr std::string_view kPapers[] = {"letter", "a4"};

[[noreturn]] void WrongUse(std::string description) { throw Failure{kWrongUse, std::move(description)}; }

/// An empty name, as an unset variable of a script gives, would be taken for none without a word.
std::string Named(const std::string& file) { return file.empty() ? "no file is named" : ""; }
std::string NamedFolder(const std::string& folder) { return folder.empty() ? "no folder is named" : ""; }

Kind ParseKind(const std::string& text) {
  for (const auto& kind : ReportKinds())
    if (store::LowerCase(text) == kind.option) return kind.kind;
  WrongUse(fmt::format("--kind: unknown kind of report '{}'; use brief, summary or detail", TerminalText(text)));
}

std::string ParsePaper(const std::string& text) {
  for (const auto paper : kPapers)
    if (store::LowerCase(text) == paper) return std::string(paper);
  WrongUse(fmt::format("--paper: unknown paper '{}'; use letter or a4", TerminalText(text)));
}

/// A full month name or its first three letters.
std::size_t ParseMonth(const std::string& text) {
  const auto lower = store::LowerCase(text);
  const auto month = std::ranges::find_if(shell::kMonths, [&](const shell::Month& candidate) {
    return lower == store::LowerCase(candidate.name) || lower == store::LowerCase(candidate.suffix);
  });
  if (month == shell::kMonths.end())
    WrongUse(fmt::format("--monthly: unknown month '{}'; use Jan,Feb,... or full names", TerminalText(text)));
  return static_cast<std::size_t>(month - shell::kMonths.begin());
}

std::array<bool, 12> ParseMonths(const std::vector<std::string>& values) {
  std::array<bool, 12> months{};
  for (const auto& value : values)
    for (const auto& month : SplitList(value)) months[ParseMonth(month)] = true;
  if (std::ranges::none_of(months, [](bool chosen) { return chosen; })) WrongUse("--monthly: no month is named");
  return months;
}

/// The options that bring tanks from and to CSV files, which go with none of the others.
void AddTransfers(CLI::App& app, Options& options, std::initializer_list<CLI::Option*> others) {
  auto* from = app.add_option("--import-csv", options.import_csv,
                              "Add the tanks in a folder of CSV files to the client database; compute nothing");
  auto* to = app.add_option("--export-csv", options.export_csv,
                            "Write the tanks to CSV files in a folder, in place of those there; compute nothing");
  for (auto* option : {from, to}) {
    option->type_name("DIR")->check(NamedFolder);
    for (auto* other : others) option->excludes(other);
  }
  from->excludes(to);
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  std::vector<std::string> months;
  std::string kind = "brief";
  std::string paper = "letter";
  CLI::App app(kDescription, "orvex-report");
  app.footer(kFooter);
  app.set_help_flag("-h,--help", "Print this help and end");
  app.set_version_flag("--version", fmt::format("orvex-report {}", shell::kVersion), "Print the version and end");
  app.add_option("--client", options.client, "Client database")->type_name("FILE")->required();
  app.add_option("--reference", options.reference, "Reference database; the delivered one if not given")
      ->type_name("FILE")
      ->check(Named);
  auto* tanks =
      app.add_option("--tanks", options.tanks, "Tanks by USER ID, all of them if not given; @FILE reads one a line");
  tanks->type_name("all|ID,...|@FILE")->allow_extra_args(false);
  bool whole_year = false;
  auto* annual = app.add_flag("--annual", whole_year, "Report on the whole year");
  auto* monthly = app.add_option("--monthly", months, "Report on these months")
                      ->type_name("Jan,Feb,...")
                      ->allow_extra_args(false)
                      ->excludes(annual);
  app.add_option("--kind", kind, "Kind of report: brief, summary or detail")->type_name("KIND")->capture_default_str();
  app.add_option("--out", options.out,
                 "Folder for the report and the page that shows it, made if it is missing; report and display files of "
                 "an earlier run are replaced")
      ->type_name("DIR")
      ->capture_default_str();
  auto* csv = app.add_option("--csv", options.csv, "Also write the emission rows of the tanks to a CSV file");
  csv->type_name("FILE")->check(Named);
  auto* pdf = app.add_option("--pdf", options.pdf, "Also print the report, in landscape, to a PDF file")
                  ->type_name("FILE")
                  ->check(Named);
  app.add_option("--paper", paper, "Paper of the PDF: letter or a4")
      ->type_name("PAPER")
      ->capture_default_str()
      ->needs(pdf);
  auto* quiet = app.add_flag("--quiet", options.quiet, "Print nothing but errors");
  auto* list = app.add_flag("--list", options.list, "Print the tanks with their types and compute nothing");
  list->excludes(csv)->excludes(pdf)->excludes(quiet);
  AddTransfers(app, options, {tanks, annual, monthly, csv, pdf, list});
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    options.text = app.help();
    return options;
  } catch (const CLI::CallForVersion& version) {
    options.text = std::string(version.what()) + "\n";
    return options;
  } catch (const CLI::ParseError& error) {
    WrongUse(TerminalText(error.what()));
  }
  options.kind = ParseKind(kind);
  options.paper = ParsePaper(paper);
  options.monthly = monthly->count() > 0;
  if (options.monthly) options.months = ParseMonths(months);
  const bool computes = !options.list && options.import_csv.empty() && options.export_csv.empty();
  if (computes && !options.monthly && !whole_year)
    WrongUse("no period is given: use --annual or --monthly Jan,Feb,...");
  return options;
}

}  // namespace orvex::report_app
