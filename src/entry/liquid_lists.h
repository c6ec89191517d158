#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

namespace orvex::entry {

/// Fills the lists of names and CAS numbers with the chemicals of the mixture's category; without one they are empty.
void FillChemicalLists(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
