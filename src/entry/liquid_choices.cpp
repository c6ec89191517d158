#include "entry/bound_record.h"
#include "entry/entry_events.h"
#include "entry/entry_transaction.h"
#include "entry/liquid_form.h"
#include "entry/liquid_lists.h"
#include "entry/mixture_page.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::RecordSet;

constexpr const char* kOrganicLiquidWarning =
    "Are you sure you want to speciate this organic liquid?  This option is for crude oils, petroleum distillates and "
    "other mixtures.";

// What every mixture has ----------------------------------------------------------------------------------------------

/// Stores a choice. When that fails, the lists show again what the row holds, or the next commit would store half of
/// it.
template <typename Body>
void StoreChoice(FrmTank& form, std::initializer_list<std::string_view> lists, Body store_choice) {
  try {
    store_choice();
  } catch (const store::RunTimeError&) {
    for (const auto list : lists) ShowStored(At(form, list), At(form, list).committed);
    throw;
  }
}

void ChooseCategory(Session& session, FrmTank& form, Entry&) {
  shell::Trapped(session, "frmTank.cboChemCat", [&] {
    StoreChoice(form, {"cboChemCat"}, [&] { CommitMixture(session, form); });
    FillChemicalLists(session, form);
  });
}

/// A single chemical has no components: those that the mixture had go at once.
void ChooseSingle(Session& session, FrmTank& form) {
  auto& option = At(form, "cboSpecOpt");
  // The list may show none though the row has one.
  option.committed = SpeciationOption(session, form);
  Put(option, "");
  EntryTransaction transaction(session, form);
  session.ClientDb->DeleteMatching("components", "IDMIX", {form.ID, form.MixID});
  CommitMixture(session, form);
  transaction.Commit();
}

void ChooseKind(Session& session, FrmTank& form, Entry& kind) {
  StoreChoice(form, {"cboSingleMultiple", "cboSpecOpt"}, [&] {
    if (StoredText(kind) == shell::kSingle) {
      ChooseSingle(session, form);
    } else {
      CommitMixture(session, form);
    }
  });
  ShowForm(session, form);
}

void ChooseOption(Session& session, FrmTank& form, Entry&) {
  StoreChoice(form, {"cboSpecOpt"}, [&] { CommitMixture(session, form); });
  ShowForm(session, form);
  form.cmdAdd.enabled = true;
}

// A single chemical ---------------------------------------------------------------------------------------------------

void CopyProperties(FrmTank& form, RecordSet& chemical) {
  for (const auto* field : {"MOLWT", "VP_MOLWT", "L_DENS"})
    if (auto* entry = FindLiquid(form, field)) Put(*entry, shell::PlainDecimal(chemical.DoubleOrZero(field)));
}

/// Takes over the chemical that one of the two lists names, the other list's text included.
void ChooseChemicalBy(Session& session, FrmTank& form, std::string_view index, const Entry& chosen,
                      std::string_view other) {
  if (!form.visible) return;
  CommitMixture(session, form);
  auto chemical = session.ReferenceDb->OpenAt("chemical", index, {StoredText(chosen)});
  if (!chemical.NoMatch()) {
    auto& entry = At(form, other);
    Put(entry, chemical.TextOrEmpty(entry.info->field == "CAS" ? "CAS" : "NAME"));
    CopyProperties(form, chemical);
  }
  ClickCalcProp(session, form);
}

void ChooseChemicalName(Session& session, FrmTank& form, Entry& name) {
  ChooseChemicalBy(session, form, "chemname", name, "dbcboCAS");
}

void ChooseCas(Session& session, FrmTank& form, Entry& number) {
  ChooseChemicalBy(session, form, "zCAS", number, "dbcboChemName");
}

// A mixture's name ----------------------------------------------------------------------------------------------------

RecordSet SeekName(Session& session, const Entry& name) {
  return session.ReferenceDb->OpenAt("chemical", "chemname", {StoredText(name)});
}

void FollowName(Session& session, FrmTank& form, Entry& name) {
  auto chemical = SeekName(session, name);
  const bool found = !chemical.NoMatch();
  if (found) CopyProperties(form, chemical);
  if (name.info->section != Section::kPartial) return;
  EnableProperties(form, !found);
  if (found) ClickCalcProp(session, form);
}

void LeaveName(Session& session, FrmTank& form, Entry& name) {
  // A name that the row cannot hold was refused already.
  if (!name.refusal.empty()) return;
  FollowName(session, form, name);
  CommitMixture(session, form);
}

void ChooseName(Session& session, FrmTank& form, Entry& name) {
  LeaveName(session, form, name);
  auto chemical = SeekName(session, name);
  if (chemical.NoMatch() || At(form, "cboChemCat").box.text != shell::kOrganicLiquids) return;
  if (!chemical.BoolOrFalse("USER_DEF")) shell::Tell(session.host, kOrganicLiquidWarning, shell::Icon::kExclamation);
}

constexpr EntryRule kRules[] = {
    {"cboChemCat", Moment::kChoosing, ChooseCategory},    {"cboSingleMultiple", Moment::kChoosing, ChooseKind},
    {"cboSpecOpt", Moment::kChoosing, ChooseOption},      {"dbcboChemName", Moment::kChoosing, ChooseChemicalName},
    {"dbcboCAS", Moment::kChoosing, ChooseCas},           {"dbcboMixNamePartial", Moment::kChoosing, ChooseName},
    {"dbcboMixNamePartial", Moment::kTyping, FollowName}, {"dbcboMixNamePartial", Moment::kLeft, LeaveName},
    {"dbcboMixNameFull", Moment::kChoosing, ChooseName},  {"dbcboMixNameFull", Moment::kTyping, FollowName},
    {"dbcboMixNameFull", Moment::kLeft, LeaveName},
};

}  // namespace

std::span<const EntryRule> LiquidRules() { return kRules; }

}  // namespace orvex::entry
