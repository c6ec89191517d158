#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "refdata/entry.h"
#include "shell/controls.h"
#include "shell/session.h"
#include "store/lock_file.h"
#include "store/record_set.h"

/// The editors of the reference tables. They share one mechanism: a record is found by its name, shown, and, where the
/// person has made it, changed, saved and deleted; shipped records are read-only. What an editor does otherwise than
/// the rest stands in its `EditorInfo`.
namespace orvex::refdata {

struct RecordEditor;

/// When a rule runs.
enum class Moment : std::uint8_t {
  kChanged,  ///< with each change of the entry: a letter typed, an item chosen
  kLeft,     ///< when the entry is left, and its number was taken
};

/// What follows from what the person does to an entry of a record of their own.
struct Rule {
  std::string_view control;
  Moment moment;
  void (*run)(RecordEditor& form);
};

/// What makes an editor of a table.
struct EditorInfo {
  const shell::WindowText& window;
  std::string_view panel;               ///< the frame around the entries that only a person's own record has enabled
  std::string_view label;               ///< in error reports
  std::string_view save_label;          ///< the same for the routine that saves
  std::string_view table;               ///< of the reference database
  std::string_view user_defined_field;  ///< true in the rows that a person has made
  std::span<const EntryInfo> entries;
  std::string_view name;        ///< the entry by which a record is told from all others; of several, the first
  std::string_view incomplete;  ///< said when a record cannot be saved yet
  std::string_view duplicate;   ///< said when another record has its name
  /// The name is made of other entries only: the editor proposes no other one for a duplicate.
  bool composes_name = false;

  /// Whether the record holds enough to be saved.
  bool (*is_complete)(const RecordEditor& form);
  /// Fills in what a complete record leaves to the editor, before it is compared and written; may be null.
  void (*finish)(RecordEditor& form);
  /// Whether another record has the name of the one on show.
  bool (*is_name_taken)(shell::Session& session, const RecordEditor& form);
  /// Fills the lists that find records.
  void (*fill_lists)(shell::Session& session, RecordEditor& form);
  /// An item of the list was picked, while the lists show what belongs to the record on show: the `Counter` of the
  /// record that it leads to. None: there is nothing to show yet, or any more. Sets `narrowing`.
  std::optional<std::int32_t> (*find)(shell::Session& session, RecordEditor& form, std::string_view control,
                                      const std::string& picked);
  /// Whether an item of that list is an entry of the record on show, and so leads to no other; may be null.
  bool (*belongs_to_record)(const RecordEditor& form, std::string_view control) = nullptr;
  /// What else is to be seen beside the entries as they stand: lists that depend on them, which of them are visible.
  /// Runs when a record comes on show and when the person has changed an entry; may be null.
  void (*shown)(shell::Session& session, RecordEditor& form);
  /// Entries without a field, from and to the row; may be null.
  void (*read)(store::RecordSet& row, RecordEditor& form);
  void (*write)(store::RecordSet& row, const RecordEditor& form);
  std::span<const Rule> rules;
  /// The record as a picture, an SVG text; may be null.
  std::string (*plot)(const RecordEditor& form);
  /// What is to be seen there, in words.
  std::string (*plot_in_words)(const RecordEditor& form) = nullptr;
};

/// The model of an editor's window.
struct RecordEditor {
  const EditorInfo* info = nullptr;
  std::vector<Entry> entries;  ///< in the order of `EditorInfo::entries`
  std::int32_t Counter = 0;    ///< of the record on show; 0 while there is none
  bool user_defined = false;   ///< the person made the record on show, and may change it
  bool just_added = false;     ///< and has not saved it yet
  bool asks_for_another = false;
  /// A part of the record's name was picked just now: what is picked in the next list goes on with that.
  bool narrowing = false;

  shell::Frame panel{.enabled = false};
  shell::Button cmdAddNew, cmdSave, cmdDelete, cmdClose, cmdHelp;
  shell::WindowState window;
  std::shared_ptr<store::LockFile> editing;
};

/// The entry of a control, or of a field; error `std::logic_error` if the editor has none.
[[nodiscard]] Entry& At(RecordEditor& form, std::string_view control);
[[nodiscard]] const Entry& At(const RecordEditor& form, std::string_view control);
[[nodiscard]] Entry& Of(RecordEditor& form, std::string_view field);
[[nodiscard]] const Entry& Of(const RecordEditor& form, std::string_view field);
[[nodiscard]] const std::string& HeldText(const RecordEditor& form, std::string_view field);
[[nodiscard]] double HeldNumber(const RecordEditor& form, std::string_view field);
/// Whether none of these fields is 0.
[[nodiscard]] bool AreFilled(const RecordEditor& form, std::span<const std::string_view> fields);

/// Gives the record a 0 for each number that it does not hold, where calculations cannot bear a null.
void FillMissingNumbers(RecordEditor& form);

/// Opens on the first record of the table. While another program edits the database the window is closed at once, and
/// the person is told.
RecordEditor OpenEditor(shell::Session& session, const EditorInfo& info);

// What a view reports. It has written what the person chose or typed to the entry before.
/// An item was picked in a list that finds records.
void PickRecord(shell::Session& session, RecordEditor& form, std::string_view control);
/// A letter was typed, also into a list that takes texts.
void TypeText(shell::Session& session, RecordEditor& form, std::string_view control);
/// An item of any other list was chosen.
void ChooseItem(shell::Session& session, RecordEditor& form, std::string_view control);
/// The entry was left. What is no number is refused, becomes "0" and keeps the focus.
void LeaveEntry(shell::Session& session, RecordEditor& form, std::string_view control);

void ClickAddNew(shell::Session& session, RecordEditor& form);
void ClickSave(shell::Session& session, RecordEditor& form);
void ClickDelete(shell::Session& session, RecordEditor& form);
void ClickClose(shell::Session& session, RecordEditor& form);
void ClickHelp(shell::Session& session, RecordEditor& form);

/// The commands that all editors have.
inline constexpr shell::ControlText kEditorCommands[] = {
    {"cmdAddNew", "&Add New", "Make a record of your own"},
    {"cmdSave", "&Save", "Store the record as it stands"},
    {"cmdDelete", "&Delete", "Remove the record shown, if it is your own"},
    {"cmdClose", "Close", "Leave the window"},
    {"cmdHelp", "&Help", "Help on this window"},
};

/// The controls of an editor: its entries, the panel around them, the commands.
template <std::size_t kCount>
constexpr auto EditorControls(const EntryInfo (&entries)[kCount], const shell::ControlText& panel) {
  std::array<shell::ControlText, kCount + 1 + std::size(kEditorCommands)> all{};
  std::size_t at = 0;
  for (const auto& entry : entries) all[at++] = entry.text;
  all[at++] = panel;
  for (const auto& command : kEditorCommands) all[at++] = command;
  return all;
}

}  // namespace orvex::refdata
