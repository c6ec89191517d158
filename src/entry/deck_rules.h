#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// Rules of the deck of an internal floating roof tank.
namespace orvex::entry {

/// Shows construction, seam and seam length of a deck, but of a welded one.
void ShowDeckEntries(FrmTank& form);
/// Lists the seams of the reference table that the deck's construction has.
void FillDeckSeams(shell::Session& session, FrmTank& form);

/// Clears the deck seam when the construction changes, and lists those of the new one.
void ChooseDeckConstruction(shell::Session& session, FrmTank& form, Entry& construction);
/// Takes over the seam's factor `SD` and proposes the length of seam {ft} that follows from it.
void ChooseDeckSeam(shell::Session& session, FrmTank& form, Entry& seam);
/// Proposes the length that is missing while the deck seam is not the one of the tank's last opening or saving.
void EnterDeckSeamLength(shell::Session& session, FrmTank& form, Entry& length);
/// Proposes the length that follows from a diameter just changed, if it is another one.
void ProposeDeckSeamLength(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
