#pragma once

#include <functional>
#include <string_view>

#include "entry/frmtank.h"
#include "shell/session.h"

/// How the editor comes to show a tank.
namespace orvex::entry {

/// Loads the tank `form.ID` in place; false if it is no longer there.
bool LoadTank(shell::Session& session, FrmTank& form);

/// The physical page of the tank's type and the finishing of what is shown, after the rows were loaded.
void ShowPhysicalPage(shell::Session& session, FrmTank& form);

/// Makes the editor, lets `load` fill it, shows its window if that gave true, and comes back when it is closed.
void OpenEditor(shell::Session& session, std::string_view tank_type, const std::function<bool(FrmTank&)>& load);

}  // namespace orvex::entry
