#include "entry/entry_field.h"

#include <algorithm>

#include "entry/entry_infos.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/number_format.h"
#include "store/field_table.h"

namespace orvex::entry {
namespace {

constexpr std::string_view kYes = "Yes", kNo = "No";

bool HasFixedItems(const Entry& entry) { return entry.info->kind == EntryKind::kChoice && !entry.info->items.empty(); }

std::string_view WithoutDefaultMark(std::string_view item) {
  if (item.ends_with(kDefaultMark)) item.remove_suffix(kDefaultMark.size());
  return item;
}

const store::FieldInfo& FieldOf(const EntryInfo& info) {
  return store::FindField(store::FindTable(info.section < Section::kMixture ? "tank" : "mixtures"), info.field);
}

}  // namespace

std::span<const EntryInfo> EntryInfos() { return kEntryInfos; }

bool IsNumeric(const EntryInfo& info) { return FieldOf(info).type == store::FieldType::kDouble; }

std::string StoredText(const Entry& entry) {
  const auto& text = entry.box.text;
  if (entry.info->kind == EntryKind::kYesNo) {
    if (text == kYes) return std::string(kStoredYes);
    return std::string(text == kNo ? kStoredNo : "");
  }
  return std::string(HasFixedItems(entry) ? WithoutDefaultMark(text) : text);
}

bool IsYes(const Entry& entry) { return StoredText(entry) == kStoredYes; }

void ShowStored(Entry& entry, std::string_view stored) {
  auto& text = entry.box.text;
  text = stored;
  if (entry.info->kind == EntryKind::kYesNo) {
    text = stored.empty() ? "" : stored == kStoredNo ? kNo : kYes;
  } else if (HasFixedItems(entry)) {
    const auto item = std::ranges::find(entry.info->items, stored, WithoutDefaultMark);
    text = item == entry.info->items.end() ? std::string_view() : *item;
  }
}

bool IsChanged(const Entry& entry) {
  const auto text = StoredText(entry);
  if (text == entry.committed) return false;
  if (entry.info->kind == EntryKind::kShown || !IsNumeric(*entry.info)) return true;
  const auto number = shell::ParseEntryNumber(text), committed = shell::ParseEntryNumber(entry.committed);
  return !number || !committed || *number != *committed;
}

double Number(const Entry& entry) { return entry.box.text.empty() ? 0 : shell::EntryNumber(entry.box.text); }

void ShowNumber(Entry& entry, double value) { entry.box.text = shell::FormatTwoToSixDecimals(value); }

void IgnoreNoNumber(Entry& entry) {
  if (entry.info->kind != EntryKind::kTypedChoice || !IsNumeric(*entry.info)) return;
  if (!shell::ParseEntryNumber(entry.box.text)) entry.box.text = entry.committed;
}

std::string Refusal(const Entry& entry) {
  const auto& info = *entry.info;
  const auto text = StoredText(entry);
  if (IsNumeric(info)) {
    // A list may be left without a choice, but a number may not be left out.
    const bool is_left_out = text.empty() && info.kind != EntryKind::kNumber;
    return is_left_out || shell::ParseEntryNumber(text) ? std::string() : std::string(shell::kNoNumber);
  }
  return shell::TextRefusal(text, FieldOf(info).width);
}

}  // namespace orvex::entry
