#include <algorithm>
#include <iterator>

#include "emission/arithmetic.h"
#include "emission/mixture_components.h"
#include "entry/component_row.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr const char* kIncomplete =
    "This component must have a name, and a percent or weight.  Delete this component if you do not wish to save it.";

/// Whether the entry holds a number. The person is told when it does not.
bool RequireNumber(Session& session, Frmcomponent& form, const BoundNumber& bound) {
  auto& text = (form.*bound.box).text;
  if (shell::ParseEntryNumber(text)) return true;
  text = "0";
  shell::Refuse(session.host, form.window, bound.control, std::string(shell::kNoNumber));
  return false;
}

bool RequireNameAndShare(Session& session, Frmcomponent& form) {
  const bool has_name = !form.txtName.empty();
  if (has_name && shell::EntryNumber(form.txtShare.text) != 0) return true;
  shell::Refuse(session.host, form.window, has_name ? "txtShare" : "dbcboChemName", kIncomplete);
  return false;
}

/// Looks for another component of the same name, and shows the sum if there is none.
bool RequireOtherNames(Session& session, Frmcomponent& form) {
  double sum = 0;
  for (auto rows = emission::OpenComponents(session, form.ID, form.MixID); !rows.AtEnd(); rows.MoveNext()) {
    if (rows.Long("COMP ID") != form.CompID && rows.TextOrEmpty("NAME") == form.txtName) {
      shell::Refuse(session.host, form.window, "dbcboChemName", "Duplicate Component Name");
      return false;
    }
    sum = emission::Finite(sum + AnyShare(rows));
  }
  ShowSum(form, sum);
  return true;
}

/// Commits the component shown. False when it may not be left.
bool LeaveComponent(Session& session, Frmcomponent& form) {
  for (const auto& bound : kBoundNumbers)
    if (!RequireNumber(session, form, bound)) return false;
  if (!RequireNameAndShare(session, form)) return false;
  shell::Statement([&] { CommitComponent(session, form); });
  return RequireOtherNames(session, form);
}

/// Leaves the component for the one so many behind it, and makes that if there is none.
void Go(Session& session, Frmcomponent& form, std::int32_t step) {
  shell::Trapped(session, kComponentRoutine, [&] {
    if (!LeaveComponent(session, form)) return;
    const auto next = form.CompID + step;
    if (session.ClientDb->OpenAt("components", "IDMIX", {form.ID, form.MixID, next}).NoMatch())
      AddComponent(session, form, next);
    form.CompID = next;
    ShowComponent(session, form);
    ShowTemperature(session, form);
    ShowPlace(session, form, form.CompID);
  });
}

}  // namespace

void LeaveNumber(Session& session, Frmcomponent& form, std::string_view control) {
  const auto* bound = std::ranges::find(kBoundNumbers, control, &BoundNumber::control);
  if (bound != std::end(kBoundNumbers)) RequireNumber(session, form, *bound);
}

void ClickAdd(Session& session, Frmcomponent& form) { Go(session, form, 1); }
void ClickNext(Session& session, Frmcomponent& form) { Go(session, form, 1); }
void ClickPrevious(Session& session, Frmcomponent& form) { Go(session, form, -1); }

void ClickClose(Session& session, Frmcomponent& form) {
  shell::Trapped(session, kComponentRoutine, [&] { form.window.closed = LeaveComponent(session, form); });
}

}  // namespace orvex::entry
