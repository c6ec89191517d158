#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The breather vent of fixed roof tanks, and what heating means for it.
namespace orvex::entry {

/// On leaving: a vacuum {psig} stands as a number from -1 to 0; typed without its sign it gets one.
void LimitVacuum(shell::Session& session, FrmTank& form, Entry& vacuum);
/// On leaving: a pressure {psig} from 0 to 1. On a horizontal tank the entry of the vertical section is tested, which
/// holds what was stored last, so that a pressure just typed is tested once it is stored.
void LimitPressure(shell::Session& session, FrmTank& form, Entry& pressure);

/// On choosing whether the tank is heated: liquid temperatures can be typed, or not; a vent that is set should not be.
void ChooseHeated(shell::Session& session, FrmTank& form, Entry& heated);

}  // namespace orvex::entry
