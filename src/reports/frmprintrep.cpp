#include "reports/frmprintrep.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "reports/brief_report.h"
#include "reports/detail_report.h"
#include "reports/export.h"
#include "reports/reference_report.h"
#include "reports/source_kind.h"
#include "reports/xml_export.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmPrintRep.";

void ShowReport(shell::Session& session) {
  session.host.ShowMessage("Please set your Page Setup to Landscape before printing these reports.", "Use Landscape!",
                           shell::Buttons::kOk, shell::Icon::kNone);
  if (session.ReportType == "Brief") {
    BriefReport(session);
  } else {
    DetailReport(session);
  }
}

/// Only the first of the faults is told: the others show when it is mended.
void ShowFirstError(shell::Session& session) {
  auto errors = session.ClientDb->OpenTable("error");
  const auto message = fmt::format("{}: {} Please correct and rerun the report.", errors.Get(1).TextOrEmpty(),
                                   errors.Get(2).TextOrEmpty());
  shell::Tell(session.host, message);
}

void ShowTable(shell::Session& session) {
  XML_Export(session, *FindReferenceReport(session.PrintMode), session.ReportSource, session.ReportSourceKind);
}

void ShowImportLog(shell::Session& session) { XML_Export(session, kImportReport, kImportReport.table, kOpenTable); }

/// What a `PrintMode` puts out: to the window, and of which table to a file.
struct Output {
  std::string_view print_mode;
  void (*to_window)(shell::Session&);
  std::string_view table;
  std::string shell::Session::*path;       ///< of the table's database
  std::string shell::Session::*condition;  ///< null for all rows
};
constexpr auto kTankPath = &shell::Session::TankPath;
constexpr auto kClientPath = &shell::Session::ClientPath;
constexpr auto kChosen = &shell::Session::ReportCondition;
constexpr Output kOutputs[] = {
    {"Report", ShowReport, "emission", kClientPath, &shell::Session::ReportFilter},
    {"Error", ShowFirstError, "error", kClientPath, nullptr},
    {"Chemical", ShowTable, "chemical", kTankPath, kChosen},
    {"Met", ShowTable, "met", kTankPath, kChosen},
    {"Fit", ShowTable, "fitting", kTankPath, kChosen},
    {"Rim", ShowTable, "rimseal", kTankPath, kChosen},
    {"Deck", ShowTable, "deckseam", kTankPath, kChosen},
    {"Profile", ShowTable, "profiles", kTankPath, kChosen},
    {"Import", ShowImportLog, "import errors", kTankPath, nullptr},
};

/// Null when there is nothing to be put out.
const Output* OutputOf(const shell::Session& session) {
  const auto* found = std::ranges::find(kOutputs, session.PrintMode, &Output::print_mode);
  return found == std::end(kOutputs) ? nullptr : found;
}

void WriteToFile(shell::Session& session, const Output& output) {
  Export(session, std::string(output.table), session.*output.path,
         output.condition == nullptr ? "" : session.*output.condition);
}

void Choose(Frmprintrep& form, bool file) {
  form.optWindow.chosen = !file;
  form.optFile.chosen = file;
}

}  // namespace

Frmprintrep OpenFrmprintrep(shell::Session& session) {
  Frmprintrep form;
  form.cmdOK.enabled = form.optFile.enabled = OutputOf(session) != nullptr;
  return form;
}

void ChooseWindow(shell::Session&, Frmprintrep& form) { Choose(form, false); }
void ChooseFile(shell::Session&, Frmprintrep& form) { Choose(form, true); }

void ClickOK(shell::Session& session, Frmprintrep& form) {
  shell::Trapped(session, kLabel, [&] {
    const auto* output = OutputOf(session);
    if (output == nullptr) return;
    if (form.optFile.chosen) {
      WriteToFile(session, *output);
    } else {
      output->to_window(session);
    }
  });
}

void ClickPrintSetup(shell::Session& session, Frmprintrep&) {
  shell::Trapped(session, kLabel, [&] { session.host.ShowPrinterSetup(); });
}

void ClickClose(shell::Session&, Frmprintrep& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmprintrep&) { session.host.ShowHelp(std::string(kFrmprintrepText.topic)); }

}  // namespace orvex::reports
