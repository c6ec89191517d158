#include "entry/frmrecdelete.h"

#include "entry/tank_rows.h"
#include "shell/editing.h"
#include "shell/list_picking.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr std::string_view kLabel = "frmRecDelete.";
constexpr const char* kQuestion = "Are you sure you want to delete these tanks?";

/// The rows of a tank, in the order in which they are deleted.
constexpr TankRowTable kTankRows[] = {
    {"emission", "COMPID"}, {"tank", "ID"}, {"fittings", "fitid"}, {"mixtures", "IDMIX"}, {"components", "IDMIX"},
};

void EnableDelete(Frmrecdelete& form) { form.cmdDelete.enabled = !form.lstDelTanks.items.empty(); }

void DeleteTank(store::Database& client, const std::string& user_id) {
  auto tank = FindTank(client, user_id);
  // Gone since the list was filled.
  if (tank.AtEnd()) return;
  const auto ID = tank.Long("ID");
  for (const auto& [table, index] : kTankRows) client.DeleteMatching(table, index, {ID});
}

}  // namespace

Frmrecdelete OpenFrmrecdelete(Session& session) {
  Frmrecdelete form;
  shell::Trapped(session, kLabel, [&] { form.lstTanks.items = NamesInOrder(*session.ClientDb); });
  return form;
}

void PickTank(Session& session, Frmrecdelete& form, std::size_t row) {
  shell::Trapped(session, kLabel,
                 [&] { ShowDetails(FindTank(*session.ClientDb, form.lstTanks.items.at(row)), form.details); });
}

void ClickSelect(Session&, Frmrecdelete& form) {
  shell::AddSelected(form.lstTanks, form.lstDelTanks);
  EnableDelete(form);
}

void ClickSelectAll(Session& session, Frmrecdelete& form) {
  shell::Trapped(session, kLabel, [&] {
    const shell::BusyScope busy(session, "Processing");
    shell::RemoveAll(form.lstDelTanks);
    form.lstDelTanks.items = NamesInOrder(*session.ClientDb);
  });
  EnableDelete(form);
}

void ClickRemove(Session&, Frmrecdelete& form) {
  shell::RemoveSelected(form.lstDelTanks);
  EnableDelete(form);
}

void ClickRemoveAll(Session&, Frmrecdelete& form) {
  shell::RemoveAll(form.lstDelTanks);
  EnableDelete(form);
}

void ClickDelete(Session& session, Frmrecdelete& form) {
  shell::Trapped(session, kLabel, [&] {
    const shell::BusyScope busy(session, "Processing");
    const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kClient);
    if (!editing || !shell::Accepted(session.host, kQuestion)) return;
    store::Transaction transaction(*session.ClientDb);
    for (const auto& user_id : form.lstDelTanks.items) DeleteTank(*session.ClientDb, user_id);
    transaction.Commit();
    shell::RemoveAll(form.lstTanks);
    form.lstTanks.items = NamesInOrder(*session.ClientDb);
    shell::RemoveAll(form.lstDelTanks);
    form.details = {};
    EnableDelete(form);
  });
}

void ClickClose(Session&, Frmrecdelete& form) { form.window.closed = true; }

void ClickHelp(Session& session, Frmrecdelete&) { session.host.ShowHelp(std::string(kFrmrecdeleteText.topic)); }

}  // namespace orvex::entry
