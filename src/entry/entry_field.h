#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "shell/controls.h"

/// The entries of the tank editor: what a person types into or chooses from, each bound to a field of a row.
namespace orvex::entry {

/// Entries that are shown together.
enum class Section : std::uint8_t {
  kIdentification,
  kVertical,
  kHorizontal,
  kInternal,
  kExternal,  ///< also of domed tanks
  kSite,
  kMixture,  ///< what every mixture has
  kSingle,
  kPartial,
  kFull,
};
inline constexpr std::size_t kSectionCount = 10;

enum class EntryKind : std::uint8_t {
  kText,
  kNumber,
  kYesNo,        ///< "Yes" stores -1 and "No" 0
  kChoice,       ///< one of a list; an item that ends in "(D)" stores what stands in front of it
  kTypedChoice,  ///< one of a list, or a text that is in no item
  kShown,        ///< cannot be changed
};

/// The tank types that have the entry.
enum class Roofs : std::uint8_t { kAll, kFixed, kFloating };

/// What never changes about an entry.
struct EntryInfo {
  Section section;
  std::string_view group;  ///< heading under which it stands
  shell::ControlText text;
  EntryKind kind;
  std::string_view field;  ///< of `tank`, from `kMixture` on of `mixtures`; of `met` where a site's weather is shown
  std::span<const std::string_view> items = {};
  Roofs roofs = Roofs::kAll;
};

/// All entries of the editor, section by section in the order in which a person meets them.
std::span<const EntryInfo> EntryInfos();

/// Whether the entry's field holds numbers.
[[nodiscard]] bool IsNumeric(const EntryInfo& info);

/// What an entry shows.
struct Entry {
  const EntryInfo* info;
  shell::ComboBox box;    ///< its text, and the items of a list
  std::string committed;  ///< the stored text of the row, as last read or written
  std::string refusal;    ///< why its last text was refused, to be shown beside it; empty once it is changed
};

/// How a row stores "Yes" and "No".
inline constexpr std::string_view kStoredYes = "-1", kStoredNo = "0";

/// The text by which a row stores what an entry shows: "-1" and "0" for "Yes" and "No", an item without its "(D)".
[[nodiscard]] std::string StoredText(const Entry& entry);
/// Whether the entry shows "Yes".
[[nodiscard]] bool IsYes(const Entry& entry);
/// Shows a stored text: the item that stands for it, where the entry has a list.
void ShowStored(Entry& entry, std::string_view stored);

/// Whether the entry shows something else than the row holds. A number that is only written otherwise is the same.
[[nodiscard]] bool IsChanged(const Entry& entry);

/// The entry's number; 0 for an empty text, error 13 for any other text that is no number.
[[nodiscard]] double Number(const Entry& entry);

/// Shows a number through "#,##0.00####".
void ShowNumber(Entry& entry, double value);

/// A list of numbers that also takes a typed one ignores any other text: it shows the row's number again.
void IgnoreNoNumber(Entry& entry);

/// Why a row cannot hold what the entry shows: no number, longer than the field, control characters. Empty if it can.
[[nodiscard]] std::string Refusal(const Entry& entry);

}  // namespace orvex::entry
