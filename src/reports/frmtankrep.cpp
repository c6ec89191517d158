#include "reports/frmtankrep.h"

#include <string>

#include "emission/run_report.h"
#include "shell/list_picking.h"
#include "shell/status.h"
#include "shell/tank_names.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmTankRep.";

void EnableRunReport(Frmtankrep& form) { form.cmdRunReport.enabled = !form.lstChosenTanks.items.empty(); }

}  // namespace

Frmtankrep OpenFrmtankrep(shell::Session& session) {
  Frmtankrep form;
  shell::Trapped(session, kLabel, [&] { form.lstTanks.items = shell::TankNames(*session.ClientDb); });
  return form;
}

void PickTank(shell::Session& session, Frmtankrep& form, std::size_t row) {
  shell::Trapped(session, kLabel, [&] {
    auto tank = session.ClientDb->OpenAt("tank", "USER ID", {form.lstTanks.items.at(row)});
    shell::ShowFields(tank, {{"USER ID", form.txtID},
                             {"CITY", form.txtCity},
                             {"STATE", form.txtState},
                             {"COMPANY", form.txtCompany},
                             {"TANK_TYPE", form.txtTankType}});
  });
}

void ClickSelect(shell::Session&, Frmtankrep& form) {
  shell::AddSelected(form.lstTanks, form.lstChosenTanks);
  EnableRunReport(form);
}

void ClickSelectAll(shell::Session& session, Frmtankrep& form) {
  const shell::BusyScope busy(session, "Processing");
  shell::RemoveAll(form.lstChosenTanks);
  form.lstChosenTanks.items = form.lstTanks.items;
  EnableRunReport(form);
}

void ClickRemove(shell::Session&, Frmtankrep& form) {
  shell::RemoveSelected(form.lstChosenTanks);
  EnableRunReport(form);
}

void ClickRemoveAll(shell::Session&, Frmtankrep& form) {
  shell::RemoveAll(form.lstChosenTanks);
  EnableRunReport(form);
}

void ClickRunReport(shell::Session& session, Frmtankrep& form) {
  session.TankList = form.lstChosenTanks.items;
  emission::RunReport(session);
}

void ClickClose(shell::Session&, Frmtankrep& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmtankrep&) { session.host.ShowHelp(std::string(kFrmtankrepText.topic)); }

}  // namespace orvex::reports
