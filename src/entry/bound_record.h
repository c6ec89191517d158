#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The way between the entries of the editor and the rows that they are bound to.
namespace orvex::entry {

/// Shows the tank's row in all entries bound to `tank`, those of the other types' sections too: each holds the value
/// last stored. A null number shows as "0".
void ShowTank(shell::Session& session, FrmTank& form);
/// The same for the row of `mixtures` that `form.MixID` names.
void ShowMixtureRow(shell::Session& session, FrmTank& form);

/// Writes the changed entries of the tank's sections to its row, all or none, and shows the row in the other sections.
/// A text that is no number is stored, and shown, as 0. Error 3163, which names the entry, for a text that is
/// longer than its field or holds control characters; 3021 when the row is gone.
void CommitTank(shell::Session& session, FrmTank& form);
/// The same for the mixture's form shown and what every mixture has.
void CommitMixture(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
