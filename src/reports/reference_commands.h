#pragma once

#include "shell/command.h"

namespace orvex::reports {

// Each sets the reference table of the report, and opens the window in which its rows are chosen.
void ExportChemicals(shell::Session& session);
void ExportCities(shell::Session& session);
void ExportFittings(shell::Session& session);
void ExportRimSeals(shell::Session& session);
void ExportDeckSeams(shell::Session& session);
void ExportProfiles(shell::Session& session);

/// The commands "Export/Print" of the reference tables in the menu Data.
inline constexpr shell::Command kReferenceReportCommands[] = {
    {"mnuExportChem", ExportChemicals, shell::Needs::kTankDatabase},
    {"mnuExportMet", ExportCities, shell::Needs::kTankDatabase},
    {"mnuExportFit", ExportFittings, shell::Needs::kTankDatabase},
    {"mnuExportRim", ExportRimSeals, shell::Needs::kTankDatabase},
    {"mnuExportDeck", ExportDeckSeams, shell::Needs::kTankDatabase},
    {"mnuExportSpec", ExportProfiles, shell::Needs::kTankDatabase},
};

}  // namespace orvex::reports
