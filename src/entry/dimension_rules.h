#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// Diameters, heights and lengths of fixed roof tanks.
namespace orvex::entry {

/// On leaving the diameter of a vertical tank and a change of it: proposes the volume that it makes, if it does not fit
/// the volume given.
void ProposeVolumeOfDiameter(shell::Session& session, FrmTank& form, Entry& diameter);
/// The same on leaving the maximum liquid height, changed or not.
void ProposeVolumeOfHeight(shell::Session& session, FrmTank& form, Entry& height);
void LimitAverageLiquidHeight(shell::Session& session, FrmTank& form, Entry& average_height);
/// Refuses a shell height, length or diameter outside its limits. The value stays.
void LimitShell(shell::Session& session, FrmTank& form, Entry& dimension);

/// Fill the missing one of diameter, maximum liquid height and volume on entering it. The missing diameter is shown in
/// the volume.
void FillVolume(shell::Session& session, FrmTank& form, Entry& volume);
void FillMaximumLiquidHeight(shell::Session& session, FrmTank& form, Entry& height);
void FillDiameter(shell::Session& session, FrmTank& form, Entry& diameter);

}  // namespace orvex::entry
