#pragma once

#include <cstddef>

#include "entry/tank_choice.h"

/// The window in which tanks are deleted.
namespace orvex::entry {

inline constexpr auto kFrmrecdeleteControls = TankDetailTextsAnd({
    {"lstTanks", "&Tanks:", "Tanks of the client database"},
    {"cmdSelect", "&Select>", "Add the selected tanks to those to delete"},
    {"cmdSelectAll", "Select &All>>", "Put every tank among those to delete"},
    {"cmdRemove", "<&Remove", "Keep the selected tanks"},
    {"cmdRemoveAll", "<<Remove A&ll", "Keep all tanks"},
    {"lstDelTanks", "Tan&ks to Delete:", "Tanks that Delete removes with all that belongs to them"},
    {"cmdDelete", "&Delete", "Remove these tanks with their mixtures, components, fittings and emissions"},
    {"cmdClose", "&Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on deleting tanks"},
});
inline constexpr shell::WindowText kFrmrecdeleteText = {"frmrecdelete", "Delete Tank(s)", "delete_tanks",
                                                        kFrmrecdeleteControls};

struct Frmrecdelete {
  shell::ListBox lstTanks;     ///< `USER ID` of every tank that has one, in the order of that index
  shell::ListBox lstDelTanks;  ///< in the order selected
  TankDetails details;
  shell::Button cmdSelect, cmdSelectAll, cmdRemove, cmdRemoveAll;
  shell::Button cmdDelete{.enabled = false};  ///< enabled while there are tanks to delete
  shell::Button cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmrecdelete OpenFrmrecdelete(shell::Session& session);

/// A row of `lstTanks` became the current one: shows who its tank is.
void PickTank(shell::Session& session, Frmrecdelete& form, std::size_t row);

/// Adds the rows selected in `lstTanks` to the tanks to delete, but none that is among them.
void ClickSelect(shell::Session& session, Frmrecdelete& form);
/// Lists every tank that there is among those to delete.
void ClickSelectAll(shell::Session& session, Frmrecdelete& form);
/// Removes the rows selected in `lstDelTanks` from the list.
void ClickRemove(shell::Session& session, Frmrecdelete& form);
void ClickRemoveAll(shell::Session& session, Frmrecdelete& form);

/// Asks, then deletes the tanks and all their rows, or none at all if that fails.
void ClickDelete(shell::Session& session, Frmrecdelete& form);
void ClickClose(shell::Session& session, Frmrecdelete& form);
void ClickHelp(shell::Session& session, Frmrecdelete& form);

}  // namespace orvex::entry
