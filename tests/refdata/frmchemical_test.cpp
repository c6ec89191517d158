#include "refdata/frmchemical.h"

#include <algorithm>

#include "refdata/captions.h"
#include "refdata/chemical_fixture.h"

namespace orvex::refdata {
namespace {

using test::Rows;

class FrmchemicalTest : public test::ChemicalTest {};

// Opening -------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalTest, OpensOnTheFirstRecordReadOnly) {
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
  EXPECT_EQ(Shown("dbcboCAS"), "105-57-7");
  EXPECT_EQ(Shown("cboCategory"), "Organic Liquids");
  EXPECT_EQ(Shown("txtVP_COEF_A"), "7.38661");
  EXPECT_EQ(Shown("txtVP_40"), "0");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_FALSE(At(form_, "cboCategory").box.enabled);
  EXPECT_TRUE(At(form_, "dbcboChemName").box.enabled);
  EXPECT_TRUE(At(form_, "dbcboCAS").box.enabled);
  for (const auto* button : {&form_.cmdAddNew, &form_.cmdSave, &form_.cmdDelete, &form_.cmdClose, &form_.cmdHelp})
    EXPECT_TRUE(button->enabled);
}

TEST_F(FrmchemicalTest, OpensWithTheStatusLoading) {
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Loading, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(FrmchemicalTest, OpensEnabledWhenTheFirstRecordIsThePersonsOwn) {
  session_.ReferenceDb->Execute("DELETE * FROM chemical");
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Mine"}, {"USER_DEF", true}});
  form_ = {};
  Open(OpenFrmchemical);
  EXPECT_EQ(Shown("dbcboChemName"), "Mine");
  EXPECT_TRUE(form_.panel.enabled);
  EXPECT_TRUE(At(form_, "txtMOLWT").box.enabled);
}

TEST_F(FrmchemicalTest, ListsNamesAndNumbersInTheirOrder) {
  const auto& names = Items("dbcboChemName");
  EXPECT_EQ(names.front(), "Acetal");
  EXPECT_EQ(std::ssize(names), session_.ReferenceDb->OpenTable("chemical").RecordCount());
  EXPECT_LT(Items("dbcboCAS").size(), names.size()) << "some have no number";
  EXPECT_EQ(Items("cboCategory"), (Rows{"Organic Liquids", "Petroleum Distillates", "Crude Oils"}));
}

TEST_F(FrmchemicalTest, IsLabelledAsItsRecords) {
  EXPECT_EQ(kFrmchemicalText.title, "Chemical");
  const std::vector<std::pair<std::string, std::string>> captions = {
      {"dbcboChemName", "Chemical Name:"},
      {"dbcboCAS", "CAS Number:"},
      {"cboCategory", "Category:"},
      {"txtVP_MOLWT", "Vapor Molecular Weight:"},
      {"txtMOLWT", "Liq. Mol. Weight:"},
      {"txtL_DENS", "Liquid Density (lb/gal @ 60F):"},
      {"txtVP_40", "40F:"},
      {"txtVP_100", "100F:"},
      {"txtREID", "Option 4: Reid Vapor Pressure (psia): (Distillates, Crude Oil)"},
      {"txtASTM_SLOPE", "ASTM Slope: (Distillates Only)"},
      {"picChem", "Vapor Pressure Information (fill in one or more options completely)"},
  };
  for (const auto& [control, caption] : captions) EXPECT_EQ(test::Caption(kFrmchemicalText, control), caption);
  EXPECT_EQ(At(form_, "txtVP_70").info->group, "Option 1: Enter Vapor Pressure (psia) for each temperature:");
  EXPECT_EQ(At(form_, "txtVP_COEF_B").info->group, "Option 2: Constants for Antoine's Equation (using C)");
  EXPECT_EQ(At(form_, "txtVP_2_B").info->group, "Option 3: Constants for Antoine's Equation (using K)");
  const std::vector<std::pair<std::string, std::string>> commands = {{"cmdAddNew", "&Add New"},
                                                                     {"cmdSave", "&Save"},
                                                                     {"cmdDelete", "&Delete"},
                                                                     {"cmdClose", "Close"},
                                                                     {"cmdHelp", "&Help"}};
  for (const auto& [control, caption] : commands) EXPECT_EQ(test::MarkedCaption(kFrmchemicalText, control), caption);
}

TEST_F(FrmchemicalTest, HelpOpensItsTopic) {
  ClickHelp(session_, form_);
  EXPECT_EQ(host_.help, Rows{"chemicals_edit"});
}

// Finding -------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalTest, IsFoundByName) {
  host_.status.clear();
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboCAS"), "71-43-2");
  EXPECT_EQ(Shown("txtMOLWT"), "78.114");
  EXPECT_EQ(host_.status, (Rows{"Processing, please wait...", "Ready"}));
}

TEST_F(FrmchemicalTest, IsFoundByNumber) {
  Pick("dbcboCAS", "71-43-2");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
  EXPECT_EQ(Shown("cboCategory"), "Organic Liquids");
}

TEST_F(FrmchemicalTest, TheCategoryAndThePanelFollowTheRecord) {
  AddSaved("Mine");
  Pick("dbcboChemName", "Crude oil (RVP 5)");
  EXPECT_EQ(Shown("cboCategory"), "Crude Oils");
  EXPECT_FALSE(form_.panel.enabled);
  Pick("dbcboChemName", "Mine");
  EXPECT_EQ(Shown("cboCategory"), "Organic Liquids");
  EXPECT_TRUE(form_.panel.enabled);
}

TEST_F(FrmchemicalTest, OfNamesThatDifferInCaseTheOnePickedIsFound) {
  AddSaved("BENZENE");
  Pick("dbcboChemName", "Benzene");
  EXPECT_FALSE(form_.user_defined);
  Pick("dbcboChemName", "BENZENE");
  EXPECT_TRUE(form_.user_defined);
}

TEST_F(FrmchemicalTest, ATextThatFindsNothingIsPutBack) {
  Pick("dbcboChemName", "Unobtainium");
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
  Pick("dbcboCAS", "0-0-0");
  EXPECT_EQ(Shown("dbcboCAS"), "105-57-7");
}

TEST_F(FrmchemicalTest, WhatIsTypedOverAShippedRecordIsPutBack) {
  for (const auto* control : {"dbcboChemName", "dbcboCAS", "txtMOLWT"}) {
    const auto before = Shown(control);
    At(form_, control).box.text = "12x";
    LeaveEntry(session_, form_, control);
    EXPECT_EQ(Shown(control), before);
  }
}

TEST_F(FrmchemicalTest, APickSavesTheChangesOfAPersonsOwnRecord) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT"}), Rows{"99"});
}

