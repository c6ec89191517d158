#include "entry/frmrecfit.h"

#include <cctype>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "emission/validate.h"
#include "entry/fittings_fixture.h"

namespace orvex::entry {
namespace {

using test::kColumnWell;
using test::kHatch;
using test::kHatchBolted;
using test::kHatchGasketed;
using test::kIncomplete;
using test::kStubDrain;
using Texts = std::vector<std::string>;

using FrmrecfitTest = test::FittingsTest;

TEST(FrmrecfitText, NamesEveryControlWithItsTipAndItsOwnAccessKey) {
  EXPECT_EQ(kFrmrecfitText.name, "frmrecfit");
  EXPECT_EQ(kFrmrecfitText.topic, "fittings_entry");
  std::set<int> keys;
  for (const auto& control : kFrmrecfitText.controls) {
    EXPECT_FALSE(control.tip.empty()) << control.name;
    const auto at = control.caption.find('&');
    if (at == std::string_view::npos) {
      EXPECT_FALSE(control.name.starts_with("cmd")) << control.name;
    } else {
      EXPECT_TRUE(keys.insert(std::toupper(control.caption.at(at + 1))).second) << control.name;
    }
  }
}

TEST_F(FrmrecfitTest, ATankWithoutFittingsGetsOneEmptyRowWhichCannotBeLeft) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  EXPECT_EQ(Fittings(), Texts{"1: -  / "});
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 1");
  EXPECT_FALSE(form.cmdNext.enabled);
  EXPECT_FALSE(form.cmdPrevious.enabled);
  EXPECT_EQ(form.txtQuantity.text, "0");
  host_.ExpectMessage(std::string(kIncomplete));
  ClickClose(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.window.focus, "cboFitType");
}

TEST_F(FrmrecfitTest, OpensOnTheFirstOfTheTanksFittings) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 2);
  AddFitting(2, kStubDrain, "", 80);
  auto form = OpenFrmrecfit(session_);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 2");
  EXPECT_EQ(form.cboFitType.text, kHatch);
  EXPECT_EQ(form.cboStatus.text, kHatchBolted);
  EXPECT_EQ(form.txtQuantity.text, "2");
  EXPECT_FALSE(form.cmdPrevious.enabled);
  EXPECT_TRUE(form.cmdNext.enabled);
  EXPECT_EQ(host_.status, (Texts{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(Fittings().size(), 2U);
}

TEST_F(FrmrecfitTest, NextIsOffForAnOnlyFitting) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  EXPECT_FALSE(OpenFrmrecfit(session_).cmdNext.enabled);
}

TEST_F(FrmrecfitTest, ListsEachTypeOfTheReferenceTableOnce) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  const auto form = OpenFrmrecfit(session_);
  Texts types;
  for (auto rows = session_.ReferenceDb->OpenTable("fitting"); !rows.AtEnd(); rows.MoveNext())
    if (types.empty() || types.back() != rows.Text("FIT_TYPE")) types.push_back(rows.Text("FIT_TYPE"));
  EXPECT_EQ(form.cboFitType.items, types);
  EXPECT_EQ(types.size(), 14U);
}

TEST_F(FrmrecfitTest, ListsTheStatusesOfTheTypeShown) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  EXPECT_EQ(form.cboStatus.items, Texts());
  ChooseType(form, kHatch);
  EXPECT_EQ(form.cboStatus.items,
            (Texts{"Bolted Cover, Gasketed", "Unbolted Cover, Gasketed", "Unbolted Cover, Ungasketed"}));
  ChooseType(form, kStubDrain);
  EXPECT_EQ(form.cboStatus.items, Texts()) << "it has no statuses";
}

TEST_F(FrmrecfitTest, ATypeWithoutStatusBringsFactorsAndQuantityOfItsFirstRow) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  ChooseType(form, "Roof Drain (3-in. Diameter)");
  EXPECT_EQ(form.txtQuantity.text, "1");
  EXPECT_EQ(form.txtK_FA.text, "1.8");
  EXPECT_EQ(form.txtK_FB.text, "0.14");
  EXPECT_EQ(form.txtK_M.text, "1.1");
  EXPECT_EQ(Row(1).Text("FIT_TYPE"), "Roof Drain (3-in. Diameter)");
  EXPECT_EQ(Row(1).Double("K_FA"), 1.8);
  EXPECT_EQ(Row(1).Double("K_FB"), 0.14);
  EXPECT_EQ(Row(1).Double("K_M"), 1.1);
  EXPECT_TRUE(Row(1).IsNull("COVR_TYPE"));
}

