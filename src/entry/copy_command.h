#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

namespace orvex::entry {

/// Opens `FrmCopyData` on the other tanks of this tank's type.
void ClickCopy(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
