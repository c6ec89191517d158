#include "orvex-report/transfer.h"

#include <fmt/format.h>

#include <ostream>
#include <string>
#include <string_view>

#include "exchange/inventory_csv.h"
#include "orvex-report/databases.h"
#include "orvex-report/failure.h"
#include "orvex-report/headless_host.h"
#include "orvex-report/terminal_text.h"
#include "shell/editing.h"
#include "shell/session.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

using store::ErrorNumber;

std::string Name(const std::filesystem::path& path) { return TerminalText(path.string()); }

/// The faults of the files, a line each.
void PrintFaults(std::string_view description, std::ostream& err) {
  err << "orvex-report: nothing was imported:\n";
  for (const auto fault : exchange::FaultLines(description)) err << TerminalText(fault) << '\n';
}

/// A folder or file of an option that is not as it should be.
bool IsWrongPath(ErrorNumber number) {
  return number == ErrorNumber::kFileNotFound || number == ErrorNumber::kInvalidPath;
}

[[noreturn]] void FailOn(std::string_view option, const store::RunTimeError& error) {
  const auto status = IsWrongPath(error.Number()) ? kCannotOpen : kRunTimeFailure;
  throw Failure{status, fmt::format("{}: {}", option, TerminalText(error.Description()))};
}

}  // namespace

int ImportTanks(const Options& options, const Surroundings& around) {
  HeadlessHost host(around.err,
                    {.progress = around.err_is_terminal && !options.quiet, .stop_requested = around.stop_requested});
  shell::Session session(host);
  session.ClientDb = OpenClient(options.client, true);
  session.ReferenceDb = OpenReference(options.reference, around.program);
  const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kClient);
  if (!editing) return kCannotOpen;
  try {
    host.Progress(0, 1);
    const auto counts =
        exchange::ImportInventory(*session.ClientDb, *session.ReferenceDb, options.import_csv,
                                  [&](std::int64_t done, std::int64_t total) { host.Progress(done, total); });
    if (counts.without_mixture > 0)
      around.err << fmt::format(
          "orvex-report: warning: components whose mixture is not there, as deleting one leaves them: {}\n",
          counts.without_mixture);
    if (!options.quiet) around.out << fmt::format("Imported into '{}': {}\n", Name(options.client), counts.Text());
    return kDone;
  } catch (const shell::Interrupted&) {
    throw Failure{kInterrupted, fmt::format("Stopped; the client database '{}' is unchanged", Name(options.client))};
  } catch (const store::RunTimeError& error) {
    if (error.Number() != ErrorNumber::kDataConversion) FailOn("--import-csv", error);
    PrintFaults(error.Description(), around.err);
    return kDataFaults;
  }
}

int ExportTanks(const Options& options, const Surroundings& around) {
  const auto client = OpenClient(options.client, false);
  try {
    const auto counts = exchange::ExportInventory(*client, options.export_csv);
    if (counts.left_out > 0)
      around.err << fmt::format("orvex-report: warning: rows that belong to no tank were left out: {}\n",
                                counts.left_out);
    if (!options.quiet) around.out << fmt::format("Exported to '{}': {}\n", Name(options.export_csv), counts.Text());
    return kDone;
  } catch (const store::RunTimeError& error) {
    FailOn("--export-csv", error);
  }
}

}  // namespace orvex::report_app
