#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The slope of a cone roof and the radius of a dome roof.
namespace orvex::entry {

/// On leaving the diameter of a vertical tank and a change of it.
void FitConeSlope(shell::Session& session, FrmTank& form, Entry& diameter);
void FitDomeRadius(shell::Session& session, FrmTank& form, Entry& diameter);

/// On entering slope and radius.
void ProposeConeSlope(shell::Session& session, FrmTank& form, Entry& slope);
void ProposeDomeRadius(shell::Session& session, FrmTank& form, Entry& radius);

/// Shows the slope of a cone or the radius of a dome alone; both while no roof type is chosen.
void ShowRoofType(shell::Session& session, FrmTank& form, Entry& roof_type);

}  // namespace orvex::entry
