#pragma once

#include "shell/controls.h"
#include "shell/session.h"

namespace orvex::shell {

inline constexpr ControlText kFrmclientdataControls[] = {
    {"txtClientPath", "&Client database:", "Path of the client database"},
    {"cmdBrowse", "&Browse...", "Look for the client database"},
    {"cmdOK", "&OK", "Open this database and go on"},
    {"cmdExit", "E&xit", "End the program at once"},
    {"cmdHelp", "&Help", "Show help on this window"},
};
inline constexpr WindowText kFrmclientdataText = {"Frmclientdata", "Locate Client Database", "locate_database",
                                                  kFrmclientdataControls};

/// Shown at the start when there is no good client database at its path. Closing the window in another way than by
/// OK is Exit: nothing can go on without a database.
struct Frmclientdata {
  TextBox txtClientPath;
  Button cmdBrowse;
  Button cmdOK;
  Button cmdExit;
  Button cmdHelp;
  WindowState window;
};

Frmclientdata OpenFrmclientdata(Session& session);

void ClickBrowse(Session& session, Frmclientdata& model);
/// Closes the window when the database is open.
void ClickOK(Session& session, Frmclientdata& model);
/// Sets `session.ended`.
void ClickExit(Session& session, Frmclientdata& model);
void ClickHelp(Session& session, Frmclientdata& model);

}  // namespace orvex::shell