TEST_F(FrmrecfitTest, AStatusBringsItsFactorsAndKeepsTheQuantityGiven) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  ChooseType(form, kHatch);
  TypeQuantity(form, "5");
  ChooseStatus(form, kHatchGasketed);
  EXPECT_EQ(Fittings(), Texts{"1: 5 Access Hatch (24-in. Diam.) / Unbolted Cover, Gasketed"});
  EXPECT_EQ(Row(1).Double("K_FA"), 31);
  EXPECT_EQ(Row(1).Double("K_FB"), 5.2);
  EXPECT_EQ(Row(1).Double("K_M"), 1.3);
  EXPECT_EQ(form.txtK_FA.text, "31");
}

TEST_F(FrmrecfitTest, AStatusBringsTheQuantityThatIsMissing) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, "", 0);
  auto form = OpenFrmrecfit(session_);
  ChooseStatus(form, kHatchBolted);
  EXPECT_EQ(form.txtQuantity.text, "1");
  EXPECT_EQ(Row(1).Double("QUANTITY"), 1);
}

TEST_F(FrmrecfitTest, AStatusThatTheNewTypeHasTooIsKept) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 1);
  auto form = OpenFrmrecfit(session_);
  ChooseType(form, "Automatic Gauge Float Well");
  EXPECT_EQ(form.cboStatus.text, kHatchBolted);
  EXPECT_EQ(Row(1).Double("K_FA"), 2.8) << "of type and status";
  ChooseType(form, "Roof Drain (3-in. Diameter)");
  EXPECT_EQ(form.cboStatus.text, "") << "which has none of that name";
  EXPECT_TRUE(Row(1).IsNull("COVR_TYPE"));
  EXPECT_EQ(Row(1).Double("K_FA"), 1.8);
}

TEST_F(FrmrecfitTest, ATypeThatIsNotInTheReferenceTableKeepsQuantityAndFactors) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, "Own design", "Loose", 4);
  test::ChangeRow(*session_.ClientDb, "fittings", "fitid", {Editor(session_).ID, 1}, {{"K_FA", 9.5}});
  auto form = OpenFrmrecfit(session_);
  EXPECT_EQ(form.cboFitType.text, "Own design");
  ChooseType(form, "Another design");
  EXPECT_EQ(Fittings(), Texts{"1: 4 Another design / "});
  EXPECT_EQ(Row(1).Double("K_FA"), 9.5);
}

