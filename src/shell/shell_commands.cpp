#include "shell/shell_commands.h"

#include "shell/session.h"
#include "shell/start_up.h"

namespace orvex::shell {

void ExitProgram(Session& session) { Close(session); }
void ChangeDatabaseLocations(Session& session) { session.host.ShowWindow("FrmChange"); }
void ShowHelpContents(Session& session) { session.host.ShowHelp(""); }
void SearchHelp(Session& session) { session.host.ShowHelp("search:"); }
void ShowAbout(Session& session) { session.host.ShowWindow("frmoverview"); }

}  // namespace orvex::shell
