#include "entry/fitting_row.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "entry/tank_entry.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "store/database.h"
#include "store/wildcards.h"

namespace orvex::entry {
namespace {

using shell::Session;

/// A loss factor and the text box that shows it.
struct ShownFactor {
  std::string_view field;
  shell::TextBox Frmrecfit::*box;
};
constexpr ShownFactor kShownFactors[] = {
    {"K_FA", &Frmrecfit::txtK_FA}, {"K_FB", &Frmrecfit::txtK_FB}, {"K_M", &Frmrecfit::txtK_M}};

void CountFittings(Session& session, Frmrecfit& form) {
  auto rows = session.ClientDb->OpenQuery(fmt::format("SELECT Count(*) AS n FROM fittings WHERE ID = {}", form.ID));
  form.count = rows.Long("n");
}

/// The column wells of a typical internal tank follow its columns, so that they are not changed here.
bool IsColumnWellOfTypicalTank(Session& session, const Frmrecfit& form) {
  auto& tank = Editor(session);
  return PhysicalSection(tank) == Section::kInternal && StoredText(Physical(tank, "FITTING")) == "Typical" &&
         store::MatchesWildcards(form.cboFitType.text, "Column Well*", store::CaseRule::kRegard);
}

void EnableCommands(Session& session, Frmrecfit& form) {
  const bool open = !IsColumnWellOfTypicalTank(session, form);
  form.cboFitType.enabled = form.cboStatus.enabled = form.txtQuantity.enabled = open;
  form.cmdDelete.enabled = form.cmdQuantity.enabled = open;
  form.cmdPrevious.enabled = form.FIT_ID > 1;
  form.cmdNext.enabled = form.FIT_ID < form.count;
}

/// Numbers of fittings are counted in a Long.
bool IsWhole(double number) {
  using Long = std::numeric_limits<std::int32_t>;
  return number == std::trunc(number) && number >= Long::min() && number <= Long::max();
}

}  // namespace

store::RecordSet FittingRow(Session& session, const Frmrecfit& form) {
  return session.ClientDb->OpenAt("fittings", "fitid", {form.ID, form.FIT_ID});
}

store::RecordSet ReferenceFitting(Session& session, const Frmrecfit& form, bool with_status) {
  auto& reference = *session.ReferenceDb;
  if (with_status) return reference.OpenAt("fitting", "TYPE", {form.cboFitType.text, form.cboStatus.text});
  return reference.OpenAt("fitting", "FIT_TYPE", {form.cboFitType.text});
}

void FillStatuses(Session& session, Frmrecfit& form) {
  auto& status = form.cboStatus;
  status.items.clear();
  auto rows = session.ReferenceDb->OpenMatching("fitting", "FIT_TYPE", {form.cboFitType.text});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    auto cover = rows.TextOrEmpty("COVR_TYPE");
    if (!cover.empty()) status.items.push_back(std::move(cover));
  }
  if (std::ranges::find(status.items, status.text) == status.items.end()) status.text.clear();
}

void ShowFitting(Session& session, Frmrecfit& form) {
  auto row = FittingRow(session, form);
  form.cboFitType.text = row.TextOrEmpty("FIT_TYPE");
  form.cboStatus.text = row.TextOrEmpty("COVR_TYPE");
  FillStatuses(session, form);
  form.txtQuantity.text = shell::PlainDecimal(row.DoubleOrZero("QUANTITY"));
  for (const auto& factor : kShownFactors)
    (form.*factor.box).text = shell::PlainDecimal(row.DoubleOrZero(factor.field));
  CountFittings(session, form);
  form.lblRecord.text = fmt::format("Record {} of {}", form.FIT_ID, form.count);
  EnableCommands(session, form);
}

double QuantityShown(const Frmrecfit& form) { return shell::ParseEntryNumber(form.txtQuantity.text).value_or(0); }

void StoreQuantity(Session& session, const Frmrecfit& form) {
  auto row = FittingRow(session, form);
  row.Edit();
  row.Set("QUANTITY", QuantityShown(form));
  row.Update();
}

bool AcceptQuantity(Session& session, Frmrecfit& form) {
  // What came with the row, as from another program, is not judged.
  if (form.txtQuantity.text == shell::PlainDecimal(FittingRow(session, form).DoubleOrZero("QUANTITY"))) return true;
  const auto number = shell::ParseEntryNumber(form.txtQuantity.text);
  if (number && IsWhole(*number)) return true;
  form.txtQuantity.text = "0";
  shell::Refuse(session.host, form.window, "txtQuantity",
                number ? "Please enter a whole number." : std::string(shell::kNoNumber));
  return false;
}

bool IsComplete(Session& session, Frmrecfit& form) {
  const bool no_type = form.cboFitType.text.empty();
  if (no_type || (form.cboStatus.text.empty() && !form.cboStatus.items.empty())) {
    shell::Refuse(session.host, form.window, no_type ? "cboFitType" : "cboStatus",
                  "This fitting must have a type and status.  Delete this fitting if you do not wish to save it.");
    return false;
  }
  if (!AcceptQuantity(session, form)) return false;
  if (QuantityShown(form) <= 0) {
    shell::Refuse(session.host, form.window, "txtQuantity", "Quantity must be greater than zero.");
    return false;
  }
  StoreQuantity(session, form);
  return true;
}

bool IsUnique(Session& session, Frmrecfit& form) {
  auto rows = session.ClientDb->OpenMatching("fittings", "fitid", {form.ID});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    if (rows.LongOrZero("FIT ID") == form.FIT_ID || rows.TextOrEmpty("FIT_TYPE") != form.cboFitType.text ||
        rows.TextOrEmpty("COVR_TYPE") != form.cboStatus.text)
      continue;
    shell::Refuse(session.host, form.window, "cboFitType", "Duplicate Fitting");
    return false;
  }
  return true;
}

}  // namespace orvex::entry
