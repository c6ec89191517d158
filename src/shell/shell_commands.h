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
    {"mnuChangeDBLOc", ChangeDatabaseLocations, Needs::kNothing},
    {"mnuExit", ExitProgram, Needs::kNothing},
    {"mnuBackupTank", BackupTank, Needs::kTankDatabase},
    {"mnuBackupClient", BackupClient, Needs::kClientDatabase},
    {"mnuContents", ShowHelpContents, Needs::kNothing},
    {"mnuSearchHelp", SearchHelp, Needs::kNothing},
    {"mnuAbout", ShowAbout, Needs::kNothing},
};

}  // namespace orvex::shell
