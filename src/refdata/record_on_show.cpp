#include "refdata/record_on_show.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

#include "refdata/questions.h"
#include "shell/entry_number.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::refdata {
namespace {

using store::Value;

constexpr std::string_view kKey = "Counter";

void EnableEntries(RecordEditor& form) {
  form.panel.enabled = form.user_defined;
  for (auto& entry : form.entries) entry.box.enabled = form.user_defined || FindsRecords(*entry.info);
}

void Load(Entry& entry, const std::string& stored) {
  Hold(entry, stored);
  entry.loaded = stored;
}

Value StoredValue(const Entry& entry) {
  if (entry.info->kind == EntryKind::kYesNo) return entry.held != "0" && !entry.held.empty();
  if (entry.held.empty()) return {};
  if (IsNumber(*entry.info)) return shell::EntryNumber(entry.held);
  return entry.held;
}

/// The entry with which a person begins a record; the text of a finder is made of the others.
std::string_view FirstToFillIn(const RecordEditor& form) {
  const auto is_filled_in = [](const Entry& entry) { return entry.info->kind != EntryKind::kFinder; };
  const auto found = std::ranges::find_if(form.entries, is_filled_in);
  return found == form.entries.end() ? std::string_view() : found->info->text.name;
}

void WriteRecord(shell::Session& session, RecordEditor& form) {
  auto row = session.ReferenceDb->OpenAt(form.info->table, kKey, {form.Counter});
  if (row.NoMatch()) {
    // Somebody else has deleted it. What is on show cannot be saved, and must not keep the window open.
    LeaveRecord(session, form);
    throw store::RunTimeError(store::ErrorNumber::kRecordDeleted, "Record is deleted.");
  }
  row.Edit();
  for (const auto& entry : form.entries) {
    if (!entry.info->field.empty() && IsChanged(entry)) row.Set(entry.info->field, StoredValue(entry));
  }
  if (form.info->write != nullptr) form.info->write(row, form);
  row.Update();
}

/// Whether the table can hold what the record holds. The person is led to the first entry of which it cannot; the text
/// of a finder is made of the others, so those come first.
bool IsStorable(shell::Session& session, RecordEditor& form) {
  const auto& table = store::FindTable(form.info->table);
  for (const bool of_finders : {false, true}) {
    for (const auto& entry : form.entries) {
      if ((entry.info->kind == EntryKind::kFinder) != of_finders) continue;
      const auto reason = Refusal(entry, table);
      if (reason.empty()) continue;
      shell::Refuse(session.host, form.window, entry.info->text.name, reason);
      return false;
    }
  }
  return true;
}

/// Refuses a record whose name another one has, and proposes a name for it, if the person may name it.
bool IsUnique(shell::Session& session, RecordEditor& form) {
  const auto& info = *form.info;
  if (!info.is_name_taken(session, form)) return true;
  if (!info.composes_name) {
    auto& name = At(form, info.name);
    Hold(name, name.held + "1");
    if (info.shown != nullptr) info.shown(session, form);
  }
  shell::Tell(session.host, std::string(info.duplicate));
  return false;
}

bool Save(shell::Session& session, RecordEditor& form) {
  const shell::BusyScope busy(session, "Processing");
  const auto& info = *form.info;
  for (auto& entry : form.entries) TakeShown(entry);
  if (!IsStorable(session, form)) return false;
  if (!info.is_complete(form)) {
    shell::Tell(session.host, std::string(info.incomplete));
    return false;
  }
  if (info.finish != nullptr) info.finish(form);
  // What was filled in just now must fit, too.
  if (!IsStorable(session, form)) return false;
  if (!IsUnique(session, form)) return false;
  WriteRecord(session, form);
  form.just_added = false;
  form.cmdAddNew.enabled = true;
  info.fill_lists(session, form);
  ShowRecord(session, form, form.Counter);
  return true;
}

}  // namespace

void ShowRecord(shell::Session& session, RecordEditor& form, std::int32_t Counter, bool narrowing) {
  auto row = session.ReferenceDb->OpenAt(form.info->table, kKey, {Counter});
  form.user_defined = row.BoolOrFalse(form.info->user_defined_field);
  form.Counter = Counter;
  for (auto& entry : form.entries) {
    if (!entry.info->field.empty()) Load(entry, row.TextOrEmpty(entry.info->field));
  }
  if (form.info->read != nullptr) form.info->read(row, form);
  form.narrowing = narrowing;
  EnableEntries(form);
  if (form.info->shown != nullptr) form.info->shown(session, form);
}

