#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/command.h"
#include "shell/controls.h"
#include "shell/session.h"
#include "shell/tank_types.h"

namespace orvex::shell {

inline constexpr ControlText kFrmqmenuControls[] = {
    {"optCreate", "C&reate a New Tank Record", "Describe a tank that is not in the client database yet"},
    {"lstTankTypes", "Tank &Types", "The type of the new tank"},
    {"optOpen", "O&pen an Existing Tank Record", "Look at or change a tank of the client database"},
    {"dblstTanks", "T&anks", "The tanks of the client database"},
    {"cmdOK", "&OK", "Create the tank, or open the selected one"},
    {"cmdCancel", "&Cancel", "Close this window and use the menus instead"},
};
inline constexpr WindowText kFrmqmenuText = {"frmqmenu", "Quick Menu", "quick_menu", kFrmqmenuControls};

/// The quick menu that greets the person.
struct Frmqmenu {
  OptionButton optCreate;
  OptionButton optOpen;
  ListBox lstTankTypes;
  ListBox dblstTanks;
  Button cmdOK;
  Button cmdCancel;
  TextBox txtID;        ///< `ID` of the selected tank, hidden
  TextBox txtTankType;  ///< `TANK_TYPE` of the selected tank, hidden
  WindowState window;
};

/// "Create" is chosen, the first type is highlighted, and the list shows the tanks of the client database.
Frmqmenu OpenFrmqmenu(Session& session);

void ChooseCreate(Session& session, Frmqmenu& model);
void ChooseOpen(Session& session, Frmqmenu& model);

/// A click on an item of the list of tanks.
void PickTank(Session& session, Frmqmenu& model, std::size_t item);
/// No item of the list of tanks is selected any more.
void UnpickTank(Session& session, Frmqmenu& model);
/// A double click: the tank is opened at once.
void OpenTank(Session& session, Frmqmenu& model, std::size_t item);

/// A click on an item of the list of types.
void PickType(Session& session, Frmqmenu& model, std::size_t item);
/// A double click: the tank is created at once.
void CreateTank(Session& session, Frmqmenu& model, std::size_t item);

void ClickOK(Session& session, Frmqmenu& model);
void ClickCancel(Session& session, Frmqmenu& model);

}  // namespace orvex::shell
