#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

namespace orvex::entry {

/// Refuses the first entry shown, or the first month, whose text its row cannot hold, as leaving it does, and goes to
/// its page. False if all can be stored.
bool RefuseUnstorable(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
