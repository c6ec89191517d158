#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "entry/entry_lists.h"
#include "entry/mixture_page.h"
#include "entry/random_editing_editor.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/periods.h"
#include "store/number_text.h"

/// What a person who works in the tank editor must find after each command.
namespace orvex::test {
namespace {

using entry::EntryInfo;
using entry::EntryKind;
using entry::Section;
using store::Value;

double NumberOrZero(const std::string& text) { return shell::ParseEntryNumber(text).value_or(0); }

/// Whether the stored value is what the text says.
bool Says(const EntryInfo& info, const std::string& text, const Value& value) {
  if (info.kind == EntryKind::kYesNo) return (text == "-1") == value.BoolOrFalse();
  if (value.GetKind() == Value::Kind::kText || !entry::IsNumeric(info)) return text == value.TextOrEmpty();
  const auto shown = NumberOrZero(text), stored = value.DoubleOrZero();
  // A stored number is shown in 15 digits.
  return shown == stored || std::abs(shown - stored) <= std::abs(stored) * 1e-14;
}

bool IsBoundToTank(const EntryInfo& info) {
  const bool weather = info.section == Section::kSite && info.kind == EntryKind::kShown;
  return info.section < Section::kMixture && !weather;
}

/// Of a list that does not have the stored text, or that shows no option: nothing is shown for what the row holds.
bool IsUnknown(const entry::Entry& entry) {
  const bool fixed = !entry.info->items.empty() || entry.info->field == "SPEC_OPT";
  return entry.info->kind == EntryKind::kChoice && fixed && entry.committed.empty();
}

/// Lists that take their default while they hold nothing.
bool HasDefault(const EntryInfo& info) {
  return !info.items.empty() && info.items.front().ends_with(entry::kDefaultMark);
}

bool IsQuantity(const EntryInfo& info) {
  return info.field == "VOLUME" || info.field == "TURNOVER" || info.field == "Q_NET";
}

}  // namespace

void EditorVisit::Look() {
  const auto rows = Rows();
  RequireSound(rows);
  Require(rows.TankCopy.size() == 1, "the tank has gone");
  for (const auto& component : rows.ComponentCopy)
    Require(FieldOf(component, "components", "MIX ID").AsLong() >= 1, "a component of no mixture");
  const bool never_saved = life_.Client().Mark() == form_.ID;
  Require(form_.cmdAbandon.enabled == never_saved, "Abandon is enabled wrongly");
  Require(saved_ == !never_saved, "the tank is marked wrongly as never saved");
  Require(saved_ == (TheCopy().ID == form_.ID), "the copy for the undo is not the tank's");
  LookAtEntries(rows);
  LookAtMonths();
  LookAtMixtures(rows);
}

void EditorVisit::LookAtEntries(const RecordCopy& rows) {
  for (const auto& entry : form_.entries) {
    const auto& info = *entry.info;
    if (IsUnknown(entry)) continue;
    if (IsBoundToTank(info)) {
      const auto& value = FieldOf(rows.TankCopy.front(), "tank", info.field);
      Require(Says(info, entry.committed, value), fmt::format("{} is taken to be \"{}\" in the row, which has \"{}\"",
                                                              info.text.name, entry.committed, value.TextOrEmpty()));
    } else if (info.section >= Section::kMixture && !entry::IsNumeric(info)) {
      const auto& mixture = rows.MixtureCopy.at(static_cast<std::size_t>(form_.MixID - 1));
      const auto& value = FieldOf(mixture, "mixtures", info.field);
      Require(Says(info, entry.committed, value), fmt::format("{} is taken to be \"{}\" in the row, which has \"{}\"",
                                                              info.text.name, entry.committed, value.TextOrEmpty()));
    }
  }
}

void EditorVisit::LookAtMonths() {
  double total = 0;
  bool typing = false;
  for (std::size_t i = 0; i < form_.months.size(); ++i) {
    const auto& [chk, txtThru, cboMix] = form_.months[i];
    const auto name = shell::kMonths[i].name;
    typing = typing || entered_ == entry::kMonthTexts[i].txtThru.name;
    total += NumberOrZero(txtThru.text);
    Require(txtThru.enabled == chk.checked && cboMix.visible == chk.checked, fmt::format("{} is shown wrongly", name));
    Require(chk.checked || (txtThru.text == "0" && cboMix.text.empty()) ||
                (NumberOrZero(txtThru.text) == 0 && cboMix.text.empty()),
            fmt::format("{} is not in use and holds something", name));
  }
  if (typing || !std::isfinite(total)) return;
  const auto shown = NumberOrZero(form_.txtTotalMonths.text);
  Require(std::abs(shown - total) <= 1e-6 + std::abs(total) * 1e-12,
          fmt::format("the months' total is shown as {} instead of {}", form_.txtTotalMonths.text, total));
}

void EditorVisit::LookAtMixtures(const RecordCopy& rows) {
  const auto count = static_cast<std::int32_t>(rows.MixtureCopy.size());
  Require(form_.MixID >= 1 && form_.MixID <= count, "the mixture shown is not there");
  Require(form_.lblMixtureXofX.text == fmt::format("Mixture {} of {}", form_.MixID, count),
          fmt::format("\"{}\" is shown of {} mixtures", form_.lblMixtureXofX.text, count));
  Require(form_.cmdPrevMix.enabled == (form_.MixID > 1), "Previous is enabled wrongly");
  Require(form_.cmdNextMix.enabled == (form_.MixID < count && form_.MixID != 12), "Next is enabled wrongly");
  Require(form_.cmdAdd.enabled, "Add is not enabled");
  // The form follows what is chosen.
  const auto kind = TextOfEntry("cboSingleMultiple");
  auto option = TextOfEntry("cboSpecOpt");
  // After a copy of another tank's own data the list shows none, while the mixture keeps its option.
  const auto& mixture = rows.MixtureCopy.at(static_cast<std::size_t>(form_.MixID - 1));
  if (option.empty()) option = FieldOf(mixture, "mixtures", "SPEC_OPT").TextOrEmpty();
  std::optional<Section> form;
  if (kind == "Single") form = Section::kSingle;
  if (kind == "Multiple" && !option.empty()) form = option == "Full Speciation" ? Section::kFull : Section::kPartial;
  Require(form_.form == form, fmt::format("\"{}\" and \"{}\" show the wrong form", kind, option));
}

EditorVisit::Screen EditorVisit::Seen() {
  Screen screen;
  screen.months = form_.months;
  for (const auto& entry : form_.entries)
    if (IsBoundToTank(*entry.info) && entry::IsShown(form_, entry.info->section))
      screen.entries.emplace_back(entry.info, entry::StoredText(entry));
  return screen;
}

void EditorVisit::RequireSaved(const Screen& screen) {
  const auto rows = Rows();
  for (const auto& [info, text] : screen.entries) {
    const auto& value = FieldOf(rows.TankCopy.front(), "tank", info->field);
    if (text.empty() && HasDefault(*info)) continue;
    // Without a city its pressure is 0.
    if (info->field == "ATMOS_PRS" && TextOfEntry("dbcboCity").empty()) continue;
    const bool rounded = IsQuantity(*info) && std::abs(NumberOrZero(text) - value.DoubleOrZero()) <=
                                                  5.1e-7 + std::abs(value.DoubleOrZero()) * 1e-14;
    Require(rounded || Says(*info, text, value),
            fmt::format("{} was saved as \"{}\", not as \"{}\"", info->text.name, value.TextOrEmpty(), text));
  }
  Require(!FieldOf(rows.TankCopy.front(), "tank", "USER ID").TextOrEmpty().empty(), "saved without identification");
  Require(TheCopy().ID == form_.ID, "no copy for the undo was taken when the tank was saved");
  Require(TheCopy().FittingCopy == rows.FittingCopy && TheCopy().ComponentCopy.size() == rows.ComponentCopy.size() &&
              TheCopy().MixtureCopy.size() == rows.MixtureCopy.size(),
          "the copy for the undo is not what was saved");
  Require(life_.Client().Mark() != form_.ID, "a saved tank is still marked as never saved");
  RequireMonthsSaved(screen, rows);
}

void EditorVisit::RequireMonthsSaved(const Screen& screen, const RecordCopy& rows) {
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
    const auto& month = shell::kMonths[i];
    const auto& [chk, txtThru, cboMix] = screen.months[i];
    bool free = chk.checked && !cboMix.text.empty();
    for (const auto& mixture : rows.MixtureCopy) {
      const bool holds = free && FieldOf(mixture, "mixtures", "MIX NAME").TextOrEmpty() == cboMix.text;
      free = free && !holds;
      Require(FieldOf(mixture, "mixtures", month.name).BoolOrFalse() == holds,
              fmt::format("{} was not saved for \"{}\" alone", month.name, cboMix.text));
      Require(FieldOf(mixture, "mixtures", month.throughput).DoubleOrZero() == (holds ? NumberOrZero(txtThru.text) : 0),
              fmt::format("the throughput of {} was not saved", month.name));
    }
  }
}

void EditorVisit::RequireUndone(const RecordCopy& copy, const RecordCopy& before) {
  Require(form_.window.closed, "the editor stays open");
  if (!saved_) {
    Require(SameRows(Rows(), {}), "rows of a tank that was never saved are still there");
    Require(life_.Client().Mark() == 0, "the mark of a tank that was never saved is still there");
    return;
  }
  Require(copy.ID == form_.ID, "the undo has the copy of another tank");
  Require(SameRows(Rows(), Undone(copy, before)), "the undo did not bring back what the copy holds");
}

}  // namespace orvex::test
