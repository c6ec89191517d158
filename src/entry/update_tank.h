#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

namespace orvex::entry {

/// Writes what stands in the tank's entries to its row, and shows volume, turnovers, net throughput and the net
/// throughput's copy on the monthly page through "#,##0.00####". Errors as for `CommitTank`.
void UpdateTank(shell::Session& session, FrmTank& form);

/// Shows the twelve months' throughputs, their total, volume, turnovers and net throughput through "#,##0.00####".
void FormatLarge(FrmTank& form);

}  // namespace orvex::entry
