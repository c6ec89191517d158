#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// Rules of the seals of floating roofs, and of the construction of the shell that they must suit.
namespace orvex::entry {

/// List the seals of the reference table that suit the tank; a secondary seal must suit the primary one, too.
void OpenPrimarySeals(shell::Session& session, FrmTank& form, Entry& primary);
void OpenSecondarySeals(shell::Session& session, FrmTank& form, Entry& secondary);

/// Clears the secondary seal when the primary one changes.
void ChoosePrimarySeal(shell::Session& session, FrmTank& form, Entry& primary);
/// Clears both seals when the construction changes.
void ChooseConstruction(shell::Session& session, FrmTank& form, Entry& construction);

}  // namespace orvex::entry
