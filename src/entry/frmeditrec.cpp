#include "entry/frmeditrec.h"

#include <cstdint>
#include <string>

#include "shell/trap.h"

namespace orvex::entry {
namespace {

constexpr std::string_view kLabel = "frmEditRec.";

/// What `editRecord` opens a tank by.
struct TankKey {
  std::int32_t ID;
  std::string type;
};

TankKey FindKey(store::Database& client, const std::string& user_id) {
  auto tank = FindTank(client, user_id);
  if (tank.AtEnd()) throw TankIsGone(user_id);
  return {tank.Long("ID"), tank.TextOrEmpty("TANK_TYPE")};
}

}  // namespace

Frmeditrec OpenFrmeditrec(shell::Session& session) {
  Frmeditrec form;
  shell::Trapped(session, kLabel, [&] { form.lstTanks.items = NamesInOrder(*session.ClientDb); });
  return form;
}

void PickTank(shell::Session& session, Frmeditrec& form, std::size_t row) {
  shell::Trapped(session, kLabel, [&] {
    form.lstTanks.selected = {row};
    form.cmdEdit.enabled = true;
    ShowDetails(FindTank(*session.ClientDb, form.lstTanks.items.at(row)), form.details);
  });
}

void UnpickTank(shell::Session&, Frmeditrec& form) {
  form.lstTanks.selected.clear();
  form.cmdEdit.enabled = false;
  form.details = {};
}

void ClickEdit(shell::Session& session, Frmeditrec& form) {
  shell::Trapped(session, kLabel, [&] {
    const auto tank = FindKey(*session.ClientDb, form.lstTanks.items.at(form.lstTanks.selected.at(0)));
    // A window that has closed is hidden before the next one is shown.
    form.window.closed = true;
    session.editRecord(session, tank.ID, tank.type);
  });
}

void ClickClose(shell::Session&, Frmeditrec& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmeditrec&) { session.host.ShowHelp(std::string(kFrmeditrecText.topic)); }

}  // namespace orvex::entry