TEST_F(FrmrecfitTest, ChangingTheTypeMakesATypicalTanksFittingsItsOwn) {
  for (const auto type :
       {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    OpenFloating(type, "Typical");
    AddFitting(1, kHatch, kHatchBolted, 1);
    auto form = OpenFrmrecfit(session_);
    ChooseType(form, kHatch);
    EXPECT_EQ(Category(), "Typical") << "nothing was changed";
    ChooseType(form, kStubDrain);
    EXPECT_EQ(Category(), "Detail") << type;
  }
}

TEST_F(FrmrecfitTest, ChangingTheStatusMakesATypicalTanksFittingsItsOwn) {
  OpenFloating(shell::kExternalFloatingRoof, "Typical");
  AddFitting(1, kHatch, kHatchBolted, 1);
  auto form = OpenFrmrecfit(session_);
  ChooseStatus(form, kHatchBolted);
  EXPECT_EQ(Category(), "Typical") << "nothing was changed";
  ChooseStatus(form, kHatchGasketed);
  EXPECT_EQ(Category(), "Detail");
  EXPECT_EQ(Fittings().size(), 1U) << "and nothing is built anew";
}

TEST_F(FrmrecfitTest, ATankWithoutACategoryGetsNone) {
  OpenFloating(shell::kExternalFloatingRoof, "");
  auto form = OpenFrmrecfit(session_);
  ChooseType(form, kStubDrain);
  EXPECT_EQ(Category(), "");
}

std::vector<bool> Guarded(const Frmrecfit& form) {
  return {form.cboFitType.enabled, form.cboStatus.enabled, form.txtQuantity.enabled, form.cmdDelete.enabled,
          form.cmdQuantity.enabled};
}
const std::vector<bool> kClosed(5, false), kOpen(5, true);

TEST_F(FrmrecfitTest, AColumnWellOfATypicalInternalTankCannotBeChangedOrDeleted) {
  OpenFloating(shell::kInternalFloatingRoof, "Typical");
  AddFitting(1, kColumnWell, "Pipe Col.-Sliding Cover, Gask.", 6);
  AddFitting(2, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  EXPECT_EQ(Guarded(form), kClosed);
  EXPECT_TRUE(form.cmdAdd.enabled);
  EXPECT_TRUE(form.cmdDeleteAll.enabled);
  EXPECT_TRUE(form.cmdClose.enabled);
  ClickNext(session_, form);
  EXPECT_EQ(Guarded(form), kOpen);
  ClickPrevious(session_, form);
  EXPECT_EQ(Guarded(form), kClosed);
}

TEST_F(FrmrecfitTest, AnyOtherColumnWellCan) {
  for (const auto& [type, category] :
       {std::pair{shell::kInternalFloatingRoof, "Detail"}, std::pair{shell::kExternalFloatingRoof, "Typical"}}) {
    OpenFloating(type, category);
    AddFitting(1, kColumnWell, "Pipe Col.-Sliding Cover, Gask.", 6);
    EXPECT_EQ(Guarded(OpenFrmrecfit(session_)), kOpen) << type << category;
  }
}

TEST_F(FrmrecfitTest, AFittingThatOnlySpeaksOfColumnWellsCan) {
  OpenFloating(shell::kInternalFloatingRoof, "Typical");
  AddFitting(1, "Cover of a Column Well", "");
  EXPECT_EQ(Guarded(OpenFrmrecfit(session_)), kOpen);
}

TEST_F(FrmrecfitTest, AFittingMadeAColumnWellIsThePersonsOwn) {
  OpenFloating(shell::kInternalFloatingRoof, "Typical");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  ChooseType(form, kColumnWell);
  EXPECT_EQ(Category(), "Detail");
  EXPECT_EQ(Guarded(form), kOpen);
}

TEST_F(FrmrecfitTest, NoCommandThatLeavesARowPassesOneWithoutTypeOrStatus) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kHatch, "", 1);
  AddFitting(3, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  for (auto* command : {ClickAdd, ClickNext, ClickPrevious, ClickClose}) {
    host_.ExpectMessage(std::string(kIncomplete));
    command(session_, form);
    EXPECT_EQ(form.lblRecord.text, "Record 2 of 3");
    EXPECT_EQ(form.window.focus, "cboStatus");
    EXPECT_FALSE(form.window.closed);
  }
}

TEST_F(FrmrecfitTest, AFittingWithoutStatusesNeedsNone) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kStubDrain, "", 3);
  auto form = OpenFrmrecfit(session_);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(FrmrecfitTest, NoCommandThatLeavesARowPassesOneWithoutQuantity) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 1);
  AddFitting(2, kStubDrain, "", 0);
  AddFitting(3, kHatch, kHatchGasketed, 1);
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  for (auto* command : {ClickAdd, ClickNext, ClickPrevious, ClickClose}) {
    host_.ExpectMessage("Quantity must be greater than zero.");
    command(session_, form);
    EXPECT_EQ(form.lblRecord.text, "Record 2 of 3");
    EXPECT_EQ(form.window.focus, "txtQuantity");
    EXPECT_FALSE(form.window.closed);
  }
}

TEST_F(FrmrecfitTest, TypeAndStatusAreLookedAtBeforeTheQuantity) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, "", "", 0);
  auto form = OpenFrmrecfit(session_);
  host_.ExpectMessage(std::string(kIncomplete));
  ClickClose(session_, form);
}

TEST_F(FrmrecfitTest, TwoRowsWithTheSameTypeAndStatusCannotBePassed) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kHatch, kHatchBolted);
  AddFitting(3, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  for (auto* command : {ClickNext, ClickAdd, ClickPrevious}) {
    host_.ExpectMessage("Duplicate Fitting");
    command(session_, form);
    EXPECT_EQ(form.lblRecord.text, "Record 1 of 3");
  }
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed) << "closing looks at the row alone";
}

TEST_F(FrmrecfitTest, TwoRowsOfATypeWithoutStatusesAreDuplicatesToo) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kStubDrain, "");
  AddFitting(2, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  host_.ExpectMessage("Duplicate Fitting");
  ClickNext(session_, form);
}

TEST_F(FrmrecfitTest, TheSameFittingOfAnotherTankIsNoDuplicate) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  ClickAdd(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 2 of 2");
}

