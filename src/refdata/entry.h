#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "shell/controls.h"
#include "store/field_table.h"

/// The entries of the reference editors: what a person types into or chooses from, each bound to a field of the record
/// on show.
namespace orvex::refdata {

enum class EntryKind : std::uint8_t {
  kText,
  kNumber,
  kTwoDecimals,  ///< a number that is shown with two decimals
  kYesNo,        ///< "Yes" stores true and "No" false
  kChoice,       ///< one of a list
  kTypedChoice,  ///< one of a list, or a text that is in no item
  kName,         ///< part of what a record is known by: its list finds records, and a typed text is the record's own
  kFinder,       ///< its list finds records; its text is made by the editor, from other entries
};

/// What never changes about an entry.
struct EntryInfo {
  shell::ControlText text;
  EntryKind kind;
  std::string_view field;  ///< of the editor's table; empty where the editor reads and writes it by itself
  std::string_view group;  ///< heading under which it stands; empty beside the lists that find records
  std::span<const std::string_view> items = {};
};

/// What an entry shows, and what the record will be saved with.
struct Entry {
  const EntryInfo* info;
  shell::ComboBox box;  ///< its text, and the items of a list
  std::string held;     ///< as the record will store it: numbers in plain notation, "-1" and "0", empty for null
  std::string loaded;   ///< as the table holds it
};

[[nodiscard]] bool IsNumber(const EntryInfo& info);
/// Whether its list finds records. Such an entry serves shipped records, too.
[[nodiscard]] bool FindsRecords(const EntryInfo& info);

/// Gives the record a stored text and shows it. A number that is null shows as "0".
void Hold(Entry& entry, std::string_view stored);
/// The same for a number.
void HoldNumber(Entry& entry, double value);
/// Gives the record what the person made of the text shown. What they left alone stays as it is stored, whatever the
/// way in which it is shown; what was typed into a finder and led to no record is taken back.
void TakeShown(Entry& entry);
/// The same while it is being typed: a 0 that is typed over a null, which shows as 0, too, is a 0.
void TakeTyped(Entry& entry);

/// Whether the record holds something else than the table. A number that is only written otherwise is the same.
[[nodiscard]] bool IsChanged(const Entry& entry);

/// The record's number; 0 for null, and for a text that is none.
[[nodiscard]] double Number(const Entry& entry);

/// Why the table cannot hold the record's text: no number, longer than the field, control characters. Empty if it can.
[[nodiscard]] std::string Refusal(const Entry& entry, const store::TableInfo& table);

}  // namespace orvex::refdata