void ShowFirst(shell::Session& session, RecordEditor& form) {
  auto table = session.ReferenceDb->OpenTable(form.info->table);
  if (!table.AtEnd()) {
    ShowRecord(session, form, table.Long(kKey));
    return;
  }
  form.user_defined = false;
  form.Counter = 0;
  for (auto& entry : form.entries) Load(entry, "");
  EnableEntries(form);
  if (form.info->shown != nullptr) form.info->shown(session, form);
}

void LeaveRecord(shell::Session& session, RecordEditor& form) {
  form.just_added = form.asks_for_another = false;
  form.cmdAddNew.enabled = true;
  form.info->fill_lists(session, form);
  ShowFirst(session, form);
}

bool SaveRecord(shell::Session& session, RecordEditor& form) {
  return shell::Trapped(session, form.info->save_label, false, [&] {
    if (!Save(session, form)) return false;
    if (std::exchange(form.asks_for_another, false) && WantsAnother(session, kAddAnotherRecord))
      AddRecord(session, form);
    return true;
  });
}

bool SaveChanges(shell::Session& session, RecordEditor& form) {
  if (!form.user_defined) return true;
  bool changed = form.just_added;
  for (auto& entry : form.entries) {
    TakeShown(entry);
    changed = changed || IsChanged(entry);
  }
  if (!changed) return true;
  const bool asked = std::exchange(form.asks_for_another, false);
  const bool saved = SaveRecord(session, form);
  if (!saved) form.asks_for_another = asked && form.just_added;
  return saved;
}

void AddRecord(shell::Session& session, RecordEditor& form) {
  auto table = session.ReferenceDb->OpenTable(form.info->table);
  table.AddNew();
  table.Set(form.info->user_defined_field, true);
  table.Update();
  table.Move(table.LastModified());
  form.just_added = form.asks_for_another = true;
  form.cmdAddNew.enabled = false;
  ShowRecord(session, form, table.Long(kKey));
  form.window.focus = FirstToFillIn(form);
}

bool AnyOther(const RecordEditor& form, store::RecordSet rows, const std::function<bool(store::RecordSet&)>& is_meant) {
  for (; !rows.AtEnd(); rows.MoveNext())
    if (rows.Long(kKey) != form.Counter && is_meant(rows)) return true;
  return false;
}

bool OtherHolds(shell::Session& session, const RecordEditor& form, std::string_view index,
                std::initializer_list<Value> values) {
  return AnyOther(form, session.ReferenceDb->OpenMatching(form.info->table, index, values),
                  [](const store::RecordSet&) { return true; });
}

std::vector<std::string> Names(shell::Session& session, std::string_view table, std::string_view field) {
  std::vector<std::string> names;
  auto rows = session.ReferenceDb->OpenQuery(
      fmt::format("SELECT [{0}] FROM [{1}] WHERE [{0}] IS NOT NULL ORDER BY [{0}]", field, table));
  for (; !rows.AtEnd(); rows.MoveNext()) {
    if (auto name = rows.Get(0).AsText(); !name.empty()) names.push_back(std::move(name));
  }
  return names;
}

std::vector<std::string> DistinctNames(shell::Session& session, std::string_view table, std::string_view field) {
  auto names = Names(session, table, field);
  names.erase(std::unique(names.begin(), names.end(), store::EqualNoCase), names.end());
  return names;
}

std::optional<std::int32_t> FindByName(shell::Session& session, std::string_view table, std::string_view index,
                                       std::string_view field, const std::string& name, std::string_view key) {
  std::optional<std::int32_t> first;
  for (auto rows = session.ReferenceDb->OpenMatching(table, index, {name}); !rows.AtEnd(); rows.MoveNext()) {
    const auto number = rows.Long(key);
    if (rows.TextOrEmpty(field) == name) return number;
    if (!first) first = number;
  }
  return first;
}

}  // namespace orvex::refdata
