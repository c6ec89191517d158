#include <cstddef>
#include <ranges>

#include "refdata/profile_entries.h"
#include "refdata/profile_saving.h"
#include "refdata/profile_types.h"
#include "refdata/questions.h"
#include "refdata/record_on_show.h"
#include "shell/trap.h"
#include "store/database.h"

/// What the person does to the components of a profile.
namespace orvex::refdata {
namespace {

using shell::Session;

constexpr std::string_view kOnlyRecord =
    "This is the only record. This action will delete the profile. Delete profile?";

/// A list of chemicals.
struct ChemicalList {
  std::string_view control, index, field, label;
  shell::ComboBox FrmProfile::*list;
};
constexpr ChemicalList kLists[] = {
    {"dbcboChemName", "chemname", "NAME", "frmProfile.dbcboChemName", &FrmProfile::dbcboChemName},
    {"dbcboCAS", "zCAS", "CAS", "frmProfile.dbcboCAS", &FrmProfile::dbcboCAS},
};

void TakeChemical(Session& session, FrmProfile& form, const ChemicalList& from) {
  shell::Trapped(session, from.label, [&] {
    if (!TakeEntries(session, form)) return;
    const auto counter = FindByName(session, "chemical", from.index, from.field, (form.*from.list).text);
    if (!counter) return;
    auto row = session.ReferenceDb->OpenAt("chemical", "Counter", {*counter});
    auto& component = OnShow(form);
    component.NAME = row.TextOrEmpty("NAME");
    component.CAS = row.TextOrEmpty("CAS");
    component.MOLWT = NumberOrNull(row.Get("MOLWT"));
    component.VP_MOLWT = NumberOrNull(row.Get("VP_MOLWT"));
    ShowEntries(form);
  });
}

void ChooseType(Session& session, FrmProfile& form) {
  const auto type = form.cboType.text;
  form.cboType.text = form.profile.Type;
  if (!TakeEntries(session, form) || type == form.profile.Type) return;
  ChangeType(form.profile, type);
  ShowEntries(form);
}

/// Whether the person may go from the component on show to another one. Shipped ones are only looked at.
bool MayGo(Session& session, FrmProfile& form) {
  return !form.user_defined || (TakeEntries(session, form) && MayLeaveComponent(session, form));
}

}  // namespace

void TypeText(Session&, FrmProfile& form, std::string_view control) {
  if (!form.user_defined) {
    ShowEntries(form);
    return;
  }
  // A number may be no number yet; it is taken when its entry is left.
  if (control == "dbcboProfName") form.profile.Name = form.dbcboProfName.text;
  if (control == "dbcboChemName") OnShow(form).NAME = form.dbcboChemName.text;
  if (control == "dbcboCAS") OnShow(form).CAS = form.dbcboCAS.text;
}

void ChooseItem(Session& session, FrmProfile& form, std::string_view control) {
  if (!form.user_defined) {
    ShowEntries(form);
    return;
  }
  if (control == "cboType") ChooseType(session, form);
  for (const auto& list : kLists) {
    if (list.control == control) TakeChemical(session, form, list);
  }
}

void LeaveEntry(Session& session, FrmProfile& form, std::string_view) {
  if (form.user_defined) {
    static_cast<void>(TakeEntries(session, form));
  } else {
    ShowEntries(form);
  }
}

void ClickRelLiq(Session& session, FrmProfile& form) {
  if (!form.user_defined || form.profile.Type != kFullType || !TakeEntries(session, form)) return;
  SwitchSides(form.profile);
  ShowEntries(form);
}

void ClickPrevComp(Session& session, FrmProfile& form) {
  if (form.component > 0 && MayGo(session, form)) ShowComponent(form, form.component - 1);
}

void ClickNextComp(Session& session, FrmProfile& form) {
  if (form.component + 1 < form.profile.components.size() && MayGo(session, form))
    ShowComponent(form, form.component + 1);
}

void ClickAdd(Session& session, FrmProfile& form) {
  if (!form.user_defined || !MayGo(session, form)) return;
  form.profile.components.emplace_back();
  ShowComponent(form, form.profile.components.size() - 1);
  form.window.focus = "dbcboChemName";
}

void ClickDeleteComp(Session& session, FrmProfile& form) {
  if (!form.user_defined || !ConfirmsDeletion(session, kDeleteRecord)) return;
  auto& components = form.profile.components;
  if (components.size() == 1) {
    // Neither answer deletes anything: a profile goes by its own command only.
    static_cast<void>(ConfirmsDeletion(session, kOnlyRecord));
    return;
  }
  components.erase(std::next(components.begin(), static_cast<std::ptrdiff_t>(form.component)));
  ShowComponent(form, form.component == 0 ? 0 : form.component - 1);
}

}  // namespace orvex::refdata
