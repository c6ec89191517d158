#include "orvex-report/run.h"

#include <fmt/format.h>

#include <exception>
#include <ostream>
#include <system_error>

#include "emission/run_report.h"
#include "orvex-report/csv_export.h"
#include "orvex-report/databases.h"
#include "orvex-report/error_rows.h"
#include "orvex-report/failure.h"
#include "orvex-report/headless_host.h"
#include "orvex-report/options.h"
#include "orvex-report/tank_choice.h"
#include "orvex-report/tank_table.h"
#include "orvex-report/terminal_text.h"
#include "reports/brief_report.h"
#include "reports/report_text.h"
#include "shell/periods.h"
#include "shell/session.h"
#include "store/file_replacement.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;

/// What the print window was opened for.
enum class Ending { kNone, kReport, kDataFaults };

std::string Name(const fs::path& path) { return TerminalText(path.string()); }

/// An output that would replace one of the databases is surely a mistake.
void CheckNotADatabase(const fs::path& output, const shell::Session& session) {
  for (const auto* database : {session.ClientDb.get(), session.ReferenceDb.get()}) {
    std::error_code not_there;
    if (fs::equivalent(output, database->Path(), not_there))
      throw Failure{kWrongUse, fmt::format("'{}' is a database in use and would be overwritten", Name(output))};
  }
}

/// Opens an output beside the file that it will replace, and gives it up again.
void TryToOpen(std::string_view option, const fs::path& output) {
  try {
    const store::FileReplacement trial(output);
  } catch (const store::RunTimeError& error) {
    throw Failure{kCannotOpen, fmt::format("{}: {}", option, TerminalText(error.Description()))};
  }
}

/// Makes the output folder and tries the outputs, before a long run rather than after it.
void PrepareOutput(const Options& options, const shell::Session& session) {
  std::error_code error;
  fs::create_directories(options.out, error);
  std::error_code not_there;
  if (!fs::is_directory(options.out, not_there))
    throw Failure{kCannotOpen, fmt::format("--out: cannot make the folder '{}': {}", Name(options.out),
                                           error ? error.message() : "a file has this name")};
  const auto report = options.out / reports::kBriefData;
  CheckNotADatabase(report, session);
  TryToOpen("--out", report);
  if (options.csv.empty()) return;
  CheckNotADatabase(options.csv, session);
  if (fs::weakly_canonical(options.csv, error) == fs::weakly_canonical(report, error))
    throw Failure{kWrongUse, fmt::format("--csv: '{}' is the report's own file", Name(options.csv))};
  if (fs::is_directory(options.csv, not_there))
    throw Failure{kCannotOpen, fmt::format("--csv: '{}' is a folder", Name(options.csv))};
  TryToOpen("--csv", options.csv);
}

void SelectReport(const Options& options, const std::vector<ChosenTank>& tanks, shell::Session& session) {
  session.ReportType = "Brief";
  session.ReportTime = options.monthly ? shell::kMonthly : shell::kAnnual;
  session.MonthSelected = options.months;
  for (const auto& tank : tanks) session.TankList.push_back(tank.user_id);
  session.application_folder = options.out;
}

/// Runs the calculation and, when it gets through, the report.
Ending Compute(shell::Session& session, HeadlessHost& host) {
  Ending ending = Ending::kNone;
  host.OnPrintWindow([&] {
    ending = session.PrintMode == "Error" ? Ending::kDataFaults : Ending::kReport;
    if (ending == Ending::kReport) reports::BriefReport(session);
  });
  emission::RunReport(session);
  return ending;
}

int Report(const Options& options, const Surroundings& around) {
  HeadlessHost host(around.err,
                    {.progress = around.err_is_terminal && !options.quiet, .stop_requested = around.stop_requested});
  shell::Session session(host);
  session.ClientDb = OpenClient(options.client, true);
  session.ReferenceDb = OpenReference(options.reference, around.program);
  const auto tanks = ChooseTanks(*session.ClientDb, options.tanks, around.err);
  PrepareOutput(options, session);
  SelectReport(options, tanks, session);
  Ending ending = Ending::kNone;
  try {
    ending = Compute(session, host);
  } catch (const shell::Interrupted&) {
    throw Failure{kInterrupted, fmt::format("Stopped; the client database '{}' is unchanged", Name(options.client))};
  }
  const bool stopped = ending == Ending::kDataFaults;
  PrintErrorRows(*session.ClientDb, stopped ? "" : "warning: ", around.err);
  if (ending == Ending::kNone) throw Failure{kRunTimeFailure, "the run ended without a report"};
  if (stopped) return host.FailureReported() ? kRunTimeFailure : kDataFaults;
  if (!options.csv.empty()) WriteEmissionCsv(*session.ClientDb, tanks, options.csv);
  if (!options.quiet) {
    PrintLossTable(*session.ClientDb, tanks, reports::PeriodText(session), around.out);
    if (!host.Pages().empty()) around.out << fmt::format("\nReport: {}\n", Name(options.out / reports::kBriefData));
    if (!options.csv.empty()) around.out << fmt::format("Emission rows: {}\n", Name(options.csv));
  }
  if (host.FailureReported()) throw Failure{kRunTimeFailure, "run-time failures were reported: figures may be missing"};
  return kDone;
}

int Perform(const std::vector<std::string>& arguments, const Surroundings& around) {
  const auto options = ParseOptions(arguments);
  if (!options.text.empty()) {
    around.out << options.text;
    return kDone;
  }
  if (options.list) {
    const auto client = OpenClient(options.client, false);
    PrintTankList(ChooseTanks(*client, options.tanks, around.err), around.out);
    return kDone;
  }
  if (options.kind != Kind::kBrief)
    throw Failure{kWrongUse, "--kind: Summary and Detail reports are not available in this version yet; use brief"};
  return Report(options, around);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, const Surroundings& around) {
  int status = kDone;
  const auto fail = [&](int why, const std::string& description) {
    around.err << "orvex-report: " << description << '\n';
    status = why;
  };
  try {
    status = Perform(arguments, around);
  } catch (const Failure& failure) {
    fail(failure.status, failure.description);
    if (failure.status == kWrongUse) around.err << "Try 'orvex-report --help'.\n";
  } catch (const store::RunTimeError& error) {
    fail(kRunTimeFailure, TerminalText(error.Description()));
  } catch (const std::exception& error) {
    fail(kRunTimeFailure, TerminalText(error.what()));
  }
  around.out.flush();
  if (!around.out) fail(kRunTimeFailure, "the standard output cannot be written");
  return status;
}

}  // namespace orvex::report_app
