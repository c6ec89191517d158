#include "refdata/entry.h"

#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/number_format.h"
#include "store/value.h"

namespace orvex::refdata {
namespace {

constexpr std::string_view kYes = "Yes", kNo = "No", kStoredYes = "-1", kStoredNo = "0";

/// What the entry shows of a stored text.
std::string ShownText(const EntryInfo& info, const std::string& stored) {
  if (info.kind == EntryKind::kYesNo) return std::string(stored.empty() || stored == kStoredNo ? kNo : kYes);
  if (!IsNumber(info)) return stored;
  if (stored.empty()) return "0";
  if (info.kind == EntryKind::kNumber) return stored;
  const auto number = shell::ParseEntryNumber(stored);
  return number ? shell::FormatFixed(*number) : stored;
}

}  // namespace

bool IsNumber(const EntryInfo& info) { return info.kind == EntryKind::kNumber || info.kind == EntryKind::kTwoDecimals; }

bool FindsRecords(const EntryInfo& info) { return info.kind == EntryKind::kName || info.kind == EntryKind::kFinder; }

void Hold(Entry& entry, std::string_view stored) {
  entry.held = stored;
  entry.box.text = ShownText(*entry.info, entry.held);
}

void HoldNumber(Entry& entry, double value) { Hold(entry, store::Value(value).AsText()); }

void TakeShown(Entry& entry) {
  const auto& shown = entry.box.text;
  if (entry.info->kind == EntryKind::kFinder) {
    Hold(entry, std::string(entry.held));
    return;
  }
  if (shown == ShownText(*entry.info, entry.held)) return;
  if (entry.info->kind == EntryKind::kYesNo) {
    entry.held = shown == kYes ? kStoredYes : kStoredNo;
  } else {
    entry.held = shown;
  }
}

void TakeTyped(Entry& entry) {
  if (IsNumber(*entry.info) && entry.held.empty()) {
    entry.held = entry.box.text;
  } else {
    TakeShown(entry);
  }
}

bool IsChanged(const Entry& entry) {
  if (entry.held == entry.loaded) return false;
  if (!IsNumber(*entry.info)) return true;
  const auto held = shell::ParseEntryNumber(entry.held), loaded = shell::ParseEntryNumber(entry.loaded);
  return !held || !loaded || *held != *loaded;
}

double Number(const Entry& entry) { return shell::ParseEntryNumber(entry.held).value_or(0); }

std::string Refusal(const Entry& entry, const store::TableInfo& table) {
  const auto& info = *entry.info;
  if (IsNumber(info)) {
    // As it is shown: what is null shows as 0, but an emptied number is none.
    return shell::ParseEntryNumber(entry.box.text) ? std::string() : std::string(shell::kNoNumber);
  }
  if (info.field.empty() || info.kind == EntryKind::kYesNo) return {};
  return shell::TextRefusal(entry.held, store::FindField(table, info.field).width);
}

}  // namespace orvex::refdata
