#include "entry/entry_events.h"

#include <fmt/format.h>

#include <utility>

#include "entry/update_tank.h"
#include "shell/entry_number.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

/// The ending of a routine's name, by `Moment`.
constexpr std::string_view kEventNames[] = {"GotFocus", "LostFocus", "LostFocus", "Click",
                                            "Change",   "DropDown",  "DblClick"};
constexpr std::string_view kCheckLostFocus = "frmTank.CheckLostFocus";

std::string RoutineOf(const Entry& entry, Moment moment) {
  return fmt::format("frmTank.{}_{}", entry.info->text.name, kEventNames[static_cast<std::size_t>(moment)]);
}

void ApplyRules(Session& session, FrmTank& form, Entry& entry, Moment moment) {
  for (const auto& rules : {ThroughputRules(), FixedRoofRules(), FloatingRoofRules(), SiteRules(), LiquidRules()})
    for (const auto& rule : rules)
      if (rule.control == entry.info->text.name && rule.moment == moment) rule.apply(session, form, entry);
}

void RunEvent(Session& session, FrmTank& form, std::string_view control, Moment moment) {
  auto& entry = At(form, control);
  shell::Trapped(session, RoutineOf(entry, moment), [&] { ApplyRules(session, form, entry, moment); });
}

bool IsPhysical(const Entry& entry) {
  return entry.info->section >= Section::kVertical && entry.info->section <= Section::kExternal;
}

void RequireStorable(Session& session, FrmTank& form, Entry& entry) {
  const auto reason = Refusal(entry);
  if (reason.empty()) return;
  if (entry.info->kind == EntryKind::kNumber) entry.box.text = "0";
  RefuseEntry(session, form, entry, reason);
}

}  // namespace

void EnterEntry(Session& session, FrmTank& form, std::string_view control) {
  if (std::exchange(form.refused, {}) == control) return;
  if (IsPhysical(At(form, control))) CheckLostFocus(session, form);
  RunEvent(session, form, control, Moment::kEntering);
}

void LeaveEntry(Session& session, FrmTank& form, std::string_view control) {
  auto& entry = At(form, control);
  if (form.refused == control) form.refused.clear();
  IgnoreNoNumber(entry);
  if (IsPhysical(entry) && entry.info->kind == EntryKind::kNumber) {
    if (!shell::ParseEntryNumber(entry.box.text)) entry.box.text = "0";
    form.last_field = control;
  } else {
    RequireStorable(session, form, entry);
  }
  RunEvent(session, form, control, Moment::kLeft);
}

void ChooseItem(Session& session, FrmTank& form, std::string_view control) {
  At(form, control).refusal.clear();
  RunEvent(session, form, control, Moment::kChoosing);
}

void TypeText(Session& session, FrmTank& form, std::string_view control) {
  At(form, control).refusal.clear();
  RunEvent(session, form, control, Moment::kTyping);
}

void OpenList(Session& session, FrmTank& form, std::string_view control) {
  RunEvent(session, form, control, Moment::kOpening);
}

void ActivateEntry(Session& session, FrmTank& form, std::string_view control) {
  RunEvent(session, form, control, Moment::kActivating);
}

void ChangePage(Session& session, FrmTank& form, Page page) {
  form.page = page;
  CheckLostFocus(session, form);
}

void CheckLostFocus(Session& session, FrmTank& form) {
  shell::Trapped(session, kCheckLostFocus, [&] {
    if (!form.last_field.empty()) ApplyRules(session, form, At(form, form.last_field), Moment::kLeaving);
    shell::Statement([&] { UpdateTank(session, form); });
    FormatLarge(form);
  });
}

void RefuseEntry(Session& session, FrmTank& form, Entry& entry, std::string_view reason) {
  shell::Tell(session.host, std::string(reason), shell::Icon::kExclamation);
  entry.refusal = reason;
  form.refused = entry.info->text.name;
  GoTo(form, PageOf(entry.info->section), entry.info->text.name);
}

}  // namespace orvex::entry
