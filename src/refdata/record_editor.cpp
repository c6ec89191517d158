#include "refdata/record_editor.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "refdata/questions.h"
#include "refdata/record_on_show.h"
#include "shell/editing.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

template <typename Form>
auto& Find(Form& form, std::string_view name, auto&& name_of) {
  const auto found = std::ranges::find(form.entries, name, name_of);
  if (found == form.entries.end())
    throw std::logic_error(fmt::format("{} has no entry {}.", form.info->window.name, name));
  return *found;
}

std::string_view ControlOf(const Entry& entry) { return entry.info->text.name; }
std::string_view FieldOf(const Entry& entry) { return entry.info->field; }

void RunRules(RecordEditor& form, std::string_view control, Moment moment) {
  for (const auto& rule : form.info->rules) {
    if (rule.control == control && rule.moment == moment) rule.run(form);
  }
}

/// A program that was killed while a record was added leaves it empty; nobody misses it.
void RemoveNeverSaved(shell::Session& session, const EditorInfo& info) {
  auto& reference = *session.ReferenceDb;
  if (reference.ReadOnly()) return;
  auto query = fmt::format("SELECT * FROM [{}] WHERE [{}] = True", info.table, info.user_defined_field);
  for (const auto& entry : info.entries)
    if (!entry.field.empty() && entry.kind != EntryKind::kYesNo) query += fmt::format(" AND [{}] IS NULL", entry.field);
  for (auto rows = reference.OpenQuery(query); !rows.AtEnd(); rows.MoveNext()) rows.Delete();
}

/// What follows from the change of an entry.
void FollowChange(shell::Session& session, RecordEditor& form, std::string_view control) {
  form.narrowing = false;
  RunRules(form, control, Moment::kChanged);
  if (form.info->shown != nullptr) form.info->shown(session, form);
}

/// The person has changed an entry of their record.
void Change(shell::Session& session, RecordEditor& form, std::string_view control) {
  auto& entry = At(form, control);
  if (!form.user_defined) {
    Hold(entry, std::string(entry.held));
    return;
  }
  shell::Trapped(session, form.info->label, [&] {
    TakeTyped(entry);
    FollowChange(session, form, control);
  });
}

}  // namespace

Entry& At(RecordEditor& form, std::string_view control) { return Find(form, control, ControlOf); }
const Entry& At(const RecordEditor& form, std::string_view control) { return Find(form, control, ControlOf); }
Entry& Of(RecordEditor& form, std::string_view field) { return Find(form, field, FieldOf); }
const Entry& Of(const RecordEditor& form, std::string_view field) { return Find(form, field, FieldOf); }
const std::string& HeldText(const RecordEditor& form, std::string_view field) { return Of(form, field).held; }
double HeldNumber(const RecordEditor& form, std::string_view field) { return Number(Of(form, field)); }

bool AreFilled(const RecordEditor& form, std::span<const std::string_view> fields) {
  return std::ranges::none_of(fields, [&](std::string_view field) { return HeldNumber(form, field) == 0; });
}

void FillMissingNumbers(RecordEditor& form) {
  for (auto& entry : form.entries)
    if (IsNumber(*entry.info) && entry.held.empty()) Hold(entry, "0");
}

RecordEditor OpenEditor(shell::Session& session, const EditorInfo& info) {
  RecordEditor form;
  form.info = &info;
  for (const auto& entry : info.entries) {
    form.entries.push_back({.info = &entry, .box = {}, .held = {}, .loaded = {}});
    form.entries.back().box.items.assign(entry.items.begin(), entry.items.end());
  }
  shell::Trapped(session, info.label, [&] {
    const shell::BusyScope busy(session, "Loading");
    form.editing = shell::BeginEditing(session, shell::DatabaseKind::kTank);
    form.window.closed = form.editing == nullptr;
    if (form.window.closed) return;
    RemoveNeverSaved(session, info);
    info.fill_lists(session, form);
    ShowFirst(session, form);
  });
  return form;
}

void PickRecord(shell::Session& session, RecordEditor& form, std::string_view control) {
  shell::Trapped(session, form.info->label, [&] {
    const shell::BusyScope busy(session, "Processing");
    auto& list = At(form, control);
    const auto picked = list.box.text;
    const auto& info = *form.info;
    if (form.user_defined && info.belongs_to_record != nullptr && info.belongs_to_record(form, control)) {
      Hold(list, picked);
      FollowChange(session, form, control);
      return;
    }
    // The record on show is still the old one.
    Hold(list, std::string(list.held));
    if (!SaveChanges(session, form)) return;
    form.narrowing = false;
    if (const auto Counter = info.find(session, form, control, picked))
      ShowRecord(session, form, *Counter, form.narrowing);
  });
}

void TypeText(shell::Session& session, RecordEditor& form, std::string_view control) { Change(session, form, control); }
void ChooseItem(shell::Session& session, RecordEditor& form, std::string_view control) {
  Change(session, form, control);
}

void LeaveEntry(shell::Session& session, RecordEditor& form, std::string_view control) {
  auto& entry = At(form, control);
  if (!form.user_defined) {
    Hold(entry, std::string(entry.held));
    return;
  }
  shell::Trapped(session, form.info->label, [&] {
    if (IsNumber(*entry.info) && !shell::ParseEntryNumber(entry.box.text)) {
      Hold(entry, "0");
      shell::Refuse(session.host, form.window, control, std::string(shell::kNoNumber));
      return;
    }
    TakeShown(entry);
    RunRules(form, control, Moment::kLeft);
  });
}

void ClickAddNew(shell::Session& session, RecordEditor& form) {
  shell::Trapped(session, form.info->label, [&] {
    const shell::BusyScope busy(session, "Processing");
    if (SaveChanges(session, form)) AddRecord(session, form);
  });
}

void ClickSave(shell::Session& session, RecordEditor& form) {
  if (form.user_defined) SaveRecord(session, form);
}

void ClickDelete(shell::Session& session, RecordEditor& form) {
  shell::Trapped(session, form.info->label, [&] {
    if (!form.user_defined) {
      shell::Tell(session.host, std::string(kNotUserDefined));
      return;
    }
    if (!ConfirmsDeletion(session, kDeleteRecord)) return;
    const shell::BusyScope busy(session, "Processing");
    shell::Statement([&] { session.ReferenceDb->OpenAt(form.info->table, "Counter", {form.Counter}).Delete(); });
    LeaveRecord(session, form);
  });
}

void ClickClose(shell::Session& session, RecordEditor& form) {
  if (!form.user_defined) {
    form.window.closed = true;
  } else if (form.just_added) {
    form.window.closed = SaveChanges(session, form);
  } else {
    form.window.closed = !WantsToSave(session, kSaveChanges) || SaveRecord(session, form);
  }
}

void ClickHelp(shell::Session& session, RecordEditor& form) {
  session.host.ShowHelp(std::string(form.info->window.topic));
}

}  // namespace orvex::refdata