TEST_F(FrmrecfitTest, AddMakesAnEmptyRowBehindTheLast) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  ClickAdd(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 2 of 2");
  EXPECT_EQ(form.cboFitType.text, "");
  EXPECT_EQ(form.cboStatus.text, "");
  EXPECT_EQ(form.cboStatus.items, Texts());
  EXPECT_EQ(form.txtQuantity.text, "0");
  EXPECT_EQ(form.txtK_FA.text, "0");
  EXPECT_TRUE(form.cmdPrevious.enabled);
  EXPECT_FALSE(form.cmdNext.enabled);
  EXPECT_EQ(Fittings(), (Texts{"1: 1 Access Hatch (24-in. Diam.) / Bolted Cover, Gasketed", "2: -  / "}));
}

TEST_F(FrmrecfitTest, AddGoesToTheNextRowWhereThereIsOne) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "", 7);
  AddFitting(3, kHatch, kHatchGasketed);
  auto form = OpenFrmrecfit(session_);
  ClickAdd(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 2 of 3");
  EXPECT_EQ(form.txtQuantity.text, "7");
  EXPECT_TRUE(form.cmdPrevious.enabled);
  EXPECT_TRUE(form.cmdNext.enabled);
  EXPECT_EQ(Fittings().size(), 3U);
}

TEST_F(FrmrecfitTest, NextAndPreviousWalkTheRows) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "", 7);
  AddFitting(3, kHatch, kHatchGasketed);
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  EXPECT_EQ(form.cboFitType.text, kStubDrain);
  EXPECT_TRUE(form.cmdPrevious.enabled);
  EXPECT_TRUE(form.cmdNext.enabled);
  ClickNext(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 3 of 3");
  EXPECT_EQ(form.cboStatus.text, kHatchGasketed);
  EXPECT_FALSE(form.cmdNext.enabled);
  ClickPrevious(session_, form);
  ClickPrevious(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 3");
  EXPECT_FALSE(form.cmdPrevious.enabled);
}

TEST_F(FrmrecfitTest, DeletingTheOnlyRowClosesTheWindowAndLeavesATankThatFailsInValidation) {
  const auto& tank = OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  ClickDelete(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(Fittings(), Texts());
  emission::Validate(session_, tank.ID);
  EXPECT_TRUE(session_.ValidationFailed);
  auto errors = session_.ClientDb->OpenQuery("SELECT * FROM error WHERE error = 'The tank must have fittings.'");
  EXPECT_EQ(errors.RecordCount(), 1);
}

TEST_F(FrmrecfitTest, DeletingARowNumbersTheOthersAgainAndGoesToTheOneBefore) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "", 7);
  AddFitting(3, kHatch, kHatchGasketed);
  AddFitting(4, "Own", "", 2);
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  ClickNext(session_, form);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 2 of 3");
  EXPECT_EQ(form.cboFitType.text, kStubDrain);
  EXPECT_EQ(Fittings(), (Texts{"1: 1 Access Hatch (24-in. Diam.) / Bolted Cover, Gasketed",
                               "2: 7 Stub Drain (1-in. Diameter) / ", "3: 2 Own / "}));
}

TEST_F(FrmrecfitTest, DeletingTheFirstRowShowsTheNewFirst) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "", 7);
  auto form = OpenFrmrecfit(session_);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 1");
  EXPECT_EQ(form.cboFitType.text, kStubDrain);
  EXPECT_FALSE(form.cmdNext.enabled);
  EXPECT_EQ(Fittings(), Texts{"1: 7 Stub Drain (1-in. Diameter) / "});
}

TEST_F(FrmrecfitTest, RowsAreNumberedInTheOrderOfTheTable) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(4, "d", "");
  AddFitting(1, "a", "");
  AddFitting(3, "c", "");
  AddFitting(2, "b", "");
  auto form = OpenFrmrecfit(session_);
  ClickDelete(session_, form);
  EXPECT_EQ(Fittings(), (Texts{"1: 1 d / ", "2: 1 c / ", "3: 1 b / "}));
}

TEST_F(FrmrecfitTest, DeletingLeavesOtherTanksAlone) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "");
  const auto other = Editor(session_).ID;
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(2, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  ClickDelete(session_, form);
  ClickDeleteAll(session_, form);
  EXPECT_EQ(session_.ClientDb->OpenMatching("fittings", "fitid", {other}).RecordCount(), 2);
}

