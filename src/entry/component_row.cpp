#include "entry/component_row.h"

#include <fmt/format.h>

#include "emission/arithmetic.h"
#include "emission/mixture_components.h"
#include "entry/tank_entry.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::RecordSet;

std::string_view FieldOf(const Frmcomponent& form, const BoundNumber& bound) {
  return bound.field.empty() ? form.basis->field : bound.field;
}

RecordSet Row(Session& session, const Frmcomponent& form) {
  return session.ClientDb->OpenAt("components", "IDMIX", {form.ID, form.MixID, form.CompID});
}

/// An empty text is stored as such: the speciation of the losses reads name and number of every row.
void SetText(RecordSet& row, std::string_view field, const std::string& text) {
  const auto stored = row.Get(field);
  if (stored.IsNull() || stored.AsText() != text) row.Set(field, text);
}

}  // namespace

std::string ShownNumber(const store::Value& value) {
  return value.IsNull() ? "0" : shell::PlainDecimal(value.AsDouble());
}

void AddComponent(Session& session, const Frmcomponent& form, std::int32_t number) {
  auto components = session.ClientDb->OpenTable("components");
  components.AddNew();
  components.Set("ID", form.ID);
  components.Set("MIX ID", form.MixID);
  components.Set("COMP ID", number);
  components.Update();
}

void ShowNameInLists(Frmcomponent& form) {
  form.dbcboChemName.text = form.txtName;
  form.dbcboCAS.text = form.txtCAS;
}

void ShowComponent(Session& session, Frmcomponent& form) {
  auto row = Row(session, form);
  if (row.NoMatch()) return;
  form.txtName = row.TextOrEmpty("NAME");
  form.txtCAS = row.TextOrEmpty("CAS");
  for (const auto& bound : kBoundNumbers) (form.*bound.box).text = ShownNumber(row.Get(FieldOf(form, bound)));
  ShowNameInLists(form);
}

void ShowShare(Session& session, Frmcomponent& form) {
  auto row = Row(session, form);
  if (!row.NoMatch()) form.txtShare.text = ShownNumber(row.Get(form.basis->field));
}

void CommitComponent(Session& session, Frmcomponent& form) {
  auto row = Row(session, form);
  // Of another chemical every number is taken over: what is computed from the row takes no null.
  const bool renamed = row.TextOrEmpty("NAME") != form.txtName;
  row.Edit();
  SetText(row, "NAME", form.txtName);
  SetText(row, "CAS", form.txtCAS);
  for (const auto& bound : kBoundNumbers) {
    const auto& text = (form.*bound.box).text;
    const auto field = FieldOf(form, bound);
    const auto stored = row.Get(field);
    if ((renamed && stored.IsNull()) || ShownNumber(stored) != text) row.Set(field, shell::EntryNumber(text));
  }
  row.Update();
}

void ShowPlace(Session& session, Frmcomponent& form, std::int32_t place) {
  const auto count = emission::OpenComponents(session, form.ID, form.MixID).RecordCount();
  form.cmdPrevious.enabled = form.CompID > 1;
  form.cmdNext.enabled = form.CompID < count;
  form.lblComponentXofX.text = fmt::format("Component {} of {}", place, count);
}

double AnyShare(RecordSet& component) {
  return component.DoubleOrZero("WEIGHT") + component.DoubleOrZero("WT_FRACT") + component.DoubleOrZero("VP_FRACT");
}

double SumOfShares(Session& session, const Frmcomponent& form) {
  double sum = 0;
  for (auto rows = emission::OpenComponents(session, form.ID, form.MixID); !rows.AtEnd(); rows.MoveNext())
    sum = emission::Finite(sum + AnyShare(rows));
  return sum;
}

void ShowSum(Frmcomponent& form, double sum) { form.txtSum.text = shell::FormatTwoToSixDecimals(sum); }

void UseBasis(Frmcomponent& form, const ComponentBasis& basis) {
  form.basis = &basis;
  form.lblShare.text = basis.caption;
  form.lblSum.text = basis.sum_label;
  form.cmdRelativeCaption.text = basis.switch_caption;
  form.cmdRelative.visible = !basis.switch_caption.empty();
}

void ShowTemperature(Session& session, Frmcomponent& form) {
  const auto* control = form.SpecOpt == shell::kFullSpeciation ? "txtALSFull" : "txtALSPartial";
  form.txtALST.text = At(Editor(session), control).box.text;
}

}  // namespace orvex::entry
