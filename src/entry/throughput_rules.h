#pragma once

#include "entry/frmtank.h"

namespace orvex::entry {

/// Sets the net throughput to turnovers times volume if all three are given and the volume is outside ten percent of
/// what the other two make it. Says whether it did.
bool FitThroughputToVolume(FrmTank& form);

}  // namespace orvex::entry
