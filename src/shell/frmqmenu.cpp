#include "shell/frmqmenu.h"

#include <fmt/format.h>

#include <charconv>

#include "shell/tank_names.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kRoutine = "frmqmenu.";

struct TankType {
  std::string_view name;
  std::string_view command;  ///< which makes a new tank of the type
};

constexpr TankType kTankTypes[] = {
    {kHorizontal, "mnuNewHT"},
    {kVerticalFixedRoof, "mnuNewVFRT"},
    {kInternalFloatingRoof, "mnuNewIFRT"},
    {kExternalFloatingRoof, "mnuNewEFRT"},
    {kDomedExternalFloatingRoof, "mnuNewDEFRT"},
};

std::int32_t TankId(const Frmqmenu& model) {
  std::int32_t id = 0;
  const auto& text = model.txtID.text;
  std::from_chars(text.data(), text.data() + text.size(), id);
  return id;
}

void UpdateOK(Frmqmenu& model) {
  model.cmdOK.enabled = model.optCreate.chosen ? !model.lstTankTypes.selected.empty() : !model.txtID.text.empty();
}

void Choose(Frmqmenu& model, bool create) {
  model.optCreate.chosen = create;
  model.optOpen.chosen = !create;
  model.lstTankTypes.enabled = create;
  model.dblstTanks.enabled = !create;
  UpdateOK(model);
}

}  // namespace

Frmqmenu OpenFrmqmenu(Session& session) {
  Frmqmenu model;
  model.txtID.visible = false;
  model.txtTankType.visible = false;
  for (const auto& type : kTankTypes) model.lstTankTypes.items.emplace_back(type.name);
  model.lstTankTypes.selected = {0};
  Trapped(session, kRoutine, [&] { model.dblstTanks.items = TankNames(*session.ClientDb); });
  ChooseCreate(session, model);
  return model;
}

void ChooseCreate(Session& /*session*/, Frmqmenu& model) { Choose(model, true); }
void ChooseOpen(Session& /*session*/, Frmqmenu& model) { Choose(model, false); }

void UnpickTank(Session& /*session*/, Frmqmenu& model) {
  model.dblstTanks.selected.clear();
  model.txtID.text.clear();
  model.txtTankType.text.clear();
  UpdateOK(model);
}

void PickTank(Session& session, Frmqmenu& model, std::size_t item) {
  UnpickTank(session, model);
  model.dblstTanks.selected = {item};
  Trapped(session, kRoutine, [&] {
    auto tank = session.ClientDb->OpenAt("tank", "USER ID", {model.dblstTanks.items.at(item)});
    model.txtID.text = fmt::to_string(tank.Long("ID"));
    model.txtTankType.text = tank.TextOrEmpty("TANK_TYPE");
  });
  UpdateOK(model);
}

void OpenTank(Session& session, Frmqmenu& model, std::size_t item) {
  PickTank(session, model, item);
  ClickOK(session, model);
}

void PickType(Session& /*session*/, Frmqmenu& model, std::size_t item) {
  model.lstTankTypes.selected = {item};
  UpdateOK(model);
}

void CreateTank(Session& session, Frmqmenu& model, std::size_t item) {
  PickType(session, model, item);
  ClickOK(session, model);
}

void ClickOK(Session& session, Frmqmenu& model) {
  // A list can be left without a selected row.
  UpdateOK(model);
  if (!model.cmdOK.enabled) return;
  // The editor opens in the command: it finds this window closed.
  model.window.closed = true;
  if (model.optCreate.chosen) {
    RunCommand(session, kTankTypes[model.lstTankTypes.selected.front()].command);
  } else {
    Trapped(session, kRoutine, [&] { session.editRecord(session, TankId(model), model.txtTankType.text); });
  }
}

void ClickCancel(Session& /*session*/, Frmqmenu& model) { model.window.closed = true; }

}  // namespace orvex::shell
