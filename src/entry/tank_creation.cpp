#include "entry/bound_record.h"
#include "entry/mixture_page.h"
#include "entry/month_page.h"
#include "entry/site.h"
#include "entry/tank_entry.h"
#include "entry/tank_lifecycle.h"
#include "entry/tank_loading.h"
#include "entry/unsaved_tank.h"
#include "shell/editing.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

std::int32_t AddTank(store::Database& client, std::string_view tank_type) {
  auto tanks = client.OpenTable("tank");
  tanks.AddNew();
  tanks.Set("TANK_TYPE", tank_type);
  tanks.Update();
  tanks.Move(tanks.LastModified());
  return tanks.Long("ID");
}

void AddFirstMixture(store::Database& client, std::int32_t ID) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.AddNew();
  mixtures.Set("ID", ID);
  mixtures.Set("MIX ID", 1);
  mixtures.Update();
}

/// The rows of a new tank; its number.
std::int32_t MakeRows(store::Database& client, std::string_view tank_type) {
  store::Transaction transaction(client);
  const auto ID = AddTank(client, tank_type);
  AddFirstMixture(client, ID);
  MarkUnsaved(client, ID);
  transaction.Commit();
  return ID;
}

/// A new row says No to heated and underground. There is nothing to go back to, so no copy is taken.
void ShowNewTank(Session& session, FrmTank& form) {
  ShowTank(session, form);
  ShowPhysicalPage(session, form);
  FillSpeciationOptions(form);
  ShowMixture(session, form);
  ShowMonthTotal(form);
  form.txtThruSpec.text = Physical(form, "Q_NET").box.text;
  ShowSite(session, form);
  ClearSite(form);
  GoTo(form, Page::kIdentification, "txtUserID");
}

}  // namespace

void NewTank(Session& session, std::string_view tank_type) {
  shell::Trapped(session, "MDIForm1.", [&] {
    const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kClient);
    if (!editing) return;
    // The file has room for one mark: what a program that was killed since the start left is settled first.
    OfferUnsavedTank(session);
    OpenEditor(session, tank_type, [&](FrmTank& form) {
      form.ID = MakeRows(*session.ClientDb, tank_type);
      ShowNewTank(session, form);
      return true;
    });
  });
}

}  // namespace orvex::entry
