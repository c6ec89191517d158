#include <algorithm>

#include "refdata/chemical_fixture.h"
#include "support/locked_file.h"

/// Chemicals are saved, deleted, and left by a close.
namespace orvex::refdata {
namespace {

using shell::Answer;
using shell::Buttons;
using shell::Icon;
using test::Rows;

class FrmchemicalSaving : public test::ChemicalTest {
 protected:
  /// The one question of a close.
  void Close(Answer save) {
    host_.ExpectMessage("Save Changes?", "Save?", Buttons::kYesNo, Icon::kNone, save);
    ClickClose(session_, form_);
  }
};

// Saving --------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalSaving, SavingAShippedRecordDoesAndShowsNothing) {
  host_.status.clear();
  Save();
  EXPECT_EQ(host_.status, Rows{});
  EXPECT_EQ(host_.messages, Rows{});
}

TEST_F(FrmchemicalSaving, SavesWhatWasEntered) {
  Add();
  Fill("Mine");
  Type("dbcboCAS", "1-2-3");
  Type("txtVP_40", " 1,234.5 ");
  Type("txtVP_COEF_A", "-1e-3");
  host_.status.clear();
  SaveAdded();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'",
                  {"CAS", "CATEGORY", "MOLWT", "VP_40", "VP_50", "VP_COEF_A", "REID", "USER_DEF"}),
            Rows{"1-2-3|Organic Liquids|72.15|1234.5|-|-0.001|-|-1"});
  EXPECT_EQ(host_.status, (Rows{"Processing, please wait...", "Ready"}));
}

TEST_F(FrmchemicalSaving, ASavedRecordStandsInBothListsAndOnShow) {
  Add();
  Fill("Mine");
  Type("dbcboCAS", "1-2-3");
  SaveAdded();
  EXPECT_EQ(std::ranges::count(Items("dbcboChemName"), "Mine"), 1);
  EXPECT_EQ(std::ranges::count(Items("dbcboCAS"), "1-2-3"), 1);
  EXPECT_EQ(Shown("dbcboChemName"), "Mine");
  EXPECT_TRUE(form_.panel.enabled);
  Type("dbcboChemName", "Renamed");
  Save();
  EXPECT_EQ(std::ranges::count(Items("dbcboChemName"), "Mine"), 0);
  EXPECT_EQ(std::ranges::count(Items("dbcboChemName"), "Renamed"), 1);
}

TEST_F(FrmchemicalSaving, AnotherRecordIsOfferedOnceAndOnlyAfterAdding) {
  Add();
  Fill("First");
  SaveAdded(Answer::kYes);
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Shown("dbcboChemName"), "");
  Fill("Second");
  SaveAdded(Answer::kNo);
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Shown("dbcboChemName"), "Second");
  Type("txtMOLWT", "5");
  Save();
  EXPECT_EQ(Own(), (Rows{"First", "Second"}));
}

TEST_F(FrmchemicalSaving, ARefusedSaveStillOffersAnotherLater) {
  Add();
  ExpectIncomplete();
  Save();
  ExpectIncomplete();
  Pick("dbcboChemName", "Benzene");
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  Fill("Mine");
  SaveAdded();
}

TEST_F(FrmchemicalSaving, ANameThatIsTakenIsRefusedAndGetsAOne) {
  Add();
  Fill("Benzene");
  Type("txtMOLWT", "99");
  ExpectDuplicate();
  Save();
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene1");
  EXPECT_EQ(Shown("txtMOLWT"), "99") << "the other edits stay on show";
  EXPECT_EQ(Own(), Rows{"-"});
  SaveAdded();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE USER_DEF = True", {"NAME", "MOLWT"}), Rows{"Benzene1|99"});
}

TEST_F(FrmchemicalSaving, OnlyTheFirstThingThatIsWrongIsTold) {
  Add();
  Type("dbcboChemName", "Benzene");
  Type("dbcboCAS", "1234567-89-0");
  host_.ExpectMessage("Please enter no more than 10 characters.", "ORVEX", Buttons::kOk, Icon::kExclamation);
  Save();
  Type("dbcboCAS", "1-2-3");
  ExpectIncomplete();
  Save();
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene") << "it is compared with the others when the record is complete";
  Fill("Benzene");
  ExpectDuplicate();
  Save();
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene1");
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(FrmchemicalSaving, ARecordMayKeepItsName) {
  AddSaved("Mine");
  Type("txtMOLWT", "5");
  Save();
  EXPECT_EQ(Own(), Rows{"Mine"});
}

TEST_F(FrmchemicalSaving, NamesThatDifferInBlanksAtTheirEndsOrInCaseAreOtherNames) {
  for (const auto* name : {" Benzene", "Benzene ", "benzene"}) AddSaved(name);
  EXPECT_EQ(Own(), (Rows{" Benzene", "Benzene ", "benzene"}));
  Pick("dbcboChemName", "Benzene ");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene ");
}

TEST_F(FrmchemicalSaving, SeveralChemicalsMayShareANumberOrHaveNone) {
  for (const auto* name : {"Blend 1", "Blend 2"}) {
    Add();
    Fill(name);
    Type("dbcboCAS", "71-43-2");
    SaveAdded();
  }
  EXPECT_EQ(std::ranges::count(Items("dbcboCAS"), "71-43-2"), 1) << "it leads to the first of them only";
  Type("dbcboCAS", "");
  Save();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE USER_DEF = True", {"NAME", "CAS"}),
            (Rows{"Blend 1|71-43-2", "Blend 2|-"}));
}

