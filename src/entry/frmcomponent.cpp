#include "entry/frmcomponent.h"

#include "emission/arithmetic.h"
#include "emission/mixture_components.h"
#include "entry/component_row.h"
#include "entry/liquid_form.h"
#include "entry/tank_entry.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::RecordSet;

constexpr std::string_view kNameQuery =
    "SELECT DISTINCTROW CHEMICAL.Name AS chem FROM chemical WHERE CHEMICAL.Name IS NOT NULL ORDER BY chemical.NAME";
constexpr std::string_view kCasQuery =
    "SELECT DISTINCTROW CHEMICAL.CAS FROM chemical GROUP BY CHEMICAL.CAS HAVING CHEMICAL.CAS IS NOT NULL "
    "ORDER BY chemical.CAS";

std::vector<std::string> FirstColumn(Session& session, std::string_view query) {
  std::vector<std::string> texts;
  for (auto rows = session.ReferenceDb->OpenQuery(query); !rows.AtEnd(); rows.MoveNext())
    texts.push_back(rows.Get(0).AsText());
  return texts;
}

void ClearShares(Session& session, const Frmcomponent& form) {
  for (auto rows = emission::OpenComponents(session, form.ID, form.MixID); !rows.AtEnd(); rows.MoveNext()) {
    rows.Edit();
    for (const auto* field : {"VP_FRACT", "WT_FRACT", "WEIGHT"}) rows.Set(field, 0.0);
    rows.Update();
  }
}

/// The mode in which the shares of a fully speciated liquid were entered. Where the first one has none, all are cleared
/// for a new start in percents.
std::string_view OpeningMode(Session& session, const Frmcomponent& form, RecordSet& first) {
  if (!first.NoMatch() && first.DoubleOrZero("WT_FRACT") > 0) return kPercentMode;
  if (!first.NoMatch() && first.DoubleOrZero("WEIGHT") > 0) return kWeightMode;
  ClearShares(session, form);
  return kPercentMode;
}

double SumOfBasis(Session& session, const Frmcomponent& form) {
  double sum = 0;
  for (auto rows = emission::OpenComponents(session, form.ID, form.MixID); !rows.AtEnd(); rows.MoveNext())
    sum = emission::Finite(sum + rows.DoubleOrZero(form.basis->field));
  return sum;
}

void Open(Session& session, Frmcomponent& form) {
  form.dbcboChemName.items = FirstColumn(session, kNameQuery);
  form.dbcboCAS.items = FirstColumn(session, kCasQuery);
  auto first = session.ClientDb->OpenAt("components", "IDMIX", {form.ID, form.MixID});
  const bool is_full = form.SpecOpt == shell::kFullSpeciation;
  UseBasis(form, FindBasis(form.SpecOpt, is_full ? OpeningMode(session, form, first) : kPercentMode));
  if (first.NoMatch()) {
    AddComponent(session, form, form.CompID);
  } else {
    form.CompID = first.Long("COMP ID");
  }
  ShowComponent(session, form);
  ShowTemperature(session, form);
  ShowPlace(session, form, 1);
  ShowSum(form, SumOfBasis(session, form));
}

}  // namespace

Frmcomponent OpenFrmcomponent(Session& session) {
  auto& editor = Editor(session);
  Frmcomponent form;
  form.ID = editor.ID;
  form.MixID = editor.MixID;
  shell::TrappedWriting(session, *session.ClientDb, kComponentRoutine, [&] {
    form.SpecOpt = SpeciationOption(session, editor);
    Open(session, form);
  });
  return form;
}

void ClickHelp(Session& session, Frmcomponent&) { session.host.ShowHelp(std::string(kFrmcomponentText.topic)); }

}  // namespace orvex::entry
