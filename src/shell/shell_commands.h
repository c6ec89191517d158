#pragma once

#include "shell/backup.h"
#include "shell/command.h"

namespace orvex::shell {

void ExitProgram(Session& session);
void ChangeDatabaseLocations(Session& session);
void ShowHelpContents(Session& session);
void SearchHelp(Session& session);
void ShowAbout(Session& session);

/// The commands that need no layer above this one.
inline constexpr Command kShellCommands[] = {
    {"mnuChangeDBLOc", ChangeDatabaseLocations, true},
    {"mnuExit", ExitProgram, true},
    {"mnuBackupTank", BackupTank},
    {"mnuBackupClient", BackupClient},
    {"mnuContents", ShowHelpContents, true},
    {"mnuSearchHelp", SearchHelp, true},
    {"mnuAbout", ShowAbout, true},
};

}  // namespace orvex::shell
