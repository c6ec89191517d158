#include "refdata/frmprofile.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "refdata/captions.h"
#include "refdata/editor_commands.h"
#include "refdata/profile_fixture.h"

namespace orvex::refdata {
namespace {

using test::Rows;

constexpr const char* kSure = "Are you sure you want to delete this profile?";

using FrmProfileTest = test::ProfileTest;

TEST_F(FrmProfileTest, TheMenuOpensTheWindow) {
  EditProfiles(session_);
  EXPECT_EQ(host_.windows, Texts{"frmProfile"});
}

TEST_F(FrmProfileTest, ReadsAsItIsKnown) {
  EXPECT_EQ(kFrmProfileText.title, "Speciation Profile");
  constexpr std::pair<const char*, const char*> kLabels[] = {
      {"dbcboProfName", "Profile Name:"},
      {"cboType", "Profile Type:"},
      {"dbcboChemName", "Chemical Name:"},
      {"dbcboCAS", "CAS Number:"},
      {"txtMOLWT", "Liquid Molecular Weight:"},
      {"txtVP_MOLWT", "Vapor Molecular Weight"},
      {"txtWT_FRACT", "Percent of Total Liquid Weight:"},
      {"txtVP_FRACT", "Percent of Total Vapor Weight:"},
      {"txtWEIGHT", "Relative Weight:"},
  };
  for (const auto& [control, caption] : kLabels) EXPECT_EQ(test::Caption(kFrmProfileText, control), caption);
  constexpr std::pair<const char*, const char*> kCommands[] = {
      {"cmdRelLiq", "Relative Weight / Liquid Weight"},
      {"cmdPrevComp", "< &Previous"},
      {"cmdNextComp", "&Next>"},
      {"cmdAdd", "A&dd"},
      {"cmdDeleteComp", "De&lete"},
      {"cmdAddNew", "&Add New Profile"},
      {"cmdSave", "&Save Profile"},
      {"cmdDelete", "&Delete Profile"},
      {"cmdClose", "Close"},
      {"cmdHelp", "&Help"},
  };
  for (const auto& [control, caption] : kCommands) EXPECT_EQ(test::MarkedCaption(kFrmProfileText, control), caption);
}

TEST_F(FrmProfileTest, AccessKeysDifferButForTheTwoCaptionsThatShareOne) {
  std::map<int, Texts> controls;
  for (const auto& control : kFrmProfileText.controls) {
    const auto mark = control.caption.find('&');
    if (mark != std::string_view::npos) controls[std::tolower(control.caption[mark + 1])].emplace_back(control.name);
  }
  EXPECT_EQ(controls['d'], (Texts{"cmdAdd", "cmdDelete"}));
  controls.erase('d');
  for (const auto& [key, names] : controls) EXPECT_EQ(names.size(), 1U) << names.back();
}

TEST_F(FrmProfileTest, OpensOnTheFirstProfileReadOnly) {
  EXPECT_EQ(form_.dbcboProfName.text, "Gasoline");
  EXPECT_EQ(form_.cboType.text, "Partial");
  EXPECT_EQ(form_.cboType.items, (Texts{"Partial", "Vapor", "Full"}));
  EXPECT_EQ(Counter(), "Component 1 of 12");
  EXPECT_EQ(form_.dbcboChemName.text, "Hexane (-n)");
  EXPECT_EQ(form_.dbcboCAS.text, "110-54-3");
  EXPECT_EQ(form_.txtWT_FRACT.text, "2");
  EXPECT_EQ(form_.txtMOLWT.text, "86.178");
  EXPECT_EQ(form_.txtVP_MOLWT.text, "86.178");
  EXPECT_TRUE(form_.dbcboProfName.enabled);
  for (const auto* box : {&form_.txtMOLWT, &form_.txtVP_MOLWT, &form_.txtWT_FRACT}) EXPECT_FALSE(box->enabled);
  for (const auto* button : {&form_.cmdAdd, &form_.cmdDeleteComp, &form_.cmdRelLiq}) EXPECT_FALSE(button->enabled);
  EXPECT_FALSE(form_.picProfile.enabled || form_.cboType.enabled || form_.dbcboChemName.enabled);
  EXPECT_FALSE(form_.cmdPrevComp.enabled);
  EXPECT_TRUE(form_.cmdNextComp.enabled);
}

TEST_F(FrmProfileTest, SaysThatItLoadsAndProcesses) {
  Pick("Crude Oil");
  EXPECT_EQ(host_.status, (Texts{"Loading, please wait...", "Ready", "Processing, please wait...", "Ready"}));
}

TEST_F(FrmProfileTest, OffersAllProfilesAndAllChemicals) {
  EXPECT_EQ(form_.dbcboProfName.items.size(), 14U);
  EXPECT_TRUE(std::ranges::is_sorted(form_.dbcboProfName.items));
  const auto chemicals = session_.ReferenceDb->OpenTable("chemical").RecordCount();
  EXPECT_EQ(form_.dbcboChemName.items.size(), static_cast<std::size_t>(chemicals));
  EXPECT_EQ(form_.dbcboChemName.items.front(), "Acetal");
  EXPECT_TRUE(std::ranges::count(form_.dbcboCAS.items, "71-43-2") == 1);
}

TEST_F(FrmProfileTest, EveryDeliveredProfileCanBeWalkedThrough) {
  const auto names = form_.dbcboProfName.items;
  for (const auto& name : names) {
    SCOPED_TRACE(name);
    Pick(name);
    ASSERT_EQ(form_.dbcboProfName.text, name);
    const auto stored = Stored(name);
    const auto last = stored.size();
    for (std::size_t i = 1; i <= last; ++i) {
      EXPECT_EQ(Counter(), fmt::format("Component {} of {}", i, last));
      EXPECT_EQ(form_.cmdPrevComp.enabled, i > 1);
      EXPECT_EQ(form_.cmdNextComp.enabled, i < last);
      EXPECT_EQ(fmt::format("{}|{}|{}|{}", form_.dbcboChemName.text, form_.txtWT_FRACT.text, form_.txtVP_FRACT.text,
                            form_.txtWEIGHT.text),
                stored[i - 1]);
      Next();
    }
    EXPECT_EQ(Counter(), fmt::format("Component {} of {}", last, last));
    for (std::size_t i = last; i > 1; --i) Previous();
    EXPECT_EQ(Counter(), fmt::format("Component 1 of {}", last));
    EXPECT_FALSE(form_.cmdPrevComp.enabled);
    Previous();
    EXPECT_EQ(Counter(), fmt::format("Component 1 of {}", last));
  }
}

TEST_F(FrmProfileTest, AShippedProfileWithAComponentThatIsEmptyCanBeWalkedThroughWithoutATest) {
  test::AddRow(*session_.ReferenceDb, "profile components", {{"SPEC ID", 1}});
  Pick("Gasoline");
  for (int i = 1; i < 13; ++i) Next();
  EXPECT_EQ(Counter(), "Component 13 of 13");
  EXPECT_EQ(form_.txtWT_FRACT.text, "0");
  Previous();
  EXPECT_EQ(Counter(), "Component 12 of 13");
}

TEST_F(FrmProfileTest, OnlyTheShareOfTheTypeIsShown) {
  const auto visible = [&] {
    return std::vector{form_.txtWT_FRACT.visible, form_.txtVP_FRACT.visible, form_.txtWEIGHT.visible,
                       form_.cmdRelLiq.visible};
  };
  EXPECT_EQ(visible(), (std::vector{true, false, false, false}));
  Pick("Gasoline Vapor");
  EXPECT_EQ(visible(), (std::vector{false, true, false, false}));
  Pick("BTEX Cut");
  EXPECT_EQ(visible(), (std::vector{true, false, false, true}));
}

TEST_F(FrmProfileTest, ShowsTheSumOfTheShares) {
  // 2 + 1.6 + 4 + 0.4 + 7.5 + 1.6 + 4 + 1.7 + 2.2 + 0.2 + 2.8 + 0.3 = 28.3
  EXPECT_EQ(form_.txtSum.text, "Sum: 28.30 of 100");
  Pick("BTEX Cut");
  EXPECT_EQ(form_.txtSum.text, "Sum: 100.00 of 100");
}

TEST_F(FrmProfileTest, AShippedProfileTakesNothing) {
  const auto before = form_.profile;
  for (const auto* control : {"dbcboProfName", "dbcboChemName", "dbcboCAS", "txtMOLWT", "txtVP_MOLWT", "txtWT_FRACT"})
    Text(control) = "7", TypeText(session_, form_, control);
  EXPECT_EQ(form_.dbcboProfName.text, "Gasoline");
  EXPECT_EQ(form_.txtMOLWT.text, "86.178");
  Choose("cboType", "Vapor");
  Choose("dbcboChemName", "Benzene");
  Text("txtMOLWT") = "7";
  LeaveEntry(session_, form_, "txtMOLWT");
  EXPECT_EQ(form_.txtMOLWT.text, "86.178");
  AddComponent();
  Switch();
  ClickDeleteComp(session_, form_);
  Save();
  EXPECT_EQ(form_.profile, before);
  EXPECT_EQ(host_.messages, Texts{});
}

TEST_F(FrmProfileTest, AShippedProfileCannotBeDeleted) {
  ExpectTold("Record is not user defined.  It cannot be deleted.");
  ClickDelete(session_, form_);
  EXPECT_EQ(Stored("Gasoline").size(), 12U);
}

TEST_F(FrmProfileTest, AShippedProfileClosesAtOnce) {
  Close();
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmProfileTest, HelpOpensItsPage) {
  ClickHelp(session_, form_);
  EXPECT_EQ(host_.help, Texts{"profiles_edit"});
}

TEST_F(FrmProfileTest, PickingAnUnknownProfileChangesNothing) {
  Pick("No such profile");
  EXPECT_EQ(form_.dbcboProfName.text, "Gasoline");
}

TEST_F(FrmProfileTest, AddNewMakesAnEmptyPartialProfile) {
  AddNew();
  EXPECT_EQ(form_.dbcboProfName.text, "");
  EXPECT_EQ(form_.cboType.text, "Partial");
  EXPECT_EQ(Counter(), "Component 1 of 1");
  EXPECT_EQ(form_.dbcboChemName.text, "");
  EXPECT_EQ(form_.txtWT_FRACT.text, "0");
  EXPECT_TRUE(form_.picProfile.enabled);
  EXPECT_FALSE(form_.cmdAddNew.enabled || form_.cmdPrevComp.enabled || form_.cmdNextComp.enabled);
  EXPECT_EQ(form_.window.focus, "dbcboProfName");
  EXPECT_EQ(Profiles(), Rows{});
}

TEST_F(FrmProfileTest, ANewProfileIsStoredWithItsComponentsInTheirOrder) {
  AddNew();
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "1.5"}});
  SaveNew();
  EXPECT_EQ(Profiles(), Rows{"Mine|Partial"});
  EXPECT_EQ(Stored("Mine"), (Rows{"Toluene|20|0|0", "Benzene|1.5|0|0"}));
  EXPECT_TRUE(std::ranges::count(form_.dbcboProfName.items, "Mine") == 1);
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Counter(), "Component 2 of 2");
  Save();
  EXPECT_EQ(Profiles().size(), 1U);
}

