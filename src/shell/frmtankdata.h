#pragma once

#include "shell/controls.h"
#include "shell/session.h"

namespace orvex::shell {

inline constexpr ControlText kFrmtankdataControls[] = {
    {"txtTankPath", "&Tank database:", "Path of the tank database"},
    {"cmdBrowse", "&Browse...", "Look for the tank database"},
    {"cmdOK", "&OK", "Open this database and go on"},
    {"cmdExit", "E&xit", "End the program at once"},
    {"cmdHelp", "&Help", "Show help on this window"},
};
inline constexpr WindowText kFrmtankdataText = {"Frmtankdata", "Locate Tank Database", "locate_database",
                                                kFrmtankdataControls};

/// Shown at the start when there is no good reference database at its path. Closing the window in another way than by
/// OK is Exit: nothing can go on without a database.
struct Frmtankdata {
  TextBox txtTankPath;
  Button cmdBrowse;
  Button cmdOK;
  Button cmdExit;
  Button cmdHelp;
  WindowState window;
};

Frmtankdata OpenFrmtankdata(Session& session);

void ClickBrowse(Session& session, Frmtankdata& model);
/// Closes the window when the database is open.
void ClickOK(Session& session, Frmtankdata& model);
/// Sets `session.ended`.
void ClickExit(Session& session, Frmtankdata& model);
void ClickHelp(Session& session, Frmtankdata& model);

}  // namespace orvex::shell
