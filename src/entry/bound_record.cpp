#include "entry/bound_record.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::ErrorNumber;
using store::RecordSet;
using store::RunTimeError;

constexpr Section kTankSections[] = {Section::kIdentification, Section::kVertical, Section::kHorizontal,
                                     Section::kInternal,       Section::kExternal, Section::kSite};
constexpr Section kMixtureSections[] = {Section::kMixture, Section::kSingle, Section::kPartial, Section::kFull};

constexpr std::string_view kPressures[] = {"VP", "VP_MIN", "VP_MAX"};

/// Shown in a site's page, but of its city.
bool IsWeather(const Entry& entry) {
  return entry.info->section == Section::kSite && entry.info->kind == EntryKind::kShown;
}

/// Four decimals, in which pressures are computed, would show nothing of it.
bool IsTinyPressure(const EntryInfo& info, double value) {
  return std::ranges::find(kPressures, info.field) != std::end(kPressures) && value != 0 &&
         shell::RoundFourDecimals(value) == 0;
}

std::string TextOf(RecordSet& row, const EntryInfo& info) {
  const auto value = row.Get(info.field);
  if (info.kind == EntryKind::kYesNo) return std::string(value.BoolOrFalse() ? kStoredYes : kStoredNo);
  if (value.GetKind() == store::Value::Kind::kReal) {
    const auto number = value.AsDouble();
    return IsTinyPressure(info, number) ? shell::FormatScientific(number) : shell::PlainDecimal(number);
  }
  return value.IsNull() && info.kind == EntryKind::kNumber ? "0" : value.TextOrEmpty();
}

void ShowRow(FrmTank& form, RecordSet& row, std::span<const Section> sections) {
  for (const auto section : sections) {
    for (auto& entry : EntriesOf(form, section)) {
      if (IsWeather(entry)) continue;
      ShowStored(entry, TextOf(row, *entry.info));
      entry.committed = StoredText(entry);
      entry.refusal.clear();
    }
  }
}

void RequireStorable(const Entry& entry) {
  const auto refusal = Refusal(entry);
  if (refusal.empty()) return;
  throw RunTimeError(ErrorNumber::kTextTooLong, fmt::format("{} {}", entry.info->text.caption, refusal));
}

store::Value ToStore(const Entry& entry) {
  const auto text = StoredText(entry);
  if (text.empty()) return {};
  if (entry.info->kind == EntryKind::kYesNo) return IsYes(entry);
  if (IsNumeric(*entry.info)) return shell::EntryNumber(text);
  return text;
}

/// The entries of the sections shown whose texts are not those of the row. Numbers that cannot be read become 0.
std::vector<Entry*> Changes(FrmTank& form, std::span<const Section> sections) {
  std::vector<Entry*> changes;
  for (const auto section : sections) {
    if (!IsShown(form, section)) continue;
    for (auto& entry : EntriesOf(form, section)) {
      if (entry.info->kind == EntryKind::kShown || !IsChanged(entry)) continue;
      if (entry.info->kind == EntryKind::kNumber && !shell::ParseEntryNumber(entry.box.text)) entry.box.text = "0";
      RequireStorable(entry);
      changes.push_back(&entry);
    }
  }
  return changes;
}

/// Shows the row in the entries that the tank's type or the mixture's kind does not show.
void ShowInOthers(FrmTank& form, RecordSet& row, std::span<const Section> sections) {
  for (const auto section : sections)
    if (!IsShown(form, section)) ShowRow(form, row, {&section, 1});
}

void Commit(FrmTank& form, RecordSet& row, std::span<const Section> sections) {
  const auto changes = Changes(form, sections);
  if (changes.empty()) return;
  row.Edit();
  for (const auto* entry : changes) row.Set(entry->info->field, ToStore(*entry));
  row.Update();
  for (auto* entry : changes) entry->committed = StoredText(*entry);
  ShowInOthers(form, row, sections);
}

RecordSet TankRow(Session& session, const FrmTank& form) { return session.ClientDb->OpenAt("tank", "ID", {form.ID}); }

RecordSet MixtureRow(Session& session, const FrmTank& form) {
  return session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, form.MixID});
}

}  // namespace

void ShowTank(Session& session, FrmTank& form) {
  auto row = TankRow(session, form);
  ShowRow(form, row, kTankSections);
}

void ShowMixtureRow(Session& session, FrmTank& form) {
  auto row = MixtureRow(session, form);
  ShowRow(form, row, kMixtureSections);
}

void CommitTank(Session& session, FrmTank& form) {
  auto row = TankRow(session, form);
  Commit(form, row, kTankSections);
}

void CommitMixture(Session& session, FrmTank& form) {
  auto row = MixtureRow(session, form);
  Commit(form, row, kMixtureSections);
}

}  // namespace orvex::entry
