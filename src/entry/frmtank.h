#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entry/entry_field.h"
#include "entry/month_entries.h"
#include "shell/controls.h"

/// The tank editor: one `tank` row and one of its `mixtures` rows at a time, bound to their fields, and the months. The
/// rows are in their tables from the first moment, and what is entered reaches them while the person works; undo writes
/// back a copy of the rows (record_copy.h).
namespace orvex::entry {

/// In the order of the window.
enum class Page : std::uint8_t { kIdentification, kPhysical, kSite, kLiquid, kMonthly };

struct FrmTank {
  std::int32_t ID = 0;
  std::string tank_type;      ///< also the window's title
  std::int32_t MixID = 1;     ///< of the mixture shown
  std::int32_t mixtures = 1;  ///< how many the tank has, as last counted
  Page page = Page::kIdentification;
  /// The window is on the screen; until then the tank is being loaded, and rules that ask hold back.
  bool visible = false;

  std::vector<Entry> entries;   ///< in the order of `EntryInfos`
  std::optional<Section> form;  ///< the mixture's: `kSingle`, `kPartial`, `kFull`, or none shown
  std::string last_field;       ///< control of the number of the physical page that was left last
  std::string refused;          ///< control that a refusal sends the person back to, until it is come to or left

  MonthEntries months;  ///< January first
  shell::TextBox txtThruSpec{.text = "", .read_only = true};
  shell::TextBox txtTotalMonths{.text = "", .read_only = true};
  shell::TextBox lblMixtureXofX{.text = "", .read_only = true};

  shell::Button cmdSave, cmdAbandon, cmdCopy, cmdRunReport, cmdHelp, cmdClose;
  shell::Button cmdSpecFitIT, cmdSpecFitET;
  shell::Button cmdCalcProp, cmdAdd, cmdPrevMix, cmdNextMix, cmdDelete;
  shell::Button cmdSpecCompPartial, cmdSpecCompFull, cmdCopySpecPartial, cmdCopySpecFull;
  shell::Button cmdDistribute, cmdFillMixName;
  shell::WindowState window;
};

/// An editor with all its entries, empty, for a tank of this type.
FrmTank MakeFrmTank(std::string_view tank_type);

/// The entry of this name; a name that there is not is a mistake in the program, `std::out_of_range`.
Entry& At(FrmTank& form, std::string_view control);
std::span<Entry> EntriesOf(FrmTank& form, Section section);

/// The section of the physical page that the tank's type has.
Section PhysicalSection(const FrmTank& form);
/// The entry for a field of `tank` in that section; null if the type has none.
Entry* FindPhysical(FrmTank& form, std::string_view field);
/// The same where the type surely has it.
Entry& Physical(FrmTank& form, std::string_view field);

/// The entry for a field of `mixtures` in the form shown, or in what every mixture has; null if there is none.
Entry* FindLiquid(FrmTank& form, std::string_view field);

/// Whether the section is one that the tank's type and the mixture's kind show.
bool IsShown(const FrmTank& form, Section section);

/// The page on which a section stands.
Page PageOf(Section section);

/// Goes to a page and puts the focus on one of its controls.
void GoTo(FrmTank& form, Page page, std::string_view control);

}  // namespace orvex::entry