TEST_F(FrmrecfitTest, DeleteAllLeavesOneEmptyRow) {
  OpenFloating(shell::kInternalFloatingRoof, "Typical");
  AddFitting(1, kColumnWell, "Pipe Col.-Sliding Cover, Gask.", 6);
  AddFitting(2, kStubDrain, "", 7);
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  ClickDeleteAll(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 1");
  EXPECT_EQ(form.cboFitType.text, "");
  EXPECT_EQ(form.cboStatus.text, "");
  EXPECT_FALSE(form.cmdNext.enabled);
  EXPECT_FALSE(form.cmdPrevious.enabled);
  EXPECT_EQ(Guarded(form), kOpen);
  EXPECT_EQ(Fittings(), Texts{"1: -  / "});
}

TEST_F(FrmrecfitTest, AQuantityIsStoredAsItIsLeft) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  for (const auto& [text, number] :
       {std::pair{"12", 12.0}, {"1,200", 1200.0}, {" 7 ", 7.0}, {"1e3", 1000.0}, {"2147483647", 2147483647.0}}) {
    TypeQuantity(form, text);
    EXPECT_EQ(Row(1).Double("QUANTITY"), number) << text;
  }
}

TEST_F(FrmrecfitTest, AQuantityThatIsNoNumberIsRefused) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 3);
  auto form = OpenFrmrecfit(session_);
  for (const std::string text : {"", "many", "1,5", "nan", "inf", "-inf", "0x10", "1e999", "1\n2", "--1"}) {
    host_.ExpectMessage("Please enter a number.");
    TypeQuantity(form, text);
    EXPECT_EQ(form.txtQuantity.text, "0") << text;
    EXPECT_EQ(form.window.focus, "txtQuantity");
    EXPECT_EQ(Row(1).Double("QUANTITY"), 0);
    TypeQuantity(form, "3");
  }
}

TEST_F(FrmrecfitTest, AQuantityThatIsNotWholeIsRefused) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 3);
  auto form = OpenFrmrecfit(session_);
  for (const auto& text :
       Texts{"2.5", "2.0000001", "2147483648", "1e300", "-2147483649", "1" + std::string(300, '0')}) {
    host_.ExpectMessage("Please enter a whole number.");
    TypeQuantity(form, text);
    EXPECT_EQ(form.txtQuantity.text, "0") << text;
    TypeQuantity(form, "3");
  }
}

TEST_F(FrmrecfitTest, AQuantityBelowZeroCannotBeLeft) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  TypeQuantity(form, "-3");
  host_.ExpectMessage("Quantity must be greater than zero.");
  ClickClose(session_, form);
}

TEST_F(FrmrecfitTest, AQuantityTypedAndNotLeftIsLookedAtByTheCommand) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  form.txtQuantity.text = "4x";
  host_.ExpectMessage("Please enter a number.");
  ClickAdd(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 1");
  form.txtQuantity.text = "4";
  ClickAdd(session_, form);
  EXPECT_EQ(Row(1).Double("QUANTITY"), 4);
}

TEST_F(FrmrecfitTest, AQuantityFromElsewhereStaysAsItIs) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted, 2.5);
  AddFitting(2, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  TypeQuantity(form, "2.5");
  ClickNext(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 2 of 2");
  EXPECT_EQ(Row(1).Double("QUANTITY"), 2.5);
}

TEST_F(FrmrecfitTest, ANumberThatIsMissingInTheFileStopsTheWalkQuietly) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  AddFitting(3, kStubDrain, "");
  auto form = OpenFrmrecfit(session_);
  ClickNext(session_, form);
  EXPECT_EQ(form.lblRecord.text, "Record 1 of 2");
  ClickDelete(session_, form);
  EXPECT_EQ(Fittings(), Texts{"1: 1 Stub Drain (1-in. Diameter) / "});
}

TEST_F(FrmrecfitTest, AFailureIsReportedUnderTheWindowsName) {
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  AddFitting(1, kHatch, kHatchBolted);
  auto form = OpenFrmrecfit(session_);
  session_.ReferenceDb->DeleteTable("fitting");
  host_.ExpectError(3011, "frmRecFit.");
  ChooseType(form, kStubDrain);
  host_.ExpectError(3011, "frmRecFit.");
  EXPECT_TRUE(OpenFrmrecfit(session_).window.closed);
}

}  // namespace
}  // namespace orvex::entry
