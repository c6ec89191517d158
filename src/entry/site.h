#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The site page: the nearest major city and its weather.
namespace orvex::entry {

/// Fills the list of cities, and shows the weather of the tank's one if the reference database has it.
void ShowSite(shell::Session& session, FrmTank& form);

/// No city, and "0" in all numbers of the page.
void ClearSite(FrmTank& form);

}  // namespace orvex::entry
