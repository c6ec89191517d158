#include "entry/frmtank.h"

#include <algorithm>
#include <stdexcept>

#include "entry/entry_infos.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

bool BelongsTo(const EntryInfo& info, std::string_view tank_type) {
  if (info.roofs == Roofs::kAll) return true;
  return (info.roofs == Roofs::kFixed) == shell::IsFixedRoof(tank_type);
}

Entry MakeEntry(const EntryInfo& info, std::string_view tank_type) {
  Entry entry{.info = &info, .box = {}, .committed = {}, .refusal = {}};
  entry.box.items.assign(info.items.begin(), info.items.end());
  entry.box.visible = BelongsTo(info, tank_type);
  return entry;
}

Entry* FindField(std::span<Entry> entries, std::string_view field) {
  const auto found = std::ranges::find(entries, field, [](const Entry& entry) { return entry.info->field; });
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

FrmTank MakeFrmTank(std::string_view tank_type) {
  FrmTank form;
  form.tank_type = tank_type;
  form.entries.reserve(kEntryInfos.size());
  for (const auto& info : kEntryInfos) form.entries.push_back(MakeEntry(info, tank_type));
  return form;
}

Entry& At(FrmTank& form, std::string_view control) {
  const auto found = std::ranges::find(form.entries, control, [](const Entry& entry) { return entry.info->text.name; });
  if (found == form.entries.end()) throw std::out_of_range("There is no entry " + std::string(control) + ".");
  return *found;
}

std::span<Entry> EntriesOf(FrmTank& form, Section section) {
  // The table is in the order of the sections.
  const auto section_of = [](const Entry& entry) { return entry.info->section; };
  return {std::ranges::lower_bound(form.entries, section, {}, section_of),
          std::ranges::upper_bound(form.entries, section, {}, section_of)};
}

Section PhysicalSection(const FrmTank& form) {
  if (form.tank_type == shell::kVerticalFixedRoof) return Section::kVertical;
  if (form.tank_type == shell::kHorizontal) return Section::kHorizontal;
  if (form.tank_type == shell::kInternalFloatingRoof) return Section::kInternal;
  return Section::kExternal;
}

Entry* FindPhysical(FrmTank& form, std::string_view field) {
  return FindField(EntriesOf(form, PhysicalSection(form)), field);
}

Entry& Physical(FrmTank& form, std::string_view field) {
  auto* entry = FindPhysical(form, field);
  if (entry == nullptr) throw std::out_of_range("A " + form.tank_type + " has no " + std::string(field) + ".");
  return *entry;
}

Entry* FindLiquid(FrmTank& form, std::string_view field) {
  if (auto* entry = FindField(EntriesOf(form, Section::kMixture), field)) return entry;
  return form.form ? FindField(EntriesOf(form, *form.form), field) : nullptr;
}

bool IsShown(const FrmTank& form, Section section) {
  switch (section) {
    case Section::kIdentification:
    case Section::kSite:
    case Section::kMixture:
      return true;
    case Section::kSingle:
    case Section::kPartial:
    case Section::kFull:
      return form.form == section;
    default:
      return section == PhysicalSection(form);
  }
}

Page PageOf(Section section) {
  if (section == Section::kIdentification) return Page::kIdentification;
  if (section == Section::kSite) return Page::kSite;
  return section < Section::kSite ? Page::kPhysical : Page::kLiquid;
}

void GoTo(FrmTank& form, Page page, std::string_view control) {
  form.page = page;
  form.window.focus = control;
}

}  // namespace orvex::entry
