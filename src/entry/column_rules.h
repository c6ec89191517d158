#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// Rules of the columns of an internal floating roof tank.
namespace orvex::entry {

/// Shows and enables number and effective diameter of the columns, but of a self-supporting roof.
void ShowColumnEntries(FrmTank& form);

/// Gives a self-supporting roof no columns.
void ChooseSelfSupporting(shell::Session& session, FrmTank& form, Entry& self_supporting);
/// Stores the number {ft} that an item of the list stands for.
void ChooseColumnDiameter(shell::Session& session, FrmTank& form, Entry& column_diameter);

/// Offers the usual number of columns where none is given.
void EnterColumns(shell::Session& session, FrmTank& form, Entry& columns);
/// Offers the usual number of columns whatever is given.
void ActivateColumns(shell::Session& session, FrmTank& form, Entry& columns);
void LeaveColumns(shell::Session& session, FrmTank& form, Entry& columns);
/// Offers the usual number of columns for a diameter just changed, if it is another one.
void ProposeColumns(shell::Session& session, FrmTank& form);

/// Gives the tank's first column well fitting the number of columns as its quantity.
void SetColumnWellFittings(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
