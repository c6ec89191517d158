#include <algorithm>

#include "emission/mixture_components.h"
#include "entry/component_row.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr std::string_view kOnlyComponent = "Component 1 of 1";

/// Numbers the mixture's rows from 1 in the order of the table. That need not be the order of their numbers, which are
/// unique, so they make way for the new ones first.
void Renumber(Session& session, const Frmcomponent& form) {
  for (const std::int32_t step : {-1, 1}) {
    std::int32_t number = 0;
    for (auto rows = emission::OpenComponents(session, form.ID, form.MixID); !rows.AtEnd(); rows.MoveNext()) {
      rows.Edit();
      rows.Set("Comp ID", number += step);
      rows.Update();
    }
  }
}

}  // namespace

void ClickDelete(Session& session, Frmcomponent& form) {
  shell::Trapped(session, kComponentRoutine, [&] {
    const bool is_only = form.lblComponentXofX.text == kOnlyComponent;
    // No failure may leave the numbers that are free in between.
    store::Transaction transaction(*session.ClientDb);
    session.ClientDb->DeleteMatching("components", "IDMIX", {form.ID, form.MixID, form.CompID});
    if (!is_only) Renumber(session, form);
    transaction.Commit();
    form.window.closed = is_only;
    if (is_only) return;
    form.CompID = std::max(form.CompID - 1, 1);
    ShowComponent(session, form);
    ShowPlace(session, form, form.CompID);
    ShowSum(form, SumOfShares(session, form));
  });
}

void ClickDeleteAll(Session& session, Frmcomponent& form) {
  shell::TrappedWriting(session, *session.ClientDb, kComponentRoutine, [&] {
    session.ClientDb->DeleteMatching("components", "IDMIX", {form.ID, form.MixID});
    AddComponent(session, form, 1);
    form.CompID = 1;
    ShowComponent(session, form);
    ShowPlace(session, form, form.CompID);
    ShowSum(form, SumOfShares(session, form));
  });
}

}  // namespace orvex::entry
