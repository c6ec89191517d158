#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "entry/frmtank.h"
#include "shell/session.h"

/// What happens to an entry, and the rules that then run. Each rule runs under the trap "frmTank." with the control's
/// name and the event's ("frmTank.cboHeatedVT_Click"); a leaving rule of the physical page under
/// "frmTank.CheckLostFocus".
namespace orvex::entry {

enum class Moment : std::uint8_t {
  kEntering,    ///< the entry gets the focus: "_GotFocus"
  kLeaving,     ///< a number of the physical page was left, and another entry or page is come to
  kLeft,        ///< the entry has lost the focus: "_LostFocus"
  kChoosing,    ///< an item of its list was chosen: "_Click"
  kTyping,      ///< its text was typed: "_Change"
  kOpening,     ///< its list drops down: "_DropDown"
  kActivating,  ///< a double click, or Enter: "_DblClick"
};

/// One rule. Rules of one entry and moment run in the order of their tables.
struct EntryRule {
  std::string_view control;
  Moment moment;
  void (*apply)(shell::Session&, FrmTank&, Entry&);
};

// The tables of rules, by subject.
std::span<const EntryRule> ThroughputRules();
std::span<const EntryRule> FixedRoofRules();
std::span<const EntryRule> FloatingRoofRules();
std::span<const EntryRule> SiteRules();
std::span<const EntryRule> LiquidRules();

// What a view reports. The view has written what the person typed or chose to the entry before.
/// The check of the number left last comes first, then the entry's own rules. Neither runs where the person only comes
/// back to an entry that has just been refused: it would be refused once more before it can be changed.
void EnterEntry(shell::Session& session, FrmTank& form, std::string_view control);
/// A number of the physical page that is no number becomes "0", and its name is remembered. Anything else that a row
/// cannot hold is refused: the person is told, and the focus goes back.
void LeaveEntry(shell::Session& session, FrmTank& form, std::string_view control);
void ChooseItem(shell::Session& session, FrmTank& form, std::string_view control);
void TypeText(shell::Session& session, FrmTank& form, std::string_view control);
void OpenList(shell::Session& session, FrmTank& form, std::string_view control);
void ActivateEntry(shell::Session& session, FrmTank& form, std::string_view control);
void ChangePage(shell::Session& session, FrmTank& form, Page page);

/// Runs the leaving rules of the number of the physical page that was left last, then `UpdateTank` and `FormatLarge`.
/// The name stays remembered.
void CheckLostFocus(shell::Session& session, FrmTank& form);

/// Tells why an entry is refused, shows it beside the entry and puts the focus back, on the entry's page. Whether the
/// view reports that the entry is come to then does not matter.
void RefuseEntry(shell::Session& session, FrmTank& form, Entry& entry, std::string_view reason);

}  // namespace orvex::entry
