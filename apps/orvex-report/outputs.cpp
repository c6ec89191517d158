#include "orvex-report/outputs.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <system_error>
#include <vector>

#include "orvex-report/failure.h"
#include "orvex-report/pdf.h"
#include "orvex-report/report_kind.h"
#include "orvex-report/terminal_text.h"
#include "shell/delivered_files.h"
#include "store/file_replacement.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;

std::string Name(const fs::path& path) { return TerminalText(path.string()); }

bool SameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) || fs::weakly_canonical(one, error) == fs::weakly_canonical(other, error);
}

/// An output that would replace one of the databases is surely a mistake.
void CheckNotADatabase(const fs::path& output, const shell::Session& session) {
  for (const auto* database : {session.ClientDb.get(), session.ReferenceDb.get()}) {
    std::error_code not_there;
    if (fs::equivalent(output, database->Path(), not_there))
      throw Failure{kWrongUse, fmt::format("'{}' is a database in use and would be overwritten", Name(output))};
  }
}

/// Turns an error of the record layer into one that names the option.
template <typename Body>
void ForOption(std::string_view option, Body&& body) {
  try {
    body();
  } catch (const store::RunTimeError& error) {
    throw Failure{kCannotOpen, fmt::format("{}: {}", option, TerminalText(error.Description()))};
  }
}

/// Opens an output beside the file that it will replace, and gives it up again.
void TryToOpen(std::string_view option, const fs::path& output) {
  ForOption(option, [&] { const store::FileReplacement trial(output); });
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  std::error_code not_there;
  if (!fs::is_directory(folder, not_there))
    throw Failure{kCannotOpen, fmt::format("--out: cannot make the folder '{}': {}", Name(folder),
                                           error ? error.message() : "a file has this name")};
}

/// The display files that the program is delivered with; none, with a warning, where they are missing.
std::vector<fs::path> FindDisplayFiles(const Surroundings& around) {
  try {
    return shell::DeliveredFiles(shell::FindDelivered(around.program, shell::kDisplayFolder));
  } catch (const store::RunTimeError& error) {
    around.err << fmt::format("orvex-report: warning: the report gets no page that shows it: {}\n",
                              TerminalText(error.Description()));
    return {};
  }
}

/// The folder may be a person's own, with files of these names that have nothing to do with reports.
void CheckMayReplace(const fs::path& target) {
  std::error_code not_there;
  if (!fs::exists(target, not_there) || shell::IsDisplayFile(target)) return;
  throw Failure{
      kCannotOpen,
      fmt::format("--out: a display page would replace '{}', which is not one of this program's; name another "
                  "folder or move that file",
                  Name(target))};
}

/// A link that a person has made leads to the file that is meant.
fs::path Target(const fs::path& output) {
  std::error_code error;
  if (!fs::is_symlink(output, error)) return output;
  auto target = fs::canonical(output, error);
  return error ? output : target;
}

/// A file of its own that an option names.
struct NamedOutput {
  std::string_view option;
  const fs::path& path;
};

void CheckNamedOutput(const NamedOutput& output, const std::vector<fs::path>& report, const shell::Session& session) {
  CheckNotADatabase(output.path, session);
  for (const auto& own : report)
    if (SameFile(output.path, own))
      throw Failure{kWrongUse, fmt::format("{}: '{}' is the report's own file", output.option, Name(output.path))};
  std::error_code not_there;
  if (fs::is_directory(output.path, not_there))
    throw Failure{kCannotOpen, fmt::format("{}: '{}' is a folder", output.option, Name(output.path))};
  TryToOpen(output.option, output.path);
}

}  // namespace

Outputs PrepareOutputs(const Options& options, const shell::Session& session, const Surroundings& around) {
  const auto& kind = FindKind(options.kind);
  if (!options.pdf.empty()) FindPdfProgram(around.program);
  const auto display = FindDisplayFiles(around);
  MakeFolder(options.out);
  Outputs outputs{.data = options.out / kind.data, .page = {}, .csv = Target(options.csv), .pdf = Target(options.pdf)};
  CheckNotADatabase(outputs.data, session);
  TryToOpen("--out", outputs.data);
  std::vector<fs::path> report = {outputs.data};
  for (const auto& file : display) {
    report.push_back(options.out / file.filename());
    CheckNotADatabase(report.back(), session);
    CheckMayReplace(report.back());
  }
  if (!outputs.csv.empty()) CheckNamedOutput({"--csv", outputs.csv}, report, session);
  if (!outputs.pdf.empty()) CheckNamedOutput({"--pdf", outputs.pdf}, report, session);
  if (!outputs.csv.empty() && !outputs.pdf.empty() && SameFile(outputs.csv, outputs.pdf))
    throw Failure{kWrongUse, fmt::format("--pdf: '{}' is the file of --csv, too", Name(outputs.pdf))};
  for (const auto& file : display) ForOption("--out", [&] { shell::BringUpToDate(file, options.out); });
  const auto page = options.out / kind.display;
  std::error_code not_there;
  if (fs::exists(page, not_there)) outputs.page = page;
  if (!outputs.pdf.empty() && outputs.page.empty())
    throw Failure{kCannotOpen, fmt::format("--pdf: the page '{}' is not there", Name(page))};
  return outputs;
}

}  // namespace orvex::report_app
