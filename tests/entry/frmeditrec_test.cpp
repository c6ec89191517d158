#include "entry/frmeditrec.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using Names = std::vector<std::string>;

std::vector<std::pair<std::int32_t, std::string>> opened;  // NOLINT: `Session::editRecord` takes no closure
const Frmeditrec* window_of_test = nullptr;                // NOLINT

class FrmeditrecTest : public test::TankEntryTest {
 protected:
  FrmeditrecTest() {
    opened.clear();
    session_.editRecord = [](shell::Session&, std::int32_t ID, const std::string& type) {
      EXPECT_TRUE(window_of_test->window.closed) << "hidden before the editor shows";
      opened.emplace_back(ID, type);
    };
  }

  void AddTank(const std::string& user_id, std::string_view type) {
    test::AddRow(*session_.ClientDb, "tank", {{"USER ID", user_id}, {"TANK_TYPE", type}});
  }
  void Edit(Frmeditrec& form) {
    window_of_test = &form;
    ClickEdit(session_, form);
  }
};

TEST_F(FrmeditrecTest, ListsTheTanksThatHaveAName) {
  AddTank("B", shell::kHorizontal);
  test::AddRow(*session_.ClientDb, "tank", {{"CITY", "No name yet"}});
  AddTank("A", shell::kVerticalFixedRoof);
  const auto form = OpenFrmeditrec(session_);
  EXPECT_EQ(form.lstTanks.items, (Names{"A", "B"}));
  EXPECT_TRUE(form.lstTanks.selected.empty());
  EXPECT_FALSE(form.cmdEdit.enabled);
}

TEST_F(FrmeditrecTest, ASelectionEnablesEditAndShowsTheTank) {
  test::AddRow(*session_.ClientDb, "tank",
               {{"USER ID", "A"}, {"CITY", "Enid"}, {"STATE", "Oklahoma"}, {"COMPANY", "Acme"}, {"TANK_TYPE", "X"}});
  AddTank("B", shell::kHorizontal);
  auto form = OpenFrmeditrec(session_);
  PickTank(session_, form, 0);
  EXPECT_TRUE(form.cmdEdit.enabled);
  EXPECT_EQ(form.details.txtUserID.text, "A");
  EXPECT_EQ(form.details.txtCity.text, "Enid");
  EXPECT_EQ(form.details.txtState.text, "Oklahoma");
  EXPECT_EQ(form.details.txtCompany.text, "Acme");
  EXPECT_EQ(form.details.txtTankType.text, "X");
  EXPECT_EQ(form.details.txtID.text, "1");
  PickTank(session_, form, 1);
  EXPECT_EQ(form.details.txtCity.text, "") << "null shows as nothing";
  EXPECT_EQ(form.details.txtID.text, "2");
  UnpickTank(session_, form);
  EXPECT_FALSE(form.cmdEdit.enabled);
  EXPECT_TRUE(form.lstTanks.selected.empty());
  EXPECT_EQ(form.details.txtUserID.text, "");
}

TEST_F(FrmeditrecTest, EditClosesTheWindowAndOpensTheTankByNumberAndType) {
  AddTank("A", shell::kHorizontal);
  AddTank("B", shell::kDomedExternalFloatingRoof);
  auto form = OpenFrmeditrec(session_);
  PickTank(session_, form, 1);
  Edit(form);
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_EQ(opened[0].first, 2);
  EXPECT_EQ(opened[0].second, "Domed External Floating Roof Tank");
  EXPECT_TRUE(form.window.closed);
}

TEST_F(FrmeditrecTest, OfTwoNamesThatDifferInCaseTheOneChosenOpens) {
  AddTank("tank", shell::kHorizontal);
  AddTank("Tank", shell::kHorizontal);
  auto form = OpenFrmeditrec(session_);
  PickTank(session_, form, 1);
  Edit(form);
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_EQ(opened[0].first, 2);
}

TEST_F(FrmeditrecTest, ATankThatHasGoneIsToldAndTheWindowStays) {
  AddTank("Sold", shell::kHorizontal);
  auto form = OpenFrmeditrec(session_);
  PickTank(session_, form, 0);
  session_.ClientDb->DeleteMatching("tank", "ID", {1});
  host_.ExpectError(3167, "frmEditRec.");
  Edit(form);
  EXPECT_TRUE(opened.empty());
  EXPECT_FALSE(form.window.closed);
}

TEST_F(FrmeditrecTest, NamesAreDataWhateverIsInThem) {
  for (const auto* name : {"O'Brien", "100% [x] \"y\" *", " "}) AddTank(name, shell::kHorizontal);
  auto form = OpenFrmeditrec(session_);
  for (std::size_t row = 0; row < form.lstTanks.items.size(); ++row) {
    PickTank(session_, form, row);
    EXPECT_EQ(form.details.txtUserID.text, form.lstTanks.items[row]);
  }
}

TEST_F(FrmeditrecTest, CloseClosesAndHelpShowsItsTopic) {
  auto form = OpenFrmeditrec(session_);
  ClickHelp(session_, form);
  EXPECT_EQ(host_.help, Names{"edit_tank"});
  EXPECT_FALSE(form.window.closed);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(FrmeditrecTest, AMissingTableIsReportedUnderTheWindowsName) {
  AddTank("A", shell::kHorizontal);
  auto form = OpenFrmeditrec(session_);
  session_.ClientDb->DeleteTable("tank");
  host_.ExpectError(3011, "frmEditRec.");
  PickTank(session_, form, 0);
  host_.ExpectError(3011, "frmEditRec.");
  Edit(form);
  host_.ExpectError(3011, "frmEditRec.");
  OpenFrmeditrec(session_);
}

}  // namespace
}  // namespace orvex::entry