TEST_F(FrmProfileTest, AddAnotherProfileGoesOnWithAnEmptyOne) {
  AddNew();
  FillNew("Mine", "Vapor", {{"Toluene", "20"}});
  SaveNew(Answer::kYes);
  EXPECT_EQ(form_.dbcboProfName.text, "");
  EXPECT_EQ(form_.cboType.text, "Partial");
  FillNew("Another", "Partial", {{"Toluene", "20"}});
  SaveNew();
  EXPECT_EQ(Profiles(), (Rows{"Mine|Vapor", "Another|Partial"}));
}

TEST_F(FrmProfileTest, AddingAsksForTheChangesOfTheProfileOnShow) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("txtWT_FRACT", "25");
  ExpectSaveQuestion("Save changes to Mine?", Answer::kYes);
  AddNew();
  EXPECT_EQ(form_.dbcboProfName.text, "");
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|25|0|0"});
}

TEST_F(FrmProfileTest, ANoDropsTheChangesAndGoesOn) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("txtWT_FRACT", "25");
  ExpectSaveQuestion("Save changes to Mine?", Answer::kNo);
  AddNew();
  EXPECT_TRUE(form_.just_added);
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|20|0|0"});
}

TEST_F(FrmProfileTest, AddingStopsWhenTheChangesAreRefused) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("txtWT_FRACT", "0");
  ExpectSaveQuestion("Save changes to Mine?", Answer::kYes);
  ExpectTold("Liquid weight must not be zero for this component.");
  AddNew();
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
  EXPECT_FALSE(form_.just_added);
}

