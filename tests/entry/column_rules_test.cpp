#include "entry/column_rules.h"

#include <string>
#include <utility>
#include <vector>

#include "entry/physical_rules.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using shell::Buttons;

class ColumnRulesTest : public test::TankEntryTest {
 protected:
  FrmTank& OpenInternal(test::FieldValues fields = {}) {
    auto& form = OpenTank(shell::kInternalFloatingRoof);
    test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, fields);
    ShowTank(session_, form);
    ShowFloatingRoofEntries(session_, form);
    return form;
  }
  void ExpectEstimate(const std::string& columns, Buttons buttons, Answer answer) {
    host_.ExpectMessage("Estimated number of Columns is " + columns + " .  Use this Estimate?", "Number of Columns",
                        buttons, shell::Icon::kNone, answer);
  }
  void Leave(const std::string& control, const std::string& text) {
    Type(control, text);
    CheckLostFocus(session_, Editor(session_));
  }
  store::RecordSet Row() { return session_.ClientDb->OpenAt("tank", "ID", {Editor(session_).ID}); }
  void AddFitting(std::int32_t ID, std::int32_t number, std::string_view type, double quantity) {
    test::AddRow(*session_.ClientDb, "fittings",
                 {{"ID", ID}, {"FIT ID", number}, {"FIT_TYPE", type}, {"QUANTITY", quantity}});
  }
  double Quantity(std::int32_t ID, std::int32_t number) {
    return session_.ClientDb->OpenAt("fittings", "fitid", {ID, number}).Double("QUANTITY");
  }
};

TEST_F(ColumnRulesTest, ASelfSupportingRoofHasNoColumns) {
  auto& form = OpenInternal({{"COL_NO", 6.0}, {"COL_DIAM", 1.1}});
  Choose("cboSelfSupIT", "Yes");
  EXPECT_EQ(Shown("txtColumnsIT"), "0");
  EXPECT_FALSE(At(form, "txtColumnsIT").box.enabled);
  EXPECT_TRUE(At(form, "txtColumnsIT").box.visible);
  EXPECT_EQ(Shown("cboColumnDiamIT"), "");
  EXPECT_FALSE(At(form, "cboColumnDiamIT").box.visible);
  CheckLostFocus(session_, form);
  EXPECT_TRUE(Row().Bool("SELF_SUP"));
  EXPECT_EQ(Row().Double("COL_NO"), 0);
  EXPECT_TRUE(Row().IsNull("COL_DIAM"));
}

TEST_F(ColumnRulesTest, AnyOtherRoofShowsItsColumns) {
  auto& form = OpenInternal({{"SELF_SUP", true}});
  Choose("cboSelfSupIT", "No");
  EXPECT_TRUE(At(form, "txtColumnsIT").box.enabled);
  EXPECT_TRUE(At(form, "cboColumnDiamIT").box.enabled);
  EXPECT_TRUE(At(form, "cboColumnDiamIT").box.visible);
  CheckLostFocus(session_, form);
  EXPECT_FALSE(Row().Bool("SELF_SUP"));
}

TEST_F(ColumnRulesTest, ALoadedTankShowsItsColumnsUnlessTheRoofSupportsItself) {
  auto& form = OpenInternal({{"COL_NO", 6.0}, {"COL_DIAM", 0.7}});
  EXPECT_TRUE(At(form, "cboColumnDiamIT").box.visible);
  EXPECT_EQ(Shown("cboColumnDiamIT"), "0.7");
  auto& other = OpenInternal({{"SELF_SUP", true}});
  EXPECT_FALSE(At(other, "cboColumnDiamIT").box.visible);
  EXPECT_FALSE(At(other, "txtColumnsIT").box.enabled);
}

TEST_F(ColumnRulesTest, AChosenColumnDiameterIsReplacedByItsNumber) {
  auto& form = OpenInternal();
  const std::pair<std::string, std::string> items[] = {
      {"9\" by 7\" Built-Up Column", "1.1"}, {"8\" Diameter Pipe", "0.7"}, {"Unknown", "1"}};
  for (const auto& [item, number] : items) {
    Choose("cboColumnDiamIT", item);
    EXPECT_EQ(Shown("cboColumnDiamIT"), number) << item;
  }
  CheckLostFocus(session_, form);
  EXPECT_EQ(Row().Double("COL_DIAM"), 1.0);
  EXPECT_EQ(At(form, "cboColumnDiamIT").box.items.size(), 3U);
}

TEST_F(ColumnRulesTest, ATypedColumnDiameterIsStoredAsTyped) {
  auto& form = OpenInternal();
  Type("cboColumnDiamIT", "0.85");
  CheckLostFocus(session_, form);
  EXPECT_EQ(Shown("cboColumnDiamIT"), "0.85");
  EXPECT_EQ(Row().Double("COL_DIAM"), 0.85);
}

TEST_F(ColumnRulesTest, AnyOtherTypedColumnDiameterIsIgnored) {
  auto& form = OpenInternal({{"COL_DIAM", 0.7}});
  for (const std::string text : {"wide", "", "1,1", "nan", "inf", "0x10", "1e999", "\x01"}) {
    Type("cboColumnDiamIT", text);
    CheckLostFocus(session_, form);
    EXPECT_EQ(Shown("cboColumnDiamIT"), "0.7") << text;
    EXPECT_EQ(Row().Double("COL_DIAM"), 0.7) << text;
  }
}

