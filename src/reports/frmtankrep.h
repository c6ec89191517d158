#pragma once

#include <cstddef>

#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the tanks of a report are chosen.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmtankrepControls[] = {
    {"lstTanks", "&Tanks:", "Tanks of the client database"},
    {"cmdSelect", "&Select>", "Add the selected tanks to the chosen ones"},
    {"cmdSelectAll", "Select &All>>", "Choose every tank"},
    {"cmdRemove", "<&Remove", "Take the selected tanks out of the chosen ones"},
    {"cmdRemoveAll", "<<Remove A&ll", "Take all tanks out of the chosen ones"},
    {"lstChosenTanks", "Chosen Tan&ks:", "Tanks of the report, in its order"},
    {"txtID", "ID:", "Identification of the tank picked last"},
    {"txtCity", "City:", "City of the tank picked last"},
    {"txtState", "State:", "State of the tank picked last"},
    {"txtCompany", "Company:", "Company of the tank picked last"},
    {"txtTankType", "Tank Type:", "Type of the tank picked last"},
    {"cmdRunReport", "&Run Report", "Compute the chosen tanks and report on them"},
    {"cmdClose", "&Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on choosing tanks"},
};
inline constexpr shell::WindowText kFrmtankrepText = {"Frmtankrep", "Choose Tank(s) For Report", "choose_tanks",
                                                      kFrmtankrepControls};

struct Frmtankrep {
  shell::ListBox lstTanks;        ///< `USER ID` of every tank that has one, in the order of the table
  shell::ListBox lstChosenTanks;  ///< in the order chosen
  shell::TextBox txtID{.text = "", .read_only = true};
  shell::TextBox txtCity{.text = "", .read_only = true};
  shell::TextBox txtState{.text = "", .read_only = true};
  shell::TextBox txtCompany{.text = "", .read_only = true};
  shell::TextBox txtTankType{.text = "", .read_only = true};
  shell::Button cmdSelect, cmdSelectAll, cmdRemove, cmdRemoveAll;
  shell::Button cmdRunReport{.enabled = false};  ///< enabled while a tank is chosen
  shell::Button cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmtankrep OpenFrmtankrep(shell::Session& session);

/// A row of `lstTanks` became the current one: shows who its tank is. Of several tanks with one name it is the first;
/// of a tank that is not there any more nothing is shown.
void PickTank(shell::Session& session, Frmtankrep& form, std::size_t row);

/// Adds the rows selected in `lstTanks` to the chosen tanks, but none that is among them.
void ClickSelect(shell::Session& session, Frmtankrep& form);
/// Chooses all rows of `lstTanks`, in their order.
void ClickSelectAll(shell::Session& session, Frmtankrep& form);
/// Removes the rows selected in `lstChosenTanks`.
void ClickRemove(shell::Session& session, Frmtankrep& form);
void ClickRemoveAll(shell::Session& session, Frmtankrep& form);

/// Runs the calculation and the report for the chosen tanks. The window stays open behind what follows.
void ClickRunReport(shell::Session& session, Frmtankrep& form);
void ClickClose(shell::Session& session, Frmtankrep& form);
void ClickHelp(shell::Session& session, Frmtankrep& form);

}  // namespace orvex::reports
