#include <gtest/gtest.h>

#include <cctype>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "refdata/editor_commands.h"
#include "refdata/frmchemical.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmmet.h"
#include "refdata/frmprofile.h"
#include "refdata/frmrimseal.h"
#include "support/scripted_host.h"

namespace orvex::refdata {
namespace {

constexpr const shell::WindowText* kWindows[] = {&kFrmchemicalText, &kFrmMetText,      &kFrmFittingText,
                                                 &kFrmRimSealText,  &kFrmDeckSeamText, &kFrmProfileText};

/// "A&dd" and "&Delete Profile" are the program's own words: the key goes from one to the other.
bool IsSharedKey(const shell::WindowText& window, int key) { return window.name == kFrmProfileText.name && key == 'D'; }

TEST(ReferenceWindowTexts, NoTwoControlsOfAWindowShareANameOrAnAccessKey) {
  for (const auto* window : kWindows) {
    std::set<std::string_view> names;
    std::set<int> keys;
    for (const auto& control : window->controls) {
      EXPECT_TRUE(names.insert(control.name).second) << window->name << ": " << control.name;
      const auto mark = control.caption.find('&');
      if (mark == std::string_view::npos) continue;
      ASSERT_LT(mark + 1, control.caption.size());
      const auto key = std::toupper(static_cast<unsigned char>(control.caption[mark + 1]));
      EXPECT_TRUE(keys.insert(key).second || IsSharedKey(*window, key)) << window->name << ": " << control.caption;
    }
  }
}

TEST(ReferenceWindowTexts, EveryControlSaysWhatItIsFor) {
  for (const auto* window : kWindows) {
    EXPECT_FALSE(window->topic.empty()) << window->name;
    for (const auto& control : window->controls)
      EXPECT_FALSE(control.tip.empty()) << window->name << ": " << control.name;
  }
}

TEST(ReferenceWindowTexts, EveryTableEntryIsBoundToAFieldOfItsTable) {
  constexpr std::pair<const char*, std::span<const EntryInfo>> kTables[] = {{"chemical", kChemicalEntries},
                                                                            {"met", kMetEntries},
                                                                            {"fitting", kFittingEntries},
                                                                            {"rimseal", kRimSealEntries},
                                                                            {"deckseam", kDeckSeamEntries}};
  for (const auto& [table, entries] : kTables) {
    for (const auto& entry : entries) {
      if (entry.text.name == "cboConstruct" && entry.field.empty()) continue;  // a rim seal's two fields
      EXPECT_NO_THROW(static_cast<void>(store::FindField(store::FindTable(table), entry.field))) << entry.text.name;
    }
  }
}

TEST(EditorCommands, OpenTheirWindows) {
  constexpr const char* kControls[] = {"mnuEditChem", "mnuEditMet",  "mnuEditFit",
                                       "mnuEditRim",  "mnuEditDeck", "mnuEditSpec"};
  // The windows in the order of the menu.
  constexpr const char* kNames[] = {"frmchemical", "frmMet", "frmFitting", "frmRimSeal", "frmDeckSeam", "frmProfile"};
  ASSERT_EQ(std::size(kEditorMenuCommands), std::size(kControls));
  for (std::size_t i = 0; i < std::size(kControls); ++i) {
    test::ScriptedHost host;
    shell::Session session(host);
    EXPECT_EQ(kEditorMenuCommands[i].control, kControls[i]);
    EXPECT_EQ(kEditorMenuCommands[i].needs, shell::Needs::kTankDatabase) << kControls[i];
    kEditorMenuCommands[i].run(session);
    EXPECT_EQ(host.windows, std::vector<std::string>{kNames[i]});
  }
}

}  // namespace
}  // namespace orvex::refdata
