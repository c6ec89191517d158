#include <cmath>
#include <limits>

#include "refdata/profile_fixture.h"
#include "refdata/profile_types.h"

namespace orvex::refdata {
namespace {

using test::Rows;

constexpr const char* kDeleteRecord = "Are you sure you want to delete this record?";
constexpr const char* kOnlyRecord = "This is the only record. This action will delete the profile. Delete profile?";

/// What the person does to the components of a profile of their own.
class ProfileComponentsTest : public test::ProfileTest {
 protected:
  ProfileComponentsTest() { AddNew(); }

  void DeleteComponent(Answer answer = Answer::kOk) {
    ExpectDeleteQuestion(kDeleteRecord, answer);
    ClickDeleteComp(session_, form_);
  }
  [[nodiscard]] Texts Chemicals() const {
    Texts names;
    for (const auto& share : Shares(form_.profile)) names.push_back(share.name);
    return names;
  }
};

TEST_F(ProfileComponentsTest, AddGoesToAnEmptyComponentBehindTheLast) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  Previous();
  AddComponent();
  EXPECT_EQ(Counter(), "Component 3 of 3");
  EXPECT_EQ(form_.dbcboChemName.text, "");
  EXPECT_EQ(form_.dbcboCAS.text, "");
  EXPECT_EQ(form_.txtWT_FRACT.text, "0");
  EXPECT_EQ(form_.txtMOLWT.text, "0");
  EXPECT_EQ(form_.window.focus, "dbcboChemName");
  EXPECT_TRUE(form_.cmdPrevComp.enabled);
  EXPECT_FALSE(form_.cmdNextComp.enabled);
}

TEST_F(ProfileComponentsTest, PreviousAndNextWalkAndStopAtTheEnds) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  Next();
  EXPECT_EQ(Counter(), "Component 2 of 2");
  Previous();
  EXPECT_EQ(Counter(), "Component 1 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Toluene");
  EXPECT_FALSE(form_.cmdPrevComp.enabled);
  Previous();
  Next();
  EXPECT_EQ(Counter(), "Component 2 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Benzene");
  EXPECT_EQ(form_.txtWT_FRACT.text, "5");
}

/// A type, and what is said of a component without its share.
struct Case {
  const char* type;
  bool relative;
  const char* told;
  const char* control;
};

class ProfileComponentTests : public ProfileComponentsTest, public testing::WithParamInterface<Case> {};

TEST_P(ProfileComponentTests, AComponentIsLeftOnlyWithAShareAndAName) {
  const auto& [type, relative, told, control] = GetParam();
  FillNew("Mine", type, {{"Toluene", "20"}, {"Benzene", "5"}}, relative);
  Previous();
  for (const auto go : {ClickNextComp, ClickAdd}) {
    // Neither: the share is what is told.
    Type("dbcboChemName", "");
    Type(control, "0");
    ExpectRefused(told);
    go(session_, form_);
    EXPECT_EQ(form_.window.focus, control);
    EXPECT_EQ(form_.window.refusal, told);
    EXPECT_EQ(Counter(), "Component 1 of 2");
    // The name alone.
    Type("dbcboChemName", "Toluene");
    ExpectRefused(told);
    go(session_, form_);
    // The share alone.
    Type("dbcboChemName", "");
    Type(control, "20");
    ExpectRefused("Chemical name must be specified.");
    go(session_, form_);
    EXPECT_EQ(form_.window.focus, "dbcboChemName");
    EXPECT_EQ(Counter(), "Component 1 of 2");
  }
  Type("dbcboChemName", "Toluene");
  Next();
  EXPECT_EQ(Counter(), "Component 2 of 2");
  Type(control, "0");
  ExpectRefused(told);
  Previous();
  EXPECT_EQ(Counter(), "Component 2 of 2");
}

INSTANTIATE_TEST_SUITE_P(AllTypes, ProfileComponentTests,
                         testing::Values(Case{"Partial", false, "Liquid weight must not be zero.", "txtWT_FRACT"},
                                         Case{"Full", false, "Liquid weight must not be zero.", "txtWT_FRACT"},
                                         Case{"Vapor", false, "Vapor weight must not be zero.", "txtVP_FRACT"},
                                         Case{"Full", true, "Relative weight must not be zero.", "txtWEIGHT"}),
                         [](const auto& all) {
                           return std::string(all.param.type) + (all.param.relative ? "Relative" : "Percent");
                         });

TEST_F(ProfileComponentsTest, AChemicalPickedByNameBringsItsNumberAndWeights) {
  Choose("dbcboChemName", "Benzene");
  EXPECT_EQ(form_.dbcboCAS.text, "71-43-2");
  EXPECT_EQ(form_.txtMOLWT.text, form_.txtVP_MOLWT.text);
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Benzene'", {"CAS", "MOLWT"}),
            Rows{"71-43-2|" + form_.txtMOLWT.text});
}

