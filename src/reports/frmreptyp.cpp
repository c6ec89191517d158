#include "reports/frmreptyp.h"

#include "emission/run_report.h"

namespace orvex::reports {
namespace {

bool IsComplete(const Frmreptyp& form) {
  if (form.cboRepTime.text.empty() || form.cboRepType.text.empty()) return false;
  return form.cboRepTime.text != shell::kMonthly || AnyTicked(form.chkMonths);
}

void EnableOK(Frmreptyp& form) { form.cmdOK.enabled = IsComplete(form); }

}  // namespace

Frmreptyp OpenFrmreptyp(shell::Session&) { return {}; }

void ChangeRepTime(shell::Session&, Frmreptyp& form, const std::string& text) {
  form.cboRepTime.text = text;
  form.fraMonths.visible = text == shell::kMonthly;
  EnableOK(form);
}

void ChangeRepType(shell::Session&, Frmreptyp& form, const std::string& text) {
  form.cboRepType.text = text;
  EnableOK(form);
}

void TickMonth(shell::Session&, Frmreptyp& form, std::size_t month, bool ticked) {
  form.chkMonths.at(month).checked = ticked;
  EnableOK(form);
}

void ClickAll(shell::Session&, Frmreptyp& form) {
  TickAll(form.chkMonths);
  EnableOK(form);
}

void ClickOK(shell::Session& session, Frmreptyp& form) {
  session.ReportTime = form.cboRepTime.text;
  session.ReportType = form.cboRepType.text;
  session.MonthSelected = Ticks(form.chkMonths);
  emission::RunReport(session);
}

void ClickCancel(shell::Session&, Frmreptyp& form) { form.window.closed = true; }

}  // namespace orvex::reports
