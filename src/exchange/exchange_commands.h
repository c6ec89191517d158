#pragma once

#include "exchange/inventory_csv.h"
#include "exchange/reference_import.h"
#include "shell/command.h"

namespace orvex::exchange {

/// Opens `frmImport`.
void ImportTanks(shell::Session& session);

/// What the menu Data imports and exports.
inline constexpr shell::Command kExchangeCommands[] = {
    {"mniImportTank", ImportTanks},
    {"mnuImportCsv", ImportCsv},
    {"mnuExportCsv", ExportCsv, shell::Needs::kClientDatabase},
    {"mnuImportChem", ImportChemical, shell::Needs::kTankDatabase},
    {"mnuImportMet", ImportMet, shell::Needs::kTankDatabase},
    {"mnuImportFit", ImportFit, shell::Needs::kTankDatabase},
    {"mnuImportRim", ImportRim, shell::Needs::kTankDatabase},
};

}  // namespace orvex::exchange
