#pragma once

#include <cstddef>

#include "reports/month_boxes.h"
#include "shell/session.h"

/// The window in which the months of a monthly report are chosen.
namespace orvex::reports {

inline constexpr auto kFrmmonthControls = MonthBoxTextsAnd({
    {"cmdAll", "&All", "Tick all twelve months"},
    {"cmdRunReport", "&Run Report", "Go on to the tanks of the report"},
    {"cmdClose", "Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on choosing months"},
});
inline constexpr shell::WindowText kFrmmonthText = {"Frmmonth", "Choose Months", "choose_months", kFrmmonthControls};

struct Frmmonth {
  MonthBoxes chkMonths;  ///< `chkJAN` to `chkDEC`
  shell::Button cmdAll;
  shell::Button cmdRunReport{.enabled = false};  ///< enabled while a month is ticked
  shell::Button cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmmonth OpenFrmmonth(shell::Session& session);

/// The box of a month, January being 0, was ticked or cleared.
void TickMonth(shell::Session& session, Frmmonth& form, std::size_t month, bool ticked);
void ClickAll(shell::Session& session, Frmmonth& form);

/// Sets `MonthSelected` and opens `Frmtankrep`. The window stays open behind it.
void ClickRunReport(shell::Session& session, Frmmonth& form);
/// Closes the window; `MonthSelected` stays as it was.
void ClickClose(shell::Session& session, Frmmonth& form);
void ClickHelp(shell::Session& session, Frmmonth& form);

}  // namespace orvex::reports
