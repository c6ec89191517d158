#include "reports/frmtankrep.h"

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "emission/run_report.h"
#include "shell/status.h"
#include "shell/tank_names.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmTankRep.";

/// A field of the picked tank and the text box that shows it.
struct ShownField {
  std::string_view field;
  shell::TextBox Frmtankrep::*box;
};
constexpr ShownField kShownFields[] = {
    {"USER ID", &Frmtankrep::txtID},      {"CITY", &Frmtankrep::txtCity},          {"STATE", &Frmtankrep::txtState},
    {"COMPANY", &Frmtankrep::txtCompany}, {"TANK_TYPE", &Frmtankrep::txtTankType},
};

void EnableRunReport(Frmtankrep& form) { form.cmdRunReport.enabled = !form.lstChosenTanks.items.empty(); }

void ClearChosen(Frmtankrep& form) {
  form.lstChosenTanks.items.clear();
  form.lstChosenTanks.selected.clear();
}

}  // namespace

Frmtankrep OpenFrmtankrep(shell::Session& session) {
  Frmtankrep form;
  shell::Trapped(session, kLabel, [&] { form.lstTanks.items = shell::TankNames(*session.ClientDb); });
  return form;
}

void PickTank(shell::Session& session, Frmtankrep& form, std::size_t row) {
  shell::Trapped(session, kLabel, [&] {
    for (const auto& shown : kShownFields) (form.*shown.box).text.clear();
    auto tank = session.ClientDb->OpenAt("tank", "USER ID", {form.lstTanks.items.at(row)});
    if (tank.NoMatch()) return;
    for (const auto& shown : kShownFields) (form.*shown.box).text = tank.TextOrEmpty(shown.field);
  });
}

void ClickSelect(shell::Session&, Frmtankrep& form) {
  auto& chosen = form.lstChosenTanks.items;
  std::unordered_set<std::string> names(chosen.begin(), chosen.end());
  for (const std::size_t row : form.lstTanks.selected) {
    const auto& user_id = form.lstTanks.items.at(row);
    if (names.insert(user_id).second) chosen.push_back(user_id);
  }
  EnableRunReport(form);
}

void ClickSelectAll(shell::Session& session, Frmtankrep& form) {
  const shell::BusyScope busy(session, "Processing");
  ClearChosen(form);
  form.lstChosenTanks.items = form.lstTanks.items;
  EnableRunReport(form);
}

void ClickRemove(shell::Session&, Frmtankrep& form) {
  auto& chosen = form.lstChosenTanks;
  std::vector<std::string> kept;
  auto removed = chosen.selected.begin();
  for (std::size_t row = 0; row < chosen.items.size(); ++row) {
    if (removed != chosen.selected.end() && *removed == row) {
      ++removed;
    } else {
      kept.push_back(std::move(chosen.items[row]));
    }
  }
  chosen.items = std::move(kept);
  chosen.selected.clear();
  EnableRunReport(form);
}

void ClickRemoveAll(shell::Session&, Frmtankrep& form) {
  ClearChosen(form);
  EnableRunReport(form);
}

void ClickRunReport(shell::Session& session, Frmtankrep& form) {
  session.TankList = form.lstChosenTanks.items;
  emission::RunReport(session);
}

void ClickClose(shell::Session&, Frmtankrep& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmtankrep&) { session.host.ShowHelp(std::string(kFrmtankrepText.topic)); }

}  // namespace orvex::reports