// Deleting ------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalSaving, AShippedRecordIsNotDeleted) {
  const auto before = session_.ReferenceDb->OpenTable("chemical").RecordCount();
  ExpectTold("Record is not user defined.  It cannot be deleted.");
  ClickDelete(session_, form_);
  EXPECT_EQ(session_.ReferenceDb->OpenTable("chemical").RecordCount(), before);
}

TEST_F(FrmchemicalSaving, CancelKeepsTheRecord) {
  AddSaved("Mine");
  Delete(Answer::kCancel);
  EXPECT_EQ(Own(), Rows{"Mine"});
  EXPECT_EQ(Shown("dbcboChemName"), "Mine");
}

TEST_F(FrmchemicalSaving, DeletingLeadsToTheFirstRecord) {
  AddSaved("Mine");
  Delete();
  EXPECT_EQ(Own(), Rows{});
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
  EXPECT_EQ(Shown("cboCategory"), "Organic Liquids");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_EQ(std::ranges::count(Items("dbcboChemName"), "Mine"), 0);
}

TEST_F(FrmchemicalSaving, AnAddedRecordCanBeDeletedBeforeItIsSaved) {
  Add();
  Type("dbcboChemName", "Mine");
  Delete();
  EXPECT_EQ(Own(), Rows{});
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  AddSaved("Next");
  EXPECT_EQ(Own(), Rows{"Next"});
}

// Closing -------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalSaving, AShippedRecordClosesAtOnce) {
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmchemicalSaving, AnAddedRecordIsSavedWithoutAsking) {
  Add();
  Fill("Mine");
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Own(), Rows{"Mine"});
}

TEST_F(FrmchemicalSaving, AnAddedRecordThatIsRefusedKeepsTheWindowOpen) {
  Add();
  ExpectIncomplete();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
  Fill("Benzene");
  ExpectDuplicate();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
}

TEST_F(FrmchemicalSaving, APersonsOwnRecordAsksEvenWhenNothingChanged) {
  AddSaved("Mine");
  Close(Answer::kYes);
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmchemicalSaving, YesSavesAndCloses) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  Close(Answer::kYes);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT"}), Rows{"99"});
}

TEST_F(FrmchemicalSaving, YesToARecordThatIsRefusedKeepsTheWindowOpen) {
  AddSaved("Mine");
  Type("txtMOLWT", "0");
  host_.ExpectMessage("Save Changes?", Answer::kYes);
  ExpectIncomplete();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
}

TEST_F(FrmchemicalSaving, NoDiscardsTheEditsAndCloses) {
  AddSaved("Mine");
  Type("txtMOLWT", "0");
  Close(Answer::kNo);
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT"}), Rows{"72.15"});
}

// Failures ------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalSaving, FailuresReachTheReporter) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  session_.ReferenceDb->DeleteTable("chemical");
  const auto fails = [&] { host_.ExpectError(3011, "frmChemical."); };
  fails();
  Save();
  fails();
  Pick("dbcboChemName", "Benzene");
  fails();
  Add();
  host_.ExpectMessage("Are you sure you want to delete this record?");
  fails();
  ClickDelete(session_, form_);
  fails();
  OpenFrmchemical(session_);
  host_.ExpectMessage("Save Changes?", Answer::kYes);
  fails();
  ClickClose(session_, form_);
  EXPECT_FALSE(form_.window.closed);
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(Shown("txtMOLWT"), "99");
}

TEST_F(FrmchemicalSaving, WhatWasRefusedByAFileInUseCanBeSavedLater) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  {
    const test::LockedFile locked(session_.TankPath);
    host_.ExpectError(3260, "frmChemical.");
    Save();
  }
  Save();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT"}), Rows{"99"});
}

}  // namespace
}  // namespace orvex::refdata
