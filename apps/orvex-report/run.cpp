#include "orvex-report/run.h"

#include <fmt/format.h>

#include <exception>
#include <ostream>

#include "emission/run_report.h"
#include "orvex-report/csv_export.h"
#include "orvex-report/databases.h"
#include "orvex-report/error_rows.h"
#include "orvex-report/failure.h"
#include "orvex-report/headless_host.h"
#include "orvex-report/options.h"
#include "orvex-report/outputs.h"
#include "orvex-report/pdf.h"
#include "orvex-report/report_kind.h"
#include "orvex-report/tank_choice.h"
#include "orvex-report/tank_table.h"
#include "orvex-report/terminal_text.h"
#include "orvex-report/transfer.h"
#include "reports/report_text.h"
#include "shell/periods.h"
#include "shell/session.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;

/// What the print window was opened for.
enum class Ending { kNone, kReport, kDataFaults };

std::string Name(const fs::path& path) { return TerminalText(path.string()); }

void SelectReport(const Options& options, const std::vector<ChosenTank>& tanks, shell::Session& session) {
  session.ReportType = FindKind(options.kind).type;
  session.ReportTime = options.monthly ? shell::kMonthly : shell::kAnnual;
  session.MonthSelected = options.months;
  for (const auto& tank : tanks) session.TankList.push_back(tank.user_id);
  session.application_folder = options.out;
}

/// Runs the calculation and, when it gets through, the report.
Ending Compute(const ReportKind& kind, shell::Session& session, HeadlessHost& host) {
  Ending ending = Ending::kNone;
  host.OnPrintWindow([&] {
    ending = session.PrintMode == "Error" ? Ending::kDataFaults : Ending::kReport;
    if (ending == Ending::kReport) kind.write(session);
  });
  emission::RunReport(session);
  return ending;
}

/// Tells where the files are.
void PrintFiles(const Options& options, const Outputs& outputs, bool written, std::ostream& out) {
  out << '\n';
  if (written) out << fmt::format("Report: {}\n", Name(outputs.data));
  if (written && !outputs.page.empty()) out << fmt::format("Display page: {}\n", Name(outputs.page));
  if (!options.csv.empty()) out << fmt::format("Emission rows: {}\n", Name(options.csv));
  out.flush();
}

int Report(const Options& options, const Surroundings& around) {
  HeadlessHost host(around.err,
                    {.progress = around.err_is_terminal && !options.quiet, .stop_requested = around.stop_requested});
  shell::Session session(host);
  session.ClientDb = OpenClient(options.client, true);
  session.ReferenceDb = OpenReference(options.reference, around.program);
  const auto tanks = ChooseTanks(*session.ClientDb, options.tanks, around.err);
  const auto outputs = PrepareOutputs(options, session, around);
  SelectReport(options, tanks, session);
  Ending ending = Ending::kNone;
  try {
    ending = Compute(FindKind(options.kind), session, host);
  } catch (const shell::Interrupted&) {
    throw Failure{kInterrupted, fmt::format("Stopped; the client database '{}' is unchanged", Name(options.client))};
  }
  const bool stopped = ending == Ending::kDataFaults;
  PrintErrorRows(*session.ClientDb, stopped ? "" : "warning: ", around.err);
  if (ending == Ending::kNone) throw Failure{kRunTimeFailure, "the run ended without a report"};
  if (stopped) return host.FailureReported() ? kRunTimeFailure : kDataFaults;
  if (!options.csv.empty()) WriteEmissionCsv(*session.ClientDb, tanks, outputs.csv);
  const bool written = !host.Pages().empty();
  if (!options.quiet) {
    PrintLossTable(*session.ClientDb, tanks, reports::PeriodText(session), around.out);
    PrintFiles(options, outputs, written, around.out);
  }
  // A report that was not written may have left an older one in its place, which must not be taken for it.
  if (!options.pdf.empty() && written) {
    WritePdf({.page = outputs.page, .file = outputs.pdf, .paper = options.paper}, around);
    if (!options.quiet) around.out << fmt::format("PDF: {}\n", Name(options.pdf));
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
  if (!options.import_csv.empty()) return ImportTanks(options, around);
  if (!options.export_csv.empty()) return ExportTanks(options, around);
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
