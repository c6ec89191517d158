#pragma once

#include "shell/command.h"

namespace orvex::entry {

void NewHorizontal(shell::Session& session);
void NewVerticalFixedRoof(shell::Session& session);
void NewInternalFloatingRoof(shell::Session& session);
void NewExternalFloatingRoof(shell::Session& session);
void NewDomedExternalFloatingRoof(shell::Session& session);
/// Opens the window in which a tank to edit is chosen.
void EditTank(shell::Session& session);
/// Opens the window in which tanks are deleted.
void DeleteTanks(shell::Session& session);

/// The commands of the menu Tanks.
inline constexpr shell::Command kEntryCommands[] = {
    {"mnuNewHT", NewHorizontal},
    {"mnuNewVFRT", NewVerticalFixedRoof},
    {"mnuNewIFRT", NewInternalFloatingRoof},
    {"mnuNewEFRT", NewExternalFloatingRoof},
    {"mnuNewDEFRT", NewDomedExternalFloatingRoof},
    {"mnuEditTank", EditTank},
    {"mnuDeleteTank", DeleteTanks},
};

/// Puts tank entry into the program: its state, its commands, and the functions by which lower layers reach it.
void AddTankEntry(shell::Session& session);

}  // namespace orvex::entry
