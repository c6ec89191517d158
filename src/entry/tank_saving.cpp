#include "entry/tank_saving.h"

#include "entry/bound_record.h"
#include "entry/entry_events.h"
#include "entry/entry_transaction.h"
#include "entry/mixture_page.h"
#include "entry/month_page.h"
#include "entry/record_copy.h"
#include "entry/tank_lifecycle.h"
#include "entry/tank_names.h"
#include "entry/unsaved_tank.h"
#include "entry/update_tank.h"
#include "shell/entry_number.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using shell::Statement;

enum class Verdict { kStored, kNoIdentification, kNoMixtureName, kNotUnique };

/// A number of the physical page that cannot be read is stored as 0.
bool IsForgiven(const Entry& entry) {
  return entry.info->kind == EntryKind::kNumber && PageOf(entry.info->section) == Page::kPhysical;
}

Verdict StoreRows(Session& session, FrmTank& form) {
  auto& client = *session.ClientDb;
  Statement([&] { CommitTank(session, form); });
  const auto& user_id = At(form, "txtUserID").box.text;
  if (user_id.empty()) return Verdict::kNoIdentification;
  if (MixtureNameIsEmpty(form)) return Verdict::kNoMixtureName;
  Statement([&] { UpdateTank(session, form); });
  Statement([&] { CommitMixture(session, form); });
  Statement([&] { StoreMonths(session, form); });
  if (HasOtherTank(client, user_id, form.ID)) return Verdict::kNotUnique;
  UnmarkSaved(client, form.ID);
  return Verdict::kStored;
}

Verdict Store(Session& session, FrmTank& form) {
  EntryTransaction transaction(session, form);
  const auto verdict = StoreRows(session, form);
  transaction.Commit();
  return verdict;
}

void RefuseNoIdentification(Session& session, FrmTank& form) {
  RefuseEntry(session, form, At(form, "txtUserID"), "Please enter an Identification Number for this record.");
}

void RefuseNoMixtureName(Session& session, FrmTank& form) {
  auto* name = FindLiquid(form, "MIX NAME");
  // Without a kind the mixture has no entry for its name yet.
  auto& entry = name != nullptr ? *name : At(form, "cboChemCat");
  RefuseEntry(session, form, entry, "Please enter a mixture name.");
}

void RefuseNotUnique(Session& session, FrmTank& form) {
  shell::Tell(session.host,
              "Warning: This is not a unique User Identification Number.  Having two records with the same ID will "
              "cause errors. Please change this ID.",
              shell::Icon::kExclamation);
  editRecord(session, form.ID, form.tank_type);
  At(form, "txtUserID").box.text += '1';
  GoTo(form, Page::kIdentification, "txtUserID");
}

bool RefuseEntries(Session& session, FrmTank& form) {
  for (auto& entry : form.entries) {
    if (!IsShown(form, entry.info->section) || entry.info->kind == EntryKind::kShown) continue;
    const auto reason = Refusal(entry);
    if (reason.empty() || !IsChanged(entry) || IsForgiven(entry)) continue;
    if (entry.info->kind == EntryKind::kNumber) entry.box.text = "0";
    RefuseEntry(session, form, entry, reason);
    return true;
  }
  return false;
}

bool RefuseMonths(Session& session, FrmTank& form) {
  for (std::size_t month = 0; month < form.months.size(); ++month) {
    const auto& text = form.months[month].txtThru.text;
    if (text.empty() || shell::ParseEntryNumber(text)) continue;
    form.page = Page::kMonthly;
    LeaveThroughput(session, form, month);
    return true;
  }
  return false;
}

}  // namespace

bool RefuseUnstorable(Session& session, FrmTank& form) {
  return RefuseEntries(session, form) || RefuseMonths(session, form);
}

bool SaveTank(Session& session, FrmTank& form) {
  const shell::BusyScope busy(session, "Saving");
  return shell::Trapped(session, "frmTank.SaveTank", false, [&] {
    if (RefuseUnstorable(session, form)) return false;
    switch (Store(session, form)) {
      case Verdict::kNoIdentification:
        RefuseNoIdentification(session, form);
        return false;
      case Verdict::kNoMixtureName:
        RefuseNoMixtureName(session, form);
        return false;
      case Verdict::kNotUnique:
        RefuseNotUnique(session, form);
        return false;
      case Verdict::kStored:
        break;
    }
    GetRecordCopy(session, form.ID);
    return true;
  });
}

}  // namespace orvex::entry
