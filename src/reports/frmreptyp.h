#pragma once

#include <cstddef>
#include <string>

#include "reports/month_boxes.h"
#include "shell/session.h"

/// The window in which kind and time of the report on the tank being edited are chosen.
namespace orvex::reports {

inline constexpr auto kFrmreptypControls = MonthBoxTextsAnd({
    {"cboRepTime", "Report &Time:", "Report on the year or on months"},
    {"cboRepType", "R&eport Type:", "Kind of the report"},
    {"fraMonths", "Months", "Months of the report"},
    {"cmdAll", "&All", "Tick all twelve months"},
    {"cmdOK", "O&K", "Compute the tank and report on it"},
    {"cmdCancel", "&Close", "Close this window"},
});
inline constexpr shell::WindowText kFrmreptypText = {"Frmreptyp", "Report Type", "report_type", kFrmreptypControls};

struct Frmreptyp {
  shell::ComboBox cboRepTime{.items = {"Annual", "Monthly"}, .text = ""};
  shell::ComboBox cboRepType{.items = {"Brief", "Summary", "Detail"}, .text = ""};
  shell::Frame fraMonths{.visible = false};  ///< with all that stands in it, shown while `cboRepTime` is "Monthly"
  MonthBoxes chkMonths;                      ///< `chkJAN` to `chkDEC`, in `fraMonths`
  shell::Button cmdAll;                      ///< in `fraMonths`
  shell::Button cmdOK{.enabled = false};     ///< enabled while the choice is complete
  shell::Button cmdCancel;
  shell::WindowState window;
};

Frmreptyp OpenFrmreptyp(shell::Session& session);

void ChangeRepTime(shell::Session& session, Frmreptyp& form, const std::string& text);
void ChangeRepType(shell::Session& session, Frmreptyp& form, const std::string& text);
/// The box of a month, January being 0, was ticked or cleared.
void TickMonth(shell::Session& session, Frmreptyp& form, std::size_t month, bool ticked);
void ClickAll(shell::Session& session, Frmreptyp& form);

/// Sets the report selection and runs the calculation and the report for `TankList`. The window stays open.
void ClickOK(shell::Session& session, Frmreptyp& form);
void ClickCancel(shell::Session& session, Frmreptyp& form);

}  // namespace orvex::reports