TEST_F(FrmchemicalTest, APickSavesAnAddedRecordWithoutAskingForAnother) {
  Add();
  Fill("Mine");
  Pick("dbcboCAS", "71-43-2");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Own(), Rows{"Mine"});
}

TEST_F(FrmchemicalTest, APickGoesNoFurtherWhenTheSaveIsRefused) {
  AddSaved("Mine");
  Type("txtMOLWT", "0");
  Type("dbcboCAS", "1-2-3");
  ExpectIncomplete();
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "Mine");
  EXPECT_EQ(Shown("dbcboCAS"), "1-2-3");
  EXPECT_EQ(Shown("txtMOLWT"), "0") << "the edits stay on show";
  ExpectIncomplete();
  Pick("dbcboCAS", "71-43-2");
  EXPECT_EQ(Shown("dbcboCAS"), "1-2-3");
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT", "CAS"}), Rows{"72.15|-"});
}

TEST_F(FrmchemicalTest, ARecordLeftAsItWasIsNotTestedByAPick) {
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Half"}, {"USER_DEF", true}});
  Pick("dbcboChemName", "Half");
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
}

// Adding --------------------------------------------------------------------------------------------------------------

TEST_F(FrmchemicalTest, AddNewAppendsAnEmptyRecordOfThePersonsOwn) {
  host_.status.clear();
  Add();
  EXPECT_EQ(Own(), Rows{"-"});
  EXPECT_EQ(Shown("dbcboChemName"), "");
  EXPECT_EQ(Shown("dbcboCAS"), "");
  EXPECT_EQ(Shown("cboCategory"), "");
  EXPECT_TRUE(At(form_, "cboCategory").box.enabled);
  EXPECT_TRUE(form_.panel.enabled);
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  EXPECT_EQ(form_.window.focus, "dbcboChemName");
}

TEST_F(FrmchemicalTest, AddNewSavesChangesFirst) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  Add();
  EXPECT_EQ(Query("SELECT * FROM chemical WHERE USER_DEF = True", {"NAME", "MOLWT"}), (Rows{"Mine|99", "-|-"}));
}

TEST_F(FrmchemicalTest, ARefusedSaveStopsAddNew) {
  AddSaved("Mine");
  Type("txtL_DENS", "0");
  ExpectIncomplete();
  Add();
  EXPECT_EQ(Own(), Rows{"Mine"});
  EXPECT_EQ(Shown("dbcboChemName"), "Mine");
  EXPECT_TRUE(form_.cmdAddNew.enabled);
}

}  // namespace
}  // namespace orvex::refdata