TEST_F(FrmProfileTest, AddingToAnUnchangedProfileAsksNothing) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  AddNew();
  EXPECT_TRUE(form_.just_added);
}

TEST_F(FrmProfileTest, PickingSavesAChangedProfileWithoutAsking) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("txtWT_FRACT", "25");
  Pick("Crude Oil");
  EXPECT_EQ(form_.dbcboProfName.text, "Crude Oil");
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|25|0|0"});
}

TEST_F(FrmProfileTest, PickingSavesANewProfileWithoutAskingForAnother) {
  AddNew();
  FillNew("Mine", "Partial", {{"Toluene", "20"}});
  Pick("Crude Oil");
  EXPECT_EQ(form_.dbcboProfName.text, "Crude Oil");
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Profiles(), Rows{"Mine|Partial"});
}

TEST_F(FrmProfileTest, ARefusedSaveKeepsThePickFromGoingFurther) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("txtWT_FRACT", "0");
  ExpectTold("Liquid weight must not be zero for this component.");
  Pick("Crude Oil");
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
  EXPECT_EQ(form_.dbcboChemName.text, "Toluene");
}

TEST_F(FrmProfileTest, ATypedTextIsTheNameOfAPersonsOwnProfile) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("dbcboProfName", "Crude Oil, ours");
  EXPECT_EQ(form_.dbcboChemName.text, "Toluene");
  Save();
  EXPECT_EQ(Profiles(), Rows{"Crude Oil, ours|Partial"});
  EXPECT_TRUE(std::ranges::count(form_.dbcboProfName.items, "Mine") == 0);
}

