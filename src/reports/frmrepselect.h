#pragma once

#include "reports/reference_report.h"
#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the rows of a report on a reference table are chosen.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmrepselectControls[] = {
    {"lblTable", "", "The report"},
    {"lblField", "", "What stands for a row in the list on the left"},
    {"lstItems", "", "Rows of the table"},
    {"cmdSelect", "&Select", "Add the selected rows to the chosen ones"},
    {"cmdSelectAll", "Select &All", "Choose every row"},
    {"cmdRemove", "&Remove", "Take the selected rows out of the chosen ones"},
    {"cmdRemoveAll", "Remove A&ll", "Take all rows out of the chosen ones"},
    {"lblFieldChosen", "", "What stands for a row in the list on the right"},
    {"lstSelectItems", "", "Rows of the report"},
    {"cmdPrint", "&Print", "Put out a report on the chosen rows"},
    {"cmdClose", "Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on choosing the rows of a report"},
};
inline constexpr shell::WindowText kFrmrepselectText = {"frmrepselect", "Report Selection", "report_selection",
                                                        kFrmrepselectControls};

struct Frmrepselect {
  shell::TextBox lblTable{.text = "", .read_only = true};
  shell::TextBox lblField{.text = "", .read_only = true};        ///< caption of `lstItems`
  shell::TextBox lblFieldChosen{.text = "", .read_only = true};  ///< caption of `lstSelectItems`
  shell::ListBox lstItems;                                       ///< in the order of the table
  shell::ListBox lstSelectItems;                                 ///< in the order chosen
  shell::Button cmdSelect, cmdSelectAll, cmdRemove, cmdRemoveAll;
  shell::Button cmdPrint{.enabled = false};  ///< enabled while a row is chosen
  shell::Button cmdClose, cmdHelp;
  shell::WindowState window;

  const ReferenceReport* report = nullptr;  ///< as `PrintMode` told it; none: there is nothing to choose
};

/// Lists the rows of the table that `PrintMode` tells.
Frmrepselect OpenFrmrepselect(shell::Session& session);

/// Adds the rows selected in `lstItems` to the chosen ones, but none whose text is among them.
void ClickSelect(shell::Session& session, Frmrepselect& form);
/// Chooses all rows of `lstItems`, in their order.
void ClickSelectAll(shell::Session& session, Frmrepselect& form);
/// Removes the rows selected in `lstSelectItems`.
void ClickRemove(shell::Session& session, Frmrepselect& form);
void ClickRemoveAll(shell::Session& session, Frmrepselect& form);

/// Tells `ReportSource`, `ReportSourceKind`, `ReportCondition` and `ReportFilter` what was chosen, and opens
/// `frmprintrep` in the place of this window. As many rows as there are stand for the whole table.
void ClickPrint(shell::Session& session, Frmrepselect& form);
void ClickClose(shell::Session& session, Frmrepselect& form);
void ClickHelp(shell::Session& session, Frmrepselect& form);

}  // namespace orvex::reports
