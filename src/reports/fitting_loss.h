#pragma once

#include "shell/session.h"
#include "store/record_set.h"

namespace orvex::reports {

/// The loss {lb} of one line of deck fittings (the current row of `fitting`) over the year, or over the months that
/// the tank's primary rows of `emission` hold. Wind counts under an open sky alone. A null leaves out the step that it
/// stands in.
double OneFit(shell::Session& session, store::RecordSet& fitting, store::RecordSet& emission, bool monthly);

}  // namespace orvex::reports
