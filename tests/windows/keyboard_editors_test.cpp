#include <string>

#include "shell/periods.h"
#include "windows/editor_walk.h"

namespace orvex::test {
namespace {

using KeyboardEditors = EditorWalk;

TEST_F(KeyboardEditors, CityIsAddedFoundAgainChangedAndDeleted) {
  const QString incomplete =
      "Record cannot be saved. All fields must be filled in. Delete this record if you do not wish to save it.";
  const auto fill = [this](const QString& family, const QString& number) {
    for (const auto& month : shell::kMonths)
      typist_.Fill("txt" + family + "_" + QString::fromLatin1(month.suffix.data()), number);
  };
  OpenEditor("M", "frmMet");
  AddRecord("frmMet", "txtCITY");
  typist_.Type("Bayport");
  typist_.Fill("dbcboState", "Texas");
  typist_.Read("dbcboMetCTYST", "Bayport, Texas");
  typist_.Fill("txtA_TEMP_DAA", "68.9");
  typist_.Fill("txtATMOS_PRS", "14.7");
  fill("TAX", "79");
  fill("TAN", "58");
  fill("INSOL", "1351");
  typist_.Keys({"Alt+S"});
  typist_.Reply(incomplete, "Return");
  typist_.Read("txtINSOL_DEC", "1351");
  fill("WIND", "7.4");
  typist_.Look("frmMet");
  SaveAdded();
  typist_.Find("dbcboMetCTYST", "mobile", "Mobile, Alabama");
  typist_.Find("dbcboMetCTYST", "bayport", "Bayport, Texas");
  typist_.Read("txtTAN_JUL", "58");
  typist_.Fill("txtTAX_JUL", "93.5");
  CloseWithQuestion("Return");
  OpenEditorAgain("M", "frmMet");
  typist_.Find("dbcboMetCTYST", "bayport", "Bayport, Texas");
  typist_.Read("txtTAX_JUL", "93.5");
  DeleteAndClose();
  RunToTheEnd();
  EXPECT_EQ(Rows("met", "CITY = 'Bayport'"), 0);
  EXPECT_EQ(Rows("met", "CTYST = 'Mobile, Alabama'"), 1);
}

TEST_F(KeyboardEditors, FittingIsAddedFoundAgainChangedAndDeleted) {
  OpenEditor("F", "frmFitting");
  AddRecord("frmFitting", "dbcboFitType");
  typist_.TabTo("txtK_FA");
  typist_.Type("0.47");
  typist_.Keys({"Alt+S"});
  typist_.Reply("Record cannot be saved. The fitting type must be filled in.", "Return");
  typist_.Fill("dbcboFitType", "Lakeside Port (6-in. Diam.)");
  typist_.Fill("cboStatus", "Slit Fabric");
  typist_.Fill("txtQUANTITY", "1");
  SaveAdded();
  typist_.Find("dbcboFitType", "access hatch", "Access Hatch (24-in. Diam.)");
  typist_.Read("txtK_FA", "1.6");
  typist_.Find("dbcboFitType", "lakeside", "Lakeside Port (6-in. Diam.)");
  typist_.Read("cboStatus", "Slit Fabric");
  typist_.Read("txtK_FA", "0.47");
  typist_.Fill("txtK_FA", "0.5");
  typist_.Look("frmFitting");
  CloseWithQuestion("Return");
  OpenEditorAgain("F", "frmFitting");
  typist_.Find("dbcboFitType", "lakeside", "Lakeside Port (6-in. Diam.)");
  typist_.Read("txtK_FA", "0.5");
  DeleteAndClose();
  RunToTheEnd();
  EXPECT_EQ(Rows("fitting", "USER_DEF = True"), 0);
}

TEST_F(KeyboardEditors, RimSealIsAddedFoundAgainChangedAndDeleted) {
  OpenEditor("R", "frmRimSeal");
  AddRecord("frmRimSeal", "dbcboPrimSeal");
  typist_.Type("Lakeside Wiper");
  typist_.Keys({"Alt+S"});
  typist_.Reply(
      "Record cannot be saved. Primary seal must be filled in, and the construction must be either 'Welded' or "
      "'Riveted'.",
      "Return");
  typist_.Arrow("cboConstruct", "Riveted");
  typist_.Fill("txtK_RA", "2.2");
  typist_.Fill("txtN_FACTOR", "1.6");
  typist_.Arrow("cboIFRT", "Yes");
  SaveAdded();
  // What was left empty.
  typist_.Read("cboSecSeal", "None");
  typist_.Find("dbcboPrimSeal", "mechanical", "Mechanical Shoe");
  typist_.Find("dbcboPrimSeal", "lakeside", "Lakeside Wiper");
  typist_.Read("cboConstruct", "Riveted");
  typist_.Fill("txtK_RA", "2.5");
  typist_.Look("frmRimSeal");
  CloseWithQuestion("Return");
  OpenEditorAgain("R", "frmRimSeal");
  typist_.Find("dbcboPrimSeal", "lakeside", "Lakeside Wiper");
  typist_.Read("txtK_RA", "2.5");
  typist_.Read("cboIFRT", "Yes");
  DeleteAndClose();
  RunToTheEnd();
  EXPECT_EQ(Rows("rimseal", "USER_DEF = True"), 0);
}

TEST_F(KeyboardEditors, DeckSeamIsAddedFoundAgainChangedAndDeleted) {
  OpenEditor("D", "frmDeckSeam");
  AddRecord("frmDeckSeam", "cboConstruct");
  typist_.Keys({"Alt+S"});
  typist_.Reply(
      "Record cannot be saved. Construction must be either 'Sheet' or 'Panel', and the applicable lengths and widths "
      "must be specified.",
      "Return");
  typist_.Arrow("cboConstruct", "Panel");
  typist_.Fill("txtPLENGTH", "5");
  typist_.Fill("txtPWIDTH", "10");
  typist_.Fill("txtKD", "0.14");
  typist_.Read("dbcboName", "Panel: 5 x 10 ft");
  // The joined texts, 510, by 5 times 10.
  typist_.Read("txtSD", "10.20");
  SaveAdded();
  typist_.Find("dbcboName", "6 ft wide", "Sheet: 6 Ft Wide");
  typist_.Find("dbcboName", "5 x 10", "Panel: 5 x 10 ft");
  typist_.Fill("txtAPICERT", "L-7");
  typist_.Read("dbcboName", "Panel: 5 x 10 ft (L-7)");
  typist_.Look("frmDeckSeam");
  CloseWithQuestion("Return");
  OpenEditorAgain("D", "frmDeckSeam");
  typist_.Find("dbcboName", "(l-7)", "Panel: 5 x 10 ft (L-7)");
  typist_.Read("txtSD", "10.20");
  DeleteAndClose();
  RunToTheEnd();
  EXPECT_EQ(Rows("deckseam", "USER_DEF = True"), 0);
}

TEST_F(KeyboardEditors, ProfileIsAddedFoundAgainChangedAndDeleted) {
  OpenEditor("S", "frmProfile");
  AddRecord("frmProfile", "dbcboProfName");
  typist_.Type("Lakeside Blend");
  typist_.Arrow("cboType", "Full");
  typist_.Find("dbcboCAS", "71-43-2", "71-43-2");
  typist_.Read("dbcboChemName", "Benzene");
  typist_.Fill("txtWT_FRACT", "60");
  typist_.TabTo("cmdAdd");
  typist_.Keys({"Return"});
  typist_.Read("lblComponentXofX", "Component 2 of 2");
  typist_.ExpectFocus("dbcboChemName");
  typist_.Find("dbcboCAS", "108-88-3", "108-88-3");
  typist_.Fill("txtWT_FRACT", "39.8");
  typist_.Keys({"Alt+S"});
  typist_.Reply("The sum of the component percents for a full profile must equal 100%.", "Return");
  typist_.Read("lblComponentXofX", "Component 1 of 2");
  typist_.Keys({"Alt+N"});
  typist_.Fill("txtWT_FRACT", "40");
  typist_.Look("frmProfile");
  typist_.Keys({"Alt+S"});
  typist_.Reply("Add Another Profile?", "Alt+N");
  typist_.Find("dbcboProfName", "btex", "BTEX Cut");
  typist_.Find("dbcboProfName", "lakeside", "Lakeside Blend");
  typist_.Fill("txtWT_FRACT", "60.05");
  CloseWithQuestion("Return");
  OpenEditorAgain("S", "frmProfile");
  typist_.Find("dbcboProfName", "lakeside", "Lakeside Blend");
  typist_.Read("txtWT_FRACT", "60.05");
  typist_.TabTo("cmdDelete");
  typist_.Keys({"Return"});
  typist_.Reply("Are you sure you want to delete this profile?", "Return");
  typist_.Keys({"Esc"});
  RunToTheEnd();
  EXPECT_EQ(Rows("profile names", "USER = True"), 0);
}

TEST_F(KeyboardEditors, RowsOfAReportAreChosenAndPutOut) {
  ComeToMenus();
  typist_.Keys({"Alt+D", "D", "P"});
  typist_.At("frmrepselect");
  typist_.Read("lblTable", "Deck Seam Report");
  typist_.Row("lstItems", "Sheet: 6 Ft Wide");
  typist_.Keys({"Alt+S"});
  typist_.Look("frmrepselect");
  typist_.Keys({"Alt+P"});
  typist_.At("frmprintrep");
  typist_.Keys({"Esc"});
  RunToTheEnd();
}

}  // namespace
}  // namespace orvex::test
