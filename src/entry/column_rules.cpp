#include "entry/column_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "emission/fitting_counts.h"
#include "entry/entry_lists.h"
#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;

/// What the items of the list of column diameters stand for {ft}, in their order.
constexpr std::string_view kEffectiveDiameters[] = {"1.1", "0.7", "1"};
static_assert(std::size(kEffectiveDiameters) == std::size(kColumnDiameters));

int UsualColumns(FrmTank& form) { return emission::Columns(Number(Physical(form, "DIAMETER"))); }

/// Whether the person took the usual number.
bool Offer(Session& session, FrmTank& form, shell::Buttons buttons) {
  const auto estimate = UsualColumns(form);
  const auto answer =
      session.host.ShowMessage(fmt::format("Estimated number of Columns is {} .  Use this Estimate?", estimate),
                               "Number of Columns", buttons, shell::Icon::kNone);
  if (answer != shell::Answer::kOk && answer != shell::Answer::kYes) return false;
  Physical(form, "COL_NO").box.text = fmt::to_string(estimate);
  return true;
}

bool IsSelfSupporting(FrmTank& form) { return IsYes(Physical(form, "SELF_SUP")); }

}  // namespace

void ShowColumnEntries(FrmTank& form) {
  const bool columns = !IsSelfSupporting(form);
  for (const auto* field : {"COL_NO", "COL_DIAM"}) Physical(form, field).box.enabled = columns;
  Physical(form, "COL_DIAM").box.visible = columns;
}

void ChooseSelfSupporting(Session&, FrmTank& form, Entry&) {
  if (IsSelfSupporting(form)) {
    Physical(form, "COL_NO").box.text = "0";
    Physical(form, "COL_DIAM").box.text.clear();
  }
  ShowColumnEntries(form);
}

void ChooseColumnDiameter(Session&, FrmTank&, Entry& column_diameter) {
  const auto* item = std::ranges::find(kColumnDiameters, column_diameter.box.text);
  if (item != std::end(kColumnDiameters))
    column_diameter.box.text = kEffectiveDiameters[item - std::begin(kColumnDiameters)];
}

void EnterColumns(Session& session, FrmTank& form, Entry& columns) {
  if (Number(columns) == 0) Offer(session, form, shell::Buttons::kOkCancel);
}

void ActivateColumns(Session& session, FrmTank& form, Entry&) { Offer(session, form, shell::Buttons::kOkCancel); }

void LeaveColumns(Session& session, FrmTank& form, Entry&) { SetColumnWellFittings(session, form); }

void ProposeColumns(Session& session, FrmTank& form) {
  const double columns = Number(Physical(form, "COL_NO"));
  if (columns == 0 || columns == UsualColumns(form)) return;
  if (Offer(session, form, shell::Buttons::kYesNo)) SetColumnWellFittings(session, form);
}

void SetColumnWellFittings(Session& session, FrmTank& form) {
  auto wells = session.ClientDb->OpenQuery(
      fmt::format("SELECT * FROM fittings WHERE FIT_TYPE Like 'Column Well*' AND ID = {}", form.ID));
  if (wells.AtEnd()) return;
  wells.Edit();
  wells.Set("QUANTITY", Number(Physical(form, "COL_NO")));
  wells.Update();
}

}  // namespace orvex::entry
