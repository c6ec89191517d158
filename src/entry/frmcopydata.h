#pragma once

#include <string>
#include <vector>

#include "entry/frmtank.h"
#include "entry/tank_choice.h"

/// The window in which the tank is chosen whose data the tank being edited takes over.
namespace orvex::entry {

inline constexpr auto kFrmCopyDataControls = TankDetailTextsAnd({
    {"cboTankName", "Copy &From:", "The other tanks of this type"},
    {"optAll", "&All Data", "The tank, its fittings, its mixtures and their components"},
    {"optLiquid", "&Liquid Data", "The mixtures with their months and components"},
    {"optTank", "&Tank Data", "The tank and its fittings, but not what it holds"},
    {"cmdOK", "&OK", "Replace the data of the tank being edited"},
    {"cmdCancel", "&Cancel", "Close this window and copy nothing"},
    {"cmdHelp", "&Help", "Help on copying the data of a tank"},
});
inline constexpr shell::WindowText kFrmCopyDataText = {"FrmCopyData", "Copy Data", "copy_tank", kFrmCopyDataControls};

struct FrmCopyData {
  shell::ComboBox cboTankName;
  shell::OptionButton optAll, optLiquid, optTank;  ///< none is chosen at first
  TankDetails details;
  shell::Button cmdOK{.enabled = false};  ///< enabled while a tank and what to copy are chosen
  shell::Button cmdCancel, cmdHelp;
  shell::WindowState window;
};

/// The `USER ID`s of the tanks of the edited one's type, but its own, in the order of that index.
std::vector<std::string> CopySources(shell::Session& session, const FrmTank& form);

FrmCopyData OpenFrmCopyData(shell::Session& session);

/// A tank was chosen: shows who it is.
void ChangeTankName(shell::Session& session, FrmCopyData& form, const std::string& text);
void ChooseAll(shell::Session& session, FrmCopyData& form);
void ChooseLiquid(shell::Session& session, FrmCopyData& form);
void ChooseTank(shell::Session& session, FrmCopyData& form);

/// Replaces the edited tank's rows by copies of the chosen tank's, all or none, shows it anew and closes the window.
/// The edited tank keeps its `ID` and `USER ID`; fittings and components that the other has none of it keeps, too.
void ClickOK(shell::Session& session, FrmCopyData& form);
void ClickCancel(shell::Session& session, FrmCopyData& form);
void ClickHelp(shell::Session& session, FrmCopyData& form);

}  // namespace orvex::entry
