#include "shell/menu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "shell/shell_commands.h"
#include "shell/status.h"

namespace orvex::shell {
namespace {

using Entries = std::span<const MenuEntry>;

/// One line a command: the texts that lead there, then its control.
void Flatten(Entries entries, const std::string& above, std::vector<std::string>& lines) {
  for (const auto& entry : entries) {
    const std::string here = above + std::string(entry.text);
    if (entry.IsSeparator()) continue;
    if (entry.IsMenu()) Flatten(entry.entries, here + " > ", lines);
    if (!entry.IsMenu()) lines.push_back(here + " : " + std::string(entry.control));
  }
}

std::vector<std::string> Lines() {
  std::vector<std::string> lines;
  Flatten(kMainMenu, "", lines);
  return lines;
}

void Controls(Entries entries, std::vector<std::string>& controls) {
  for (const auto& entry : entries) {
    if (!entry.IsSeparator()) controls.emplace_back(entry.control);
    Controls(entry.entries, controls);
  }
}

/// Calls a function for each level of the tree with the text of the menu that opens it.
template <typename Visit>
void ForEachLevel(Entries entries, const std::string& menu, const Visit& visit) {
  visit(entries, menu);
  for (const auto& entry : entries)
    if (entry.IsMenu()) ForEachLevel(entry.entries, std::string(entry.text), visit);
}

TEST(Menu, HoldsEveryCommandUnderItsTextsAndInItsOrder) {
  const std::vector<std::string> expected = {
      "&File > &New Client Database : mnuNewClient",
      "&File > &Change Database Locations : mnuChangeDBLOc",
      "&File > &Exit : mnuExit",
      "&Data > &Tanks > &New Record > &Horizontal Tank : mnuNewHT",
      "&Data > &Tanks > &New Record > &Vertical Fixed Roof Tank : mnuNewVFRT",
      "&Data > &Tanks > &New Record > &Internal Floating Roof Tank : mnuNewIFRT",
      "&Data > &Tanks > &New Record > &External Floating Roof Tank : mnuNewEFRT",
      "&Data > &Tanks > &New Record > &Domed External Floating Roof Tank : mnuNewDEFRT",
      "&Data > &Tanks > &Edit Record : mnuEditTank",
      "&Data > &Tanks > &Import from Version 3.1 : mniImportTank",
      "&Data > &Tanks > Import from &CSV Files : mnuImportCsv",
      "&Data > &Tanks > E&xport to CSV Files : mnuExportCsv",
      "&Data > &Tanks > &Delete Record : mnuDeleteTank",
      "&Data > &Chemical > &Edit Database : mnuEditChem",
      "&Data > &Chemical > &Import : mnuImportChem",
      "&Data > &Chemical > Export/&Print : mnuExportChem",
      "&Data > &Meteorological > &Edit Database : mnuEditMet",
      "&Data > &Meteorological > &Import : mnuImportMet",
      "&Data > &Meteorological > Export/&Print : mnuExportMet",
      "&Data > &Fittings > &Edit Database : mnuEditFit",
      "&Data > &Fittings > &Import : mnuImportFit",
      "&Data > &Fittings > Export/&Print : mnuExportFit",
      "&Data > &Rim Seals > &Edit Database : mnuEditRim",
      "&Data > &Rim Seals > &Import : mnuImportRim",
      "&Data > &Rim Seals > Export/&Print : mnuExportRim",
      "&Data > &Deck Seams > &Edit Database : mnuEditDeck",
      "&Data > &Deck Seams > Export/&Print : mnuExportDeck",
      "&Data > &Speciation Profiles > &Edit Database : mnuEditSpec",
      "&Data > &Speciation Profiles > Export/&Print : mnuExportSpec",
      "&Data > 4.03 Update : mnuFixData",
      "&Report > &Annual > &Brief : mnuAnnBrief",
      "&Report > &Annual > &Summary : mnuAnnSummary",
      "&Report > &Annual > &Detail : mnuAnnDetail",
      "&Report > &Monthly > &Brief : mnuMonBrief",
      "&Report > &Monthly > &Summary : mnuMonSummary",
      "&Report > &Monthly > &Detail : mnuDetail",
      "&Backup > Backup &Tank Database : mnuBackupTank",
      "&Backup > Backup &Client Database : mnuBackupClient",
      "&Backup > Restore T&ank Database From Backup : mnuRestoreTank",
      "&Backup > Restore C&lient Database From Backup : mnuRestoreClient",
      "&Help > &Contents : mnuContents",
      "&Help > &Search For Help On... : mnuSearchHelp",
      "&Help > &About ORVEX 4.0.9d : mnuAbout",
  };
  EXPECT_EQ(Lines(), expected);
}

TEST(Menu, NoTwoEntriesThatAreSeenTogetherShareAnAccessKey) {
  ForEachLevel(kMainMenu, "menu bar", [](Entries entries, const std::string& menu) {
    std::set<int> keys;
    for (const auto& entry : entries) {
      const auto mark = entry.text.find('&');
      if (mark == std::string_view::npos) continue;
      ASSERT_LT(mark + 1, entry.text.size()) << entry.text;
      EXPECT_TRUE(keys.insert(std::toupper(static_cast<unsigned char>(entry.text[mark + 1]))).second)
          << "the key of " << entry.text << " in " << menu << " is taken";
    }
  });
}

TEST(Menu, EveryEntryHasANameOfItsOwn) {
  std::vector<std::string> controls;
  Controls(kMainMenu, controls);
  EXPECT_EQ(std::set<std::string>(controls.begin(), controls.end()).size(), controls.size());
  EXPECT_EQ(std::count(controls.begin(), controls.end(), ""), 0);
}

TEST(Menu, SeparatorsStandBetweenEntriesOnly) {
  ForEachLevel(kMainMenu, "menu bar", [](Entries entries, const std::string& menu) {
    EXPECT_FALSE(entries.front().IsSeparator()) << menu;
    EXPECT_FALSE(entries.back().IsSeparator()) << menu;
    for (std::size_t i = 1; i < entries.size(); ++i)
      EXPECT_FALSE(entries[i].IsSeparator() && entries[i - 1].IsSeparator()) << menu;
  });
}

TEST(Menu, ShowsTheVersionOfTheProgram) {
  EXPECT_EQ(kMainWindowTitle, "ORVEX 4.0.9d");
  EXPECT_EQ(kMainWindowTitle, std::string(kApplicationTitle) + " " + std::string(kVersion));
}

TEST(ToolBar, HasAButtonForEachTankTypeAndOneForEditing) {
  std::vector<std::string> buttons;
  for (const auto& button : kToolBar)
    buttons.push_back(std::string(button.key) + " : " + std::string(button.tip) + " : " + std::string(button.control));
  EXPECT_EQ(buttons, (std::vector<std::string>{
                         "HFRT : New Horizontal Tank : mnuNewHT",
                         "VFRT : New Vertical Fixed Roof Tank : mnuNewVFRT",
                         "IFRT : New Internal Floating Roof Tank : mnuNewIFRT",
                         "EFRT : New External Floating Roof Tank : mnuNewEFRT",
                         "DEFRT : New Domed External Floating Roof Tank : mnuNewDEFRT",
                         "Edit : Edit Tank : mnuEditTank",
                     }));
}

TEST(ToolBar, RunsCommandsThatStandInTheMenusToo) {
  std::vector<std::string> controls;
  Controls(kMainMenu, controls);
  for (const auto& button : kToolBar) EXPECT_EQ(std::count(controls.begin(), controls.end(), button.control), 1);
}

TEST(Menu, EveryCommandOfTheShellStandsInIt) {
  std::vector<std::string> controls;
  Controls(kMainMenu, controls);
  for (const auto& command : kShellCommands)
    EXPECT_EQ(std::count(controls.begin(), controls.end(), command.control), 1) << command.control;
}

}  // namespace
}  // namespace orvex::shell