TEST_F(FrmProfileTest, OfNamesThatDifferInCaseTheExactOneIsFound) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  test::AddRow(*session_.ReferenceDb, "profile names", {{"Profile Name", "MINE"}, {"TYPE", "Vapor"}, {"User", true}});
  Pick("MINE");
  EXPECT_EQ(form_.cboType.text, "Vapor");
  Pick("Mine");
  EXPECT_EQ(form_.cboType.text, "Partial");
  Pick("mine");
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
}

TEST_F(FrmProfileTest, DeletingRemovesTheProfileAndItsComponents) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "2"}});
  AddSaved("Other", "Partial", {{"Toluene", "20"}});
  Pick("Mine");
  const auto spec_id = form_.SpecID;
  ExpectDeleteQuestion(kSure, Answer::kOk);
  ClickDelete(session_, form_);
  EXPECT_EQ(Profiles(), Rows{"Other|Partial"});
  EXPECT_EQ(Query(fmt::format("SELECT * FROM [profile components] WHERE [spec id] = {}", spec_id), {"NAME"}), Rows{});
  EXPECT_EQ(Stored("Other").size(), 1U);
  EXPECT_EQ(form_.dbcboProfName.text, "Gasoline");
  EXPECT_TRUE(std::ranges::count(form_.dbcboProfName.items, "Mine") == 0);
}

TEST_F(FrmProfileTest, CancelDeletesNothing) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  ExpectDeleteQuestion(kSure, Answer::kCancel);
  ClickDelete(session_, form_);
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
  EXPECT_EQ(Stored("Mine").size(), 1U);
}

TEST_F(FrmProfileTest, AProfileThatWasNeverSavedCanBeDeleted) {
  AddNew();
  Type("dbcboProfName", "Mine");
  ExpectDeleteQuestion(kSure, Answer::kOk);
  ClickDelete(session_, form_);
  EXPECT_EQ(form_.dbcboProfName.text, "Gasoline");
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Profiles(), Rows{});
}

TEST_F(FrmProfileTest, ClosingANewProfileSavesItWithoutAsking) {
  AddNew();
  FillNew("Mine", "Partial", {{"Toluene", "20"}});
  Close();
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Profiles(), Rows{"Mine|Partial"});
}

