#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The physical page: what rules that belong to several entries, or to other pages, share.
namespace orvex::entry {

/// Shows, hides and enables the entries of the physical page by what the tank's row holds (roof type, heated,
/// underground), without asking anything. For a tank just loaded.
void ShowFixedRoofEntries(shell::Session& session, FrmTank& form);
/// The same for deck type, deck construction, self-supporting roof and seals.
void ShowFloatingRoofEntries(shell::Session& session, FrmTank& form);

/// Brings the months into step with the net throughput as it stands, if the person wants it.
void MonthlyUpdate(shell::Session& session, FrmTank& form);

/// Builds the tank's fittings anew if its category is "Typical".
void RebuildTypicalFittings(shell::Session& session, FrmTank& form);

/// Opens `frmrecfit` on the tank.
void ClickSpecFit(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
