#include "reports/frmmonth.h"

#include <string>

#include "reports/frmtankrep.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmMonth.";

void EnableRunReport(Frmmonth& form) { form.cmdRunReport.enabled = AnyTicked(form.chkMonths); }

}  // namespace

Frmmonth OpenFrmmonth(shell::Session&) { return {}; }

void TickMonth(shell::Session&, Frmmonth& form, std::size_t month, bool ticked) {
  form.chkMonths.at(month).checked = ticked;
  EnableRunReport(form);
}

void ClickAll(shell::Session&, Frmmonth& form) {
  TickAll(form.chkMonths);
  EnableRunReport(form);
}

void ClickRunReport(shell::Session& session, Frmmonth& form) {
  shell::Trapped(session, kLabel, [&] {
    session.MonthSelected = Ticks(form.chkMonths);
    session.host.ShowWindow(kFrmtankrepText.name);
  });
}

void ClickClose(shell::Session&, Frmmonth& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmmonth&) { session.host.ShowHelp(std::string(kFrmmonthText.topic)); }

}  // namespace orvex::reports
