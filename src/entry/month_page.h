#pragma once

#include <cstddef>

#include "entry/frmtank.h"
#include "shell/session.h"

/// The monthly page. What stands there is stored by `SaveTank` alone. A month is named by its place, January being 0.
namespace orvex::entry {

/// Shows the months of all mixtures of the tank as they are stored.
void LoadMonths(shell::Session& session, FrmTank& form);
/// Stores each month in the mixture that its list names, and false and 0 in all others.
void StoreMonths(shell::Session& session, FrmTank& form);
/// Shows the sum of the twelve months.
void ShowMonthTotal(FrmTank& form);

/// The box of a month was ticked or cleared.
void TickMonth(shell::Session& session, FrmTank& form, std::size_t month, bool ticked);
void LeaveThroughput(shell::Session& session, FrmTank& form, std::size_t month);
/// The list of a month's mixtures drops down: it is built anew.
void OpenMixtures(shell::Session& session, FrmTank& form, std::size_t month);
void ClickDistribute(shell::Session& session, FrmTank& form);
void ClickFillMixName(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
