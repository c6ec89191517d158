#include "reports/frmprintrep.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "reports/brief_report.h"
#include "reports/detail_report.h"
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

/// What a `PrintMode` puts out, by destination; none for a destination that it does not have.
struct Output {
  std::string_view print_mode;
  void (*to_window)(shell::Session&);
  void (*to_file)(shell::Session&);
};
constexpr Output kOutputs[] = {
    {"Report", ShowReport, nullptr}, {"Error", ShowFirstError, nullptr}, {"Chemical", ShowTable, nullptr},
    {"Met", ShowTable, nullptr},     {"Fit", ShowTable, nullptr},        {"Rim", ShowTable, nullptr},
    {"Deck", ShowTable, nullptr},    {"Profile", ShowTable, nullptr},
};

Output OutputOf(const shell::Session& session) {
  const auto* found = std::find_if(std::begin(kOutputs), std::end(kOutputs),
                                   [&](const Output& output) { return output.print_mode == session.PrintMode; });
  return found == std::end(kOutputs) ? Output{session.PrintMode, nullptr, nullptr} : *found;
}

void Choose(const shell::Session& session, Frmprintrep& form, bool file) {
  const auto output = OutputOf(session);
  form.optWindow.chosen = !file;
  form.optFile.chosen = file;
  form.optFile.enabled = output.to_file != nullptr;
  form.cmdOK.enabled = (file ? output.to_file : output.to_window) != nullptr;
}

}  // namespace

Frmprintrep OpenFrmprintrep(shell::Session& session) {
  Frmprintrep form;
  Choose(session, form, false);
  return form;
}

void ChooseWindow(shell::Session& session, Frmprintrep& form) { Choose(session, form, false); }
void ChooseFile(shell::Session& session, Frmprintrep& form) { Choose(session, form, true); }

void ClickOK(shell::Session& session, Frmprintrep& form) {
  shell::Trapped(session, kLabel, [&] {
    const auto output = OutputOf(session);
    const auto put_out = form.optFile.chosen ? output.to_file : output.to_window;
    if (put_out != nullptr) put_out(session);
  });
}

void ClickPrintSetup(shell::Session& session, Frmprintrep&) {
  shell::Trapped(session, kLabel, [&] { session.host.ShowPrinterSetup(); });
}

void ClickClose(shell::Session&, Frmprintrep& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmprintrep&) { session.host.ShowHelp(std::string(kFrmprintrepText.topic)); }

}  // namespace orvex::reports
