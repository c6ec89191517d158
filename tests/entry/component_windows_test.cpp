#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string_view>

#include "entry/component_fixture.h"
#include "support/sample_tanks.h"

namespace orvex::entry {
namespace {

using ComponentWindowsTest = test::ComponentTest;

constexpr const shell::WindowText* kWindows[] = {&kFrmcomponentText, &kFrmspecproText};

TEST_F(ComponentWindowsTest, CommandOpensTheComponentsOfTheMixture) {
  Speciate(shell::kFullSpeciation);
  ClickSpecComp(session_, Tank());
  Speciate(shell::kPartialSpeciation);
  ClickSpecComp(session_, Tank());
  EXPECT_EQ(host_.windows, (Texts{"Frmcomponent", "Frmcomponent"}));
}

// As it is behind a copy of another tank's own data.
TEST_F(ComponentWindowsTest, OpenByTheStoredOptionWhileTheListShowsNone) {
  test::ChangeMixture(*session_.ClientDb, Tank().ID, 1, {{"SPEC_OPT", "Vapor Weight Speciation"}});
  Speciate(shell::kVaporWeightSpeciation);
  FindLiquid(Tank(), "SPEC_OPT")->box.text.clear();
  EXPECT_EQ(OpenFrmcomponent(session_).lblShare.text, "Percent of Total Vapor Weight");
  EXPECT_EQ(OpenFrmspecpro(session_).lstProfiles.items.size(), 3U);
  session_.ReferenceDb->Execute("DELETE * FROM [profile names]");
  host_.ExpectMessage("There are no Vapor Weight Speciation Profiles");
  ClickCopySpec(session_, Tank());
}

TEST_F(ComponentWindowsTest, HaveTheirTitles) {
  EXPECT_EQ(kFrmcomponentText.title, "Specify Components");
  EXPECT_EQ(kFrmspecproText.title, "Speciation Profiles");
}

TEST_F(ComponentWindowsTest, NameEveryControlOnceAndSayWhatItIsFor) {
  for (const auto* window : kWindows) {
    std::set<std::string_view> names;
    for (const auto& control : window->controls) {
      EXPECT_TRUE(names.insert(control.name).second) << control.name;
      EXPECT_GT(control.tip.size(), 3U) << control.name;
    }
  }
}

TEST_F(ComponentWindowsTest, ShareNoAccessKey) {
  for (const auto* window : kWindows) {
    std::set<int> keys;
    for (const auto& control : window->controls) {
      const auto at = control.caption.find('&');
      if (at == std::string_view::npos) continue;
      EXPECT_TRUE(keys.insert(std::toupper(static_cast<unsigned char>(control.caption.at(at + 1)))).second)
          << control.name;
    }
  }
}

TEST_F(ComponentWindowsTest, EveryNumberHasItsUnit) {
  for (const auto& control : kFrmcomponentText.controls) {
    if (!control.name.starts_with("txt") || control.name == "txtSum") continue;
    EXPECT_NE((std::string(control.caption) + std::string(control.tip)).find_first_of('('), std::string::npos)
        << control.name;
  }
}

}  // namespace
}  // namespace orvex::entry
