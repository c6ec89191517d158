#pragma once

#include "shell/backup.h"
#include "shell/command.h"
#include "shell/fix_data.h"
#include "shell/new_client.h"
#include "shell/restore.h"

namespace orvex::shell {

void ExitProgram(Session& session);
void ChangeDatabaseLocations(Session& session);
void ShowHelpContents(Session& session);
void SearchHelp(Session& session);
void ShowAbout(Session& session);

inline constexpr Command kBackupTankCommand = {"mnuBackupTank", BackupTank, Needs::kTankDatabase};
inline constexpr Command kBackupClientCommand = {"mnuBackupClient", BackupClient, Needs::kClientDatabase};

/// The commands that need no layer above this one.
inline constexpr Command kShellCommands[] = {
    {"mnuNewClient", NewClient, Needs::kClientDatabase},
    {"mnuChangeDBLOc", ChangeDatabaseLocations, Needs::kNothing},
    {"mnuFixData", FixData, Needs::kTankDatabase},
    {"mnuExit", ExitProgram, Needs::kNothing},
    kBackupTankCommand,
    kBackupClientCommand,
    {"mnuRestoreTank", RestoreTank, Needs::kNothing},
    {"mnuRestoreClient", RestoreClient, Needs::kNothing},
    {"mnuContents", ShowHelpContents, Needs::kNothing},
    {"mnuSearchHelp", SearchHelp, Needs::kNothing},
    {"mnuAbout", ShowAbout, Needs::kNothing},
};

}  // namespace orvex::shell