TEST_F(ColumnRulesTest, ComingToAMissingNumberOfColumnsOffersTheUsualOne) {
  auto& form = OpenInternal({{"DIAMETER", 100.0}});
  ExpectEstimate("6", Buttons::kOkCancel, Answer::kCancel);
  EnterEntry(session_, form, "txtColumnsIT");
  EXPECT_EQ(Shown("txtColumnsIT"), "0");
  ExpectEstimate("6", Buttons::kOkCancel, Answer::kOk);
  EnterEntry(session_, form, "txtColumnsIT");
  EXPECT_EQ(Shown("txtColumnsIT"), "6");
  EnterEntry(session_, form, "txtColumnsIT");
  EXPECT_EQ(Row().Double("COL_NO"), 6);
}

TEST_F(ColumnRulesTest, ActivatingTheNumberOfColumnsOffersTheUsualOneAtAnyTime) {
  auto& form = OpenInternal({{"DIAMETER", 86.0}, {"COL_NO", 4.0}});
  ExpectEstimate("6", Buttons::kOkCancel, Answer::kCancel);
  ActivateEntry(session_, form, "txtColumnsIT");
  EXPECT_EQ(Shown("txtColumnsIT"), "4");
  ExpectEstimate("6", Buttons::kOkCancel, Answer::kOk);
  ActivateEntry(session_, form, "txtColumnsIT");
  EXPECT_EQ(Shown("txtColumnsIT"), "6");
}

TEST_F(ColumnRulesTest, TheBandsOfTheEstimateAreClosedAbove) {
  auto& form = OpenInternal({{"DIAMETER", 85.0}});
  ExpectEstimate("1", Buttons::kOkCancel, Answer::kCancel);
  EnterEntry(session_, form, "txtColumnsIT");
  At(form, "txtDiameterIT").box.text = "85.0000000000001";  // the next number that 15 digits can tell
  ExpectEstimate("6", Buttons::kOkCancel, Answer::kCancel);
  EnterEntry(session_, form, "txtColumnsIT");
}

TEST_F(ColumnRulesTest, LeavingTheDiameterOffersNoColumnsWhileNoneAreGiven) {
  OpenInternal({{"DIAMETER", 100.0}});
  Leave("txtDiameterIT", "200");
  EXPECT_EQ(Shown("txtColumnsIT"), "0");
  ExpectEstimate("22", Buttons::kOkCancel, Answer::kCancel);
  EnterEntry(session_, Editor(session_), "txtColumnsIT");
}

TEST_F(ColumnRulesTest, LeavingAChangedDiameterOffersTheColumnsThatGoWithIt) {
  auto& form = OpenInternal({{"DIAMETER", 100.0}, {"COL_NO", 6.0}});
  AddFitting(form.ID, 1, "Column Well (24-in. Diam.)", 6);
  ExpectEstimate("22", Buttons::kYesNo, Answer::kNo);
  Leave("txtDiameterIT", "200");
  EXPECT_EQ(Shown("txtColumnsIT"), "6");
  EXPECT_EQ(Quantity(form.ID, 1), 6);
  ExpectEstimate("31", Buttons::kYesNo, Answer::kYes);
  Leave("txtDiameterIT", "230");
  EXPECT_EQ(Shown("txtColumnsIT"), "31");
  EXPECT_EQ(Quantity(form.ID, 1), 31);
  EXPECT_EQ(Row().Double("COL_NO"), 31);
}

TEST_F(ColumnRulesTest, LeavingADiameterThatIsNotChangedOrFitsOffersNothing) {
  OpenInternal({{"DIAMETER", 100.0}, {"COL_NO", 5.0}});
  Leave("txtDiameterIT", "100");
  OpenInternal({{"DIAMETER", 100.0}, {"COL_NO", 6.0}});
  Leave("txtDiameterIT", "99");
  EXPECT_EQ(Shown("txtColumnsIT"), "6");
}

TEST_F(ColumnRulesTest, LeavingTheNumberOfColumnsSetsTheFirstColumnWell) {
  auto& form = OpenInternal({{"COL_NO", 6.0}});
  AddFitting(form.ID, 1, "Ladder Well (36-in. Diam.)", 1);
  AddFitting(form.ID, 2, "Column Well (24-in. Diam.)", 6);
  AddFitting(form.ID, 3, "Column Well (24-in. Diam.)", 5);
  AddFitting(form.ID + 1, 1, "Column Well (24-in. Diam.)", 4);
  Leave("txtColumnsIT", "9");
  EXPECT_EQ(Quantity(form.ID, 1), 1);
  EXPECT_EQ(Quantity(form.ID, 2), 9);
  EXPECT_EQ(Quantity(form.ID, 3), 5);
  EXPECT_EQ(Quantity(form.ID + 1, 1), 4) << "of another tank";
}

TEST_F(ColumnRulesTest, ATankWithoutColumnWellsGetsNone) {
  auto& form = OpenInternal({{"COL_NO", 6.0}});
  AddFitting(form.ID, 1, "Ladder Well (36-in. Diam.)", 1);
  Leave("txtColumnsIT", "9");
  EXPECT_EQ(session_.ClientDb->OpenTable("fittings").RecordCount(), 1);
  EXPECT_EQ(Quantity(form.ID, 1), 1);
}

}  // namespace
}  // namespace orvex::entry
