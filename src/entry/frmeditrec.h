#pragma once

#include <cstddef>

#include "entry/tank_choice.h"

/// The window in which a tank to edit is chosen.
namespace orvex::entry {

inline constexpr auto kFrmeditrecControls = TankDetailTextsAnd({
    {"lstTanks", "&Tanks:", "Tanks of the client database"},
    {"cmdEdit", "&Edit", "Open the selected tank"},
    {"cmdClose", "&Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on choosing a tank to edit"},
});
inline constexpr shell::WindowText kFrmeditrecText = {"frmeditrec", "Edit Tank", "edit_tank", kFrmeditrecControls};

struct Frmeditrec {
  shell::ListBox lstTanks;  ///< one can be selected
  TankDetails details;
  shell::Button cmdEdit{.enabled = false};  ///< enabled while a tank is selected
  shell::Button cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmeditrec OpenFrmeditrec(shell::Session& session);

/// A row of the list became the selected one: shows who its tank is.
void PickTank(shell::Session& session, Frmeditrec& form, std::size_t row);
/// No row is selected any more.
void UnpickTank(shell::Session& session, Frmeditrec& form);

/// Closes the window and opens the selected tank; comes back when the editor closes.
void ClickEdit(shell::Session& session, Frmeditrec& form);
void ClickClose(shell::Session& session, Frmeditrec& form);
void ClickHelp(shell::Session& session, Frmeditrec& form);

}  // namespace orvex::entry