TEST_F(FrmProfileTest, ANewProfileThatIsRefusedKeepsTheWindowOpen) {
  AddNew();
  ExpectTold("Record cannot be saved. The profile must have a name and be of type 'Partial', 'Full' or 'Vapor'.");
  Close();
  EXPECT_FALSE(form_.window.closed);
  EXPECT_EQ(form_.window.focus, "dbcboProfName");
}

TEST_F(FrmProfileTest, ClosingAPersonsOwnProfileAsksEvenIfNothingChanged) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  ExpectSaveQuestion("Save Changes?", Answer::kYes);
  Close();
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmProfileTest, NoAtCloseLeavesTheProfileAsItWas) {
  AddSaved("Mine", "Full", {{"Toluene", "60"}, {"Benzene", "40"}});
  ExpectDeleteQuestion("Are you sure you want to delete this record?", Answer::kOk);
  ClickDeleteComp(session_, form_);
  Choose("cboType", "Vapor");
  Type("dbcboProfName", "Changed");
  ExpectSaveQuestion("Save Changes?", Answer::kNo);
  Close();
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Profiles(), Rows{"Mine|Full"});
  EXPECT_EQ(Stored("Mine"), (Rows{"Toluene|60|0|0", "Benzene|40|0|0"}));
}

TEST_F(FrmProfileTest, YesAtCloseIsRefusedLikeASave) {
  AddSaved("Mine", "Partial", {{"Toluene", "20"}});
  Type("dbcboProfName", "gasoline");
  ExpectSaveQuestion("Save Changes?", Answer::kYes);
  ExpectTold("Duplicate profile name.");
  Close();
  EXPECT_FALSE(form_.window.closed);
}

TEST_F(FrmProfileTest, AnEmptyDatabaseShowsAnEmptyProfile) {
  session_.ReferenceDb->Execute("DELETE * FROM [profile names]");
  session_.ReferenceDb->Execute("DELETE * FROM [profile components]");
  session_.ReferenceDb->Execute("DELETE * FROM chemical");
  Open();
  EXPECT_EQ(form_.dbcboProfName.text, "");
  EXPECT_EQ(Counter(), "Component 1 of 1");
  EXPECT_EQ(form_.dbcboProfName.items, Texts{});
  EXPECT_FALSE(form_.picProfile.enabled || form_.cmdPrevComp.enabled || form_.cmdNextComp.enabled);
  Next();
  Previous();
  Pick("Anything");
  AddNew();
  FillNew("First", "Full", {{"Something", "100"}});
  SaveNew();
  EXPECT_EQ(Stored("First"), Rows{"Something|100|0|0"});
  ExpectDeleteQuestion(kSure, Answer::kOk);
  ClickDelete(session_, form_);
  EXPECT_EQ(form_.dbcboProfName.text, "");
  EXPECT_FALSE(form_.user_defined);
  Close();
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmProfileTest, AProfileWithoutComponentsShowsAnEmptyOneAndGainsARowWhenSaved) {
  test::AddRow(*session_.ReferenceDb, "profile names", {{"Profile Name", "Bare"}, {"TYPE", "Vapor"}, {"User", true}});
  Pick("Bare");
  EXPECT_EQ(Counter(), "Component 1 of 1");
  EXPECT_EQ(form_.txtVP_FRACT.text, "0");
  Pick("Gasoline");
  EXPECT_EQ(Stored("Bare"), Rows{});
  Pick("Bare");
  Fill("Toluene", "30");
  Save();
  EXPECT_EQ(Stored("Bare"), Rows{"Toluene|0|30|0"});
}

TEST_F(FrmProfileTest, ASecondProgramIsToldAndGetsNoWindow) {
  test::ScriptedHost host;
  shell::Session other(host);
  other.TankPath = session_.TankPath;
  other.ReferenceDb = store::Database::Open(other.TankPath);
  host.ExpectMessage(
      fmt::format("The tank database {} is being edited by another program. Nothing was changed. Close "
                  "the window there, then try again.",
                  session_.ReferenceDb->Path().string()));
  EXPECT_TRUE(OpenFrmProfile(other).window.closed);
}

}  // namespace
}  // namespace orvex::refdata
