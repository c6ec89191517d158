#pragma once

#include <cstdint>
#include <string>

#include "entry/frmtank.h"
#include "shell/session.h"

/// What a tank record goes through from its creation to the closing of the editor.
namespace orvex::entry {

/// Adds a tank of this type with its first mixture, both stored at once, and opens it in the editor.
void NewTank(shell::Session& session, std::string_view tank_type);

/// Loads a tank into the editor; shows the window, and comes back when it closes, unless it is shown already.
void editRecord(shell::Session& session, std::int32_t ID, const std::string& tank_type);

/// Stores tank, mixture and months, and takes the copy for the undo. False when the tank was refused: no
/// identification, no mixture name, or an identification that another tank has, which gets a "1" at its end.
bool SaveTank(shell::Session& session, FrmTank& form);

void ClickSave(shell::Session& session, FrmTank& form);
void ClickAbandon(shell::Session& session, FrmTank& form);
void ClickClose(shell::Session& session, FrmTank& form);
void ClickRunReport(shell::Session& session, FrmTank& form);
void ClickHelp(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
