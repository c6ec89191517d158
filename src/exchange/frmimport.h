#pragma once

#include <array>
#include <string_view>

#include "shell/controls.h"
#include "shell/session.h"

/// The window that imports tanks of the previous version from its dBASE files.
namespace orvex::exchange {

/// One of the eight files.
struct ImportFile {
  std::string_view field;   ///< the control that holds its path
  std::string_view browse;  ///< the command that looks for it
  std::string_view file;    ///< its usual name
  bool required;
};

inline constexpr ImportFile kImportFiles[] = {
    {"txtTankPath", "cmdBrowseTank", "tank.dbf", true},
    {"txtMixturePath", "cmdBrowseMixture", "mixture.dbf", true},
    {"txtFittingsPath", "cmdBrowseFittings", "fittings.dbf", true},
    {"txtStoragePath", "cmdBrowseStorage", "storage.dbf", true},
    {"txtChemical", "cmdBrowseChemical", "chemical.dbf", false},
    {"txtMet", "cmdBrowseMet", "cities.dbf", false},
    {"txtFit", "cmdBrowseFit", "fit_tbl.dbf", false},
    {"txtRimSeal", "cmdBrowseRimSeal", "rim_seal.dbf", false},
};

inline constexpr shell::ControlText kFrmImportControls[] = {
    {"fraTankData", "Tank data", "The files that the tanks are read from; all are needed"},
    {"txtTankPath", "&Tanks (tank.dbf):", "The file of the tanks"},
    {"cmdBrowseTank", "&Browse...", "Look for tank.dbf"},
    {"txtMixturePath", "&Mixtures (mixture.dbf):", "The file of the tanks' mixtures"},
    {"cmdBrowseMixture", "Browse...", "Look for mixture.dbf"},
    {"txtFittingsPath", "&Fittings (fittings.dbf):", "The file of the tanks' fittings"},
    {"cmdBrowseFittings", "Browse...", "Look for fittings.dbf"},
    {"txtStoragePath", "Com&ponents (storage.dbf):", "The file of the mixtures' components"},
    {"cmdBrowseStorage", "Browse...", "Look for storage.dbf"},
    {"fraAncillary", "Ancillary Data", "Files of reference data that the tanks may need; each may be left empty"},
    {"txtChemical", "&Chemicals (chemical.dbf):", "A file of chemicals to be added first"},
    {"cmdBrowseChemical", "Browse...", "Look for chemical.dbf"},
    {"txtMet", "C&ities (cities.dbf):", "A file of cities to be added first"},
    {"cmdBrowseMet", "Browse...", "Look for cities.dbf"},
    {"txtFit", "Fittin&gs (fit_tbl.dbf):", "A file of fittings to be added first"},
    {"cmdBrowseFit", "Browse...", "Look for fit_tbl.dbf"},
    {"txtRimSeal", "&Rim seals (rim_seal.dbf):", "A file of rim seals to be added first"},
    {"cmdBrowseRimSeal", "Browse...", "Look for rim_seal.dbf"},
    {"cmdOK", "&OK", "Import the tanks"},
    {"cmdCancel", "Cancel", "Close this window and import nothing"},
    {"cmdHelp", "&Help", "Help on importing tanks"},
};
inline constexpr shell::WindowText kFrmImportText = {"frmImport", "Import Tanks from Version 3.1", "import_tanks",
                                                     kFrmImportControls};

struct FrmImport {
  shell::Frame fraTankData, fraAncillary;
  std::array<shell::TextBox, std::size(kImportFiles)> paths;  ///< as `kImportFiles`
  std::array<shell::Button, std::size(kImportFiles)> browse;  ///< as `kImportFiles`
  shell::Button cmdOK, cmdCancel, cmdHelp;
  shell::WindowState window;
};

FrmImport OpenFrmImport(shell::Session& session);

/// A path was typed.
void TypePath(shell::Session& session, FrmImport& form, std::size_t file, const std::string& text);
/// Asks for one of the files, tries to open it, and takes its path over.
void ClickBrowse(shell::Session& session, FrmImport& form, std::size_t file);

/// Imports all tanks that pass the checks, tells of each in the table `import errors`, offers that as a report and
/// closes the window. All is one transaction: ended at any moment, the databases hold all of it or nothing.
void ClickOK(shell::Session& session, FrmImport& form);
void ClickCancel(shell::Session& session, FrmImport& form);
void ClickHelp(shell::Session& session, FrmImport& form);

}  // namespace orvex::exchange