TEST_F(ProfileComponentsTest, AChemicalPickedByNumberBringsItsNameAndWeights) {
  test::AddRow(*session_.ReferenceDb, "chemical",
               {{"NAME", "Blend"}, {"CAS", "1-2-3"}, {"MOLWT", 120.5}, {"VP_MOLWT", 60.25}});
  Choose("dbcboCAS", "1-2-3");
  EXPECT_EQ(form_.dbcboChemName.text, "Blend");
  EXPECT_EQ(form_.txtMOLWT.text, "120.5");
  EXPECT_EQ(form_.txtVP_MOLWT.text, "60.25");
}

TEST_F(ProfileComponentsTest, AnotherChemicalLeavesTheShare) {
  Fill("Benzene", "12");
  Choose("dbcboChemName", "Toluene");
  EXPECT_EQ(form_.txtWT_FRACT.text, "12");
  EXPECT_EQ(form_.dbcboCAS.text, "108-88-3");
}

TEST_F(ProfileComponentsTest, AnUnknownNameStandsAsTypedAndTheNumbersStay) {
  Choose("dbcboChemName", "Benzene");
  const auto weight = form_.txtMOLWT.text;
  Choose("dbcboChemName", "My own mix");
  EXPECT_EQ(form_.dbcboChemName.text, "My own mix");
  EXPECT_EQ(form_.dbcboCAS.text, "71-43-2");
  EXPECT_EQ(form_.txtMOLWT.text, weight);
  Choose("dbcboCAS", "0-0-0");
  EXPECT_EQ(form_.dbcboChemName.text, "My own mix");
  EXPECT_EQ(form_.dbcboCAS.text, "0-0-0");
  Choose("dbcboCAS", "");
  EXPECT_EQ(form_.dbcboChemName.text, "My own mix");
}

TEST_F(ProfileComponentsTest, ATypedNameTakesNothingOver) {
  Type("dbcboChemName", "Benzene");
  EXPECT_EQ(form_.dbcboCAS.text, "");
  EXPECT_EQ(form_.txtMOLWT.text, "0");
}

TEST_F(ProfileComponentsTest, AChemicalWithoutNumbersBringsNone) {
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Bare"}});
  Choose("dbcboChemName", "Bare");
  EXPECT_EQ(form_.txtMOLWT.text, "0");
  EXPECT_EQ(form_.dbcboCAS.text, "");
  EXPECT_EQ(form_.profile.components[0].MOLWT, std::nullopt);
}

TEST_F(ProfileComponentsTest, WhatIsNoNumberIsRefusedAndBecomesZero) {
  Choose("cboType", "Full");
  for (const auto* control : {"txtMOLWT", "txtVP_MOLWT", "txtWT_FRACT", "txtVP_FRACT", "txtWEIGHT"}) {
    for (const auto* text : {"abc", "", " ", "1,5", "1e999", "nan", "0x10", "--1", "1\n"}) {
      SCOPED_TRACE(text);
      Type(control, "7");
      ExpectRefused("Please enter a number.");
      Type(control, text);
      EXPECT_EQ(Text(control), "0");
      EXPECT_EQ(form_.window.focus, control);
    }
    Type(control, " 1,234.5 ");
    EXPECT_EQ(Text(control), "1234.5");
  }
}

TEST_F(ProfileComponentsTest, ACommandStopsAtANumberThatWasNotLeftYet) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  for (const auto command : {ClickPrevComp, ClickAdd, ClickSave, ClickAddNew, PickProfile, ClickClose}) {
    Text("txtMOLWT") = "x";
    ExpectRefused("Please enter a number.");
    command(session_, form_);
    EXPECT_EQ(Counter(), "Component 2 of 2");
    EXPECT_EQ(form_.txtMOLWT.text, "0");
    EXPECT_FALSE(form_.window.closed);
  }
  Text("txtMOLWT") = "x";
  ExpectRefused("Please enter a number.");
  Choose("cboType", "Vapor");
  EXPECT_EQ(form_.cboType.text, "Partial");
  EXPECT_EQ(form_.txtWT_FRACT.text, "5");
}

TEST_F(ProfileComponentsTest, DeletingShowsTheComponentBefore) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}, {"Styrene", "3"}});
  DeleteComponent();
  EXPECT_EQ(Counter(), "Component 2 of 2");
  EXPECT_EQ(form_.dbcboChemName.text, "Benzene");
  EXPECT_FALSE(form_.cmdNextComp.enabled);
  Previous();
  DeleteComponent();
  EXPECT_EQ(Counter(), "Component 1 of 1");
  EXPECT_EQ(form_.dbcboChemName.text, "Benzene");
  EXPECT_FALSE(form_.cmdPrevComp.enabled || form_.cmdNextComp.enabled);
}

