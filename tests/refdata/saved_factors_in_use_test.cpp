#include "emission/run_report.h"
#include "entry/frmrecfit.h"
#include "entry/tank_entry_fixture.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmrimseal.h"
#include "support/sample_tanks.h"

namespace orvex::refdata {
namespace {

/// A person who adds a record to a reference table.
class Editing {
 public:
  Editing(shell::Session& session, RecordEditor (*open)(shell::Session&)) : session_(session), form_(open(session)) {
    ClickAddNew(session_, form_);
  }
  void Type(const std::string& control, const std::string& text) {
    At(form_, control).box.text = text;
    TypeText(session_, form_, control);
    LeaveEntry(session_, form_, control);
  }
  void Choose(const std::string& control, const std::string& item) {
    At(form_, control).box.text = item;
    ChooseItem(session_, form_, control);
  }
  void Pick(const std::string& control, const std::string& item) {
    At(form_, control).box.text = item;
    PickRecord(session_, form_, control);
  }
  void SaveAndClose() {
    ClickClose(session_, form_);
    EXPECT_TRUE(form_.window.closed);
  }

 private:
  shell::Session& session_;
  RecordEditor form_;
};

void AddFoamSeal(shell::Session& session) {
  Editing seal(session, OpenFrmRimSeal);
  seal.Type("dbcboPrimSeal", "Foam");
  seal.Pick("cboConstruct", "Welded");
  seal.Type("txtK_RA", "7.5");
  seal.Choose("cboIFRT", "Yes");
  seal.SaveAndClose();
}

void AddEightFootSheet(shell::Session& session) {
  Editing seam(session, OpenFrmDeckSeam);
  seam.Choose("cboConstruct", "Sheet");
  seam.Type("txtSWIDTH", "8");
  seam.Type("txtKD", "0.25");
  seam.SaveAndClose();
}

using SavedRowsInTankEntry = test::TankEntryTest;

TEST_F(SavedRowsInTankEntry, AFittingIsOfferedAndBringsItsFactors) {
  Editing fitting(session_, OpenFrmFitting);
  fitting.Type("dbcboFitType", "Trap Door");
  fitting.Type("cboStatus", "Ajar");
  fitting.Type("txtK_FA", "12.5");
  fitting.SaveAndClose();

  OpenTank(shell::kInternalFloatingRoof);
  auto fittings = entry::OpenFrmrecfit(session_);
  EXPECT_EQ(fittings.cboFitType.items.back(), "Trap Door");
  fittings.cboFitType.text = "Trap Door";
  entry::ChooseFitType(session_, fittings);
  EXPECT_EQ(fittings.cboStatus.items, std::vector<std::string>{"Ajar"});
  fittings.cboStatus.text = "Ajar";
  entry::ChooseStatus(session_, fittings);
  auto row = session_.ClientDb->OpenAt("fittings", "fitid", {fittings.ID, 1});
  EXPECT_EQ(row.Double("K_FA"), 12.5);
  EXPECT_EQ(row.Double("K_FB"), 0) << "what nobody entered is a 0, which a run can use";
}

TEST_F(SavedRowsInTankEntry, ARimSealIsOffered) {
  AddFoamSeal(session_);
  OpenTank(shell::kInternalFloatingRoof);
  Choose("cboPrimaryIT", "Foam");
  EXPECT_EQ(entry::At(entry::Editor(session_), "cboPrimaryIT").box.items.back(), "Foam");
  entry::OpenList(session_, entry::Editor(session_), "cboSecondaryIT");
  EXPECT_EQ(entry::At(entry::Editor(session_), "cboSecondaryIT").box.items, std::vector<std::string>{"None"});
}

// The tank is 0 ft wide yet, and so is its seam.
TEST_F(SavedRowsInTankEntry, ADeckSeamIsOfferedAndBringsItsFactor) {
  AddEightFootSheet(session_);
  OpenTank(shell::kInternalFloatingRoof);
  Choose("cboDeckConstructIT", "Sheet");
  EXPECT_EQ(entry::At(entry::Editor(session_), "cboDeckSeamIT").box.items.back(), "Sheet: 8 ft Wide");
  host_.ExpectMessage("The suggested value is 0.00. Use This Value?", shell::Answer::kNo);
  Choose("cboDeckSeamIT", "Sheet: 8 ft Wide");
  EXPECT_EQ(Shown("txtSDIT"), "0.125");
}

/// A run over one tank, right after the editing.
class SavedRowsInTheRun : public testing::Test {
 protected:
  SavedRowsInTheRun() { session_.TankPath = session_.ReferenceDb->Path().string(); }

  store::RecordSet Run(std::int32_t ID) {
    session_.ReportTime = "Annual";
    session_.TankList = {test_.client().OpenAt("tank", "ID", {ID}).Text("USER ID")};
    emission::RunReport(session_);
    auto rows = test_.client().OpenTable("emission");
    EXPECT_FALSE(rows.AtEnd());
    return rows;
  }

  test::TestSession test_;
  shell::Session& session_ = test_.session;
};

TEST_F(SavedRowsInTheRun, ARimSealGivesItsFactors) {
  AddFoamSeal(session_);
  const auto ID = test::AddInternalTank(test_, {{"RIM_PRIM", "Foam"}, {"RIM_SEC", "None"}});
  EXPECT_EQ(Run(ID).Double("M_KRA"), 7.5);
}

TEST_F(SavedRowsInTheRun, ADeckSeamGivesItsFactor) {
  AddEightFootSheet(session_);
  const auto ID = test::AddInternalTank(test_, {{"DECK_CONSTRUCT", "Sheet"}, {"DECK_SEAM", "Sheet: 8 ft Wide"}});
  EXPECT_EQ(Run(ID).Double("KD"), 0.25);
}

}  // namespace
}  // namespace orvex::refdata
