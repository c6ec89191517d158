#pragma once

#include <string>

#include "entry/frmtank.h"
#include "shell/session.h"
#include "store/record_set.h"

namespace orvex::entry {

/// The usual number of such fittings on the editor's tank, by its diameter {ft}. `fitting` stands on a row of the
/// reference table; a kind that no rule counts has that row's own quantity.
double EstimatedQuantity(shell::Session& session, FrmTank& tank, store::RecordSet& fitting);

}  // namespace orvex::entry
