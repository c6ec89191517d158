#include "refdata/frmprofile.h"

#include <iterator>

#include "refdata/profile_entries.h"
#include "refdata/profile_saving.h"
#include "refdata/profile_types.h"
#include "refdata/questions.h"
#include "refdata/record_on_show.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

using shell::Session;

/// Without a key: a new profile, or none.
void ShowRecord(FrmProfile& form, std::int32_t spec_id, bool user_defined, ProfileRecord&& profile) {
  form.SpecID = spec_id;
  form.user_defined = user_defined;
  form.just_added = user_defined && spec_id == 0;
  form.cmdAddNew.enabled = !form.just_added;
  form.loaded = form.profile = std::move(profile);
  ShowComponent(form, 0);
}

void ShowProfile(Session& session, FrmProfile& form, std::int32_t spec_id) {
  auto row = session.ReferenceDb->OpenAt("profile names", "spec id", {spec_id});
  const bool user_defined = row.BoolOrFalse("User");
  ShowRecord(form, spec_id, user_defined, ReadProfile(session, spec_id));
}

void ShowFirst(Session& session, FrmProfile& form) {
  auto table = session.ReferenceDb->OpenTable("profile names");
  if (table.AtEnd()) {
    ShowRecord(form, 0, false, {});
  } else {
    ShowProfile(session, form, table.Long("SPEC ID"));
  }
}

void AddProfile(FrmProfile& form) {
  ProfileRecord profile;
  profile.Type = kPartialType;
  ShowRecord(form, 0, true, std::move(profile));
  form.window.focus = "dbcboProfName";
}

}  // namespace

FrmProfile OpenFrmProfile(Session& session) {
  FrmProfile form;
  form.cboType.items.assign(std::begin(kProfileTypes), std::end(kProfileTypes));
  shell::Trapped(session, kFrmProfile, [&] {
    const shell::BusyScope busy(session, "Loading");
    form.editing = shell::BeginEditing(session, shell::DatabaseKind::kTank);
    form.window.closed = form.editing == nullptr;
    if (form.window.closed) return;
    FillProfileList(session, form);
    form.dbcboChemName.items = Names(session, "chemical", "NAME");
    form.dbcboCAS.items = DistinctNames(session, "chemical", "CAS");
    ShowFirst(session, form);
  });
  return form;
}

void PickProfile(Session& session, FrmProfile& form) {
  shell::Trapped(session, "frmProfile.dbcboProfName", [&] {
    const shell::BusyScope busy(session, "Processing");
    const auto picked = form.dbcboProfName.text;
    // The profile on show is still the old one.
    form.dbcboProfName.text = form.profile.Name;
    if (!SaveChanges(session, form)) return;
    const auto spec_id = FindByName(session, "profile names", "Profile Name", "Profile Name", picked, "SPEC ID");
    if (spec_id) ShowProfile(session, form, *spec_id);
  });
}

void ClickAddNew(Session& session, FrmProfile& form) {
  shell::Trapped(session, "frmProfile.cmdAddNew", [&] {
    const shell::BusyScope busy(session, "Processing");
    if (!TakeEntries(session, form)) return;
    if (IsChanged(form) && WantsToSave(session, "Save changes to " + form.profile.Name + "?") &&
        !SaveProfile(session, form))
      return;
    AddProfile(form);
  });
}

void ClickSave(Session& session, FrmProfile& form) {
  if (!form.user_defined) return;
  shell::Trapped(session, "frmProfile.cmdSave", [&] {
    const bool was_added = form.just_added;
    if (SaveProfile(session, form) && was_added && WantsAnother(session, "Add Another Profile?")) AddProfile(form);
  });
}

void ClickDelete(Session& session, FrmProfile& form) {
  shell::Trapped(session, "frmProfile.cmdDelete", [&] {
    if (!form.user_defined) {
      shell::Tell(session.host, std::string(kNotUserDefined));
      return;
    }
    if (!ConfirmsDeletion(session, "Are you sure you want to delete this profile?")) return;
    const shell::BusyScope busy(session, "Processing");
    if (form.SpecID != 0) DeleteProfile(session, form.SpecID);
    FillProfileList(session, form);
    ShowFirst(session, form);
  });
}

void ClickClose(Session& session, FrmProfile& form) {
  shell::Trapped(session, "frmProfile.cmdClose", [&] {
    if (!form.user_defined) {
      form.window.closed = true;
    } else if (form.just_added) {
      form.window.closed = SaveProfile(session, form);
    } else {
      form.window.closed = !WantsToSave(session, kSaveChanges) || SaveProfile(session, form);
    }
  });
}

void ClickHelp(Session& session, FrmProfile&) { session.host.ShowHelp(std::string(kFrmProfileText.topic)); }

}  // namespace orvex::refdata
