#pragma once

#include "shell/command.h"

namespace orvex::refdata {

void EditChemicals(shell::Session& session);
void EditWeather(shell::Session& session);
void EditFittings(shell::Session& session);
void EditRimSeals(shell::Session& session);
void EditDeckSeams(shell::Session& session);
void EditProfiles(shell::Session& session);

/// The entries "Edit Database" of the menu Data.
inline constexpr shell::Command kEditorMenuCommands[] = {
    {"mnuEditChem", EditChemicals, shell::Needs::kTankDatabase},
    {"mnuEditMet", EditWeather, shell::Needs::kTankDatabase},
    {"mnuEditFit", EditFittings, shell::Needs::kTankDatabase},
    {"mnuEditRim", EditRimSeals, shell::Needs::kTankDatabase},
    {"mnuEditDeck", EditDeckSeams, shell::Needs::kTankDatabase},
    {"mnuEditSpec", EditProfiles, shell::Needs::kTankDatabase},
};

}  // namespace orvex::refdata
