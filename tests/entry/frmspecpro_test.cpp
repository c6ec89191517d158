#include "entry/frmspecpro.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "entry/component_fixture.h"
#include "shell/status.h"

namespace orvex::entry {
namespace {

class FrmspecproTest : public test::ComponentTest {
 protected:
  Frmspecpro OpenOn(std::string_view option) {
    Speciate(option);
    return OpenFrmspecpro(session_);
  }
  void PickByName(Frmspecpro& form, const std::string& name) {
    const auto& items = form.lstProfiles.items;
    const auto found = std::ranges::find(items, name);
    ASSERT_NE(found, items.end()) << name;
    PickProfile(session_, form, static_cast<std::size_t>(found - items.begin()));
  }
  std::int32_t AddProfile(const std::string& name, const std::string& type) {
    test::AddRow(*session_.ReferenceDb, "profile names", {{"Profile Name", name}, {"TYPE", type}});
    return session_.ReferenceDb->OpenAt("profile names", "Profile Name", {name}).Long("SPEC ID");
  }
};

TEST_F(FrmspecproTest, ListsTheProfilesThatFitTheOption) {
  EXPECT_EQ(OpenOn(shell::kFullSpeciation).lstProfiles.items, (Texts{"BTEX Cut", "Lacquer Thinner"}));
  EXPECT_EQ(OpenOn(shell::kVaporWeightSpeciation).lstProfiles.items,
            (Texts{"Crude Oil Vapor", "Gasoline Vapor", "Light Naphtha Vapor"}));
  const auto partial = OpenOn(shell::kPartialSpeciation).lstProfiles.items;
  EXPECT_EQ(partial.size(), 9U);
  EXPECT_TRUE(std::ranges::is_sorted(partial));
  EXPECT_TRUE(std::ranges::count(partial, "Gasoline") == 1 && std::ranges::count(partial, "Stoddard Solvent") == 1);
}

TEST_F(FrmspecproTest, CommandsOpenTheWindowWhenThereAreProfiles) {
  for (const auto option : {shell::kFullSpeciation, shell::kPartialSpeciation, shell::kVaporWeightSpeciation}) {
    Speciate(option);
    ClickCopySpec(session_, Tank());
  }
  EXPECT_EQ(host_.windows, (Texts{"Frmspecpro", "Frmspecpro", "Frmspecpro"}));
}

TEST_F(FrmspecproTest, AnEmptyListIsTold) {
  session_.ReferenceDb->Execute("DELETE * FROM [profile names]");
  for (const auto* option : {"Full Speciation", "Partial Speciation", "Vapor Weight Speciation"}) {
    Speciate(option);
    host_.ExpectMessage("There are no " + std::string(option) + " Profiles");
    ClickCopySpec(session_, Tank());
  }
  EXPECT_EQ(host_.messages, (Texts{"There are no Full Speciation Profiles", "There are no Partial Speciation Profiles",
                                   "There are no Vapor Weight Speciation Profiles"}));
  EXPECT_EQ(host_.windows, Texts{});
}

TEST_F(FrmspecproTest, ProfilesOfOtherTypesDoNotFillTheList) {
  session_.ReferenceDb->Execute("DELETE * FROM [profile names] WHERE TYPE = 'Full'");
  Speciate(shell::kFullSpeciation);
  host_.ExpectMessage("There are no Full Speciation Profiles");
  ClickCopySpec(session_, Tank());
}

TEST_F(FrmspecproTest, OKWaitsForAChoice) {
  auto form = OpenOn(shell::kPartialSpeciation);
  EXPECT_FALSE(form.cmdOK.enabled);
  PickProfile(session_, form, 3);
  EXPECT_TRUE(form.cmdOK.enabled);
  EXPECT_EQ(form.lstProfiles.selected, std::vector<std::size_t>{3});
}

TEST_F(FrmspecproTest, CopyingAProfileReplacesAllComponentsOfTheMixture) {
  AddComponent(1, {{"NAME", "Styrene"}, {"WT_FRACT", 50.0}});
  AddComponent(2, {{"NAME", "Acetone"}, {"WT_FRACT", 50.0}});
  AddComponent(1, {{"NAME", "Aniline"}, {"WT_FRACT", 9.0}}, 2);
  auto form = OpenOn(shell::kPartialSpeciation);
  PickByName(form, "Gasoline");
  ClickOK(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Column("NAME"),
            (Texts{"Hexane (-n)", "Benzene", "Trimethylpentane (2,2,4-)", "Cyclohexane", "Toluene", "Ethylbenzene",
                   "Xylene (-m)", "Xylene (-p)", "Xylene (-o)", "Cumene", "Trimethylbenzene (1,2,4-)", "Naphthalene"}));
  EXPECT_EQ(Column("COMP ID"), (Texts{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}));
  auto benzene = Row(2);
  EXPECT_EQ(benzene.Text("CAS"), "71-43-2");
  EXPECT_EQ(benzene.Double("WT_FRACT"), 1.6);
  EXPECT_EQ(benzene.Double("VP_FRACT"), 0);
  EXPECT_EQ(benzene.Double("WEIGHT"), 0);
  EXPECT_EQ(benzene.Double("MOLWT"), 78.114);
  EXPECT_EQ(benzene.Double("VP_MOLWT"), 78.114);
  EXPECT_EQ(Column("NAME", 2), Texts{"Aniline"}) << "another mixture keeps its own";
}

TEST_F(FrmspecproTest, GoesToTheMixtureThatTheEditorShows) {
  Tank().MixID = 3;
  auto form = OpenOn(shell::kVaporWeightSpeciation);
  PickByName(form, "Gasoline Vapor");
  ClickOK(session_, form);
  EXPECT_EQ(Column("NAME"), Texts{});
  EXPECT_GT(Column("NAME", 3).size(), 1U);
}

TEST_F(FrmspecproTest, CopiesNothingAsZeroAndAsAnEmptyText) {
  const auto profile = AddProfile("Bare", "Full");
  test::AddRow(*session_.ReferenceDb, "profile components", {{"SPEC ID", profile}});
  test::AddRow(*session_.ReferenceDb, "profile components",
               {{"SPEC ID", profile}, {"NAME", "Acetone"}, {"VP_FRACT", 2.5}, {"WEIGHT", 3.5}});
  auto form = OpenOn(shell::kFullSpeciation);
  PickByName(form, "Bare");
  ClickOK(session_, form);
  EXPECT_EQ(Column("NAME"), (Texts{"", "Acetone"}));
  EXPECT_EQ(Column("CAS"), (Texts{"", ""}));
  EXPECT_EQ(Column("VP_FRACT"), (Texts{"0", "2.5"}));
  EXPECT_EQ(Column("WEIGHT"), (Texts{"0", "3.5"}));
  for (const auto* field : {"WT_FRACT", "MOLWT", "VP_MOLWT"}) EXPECT_EQ(Column(field), (Texts{"0", "0"})) << field;
}

TEST_F(FrmspecproTest, AProfileWithoutComponentsLeavesTheMixtureWithNone) {
  AddComponent(1, {{"NAME", "Styrene"}});
  AddProfile("Empty", "Full");
  auto form = OpenOn(shell::kFullSpeciation);
  PickByName(form, "Empty");
  ClickOK(session_, form);
  EXPECT_EQ(Column("NAME"), Texts{});
}

TEST_F(FrmspecproTest, ProcessingIsShownWhileCopying) {
  auto form = OpenOn(shell::kFullSpeciation);
  PickByName(form, "BTEX Cut");
  ClickOK(session_, form);
  EXPECT_EQ(host_.status, (Texts{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector<shell::Pointer>{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(FrmspecproTest, AProfileThatFailsHalfwayChangesNothing) {
  AddComponent(1, {{"NAME", "Styrene"}, {"WT_FRACT", 50.0}});
  const auto profile = AddProfile("Broken", "Full");
  for (const auto* name : {"Acetone", "Benzene"})
    test::AddRow(*session_.ReferenceDb, "profile components", {{"SPEC ID", profile}, {"NAME", name}});
  auto form = OpenOn(shell::kFullSpeciation);
  PickByName(form, "Broken");
  session_.ReferenceDb->DeleteTable("profile components");
  host_.ExpectError(3011, "frmSpecPro.");
  ClickOK(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(Column("NAME"), Texts{"Styrene"});
}

TEST_F(FrmspecproTest, CancelLeavesTheComponentsAsTheyAre) {
  AddComponent(1, {{"NAME", "Styrene"}});
  auto form = OpenOn(shell::kFullSpeciation);
  PickByName(form, "BTEX Cut");
  ClickCancel(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Column("NAME"), Texts{"Styrene"});
}

TEST_F(FrmspecproTest, ACopiedProfileIsShownInTheBasisThatItHolds) {
  auto profiles = OpenOn(shell::kPartialSpeciation);
  PickByName(profiles, "Crude Oil");
  ClickOK(session_, profiles);
  const auto components = Open(shell::kPartialSpeciation);
  EXPECT_EQ(components.lblComponentXofX.text, "Component 1 of 11");
  EXPECT_EQ(components.dbcboChemName.text, "Hexane (-n)");
  EXPECT_EQ(components.txtShare.text, "1.2");
}

TEST_F(FrmspecproTest, HelpIsThatOnComponents) {
  auto form = OpenOn(shell::kFullSpeciation);
  ClickHelp(session_, form);
  EXPECT_EQ(host_.help, Texts{"components"});
}

}  // namespace
}  // namespace orvex::entry
