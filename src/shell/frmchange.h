#pragma once

#include "shell/controls.h"
#include "shell/session.h"

namespace orvex::shell {

inline constexpr ControlText kFrmChangeControls[] = {
    {"txtTankData", "&Tank database:", "Path of the tank database"},
    {"cmdBrowseTank", "&Browse...", "Look for the tank database"},
    {"txtClientData", "C&lient database:", "Path of the client database"},
    {"cmdBrowseClient", "B&rowse...", "Look for the client database"},
    {"cmdOK", "&OK", "Use these databases from now on"},
    {"cmdClose", "&Close", "Close this window without a change"},
    {"cmdHelp", "&Help", "Show help on this window"},
};
inline constexpr WindowText kFrmChangeText = {"FrmChange", "Change Database Locations", "database_locations",
                                              kFrmChangeControls};

/// Where the databases are. A text selects all of itself when it gets the focus.
struct FrmChange {
  TextBox txtTankData;
  TextBox txtClientData;
  Button cmdBrowseTank;
  Button cmdBrowseClient;
  Button cmdOK;
  Button cmdClose;
  Button cmdHelp;
  WindowState window;
};

/// Shows the current paths. Closes every other window but the main one, so that nothing holds the databases.
FrmChange OpenFrmChange(Session& session);

void ClickBrowseTank(Session& session, FrmChange& model);
void ClickBrowseClient(Session& session, FrmChange& model);
void ClickOK(Session& session, FrmChange& model);
void ClickClose(Session& session, FrmChange& model);
void ClickHelp(Session& session, FrmChange& model);

}  // namespace orvex::shell
