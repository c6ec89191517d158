#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The main window's menus and tool bar as data: the real ones are made from it. An ampersand marks the access key.
namespace orvex::shell {

/// Title of the main window `MDIForm1`, and the line that the splash shows.
inline constexpr std::string_view kMainWindowTitle = "ORVEX 4.0.9d";

struct MenuEntry {
  std::string_view text;                    ///< empty for a separator
  std::string_view control;                 ///< the command's name; a menu's name is for finding it only
  std::span<const MenuEntry> entries = {};  ///< of a menu that opens

  [[nodiscard]] constexpr bool IsSeparator() const { return text.empty(); }
  [[nodiscard]] constexpr bool IsMenu() const { return !entries.empty(); }
};

/// A button of the tool bar `Toolbar1`.
struct ToolButton {
  std::string_view key;      ///< which its picture is named after
  std::string_view tip;      ///< its tool tip and accessible name
  std::string_view control;  ///< the menu entry whose command it runs
};

inline constexpr MenuEntry kSeparator = {};

inline constexpr MenuEntry kFileMenu[] = {
    {"&New Client Database", "mnuNewClient"},
    {"&Change Database Locations", "mnuChangeDBLOc"},
    kSeparator,
    {"&Exit", "mnuExit"},
};

inline constexpr MenuEntry kNewTankMenu[] = {
    {"&Horizontal Tank", "mnuNewHT"},
    {"&Vertical Fixed Roof Tank", "mnuNewVFRT"},
    {"&Internal Floating Roof Tank", "mnuNewIFRT"},
    {"&External Floating Roof Tank", "mnuNewEFRT"},
    {"&Domed External Floating Roof Tank", "mnuNewDEFRT"},
};

inline constexpr MenuEntry kTanksMenu[] = {
    {"&New Record", "mnuNewTank", kNewTankMenu},   {"&Edit Record", "mnuEditTank"},
    {"&Import from Version 3.1", "mniImportTank"}, {"Import from &CSV Files", "mnuImportCsv"},
    {"E&xport to CSV Files", "mnuExportCsv"},      {"&Delete Record", "mnuDeleteTank"},
};

inline constexpr MenuEntry kChemicalMenu[] = {
    {"&Edit Database", "mnuEditChem"},
    {"&Import", "mnuImportChem"},
    {"Export/&Print", "mnuExportChem"},
};

inline constexpr MenuEntry kMeteorologicalMenu[] = {
    {"&Edit Database", "mnuEditMet"},
    {"&Import", "mnuImportMet"},
    {"Export/&Print", "mnuExportMet"},
};

inline constexpr MenuEntry kFittingsMenu[] = {
    {"&Edit Database", "mnuEditFit"},
    {"&Import", "mnuImportFit"},
    {"Export/&Print", "mnuExportFit"},
};

inline constexpr MenuEntry kRimSealsMenu[] = {
    {"&Edit Database", "mnuEditRim"},
    {"&Import", "mnuImportRim"},
    {"Export/&Print", "mnuExportRim"},
};

inline constexpr MenuEntry kDeckSeamsMenu[] = {
    {"&Edit Database", "mnuEditDeck"},
    {"Export/&Print", "mnuExportDeck"},
};

inline constexpr MenuEntry kProfilesMenu[] = {
    {"&Edit Database", "mnuEditSpec"},
    {"Export/&Print", "mnuExportSpec"},
};

inline constexpr MenuEntry kDataMenu[] = {
    {"&Tanks", "mnuTanks", kTanksMenu},
    kSeparator,
    {"&Chemical", "mnuChem", kChemicalMenu},
    {"&Meteorological", "mnuMet", kMeteorologicalMenu},
    {"&Fittings", "mnuFit", kFittingsMenu},
    {"&Rim Seals", "mnuRim", kRimSealsMenu},
    {"&Deck Seams", "mnuDeck", kDeckSeamsMenu},
    {"&Speciation Profiles", "mnuSpec", kProfilesMenu},
    kSeparator,
    {"4.03 Update", "mnuFixData"},
};

inline constexpr MenuEntry kAnnualMenu[] = {
    {"&Brief", "mnuAnnBrief"},
    {"&Summary", "mnuAnnSummary"},
    {"&Detail", "mnuAnnDetail"},
};

inline constexpr MenuEntry kMonthlyMenu[] = {
    {"&Brief", "mnuMonBrief"},
    {"&Summary", "mnuMonSummary"},
    {"&Detail", "mnuDetail"},
};

inline constexpr MenuEntry kReportMenu[] = {
    {"&Annual", "mnuAnnual", kAnnualMenu},
    {"&Monthly", "mnuMonthly", kMonthlyMenu},
};

inline constexpr MenuEntry kBackupMenu[] = {
    {"Backup &Tank Database", "mnuBackupTank"},
    {"Backup &Client Database", "mnuBackupClient"},
    kSeparator,
    {"Restore T&ank Database From Backup", "mnuRestoreTank"},
    {"Restore C&lient Database From Backup", "mnuRestoreClient"},
};

inline constexpr MenuEntry kHelpMenu[] = {
    {"&Contents", "mnuContents"},
    {"&Search For Help On...", "mnuSearchHelp"},
    kSeparator,
    {"&About ORVEX 4.0.9d", "mnuAbout"},
};

/// The menu bar of the main window.
inline constexpr MenuEntry kMainMenu[] = {
    {"&File", "mnuFile", kFileMenu},       {"&Data", "mnuData", kDataMenu}, {"&Report", "mnuReport", kReportMenu},
    {"&Backup", "mnuBackup", kBackupMenu}, {"&Help", "mnuHelp", kHelpMenu},
};

inline constexpr ToolButton kToolBar[] = {
    {"HFRT", "New Horizontal Tank", "mnuNewHT"},
    {"VFRT", "New Vertical Fixed Roof Tank", "mnuNewVFRT"},
    {"IFRT", "New Internal Floating Roof Tank", "mnuNewIFRT"},
    {"EFRT", "New External Floating Roof Tank", "mnuNewEFRT"},
    {"DEFRT", "New Domed External Floating Roof Tank", "mnuNewDEFRT"},
    {"Edit", "Edit Tank", "mnuEditTank"},
};

}  // namespace orvex::shell
