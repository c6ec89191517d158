#pragma once

#include "shell/session.h"

namespace orvex::emission {

/// Checks the tanks of `TankList`, recomputes their rows of `emission` and shows `frmprintrep`, with `PrintMode`
/// "Report" or, when validation or calculation stopped on faults of the data, "Error". Everything it writes is written
/// whole or, when the person interrupts it, not at all.
void RunReport(shell::Session& session);

}  // namespace orvex::emission
