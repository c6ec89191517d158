#include "refdata/frmmet.h"

#include <algorithm>
#include <set>

#include "refdata/captions.h"
#include "refdata/met_fixture.h"
#include "shell/periods.h"

namespace orvex::refdata {
namespace {

using shell::Answer;
using shell::Buttons;
using shell::Icon;
using test::Rows;

const std::string kKey = "dbcboMetCTYST";

class FrmMetTest : public test::MetTest {};

// Opening and finding -------------------------------------------------------------------------------------------------

TEST_F(FrmMetTest, OpensOnTheFirstRecordReadOnly) {
  EXPECT_EQ(Shown(kKey), "Birmingham, Alabama");
  EXPECT_EQ(Shown("txtCITY"), "Birmingham");
  EXPECT_EQ(Shown("dbcboState"), "Alabama");
  EXPECT_EQ(Shown("txtTAX_JAN"), "52");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_FALSE(At(form_, "dbcboState").box.enabled);
  EXPECT_FALSE(At(form_, "txtCITY").box.enabled);
  EXPECT_TRUE(At(form_, kKey).box.enabled);
  EXPECT_EQ(host_.status, (Rows{"Loading, please wait...", "Ready"}));
}

TEST_F(FrmMetTest, IsLabelledAsItsRecords) {
  EXPECT_EQ(kFrmMetText.title, "Meteorological");
  const std::vector<std::pair<std::string, std::string>> captions = {
      {"dbcboMetCTYST", "City:"},
      {"txtCITY", "City:"},
      {"dbcboState", "State:"},
      {"txtA_TEMP_DAA", "Daily Average Ambient Temperature (F): "},
      {"txtATMOS_PRS", "Atmospheric Pressure (psia): "},
      {"txtWIND_ANN", "Annual:"},
  };
  for (const auto& [control, caption] : captions) EXPECT_EQ(test::Caption(kFrmMetText, control), caption);
  const std::vector<std::pair<std::string, std::string>> families = {
      {"TAX", "Daily Maximum Ambient Temp. (F)"},
      {"TAN", "Daily Minimum Ambient Temp. (F)"},
      {"INSOL", "Solar Insulation Factor"},
      {"WIND", "Average Wind Speed (mph)"},
  };
  for (const auto& [prefix, heading] : families) {
    for (const auto& month : shell::kMonths) {
      const auto field = prefix + "_" + std::string(month.suffix);
      EXPECT_EQ(Of(form_, field).info->text.name, "txt" + field);
      EXPECT_EQ(Of(form_, field).info->group, heading);
      EXPECT_EQ(Of(form_, field).info->text.caption, std::string(month.name) + ":");
    }
    EXPECT_EQ(Of(form_, prefix + "_ANN").info->group, heading);
  }
}

TEST_F(FrmMetTest, ShowsAndKeepsEveryFieldOfTheTable) {
  std::set<std::string_view> fields;
  for (const auto& entry : kMetEntries) EXPECT_TRUE(fields.insert(entry.field).second) << entry.field;
  for (const auto& field : store::FindTable("met").fields)
    EXPECT_TRUE(fields.contains(field.name) || field.name == "Counter" || field.name == "USER DEF") << field.name;
  EXPECT_EQ(std::size(kMetEntries), 57U);
}

TEST_F(FrmMetTest, ListsEachStateOnceInOrder) {
  const auto& states = Items("dbcboState");
  EXPECT_EQ(states.front(), "Alabama");
  EXPECT_TRUE(std::ranges::is_sorted(states));
  EXPECT_EQ(std::ranges::adjacent_find(states), states.end());
  EXPECT_EQ(std::ssize(Items(kKey)), session_.ReferenceDb->OpenTable("met").RecordCount());
}

TEST_F(FrmMetTest, IsFoundByCityAndState) {
  AddSaved("Mine", "Ohio");
  host_.status.clear();
  Pick(kKey, "Dothan, Alabama");
  EXPECT_EQ(Shown("txtCITY"), "Dothan");
  EXPECT_EQ(Shown("txtA_TEMP_DAA"), "66");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_EQ(host_.status, (Rows{"Processing, please wait...", "Ready"}));
  Pick(kKey, "Mine, Ohio");
  EXPECT_TRUE(form_.panel.enabled);
  EXPECT_TRUE(At(form_, "dbcboState").box.enabled);
  Pick(kKey, "Nowhere, Ohio");
  EXPECT_EQ(Shown(kKey), "Mine, Ohio");
}

TEST_F(FrmMetTest, APickSavesChangesFirstOrGoesNoFurther) {
  AddSaved("Mine", "Ohio");
  Type("txtWIND_JUL", "9");
  Pick(kKey, "Dothan, Alabama");
  EXPECT_EQ(Query("SELECT * FROM met WHERE CITY = 'Mine'", {"WIND_JUL"}), Rows{"9"});
  Pick(kKey, "Mine, Ohio");
  Type("txtWIND_JUL", "0");
  ExpectIncomplete();
  Pick(kKey, "Dothan, Alabama");
  EXPECT_EQ(Shown(kKey), "Mine, Ohio");
  EXPECT_EQ(Shown("txtWIND_JUL"), "0");
}

// The key -------------------------------------------------------------------------------------------------------------

TEST_F(FrmMetTest, TheKeyFollowsEachLetterOfTheCityAndTheStateAtOnce) {
  Add();
  At(form_, "txtCITY").box.text = "M";
  TypeText(session_, form_, "txtCITY");
  EXPECT_EQ(Shown(kKey), "M, ");
  EXPECT_EQ(HeldText(form_, "CTYST"), "M, ");
  At(form_, "txtCITY").box.text = "Mine";
  TypeText(session_, form_, "txtCITY");
  EXPECT_EQ(Shown(kKey), "Mine, ");
  At(form_, "dbcboState").box.text = "Ohio";
  ChooseItem(session_, form_, "dbcboState");
  EXPECT_EQ(Shown(kKey), "Mine, Ohio");
  EXPECT_EQ(HeldText(form_, "CTYST"), "Mine, Ohio");
  At(form_, "dbcboState").box.text = "Yukon";
  TypeText(session_, form_, "dbcboState");
  EXPECT_EQ(Shown(kKey), "Mine, Yukon");
}

TEST_F(FrmMetTest, OnAShippedRecordNothingIsComposed) {
  At(form_, "txtCITY").box.text = "Elsewhere";
  TypeText(session_, form_, "txtCITY");
  At(form_, "dbcboState").box.text = "Ohio";
  ChooseItem(session_, form_, "dbcboState");
  EXPECT_EQ(Shown(kKey), "Birmingham, Alabama");
  EXPECT_EQ(HeldText(form_, "CTYST"), "Birmingham, Alabama");
  EXPECT_EQ(Shown("txtCITY"), "Birmingham");
  EXPECT_EQ(Shown("dbcboState"), "Alabama");
}

TEST_F(FrmMetTest, WhatIsTypedIntoTheListIsNoKey) {
  AddSaved("Mine", "Ohio");
  Type(kKey, "Dothan, Ala");
  EXPECT_EQ(Shown(kKey), "Mine, Ohio");
  At(form_, kKey).box.text = "Dothan, Ala";
  Save();
  EXPECT_EQ(Own(), Rows{"Mine, Ohio"});
}

TEST_F(FrmMetTest, AChangedStateOfAnAddedRecordIsCaughtByTheDuplicateTest) {
  Add();
  Fill("Dothan", "Ohio");
  Choose("dbcboState", "Alabama");
  ExpectDuplicate();
  Save();
  EXPECT_EQ(Shown(kKey), "Dothan, Alabama1");
  EXPECT_EQ(Shown("txtCITY"), "Dothan") << "the other edits stay on show";
  EXPECT_EQ(Own(), Rows{"-"});
}

TEST_F(FrmMetTest, AKeyWithAOneIsSavedUntilTheCityChanges) {
  Add();
  Fill("Dothan", "Alabama");
  ExpectDuplicate();
  Save();
  SaveAdded();
  EXPECT_EQ(Query("SELECT * FROM met WHERE [USER DEF] = True", {"CTYST", "CITY", "STATE"}),
            Rows{"Dothan, Alabama1|Dothan|Alabama"});
  Type("txtCITY", "Dothan Airport");
  Save();
  EXPECT_EQ(Own(), Rows{"Dothan Airport, Alabama"});
}

TEST_F(FrmMetTest, KeysThatDifferOnlyInCaseAreTheSame) {
  Add();
  Fill("DOTHAN", "alabama");
  ExpectDuplicate();
  Save();
}

TEST_F(FrmMetTest, ATypedStateJoinsTheList) {
  AddSaved("Whitehorse", "Yukon");
  EXPECT_EQ(std::ranges::count(Items("dbcboState"), "Yukon"), 1);
  EXPECT_EQ(std::ranges::count(Items(kKey), "Whitehorse, Yukon"), 1);
}

// Completeness --------------------------------------------------------------------------------------------------------

TEST_F(FrmMetTest, NeedsCityStateAndEachOfItsFiftyNumbers) {
  Add();
  Fill("Mine", "Ohio");
  int needed = 0;
  for (const auto& entry : kMetEntries) {
    const std::string control(entry.text.name);
    if (control == kKey || entry.field.ends_with("_ANN")) continue;
    SCOPED_TRACE(control);
    const auto before = Shown(control);
    Type(control, IsNumber(entry) ? "0" : "");
    ExpectIncomplete();
    Save();
    EXPECT_EQ(Own(), Rows{"-"});
    Type(control, before);
    ++needed;
  }
  EXPECT_EQ(needed, 52);
  SaveAdded();
  EXPECT_EQ(Own(), Rows{"Mine, Ohio"});
}

TEST_F(FrmMetTest, AnyTwoThatAreMissingAreRefusedLikeOne) {
  Add();
  Fill("Mine", "Ohio");
  std::vector<std::string> needed;
  for (const auto& entry : kMetEntries)
    if (entry.text.name != kKey && !entry.field.ends_with("_ANN")) needed.emplace_back(entry.text.name);
  const auto empty = [&](const std::string& control) { Type(control, IsNumber(*At(form_, control).info) ? "0" : ""); };
  for (const auto& one : needed) {
    const auto first = Shown(one);
    empty(one);
    for (const auto& other : needed) {
      if (one >= other) continue;
      const auto second = Shown(other);
      empty(other);
      ExpectIncomplete();
      Save();
      Type(other, second);
    }
    Type(one, first);
  }
  EXPECT_EQ(host_.messages.size(), 52U * 51 / 2);
  SaveAdded();
}

TEST_F(FrmMetTest, ACalmMonthCannotBeSaved) {
  AddSaved("Mine", "Ohio");
  Type("txtWIND_AUG", "0.0");
  ExpectIncomplete();
  Save();
  EXPECT_EQ(Query("SELECT * FROM met WHERE CITY = 'Mine'", {"WIND_AUG"}), Rows{"7.5"});
}

TEST_F(FrmMetTest, TheYearMayBeBlankOrZeroAndIsNotAddedUp) {
  Add();
  Fill("Mine", "Ohio");
  LeaveEntry(session_, form_, "txtTAX_ANN");
  Type("txtTAN_ANN", "0");
  Type("txtWIND_ANN", "8");
  Type("txtWIND_ANN", "0");
  SaveAdded();
  EXPECT_EQ(Query("SELECT * FROM met WHERE CITY = 'Mine'", {"TAX_ANN", "TAN_ANN", "INSOL_ANN", "WIND_ANN", "TAX_JAN"}),
            Rows{"-|0|-|0|7.5"})
      << "a zero that is typed is stored, one that stands for a blank is not";
}

TEST_F(FrmMetTest, ABlankYearOfASavedCityBecomesZeroWhenZeroIsTyped) {
  AddSaved("Mine", "Ohio");
  EXPECT_EQ(Shown("txtTAX_ANN"), "0");
  Type("txtTAX_ANN", "0");
  Pick(kKey, "Dothan, Alabama");
  EXPECT_EQ(Query("SELECT * FROM met WHERE CITY = 'Mine'", {"TAX_ANN", "TAN_ANN"}), Rows{"0|-"});
}

// Adding, saving, deleting, closing -----------------------------------------------------------------------------------

TEST_F(FrmMetTest, AddNewAppendsAnEmptyRecordOfThePersonsOwn) {
  Add();
  EXPECT_EQ(Own(), Rows{"-"});
  EXPECT_EQ(Shown(kKey), "");
  EXPECT_EQ(Shown("txtCITY"), "");
  EXPECT_TRUE(At(form_, "dbcboState").box.enabled);
  EXPECT_TRUE(form_.panel.enabled);
  EXPECT_FALSE(form_.cmdAddNew.enabled);
}

TEST_F(FrmMetTest, SavingAShippedRecordDoesAndShowsNothing) {
  host_.status.clear();
  Save();
  EXPECT_EQ(host_.status, Rows{});
}

TEST_F(FrmMetTest, SavingEnablesTheCommandsAgain) {
  Add();
  Fill("Mine", "Ohio");
  SaveAdded();
  for (const auto* button : {&form_.cmdAddNew, &form_.cmdSave, &form_.cmdDelete, &form_.cmdClose, &form_.cmdHelp})
    EXPECT_TRUE(button->enabled);
}

TEST_F(FrmMetTest, AnotherRecordIsOfferedOnceAndOnlyAfterAdding) {
  Add();
  Fill("First", "Ohio");
  SaveAdded(Answer::kYes);
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Shown(kKey), "");
  Fill("Second", "Ohio");
  SaveAdded();
  Save();
  EXPECT_EQ(Own(), (Rows{"First, Ohio", "Second, Ohio"}));
}

TEST_F(FrmMetTest, AShippedRecordIsNotDeleted) {
  ExpectTold("Record is not user defined.  It cannot be deleted.");
  ClickDelete(session_, form_);
}

TEST_F(FrmMetTest, DeletingLeadsToTheFirstRecord) {
  AddSaved("Mine", "Yukon");
  Delete(Answer::kCancel);
  EXPECT_EQ(Own(), Rows{"Mine, Yukon"});
  Delete();
  EXPECT_EQ(Own(), Rows{});
  EXPECT_EQ(Shown(kKey), "Birmingham, Alabama");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_EQ(std::ranges::count(Items("dbcboState"), "Yukon"), 0);
}

TEST_F(FrmMetTest, ClosesAtOnceOrSavesOrAsks) {
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  form_ = {};
  Open(OpenFrmMet);
  Add();
  ExpectIncomplete();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
  Fill("Mine", "Ohio");
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Own(), Rows{"Mine, Ohio"});
  form_.window.closed = false;
  Type("txtWIND_AUG", "0");
  host_.ExpectMessage("Save Changes?", "Save?", Buttons::kYesNo, Icon::kNone, Answer::kYes);
  ExpectIncomplete();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
  host_.ExpectMessage("Save Changes?", "Save?", Buttons::kYesNo, Icon::kNone, Answer::kNo);
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Query("SELECT * FROM met WHERE CITY = 'Mine'", {"WIND_AUG"}), Rows{"7.5"});
}

TEST_F(FrmMetTest, FailuresReachTheReporter) {
  AddSaved("Mine", "Ohio");
  session_.ReferenceDb->DeleteTable("met");
  host_.ExpectError(3011, "frmMet.");
  Save();
  host_.ExpectError(3011, "frmMet.");
  Add();
  host_.ExpectError(3011, "frmMet.");
  OpenFrmMet(session_);
}

}  // namespace
}  // namespace orvex::refdata