TEST_F(ProfileComponentsTest, CancelKeepsTheComponent) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  DeleteComponent(Answer::kCancel);
  EXPECT_EQ(Chemicals(), (Texts{"Toluene", "Benzene"}));
}

TEST_F(ProfileComponentsTest, ADeletedComponentStaysStoredUntilTheProfileIsSaved) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  SaveNew();
  DeleteComponent();
  EXPECT_EQ(Stored("Mine").size(), 2U);
  Save();
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|20|0|0"});
}

TEST_F(ProfileComponentsTest, ADeletedComponentIsAChangeThatAddingAsksFor) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}, {"Benzene", "5"}});
  SaveNew();
  DeleteComponent();
  ExpectSaveQuestion("Save changes to Mine?", Answer::kYes);
  AddNew();
  EXPECT_EQ(Stored("Mine"), Rows{"Toluene|20|0|0"});
}

TEST_F(ProfileComponentsTest, DeletingTheOnlyComponentLeavesItAndTheProfileWhateverTheSecondAnswer) {
  FillNew("Mine", "Partial", {{"Toluene", "20"}});
  SaveNew();
  for (const auto answer : {Answer::kOk, Answer::kCancel}) {
    ExpectDeleteQuestion(kDeleteRecord, Answer::kOk);
    ExpectDeleteQuestion(kOnlyRecord, answer);
    ClickDeleteComp(session_, form_);
    EXPECT_EQ(form_.dbcboChemName.text, "Toluene");
    EXPECT_EQ(Counter(), "Component 1 of 1");
    EXPECT_EQ(Stored("Mine"), Rows{"Toluene|20|0|0"});
    EXPECT_EQ(Profiles(), Rows{"Mine|Partial"});
  }
}

TEST_F(ProfileComponentsTest, TheSecondQuestionComesOnlyAfterTheFirst) {
  DeleteComponent(Answer::kCancel);
  EXPECT_EQ(host_.messages, Texts{kDeleteRecord});
}

TEST_F(ProfileComponentsTest, TheSumFollowsTheShares) {
  FillNew("Mine", "Full", {{"Toluene", "20"}, {"Benzene", "5.125"}});
  EXPECT_EQ(form_.txtSum.text, "Sum: 25.125 of 100");
  DeleteComponent();
  EXPECT_EQ(form_.txtSum.text, "Sum: 20.00 of 100");
  Switch();
  EXPECT_EQ(form_.txtSum.text, "Sum: 0.00");
  Type("txtWEIGHT", "1250");
  EXPECT_EQ(form_.txtSum.text, "Sum: 1,250.00");
}

TEST_F(ProfileComponentsTest, SharesAreOfferedInOrderAndRelativeOnesAsPercents) {
  FillNew("Mine", "Full", {{"Toluene", "30"}, {"Benzene", "10"}}, true);
  const auto shares = Shares(form_.profile);
  // 30 / 40 = 75 %, 10 / 40 = 25 %
  ASSERT_EQ(shares.size(), 2U);
  EXPECT_EQ(shares[0].name, "Toluene");
  EXPECT_DOUBLE_EQ(shares[0].percent, 75);
  EXPECT_DOUBLE_EQ(shares[1].percent, 25);
  Switch();
  EXPECT_DOUBLE_EQ(Shares(form_.profile)[0].percent, 0);
  Type("txtWT_FRACT", "40");
  EXPECT_DOUBLE_EQ(Shares(form_.profile)[1].percent, 40);
}

TEST_F(ProfileComponentsTest, SharesOfRelativeWeightsAreNumbersWhateverTheirSum) {
  FillNew("Mine", "Full", {{"Toluene", "30"}, {"Benzene", "-30"}}, true);
  for (const auto& [first, second] :
       {std::pair("30", "-30"), {"0", "5e-324"}, {"0", "1e-320"}, {"1e308", "1e308"}, {"1e308", "-1e308"}}) {
    Type("txtWEIGHT", second);
    form_.profile.components[0].WEIGHT = store::Value(first).AsDouble();
    for (const auto& share : Shares(form_.profile)) EXPECT_TRUE(std::isfinite(share.percent)) << first << ' ' << second;
  }
}

TEST_F(ProfileComponentsTest, SumsOfGreatNumbersAreNoError) {
  const auto greatest = fmt::format("{}", std::numeric_limits<double>::max());
  FillNew("Mine", "Vapor", {{"Toluene", greatest}, {"Benzene", greatest}});
  EXPECT_EQ(form_.txtSum.text, "Sum: too large");
  ExpectTold("Sum of component percent is over 100%.");
  Save();
  Type("dbcboProfName", "Great");
  Choose("cboType", "Full");
  Switch();
  Type("txtWEIGHT", greatest);
  Next();
  EXPECT_EQ(host_.messages.back(), "Sum of component percent is over 100%.");
  EXPECT_EQ(Counter(), "Component 2 of 2");
}

}  // namespace
}  // namespace orvex::refdata
