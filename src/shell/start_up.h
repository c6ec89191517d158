#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Starts the program: main window, splash, notice, databases, quick menu. `session.application_folder` and
/// `session.settings` are set before. False when the person ended the program on the way (`session.ended`), or when the
/// tank database failed in a way that another place of the file does not mend; then the main window stays, without
/// quick menu and databases, and its menus lead on.
bool StartUp(Session& session);

/// Ends the program: offers a backup, closes the windows and databases, compacts the files, and closes the main window.
/// Sets `session.ended`; a program that has ended already is left alone.
void Close(Session& session);

}  // namespace orvex::shell
