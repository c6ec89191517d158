#include "windows/editor_walk.h"

namespace orvex::test {
namespace {

class KeyboardChemical : public EditorWalk {
 protected:
  /// What a chemical needs beside its name and a vapor pressure.
  void DescribeLiquid(const QString& category) {
    typist_.Arrow("cboCategory", category);
    typist_.Fill("txtMOLWT", "118.18");
    typist_.Fill("txtVP_MOLWT", "118.18");
    typist_.Fill("txtL_DENS", "6.93");
  }

  /// Fills in option 2, at first with a text that is no number.
  void GiveConstants() {
    typist_.Fill("txtVP_COEF_A", "7.386");
    typist_.Fill("txtVP_COEF_B", "1462.6");
    typist_.Fill("txtVP_COEF_C", "much");
    typist_.Keys({"Tab"});
    typist_.Reply("Please enter a number.", "Return");
    typist_.ExpectFocus("txtVP_COEF_C");
    typist_.Read("txtVP_COEF_C", "0");
    typist_.Type("220.99");
  }
};

TEST_F(KeyboardChemical, ChemicalIsAddedFoundAgainAndChanged) {
  OpenEditor("C", "frmchemical");
  AddRecord("frmchemical", "dbcboChemName");
  typist_.Type("Lakeside Solvent 7");
  typist_.Fill("dbcboCAS", "990-07-7");
  DescribeLiquid("Organic Liquids");
  typist_.Keys({"Alt+S"});
  // Without a vapor pressure it is refused, and stays on show.
  typist_.Reply(
      "Record cannot be saved. The chemical name, category, molecular weights, and density must be filled in along "
      "with one of the 4 bottom sections.",
      "Return");
  typist_.Read("dbcboChemName", "Lakeside Solvent 7");
  GiveConstants();
  SaveAdded();
  // Off to a shipped one by its number, and back by a part of the name.
  typist_.Find("dbcboCAS", "71-43-2", "71-43-2");
  typist_.Read("dbcboChemName", "Benzene");
  typist_.Find("dbcboChemName", "solvent 7", "Lakeside Solvent 7");
  typist_.Read("dbcboCAS", "990-07-7");
  typist_.Read("txtVP_COEF_C", "220.99");
  typist_.Fill("txtL_DENS", "7.01");
  typist_.Look("frmchemical");
  CloseWithQuestion("Return");
  RunToTheEnd();
  EXPECT_EQ(Rows("chemical", "NAME = 'Lakeside Solvent 7' AND L_DENS = 7.01 AND VP_COEF_C = 220.99"), 1);
}

TEST_F(KeyboardChemical, ChemicalOfOnesOwnIsDeleted) {
  OpenEditor("C", "frmchemical");
  AddRecord("frmchemical", "dbcboChemName");
  typist_.Type("Lakeside Solvent 7");
  DescribeLiquid("Crude Oils");
  typist_.Fill("txtREID", "5");
  SaveAdded();
  typist_.TabTo("cmdClose");
  typist_.Keys({"Return"});
  typist_.Reply("Save Changes?", "Alt+N");
  OpenEditorAgain("C", "frmchemical");
  typist_.Find("dbcboChemName", "solvent 7", "Lakeside Solvent 7");
  typist_.Read("txtREID", "5");
  DeleteAndClose();
  RunToTheEnd();
  EXPECT_EQ(Rows("chemical", "NAME = 'Lakeside Solvent 7'"), 0);
}

TEST_F(KeyboardChemical, NameOfAShippedChemicalIsTypedAndRefusedAsADuplicate) {
  OpenEditor("C", "frmchemical");
  AddRecord("frmchemical", "dbcboChemName");
  typist_.Type("Benzene");
  typist_.Keys({"Return", "Tab"});
  typist_.Read("dbcboChemName", "Benzene");
  DescribeLiquid("Crude Oils");
  typist_.Fill("txtREID", "5");
  typist_.Keys({"Alt+S"});
  typist_.Reply("Duplicate chemical name.", "Return");
  typist_.Read("dbcboChemName", "Benzene1");
  SaveAdded();
  CloseWithQuestion("Alt+N");
  RunToTheEnd();
  EXPECT_EQ(Rows("chemical", "NAME = 'Benzene1' AND REID = 5 AND USER_DEF = True"), 1);
  EXPECT_EQ(Rows("chemical", "NAME = 'Benzene'"), 1);
}

TEST_F(KeyboardChemical, ShippedChemicalIsNeitherChangedNorDeleted) {
  OpenEditor("C", "frmchemical");
  typist_.Find("dbcboChemName", "toluene", "Toluene");
  typist_.In("frmchemical",
             [](QWidget& window) { EXPECT_FALSE(Find<QWidget>(window, QStringLiteral("txtMOLWT")).isEnabled()); });
  typist_.Keys({"Alt+S", "Alt+D"});
  typist_.Reply("Record is not user defined.  It cannot be deleted.", "Return");
  typist_.Keys({"Esc"});
  RunToTheEnd();
  EXPECT_EQ(Rows("chemical", "NAME = 'Toluene' AND USER_DEF = False"), 1);
}

}  // namespace
}  // namespace orvex::test
