#include "entry/frmrecfit.h"

#include <fmt/format.h>

#include <algorithm>

#include "entry/fitting_estimate.h"
#include "entry/fitting_row.h"
#include "entry/tank_entry.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/text_or_null.h"

namespace orvex::entry {
namespace {

using shell::Session;

template <typename Body>
void Trapped(Session& session, Body&& body) {
  shell::Trapped(session, kFrmrecfitLabel, std::forward<Body>(body));
}

void FillTypes(Session& session, Frmrecfit& form) {
  auto types = session.ReferenceDb->OpenQuery(
      "SELECT FIT_TYPE FROM fitting WHERE FIT_TYPE IS NOT NULL GROUP BY FIT_TYPE ORDER BY Min(Counter)");
  for (; !types.AtEnd(); types.MoveNext()) form.cboFitType.items.push_back(types.Text("FIT_TYPE"));
}

void AddFitting(Session& session, std::int32_t ID, std::int32_t fit_id) {
  auto fittings = session.ClientDb->OpenTable("fittings");
  fittings.AddNew();
  fittings.Set("ID", ID);
  fittings.Set("FIT ID", fit_id);
  fittings.Update();
}

bool HasFitting(Session& session, std::int32_t ID, std::int32_t fit_id) {
  return !session.ClientDb->OpenAt("fittings", "fitid", {ID, fit_id}).NoMatch();
}

/// The tank's fittings are the person's own from now on.
void LeaveTypical(Session& session) {
  auto& category = Physical(Editor(session), "FITTING");
  if (StoredText(category) == "Typical") ShowStored(category, "Detail");
}

/// Writes type and status to the row, with what the reference row, if there is one, says of them. Whether `field`
/// changed.
bool StoreFitting(Session& session, const Frmrecfit& form, store::RecordSet& reference, std::string_view field) {
  auto row = FittingRow(session, form);
  const auto before = row.TextOrEmpty(field);
  const bool found = !reference.NoMatch();
  row.Edit();
  row.Set("FIT_TYPE", store::TextOrNull(form.cboFitType.text));
  row.Set("COVR_TYPE", store::TextOrNull(form.cboStatus.text));
  const double quantity = QuantityShown(form);
  row.Set("QUANTITY", found && quantity == 0 ? reference.DoubleOrZero("QUANTITY") : quantity);
  if (found)
    for (const auto* factor : {"K_FA", "K_FB", "K_M"}) row.Set(factor, reference.Get(factor));
  row.Update();
  return row.TextOrEmpty(field) != before;
}

/// Goes to a neighbour of the row shown, if the tank has it.
void GoToFitting(Session& session, Frmrecfit& form, std::int32_t fit_id) {
  if (!HasFitting(session, form.ID, fit_id)) return;
  form.FIT_ID = fit_id;
  ShowFitting(session, form);
}

bool MayLeave(Session& session, Frmrecfit& form) { return IsComplete(session, form) && IsUnique(session, form); }

/// Numbers the tank's rows from 1, in the order of the table. Numbers below zero come between, since no two rows may
/// have the same one at any moment.
void Renumber(Session& session, const Frmrecfit& form) {
  auto rows = session.ClientDb->OpenMatching("fittings", "fitid", {form.ID});
  for (const int sign : {-1, 1}) {
    std::int32_t number = 0;
    for (rows.MoveFirst(); !rows.AtEnd(); rows.MoveNext()) {
      rows.Edit();
      rows.Set("FIT ID", sign * ++number);
      rows.Update();
    }
  }
}

}  // namespace

Frmrecfit OpenFrmrecfit(Session& session) {
  Frmrecfit form;
  form.ID = Editor(session).ID;
  form.window.closed = true;  // unless the fittings can be read
  const shell::BusyScope busy(session, "Processing");
  Trapped(session, [&] {
    FillTypes(session, form);
    if (!HasFitting(session, form.ID, form.FIT_ID)) AddFitting(session, form.ID, form.FIT_ID);
    ShowFitting(session, form);
    form.window.closed = false;
  });
  return form;
}

void ChooseFitType(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    FillStatuses(session, form);
    auto reference = ReferenceFitting(session, form, !form.cboStatus.text.empty());
    if (StoreFitting(session, form, reference, "FIT_TYPE")) LeaveTypical(session);
    ShowFitting(session, form);
  });
}

void ChooseStatus(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    auto reference = ReferenceFitting(session, form, true);
    if (StoreFitting(session, form, reference, "COVR_TYPE")) LeaveTypical(session);
    ShowFitting(session, form);
  });
}

void LeaveQuantity(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    AcceptQuantity(session, form);
    StoreQuantity(session, form);
  });
}

void ClickAdd(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    if (!MayLeave(session, form)) return;
    const auto next = form.FIT_ID + 1;
    if (!HasFitting(session, form.ID, next)) AddFitting(session, form.ID, next);
    GoToFitting(session, form, next);
  });
}

void ClickPrevious(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    if (MayLeave(session, form)) GoToFitting(session, form, form.FIT_ID - 1);
  });
}

void ClickNext(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    if (MayLeave(session, form)) GoToFitting(session, form, form.FIT_ID + 1);
  });
}

void ClickClose(Session& session, Frmrecfit& form) {
  Trapped(session, [&] { form.window.closed = IsComplete(session, form); });
}

void ClickDelete(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    const bool only_one = form.lblRecord.text == "Record 1 of 1";
    store::Transaction transaction(*session.ClientDb);
    FittingRow(session, form).Delete();
    if (!only_one) Renumber(session, form);
    transaction.Commit();
    if (only_one) {
      form.window.closed = true;
      return;
    }
    form.FIT_ID = std::max(1, form.FIT_ID - 1);
    ShowFitting(session, form);
  });
}

void ClickDeleteAll(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    store::Transaction transaction(*session.ClientDb);
    session.ClientDb->DeleteMatching("fittings", "fitid", {form.ID});
    AddFitting(session, form.ID, 1);
    transaction.Commit();
    form.FIT_ID = 1;
    ShowFitting(session, form);
  });
}

void ClickQuantity(Session& session, Frmrecfit& form) {
  Trapped(session, [&] {
    auto reference = ReferenceFitting(session, form, !form.cboStatus.items.empty());
    if (reference.NoMatch()) {
      shell::Tell(session.host, "Fitting was not found.  Please make sure you have specified a fitting and status.");
      return;
    }
    const auto estimate = shell::PlainDecimal(EstimatedQuantity(session, Editor(session), reference));
    const auto answer =
        session.host.ShowMessage(fmt::format("Estimated number of fittings is {} .  Use this Estimate?", estimate),
                                 "Number of Fittings", shell::Buttons::kOkCancel, shell::Icon::kNone);
    if (answer != shell::Answer::kOk) return;
    form.txtQuantity.text = estimate;
    StoreQuantity(session, form);
  });
}

}  // namespace orvex::entry
