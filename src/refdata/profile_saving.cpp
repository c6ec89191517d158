#include "refdata/profile_saving.h"

#include <algorithm>
#include <string>

#include "refdata/profile_entries.h"
#include "refdata/profile_types.h"
#include "refdata/record_on_show.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

using shell::Session;

constexpr std::string_view kIncomplete =
    "Record cannot be saved. The profile must have a name and be of type 'Partial', 'Full' or 'Vapor'.";
constexpr std::string_view kDuplicate = "Duplicate profile name.";
constexpr std::string_view kNameMissing = "Chemical name must be specified.";
constexpr std::string_view kNameMissingAtSave = "Chemical name must be specified for the component.";

/// What a component lacks, and the entry for it; nothing if it is complete.
struct Missing {
  std::string_view control, when_left, at_save;
};

Missing FindMissing(const ProfileRecord& profile, const ProfileComponent& component) {
  const auto* share = FindShare(profile);
  if (share != nullptr && (component.*share->share).value_or(0) == 0)
    return {share->control, share->missing, share->missing_at_save};
  if (component.NAME.empty()) return {"dbcboChemName", kNameMissing, kNameMissingAtSave};
  return {};
}

bool IsDuplicate(Session& session, const FrmProfile& form) {
  auto rows = session.ReferenceDb->OpenMatching("profile names", "Profile Name", {form.profile.Name});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    if (rows.Long("SPEC ID") != form.SpecID) return true;
  }
  return false;
}

/// Says why the profile cannot be saved, and shows its first component again.
bool Refused(Session& session, FrmProfile& form, std::string_view reason, std::string_view control) {
  shell::Tell(session.host, std::string(reason));
  ShowComponent(form, 0);
  form.window.focus = control;
  return false;
}

/// The person sees the component of which they are told, and then the first one again.
bool AreComponentsComplete(Session& session, FrmProfile& form) {
  for (std::size_t i = 0; i < form.profile.components.size(); ++i) {
    const auto missing = FindMissing(form.profile, form.profile.components[i]);
    if (missing.control.empty()) continue;
    ShowComponent(form, i);
    session.host.DrawWindow();
    return Refused(session, form, missing.at_save, missing.control);
  }
  return true;
}

/// A text that the tables cannot hold stays on show, unlike what is refused otherwise.
bool AreTextsStorable(Session& session, FrmProfile& form) {
  if (!IsProfileStorable(session, form)) return false;
  const auto shown = form.component;
  for (std::size_t i = 0; i < form.profile.components.size(); ++i) {
    ShowComponent(form, i);
    if (!IsComponentStorable(session, form)) return false;
  }
  ShowComponent(form, shown);
  return true;
}

bool IsSavable(Session& session, FrmProfile& form) {
  const auto& profile = form.profile;
  if (profile.Name.empty()) return Refused(session, form, kIncomplete, "dbcboProfName");
  if (FindShare(profile) == nullptr) return Refused(session, form, kIncomplete, "cboType");
  if (!AreComponentsComplete(session, form)) return false;
  if (IsDuplicate(session, form)) return Refused(session, form, kDuplicate, "dbcboProfName");
  const auto sum = SumRefusal(profile);
  return sum.empty() || Refused(session, form, sum, FindShare(profile)->control);
}

}  // namespace

bool IsChanged(const FrmProfile& form) { return form.user_defined && (form.just_added || form.profile != form.loaded); }

bool MayLeaveComponent(Session& session, FrmProfile& form) {
  const auto missing = FindMissing(form.profile, OnShow(form));
  if (missing.control.empty()) return IsComponentStorable(session, form);
  shell::Refuse(session.host, form.window, missing.control, std::string(missing.when_left));
  return false;
}

bool SaveProfile(Session& session, FrmProfile& form) {
  return shell::Trapped(session, kFrmProfile, false, [&] {
    const shell::BusyScope busy(session, "Processing");
    if (!TakeEntries(session, form) || !AreTextsStorable(session, form) || !IsSavable(session, form)) return false;
    form.SpecID = WriteProfile(session, form.SpecID, form.profile);
    form.loaded = form.profile;
    form.just_added = false;
    form.cmdAddNew.enabled = true;
    FillProfileList(session, form);
    return true;
  });
}

bool SaveChanges(Session& session, FrmProfile& form) {
  if (!TakeEntries(session, form)) return false;
  return !IsChanged(form) || SaveProfile(session, form);
}

void FillProfileList(Session& session, FrmProfile& form) {
  form.dbcboProfName.items = Names(session, "profile names", "Profile Name");
}

}  // namespace orvex::refdata
