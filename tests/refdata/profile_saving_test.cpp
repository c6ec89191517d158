#include <algorithm>

#include "refdata/profile_fixture.h"
#include "refdata/profile_types.h"
#include "support/locked_file.h"

namespace orvex::refdata {
namespace {

using test::Rows;

constexpr const char* kIncomplete =
    "Record cannot be saved. The profile must have a name and be of type 'Partial', 'Full' or 'Vapor'.";
constexpr const char* kNameMissing = "Chemical name must be specified for the component.";
constexpr const char* kDuplicate = "Duplicate profile name.";
constexpr const char* kOverHundred = "Sum of component percent is over 100%.";

class ProfileSavingTest : public test::ProfileTest {
 protected:
  /// A stored profile of the person's own that the editor would not have saved so.
  void OpenBroken(const store::Value& name, const store::Value& type) {
    test::AddRow(*session_.ReferenceDb, "profile names", {{"Profile Name", name}, {"TYPE", type}, {"User", true}});
    auto table = session_.ReferenceDb->OpenTable("profile names");
    table.MoveLast();
    const auto spec_id = table.Long("SPEC ID");
    test::AddRow(*session_.ReferenceDb, "profile components",
                 {{"SPEC ID", spec_id}, {"NAME", "Toluene"}, {"WT_FRACT", 10.0}, {"VP_FRACT", 10.0}});
    // One without a name is in no list: it is opened as the first.
    session_.ReferenceDb->Execute("DELETE * FROM [profile names] WHERE User = False");
    Open();
  }
};

TEST_F(ProfileSavingTest, AProfileWithoutANameIsRefused) {
  AddNew();
  FillNew("", "Partial", {{"Toluene", "10"}});
  ExpectTold(kIncomplete);
  Save();
  EXPECT_EQ(form_.window.focus, "dbcboProfName");
  EXPECT_EQ(Profiles(), Rows{});
}

TEST_F(ProfileSavingTest, AProfileWithoutATypeIsRefused) {
  OpenBroken("Mine", store::Value());
  ExpectTold(kIncomplete);
  Save();
  EXPECT_EQ(form_.window.focus, "cboType");
  EXPECT_FALSE(form_.txtWT_FRACT.visible || form_.txtVP_FRACT.visible || form_.txtWEIGHT.visible);
  EXPECT_TRUE(Shares(form_.profile).empty());
  Choose("cboType", "Vapor");
  Save();
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|0|10|0"});
}

TEST_F(ProfileSavingTest, AProfileOfAnotherTypeIsRefused) {
  OpenBroken("Mine", "Liquid");
  ExpectTold(kIncomplete);
  Save();
}

TEST_F(ProfileSavingTest, AProfileWithoutNameAndTypeIsRefusedOnce) {
  OpenBroken(store::Value(), store::Value());
  ExpectTold(kIncomplete);
  Save();
}

/// A type, and what is said of a component without its share.
struct Case {
  const char* type;
  bool relative;
  const char* told;
  const char* share;  ///< of the second component, so that a full one comes to 100
};

class ProfileSavingTests : public ProfileSavingTest, public testing::WithParamInterface<Case> {};

TEST_P(ProfileSavingTests, AnyComponentWithoutAShareOrANameIsRefusedAndTheFirstIsShownAgain) {
  const auto& [type, relative, told, share] = GetParam();
  AddNew();
  FillNew("Mine", type, {{"Styrene", "10"}, {"Toluene", share}}, relative);
  const std::string control(ShareEntry());
  Type(control, "0");
  Type("dbcboChemName", "");
  ExpectTold(told);
  Save();
  EXPECT_EQ(Counter(), "Component 1 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Styrene");
  Next();
  Type("dbcboChemName", "Toluene");
  ExpectTold(told);
  Save();
  Next();
  Type(control, share);
  Type("dbcboChemName", "");
  ExpectTold(kNameMissing);
  Save();
  EXPECT_EQ(Counter(), "Component 1 of 2");
  Next();
  Type("dbcboChemName", "Toluene");
  SaveNew();
  EXPECT_EQ(Stored("Mine").size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, ProfileSavingTests,
    testing::Values(Case{"Partial", false, "Liquid weight must not be zero for this component.", "20"},
                    Case{"Full", false, "Liquid weight must not be zero for this component.", "90"},
                    Case{"Vapor", false, "Vapor weight must not be zero for this component.", "20"},
                    Case{"Full", true, "Relative weight must not be zero for this component.", "20"}),
    [](const auto& all) { return std::string(all.param.type) + (all.param.relative ? "Relative" : "Percent"); });

TEST_F(ProfileSavingTest, TheNameIsTestedBeforeTheComponents) {
  AddNew();
  ExpectTold(kIncomplete);
  Save();
}

TEST_F(ProfileSavingTest, TheComponentsAreTestedBeforeDuplicates) {
  AddNew();
  FillNew("Gasoline", "Partial", {{"Toluene", "0"}});
  ExpectTold("Liquid weight must not be zero for this component.");
  Save();
}

TEST_F(ProfileSavingTest, DuplicatesAreTestedBeforeTheSum) {
  AddNew();
  FillNew("Gasoline", "Partial", {{"Toluene", "101"}});
  ExpectTold(kDuplicate);
  Save();
  Type("dbcboProfName", "Mine");
  ExpectTold(kOverHundred);
  Save();
  EXPECT_EQ(Profiles(), Rows{});
}

TEST_F(ProfileSavingTest, ANameOfAnotherProfileIsRefusedWhateverItsCase) {
  AddNew();
  FillNew("gASOLINE", "Partial", {{"Styrene", "10"}, {"Toluene", "10"}});
  ExpectTold(kDuplicate);
  Save();
  EXPECT_EQ(form_.dbcboProfName.text, "gASOLINE");
  EXPECT_EQ(Counter(), "Component 1 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Styrene");
  EXPECT_EQ(form_.window.focus, "dbcboProfName");
}

TEST_F(ProfileSavingTest, AProfileMayChangeTheCaseOfItsOwnName) {
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  Type("dbcboProfName", "MINE");
  Save();
  EXPECT_EQ(Profiles(), Rows{"MINE|Partial"});
}

TEST_F(ProfileSavingTest, ASumRefusedShowsTheFirstComponentAgain) {
  AddNew();
  FillNew("Mine", "Partial", {{"Styrene", "60"}, {"Toluene", "60"}});
  ExpectTold(kOverHundred);
  Save();
  EXPECT_EQ(Counter(), "Component 1 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Styrene");
  EXPECT_EQ(form_.window.focus, "txtWT_FRACT");
}

TEST_F(ProfileSavingTest, AllThatAComponentHoldsIsStored) {
  AddNew();
  FillNew("Mine", "Partial", {{"Own mix", "12.5"}});
  Type("dbcboCAS", "1-2-3");
  Type("txtMOLWT", "120.25");
  Type("txtVP_MOLWT", "60.125");
  SaveNew();
  const auto sql = fmt::format("SELECT * FROM [profile components] WHERE [spec id] = {}", form_.SpecID);
  EXPECT_EQ(Query(sql, {"NAME", "CAS", "WT_FRACT", "VP_FRACT", "WEIGHT", "MOLWT", "VP_MOLWT"}),
            Rows{"Own mix|1-2-3|12.5|0|0|120.25|60.125"});
}

TEST_F(ProfileSavingTest, WhatIsNullAndLeftAloneStaysNull) {
  OpenBroken("Mine", "Partial");
  EXPECT_EQ(form_.txtMOLWT.text, "0");
  LeaveEntry(session_, form_, "txtMOLWT");
  Type("dbcboProfName", "Ours");
  Save();
  EXPECT_EQ(
      Query("SELECT * FROM [profile components] WHERE NAME = 'Toluene' AND WT_FRACT = 10", {"CAS", "WEIGHT", "MOLWT"}),
      Rows{"-|-|-"});
  Type("txtMOLWT", "0.0");
  Save();
  EXPECT_EQ(Query("SELECT * FROM [profile components] WHERE NAME = 'Toluene' AND WT_FRACT = 10", {"CAS", "MOLWT"}),
            Rows{"-|0"});
}

TEST_F(ProfileSavingTest, ANumberThatIsLeftAloneKeepsAllOfItsDigits) {
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  const double third = 1.0 / 3;
  test::ChangeRow(*session_.ReferenceDb, "profile components", "Spec ID", {form_.SpecID}, {{"WT_FRACT", third}});
  Pick("Gasoline");
  Pick("Mine");
  Type("txtMOLWT", "90");
  Save();
  EXPECT_EQ(session_.ReferenceDb->OpenAt("profile components", "Spec ID", {form_.SpecID}).Double("WT_FRACT"), third);
}

TEST_F(ProfileSavingTest, HostileTextsAreStoredAsTheyAre) {
  for (const auto* text : {"O'Brien's [mix] \"A\"", "100% *?#", "'; DELETE FROM chemical; --",
                           "=Benzol \xC3\xA4\xE2\x82\xAC", " blanks ", "<b>&amp;</b>"}) {
    SCOPED_TRACE(text);
    AddNew();
    FillNew(text, "Partial", {{text, "10"}});
    SaveNew();
    Pick("Gasoline");
    Pick(text);
    EXPECT_EQ(form_.dbcboProfName.text, text);
    EXPECT_EQ(form_.dbcboChemName.text, text);
    EXPECT_EQ(Stored(text).size(), 1U);
  }
  EXPECT_GT(session_.ReferenceDb->OpenTable("chemical").RecordCount(), 100);
}

TEST_F(ProfileSavingTest, ATextLongerThanItsFieldIsRefusedBesideIt) {
  AddNew();
  FillNew(std::string(51, 'p'), "Partial", {{std::string(50, 'c'), "10"}, {"Toluene", "10"}});
  for (const auto& [control, text] : {std::pair("dbcboProfName", std::string(50, 'p')),
                                      {"dbcboCAS", "1234567890"},
                                      {"dbcboChemName", std::string(50, 't')}}) {
    if (control != std::string("dbcboProfName")) Type(control, std::string(text.size() + 1, 'x'));
    ExpectRefused(fmt::format("Please enter no more than {} characters.", text.size()));
    Save();
    EXPECT_EQ(form_.window.focus, control);
    EXPECT_EQ(Counter(), "Component 2 of 2");
    Type(control, text);
  }
  SaveNew();
  EXPECT_EQ(Stored(std::string(50, 'p')).size(), 2U);
}

TEST_F(ProfileSavingTest, ControlCharactersAreRefusedWhenTheComponentIsLeft) {
  AddNew();
  FillNew("Mine", "Partial", {{"Styrene", "10"}, {"Toluene", "10"}});
  Type("dbcboChemName", "Tolu\nene");
  ExpectRefused("Please enter a text without control characters.");
  Previous();
  EXPECT_EQ(Counter(), "Component 2 of 2");
  EXPECT_EQ(form_.window.focus, "dbcboChemName");
}

TEST_F(ProfileSavingTest, AComponentOfAForeignFileThatCannotBeStoredIsShown) {
  AddSaved("Mine", "Partial", {{"Styrene", "10"}, {"Toluene", "10"}});
  form_.profile.components[0].CAS = "12345678901";
  ExpectRefused("Please enter no more than 10 characters.");
  Save();
  EXPECT_EQ(Counter(), "Component 1 of 2");
  EXPECT_EQ(form_.window.focus, "dbcboCAS");
}

TEST_F(ProfileSavingTest, AProfileThatSomebodyElseRemovedIsSavedAnew) {
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  session_.ReferenceDb->Execute("DELETE * FROM [profile names] WHERE User = True");
  Type("txtWT_FRACT", "12");
  Save();
  EXPECT_EQ(Profiles(), Rows{"Mine|Partial"});
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|12|0|0"});
}

TEST_F(ProfileSavingTest, ShippedProfilesStayAsTheyAre) {
  const auto shipped = [&] {
    return Query("SELECT * FROM [profile components] WHERE [spec id] <= 14", {"SPEC ID", "NAME", "WT_FRACT"});
  };
  const auto before = shipped();
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  Type("txtWT_FRACT", "11");
  Save();
  ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
  ClickDelete(session_, form_);
  EXPECT_EQ(shipped(), before);
}

/// What fails is reported under the routine of the command.
class ProfileFailureTest : public ProfileSavingTest {
 protected:
  /// The edits of a profile in a database that may only be read.
  void EditWithoutRights() {
    AddSaved("Mine", "Partial", {{"Toluene", "10"}});
    session_.ReferenceDb = store::Database::Open(session_.TankPath, store::OpenMode::kReadOnly);
    Open();
    Pick("Mine");
    Type("txtWT_FRACT", "20");
  }
};

TEST_F(ProfileFailureTest, EachCommandThatWritesReportsUnderItsOwnName) {
  EditWithoutRights();
  constexpr int kReadOnly = 3027;
  ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
  host_.ExpectError(kReadOnly, "frmProfile.cmdDelete");
  ClickDelete(session_, form_);
  ExpectSaveQuestion("Save Changes?", Answer::kYes);
  host_.ExpectError(kReadOnly, "frmProfile.");
  Close();
  EXPECT_FALSE(form_.window.closed);
  ExpectSaveQuestion("Save changes to Mine?", Answer::kYes);
  host_.ExpectError(kReadOnly, "frmProfile.");
  AddNew();
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|10|0|0"});
}

TEST_F(ProfileFailureTest, EachListReportsUnderItsOwnName) {
  constexpr int kNoSuchTable = 3011;
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  session_.ReferenceDb->DeleteTable("chemical");
  host_.ExpectError(kNoSuchTable, "frmProfile.dbcboChemName");
  Choose("dbcboChemName", "Benzene");
  host_.ExpectError(kNoSuchTable, "frmProfile.dbcboCAS");
  Choose("dbcboCAS", "71-43-2");
  Save();
  EXPECT_EQ(Stored("Mine"), Rows{"Benzene|10|0|0"});
  session_.ReferenceDb->DeleteTable("profile names");
  host_.ExpectError(kNoSuchTable, "frmProfile.dbcboProfName");
  Pick("Gasoline");
  EXPECT_EQ(form_.dbcboProfName.text, "Mine");
}

TEST_F(ProfileFailureTest, WhatWasRefusedByAFileInUseCanBeSavedLater) {
  AddSaved("Mine", "Partial", {{"Toluene", "10"}});
  Type("txtWT_FRACT", "20");
  {
    const test::LockedFile locked(session_.TankPath);
    host_.ExpectError(3260, "frmProfile.");
    Save();
  }
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|10|0|0"});
  Save();
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|20|0|0"});
}

TEST_F(ProfileFailureTest, ADatabaseThatMayNotBeWrittenKeepsTheEdits) {
  EditWithoutRights();
  host_.ExpectError(3027, "frmProfile.");
  Save();
  EXPECT_EQ(form_.txtWT_FRACT.text, "20");
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|10|0|0"});
}

}  // namespace
}  // namespace orvex::refdata
