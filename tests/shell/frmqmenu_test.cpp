#include "shell/frmqmenu.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "support/test_databases.h"

namespace orvex::shell {
namespace {

using Texts = std::vector<std::string>;
using Items = std::vector<std::size_t>;

/// What the routines of tank entry were called with.
Texts called;

template <int kType>
void MakeTank(Session&) {
  called.push_back("new " + std::to_string(kType));
}

void EditRecord(Session&, std::int32_t id, const std::string& tank_type) {
  called.push_back("edit " + std::to_string(id) + " " + tank_type);
}

class QuickMenu : public testing::Test {
 protected:
  QuickMenu() {
    called.clear();
    AddTank("B-2", kVerticalFixedRoof);  // ID 1
    AddTank("A-1", kHorizontal);         // ID 2
  }

  void AddTank(const char* user_id, std::string_view type) {
    test::AddRow(test_.client(), "tank", {{"USER ID", user_id}, {"TANK_TYPE", std::string(type)}});
  }

  /// The program with its tank entry.
  void AddTankEntry() {
    session_.commands = {{"mnuNewHT", MakeTank<0>},
                         {"mnuNewVFRT", MakeTank<1>},
                         {"mnuNewIFRT", MakeTank<2>},
                         {"mnuNewEFRT", MakeTank<3>},
                         {"mnuNewDEFRT", MakeTank<4>}};
    session_.editRecord = EditRecord;
  }

  test::TestSession test_;
  Session& session_ = test_.session;
};

TEST_F(QuickMenu, OpensWithCreateChosenAndTheFirstTypeHighlighted) {
  const auto menu = OpenFrmqmenu(session_);
  EXPECT_TRUE(menu.optCreate.chosen);
  EXPECT_FALSE(menu.optOpen.chosen);
  EXPECT_EQ(menu.lstTankTypes.items,
            (Texts{"Horizontal Tank", "Vertical Fixed Roof Tank", "Internal Floating Roof Tank",
                   "External Floating Roof Tank", "Domed External Floating Roof Tank"}));
  EXPECT_EQ(menu.lstTankTypes.selected, Items{0});
  EXPECT_TRUE(menu.lstTankTypes.enabled);
  EXPECT_FALSE(menu.dblstTanks.enabled);
  EXPECT_EQ(kFrmqmenuText.name, "frmqmenu");
}

TEST_F(QuickMenu, ListsTheTanksOfTheClientDatabaseInTheirOrder) {
  test::AddRow(test_.client(), "tank", {{"TANK_TYPE", "Horizontal Tank"}});  // not named yet
  const auto menu = OpenFrmqmenu(session_);
  EXPECT_EQ(menu.dblstTanks.items, (Texts{"B-2", "A-1"}));
  EXPECT_TRUE(menu.dblstTanks.selected.empty());
}

TEST_F(QuickMenu, ShowsItsHiddenFieldsToNobody) {
  const auto menu = OpenFrmqmenu(session_);
  EXPECT_FALSE(menu.txtID.visible);
  EXPECT_FALSE(menu.txtTankType.visible);
}

TEST_F(QuickMenu, ChoosingOpenTurnsToTheTanksAndBack) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  EXPECT_TRUE(menu.cmdOK.enabled);
  ChooseOpen(session_, menu);
  EXPECT_TRUE(menu.optOpen.chosen);
  EXPECT_FALSE(menu.optCreate.chosen);
  EXPECT_TRUE(menu.dblstTanks.enabled);
  EXPECT_FALSE(menu.lstTankTypes.enabled);
  EXPECT_FALSE(menu.cmdOK.enabled) << "no tank is selected";
  ChooseCreate(session_, menu);
  EXPECT_TRUE(menu.optCreate.chosen);
  EXPECT_FALSE(menu.optOpen.chosen);
  EXPECT_FALSE(menu.dblstTanks.enabled);
  EXPECT_TRUE(menu.lstTankTypes.enabled);
  EXPECT_TRUE(menu.cmdOK.enabled);
}

TEST_F(QuickMenu, ChoosingOpenWithATankSelectedLetsOKBePressed) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  PickTank(session_, menu, 0);
  ChooseCreate(session_, menu);
  ChooseOpen(session_, menu);
  EXPECT_TRUE(menu.cmdOK.enabled);
}

TEST_F(QuickMenu, PickingATankNotesItsIdAndType) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  PickTank(session_, menu, 1);
  EXPECT_EQ(menu.dblstTanks.selected, Items{1});
  EXPECT_EQ(menu.txtID.text, "2");
  EXPECT_EQ(menu.txtTankType.text, "Horizontal Tank");
  EXPECT_TRUE(menu.cmdOK.enabled);
  EXPECT_TRUE(called.empty()) << "only a double click opens it at once";
}

TEST_F(QuickMenu, WithNoTankSelectedAnyMoreOKCannotBePressed) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  PickTank(session_, menu, 1);
  UnpickTank(session_, menu);
  EXPECT_TRUE(menu.dblstTanks.selected.empty());
  EXPECT_TRUE(menu.txtID.text.empty());
  EXPECT_TRUE(menu.txtTankType.text.empty());
  EXPECT_FALSE(menu.cmdOK.enabled);
}

TEST_F(QuickMenu, DoubleClickOnATankOpensIt) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  OpenTank(session_, menu, 0);
  EXPECT_EQ(called, Texts{"edit 1 Vertical Fixed Roof Tank"});
  EXPECT_TRUE(menu.window.closed);
}

TEST_F(QuickMenu, OKWithOpenEditsTheSelectedTank) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  PickTank(session_, menu, 1);
  ClickOK(session_, menu);
  EXPECT_EQ(called, Texts{"edit 2 Horizontal Tank"});
}

TEST_F(QuickMenu, OKWithCreateMakesATankOfTheHighlightedType) {
  AddTankEntry();
  for (std::size_t type = 0; type < 5; ++type) {
    called.clear();
    auto menu = OpenFrmqmenu(session_);
    PickType(session_, menu, type);
    EXPECT_TRUE(called.empty());
    ClickOK(session_, menu);
    EXPECT_EQ(called, Texts{"new " + std::to_string(type)});
  }
}

TEST_F(QuickMenu, DoubleClickOnATypeMakesATankAndClosesTheWindow) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  CreateTank(session_, menu, 3);
  EXPECT_EQ(called, Texts{"new 3"});
  EXPECT_TRUE(menu.window.closed);
}

TEST_F(QuickMenu, IsClosedBeforeTheTankOpens) {
  AddTankEntry();
  static bool* closed = nullptr;
  static bool was_closed = false;
  session_.editRecord = [](Session&, std::int32_t, const std::string&) { was_closed = *closed; };
  auto menu = OpenFrmqmenu(session_);
  closed = &menu.window.closed;
  ChooseOpen(session_, menu);
  OpenTank(session_, menu, 0);
  EXPECT_TRUE(was_closed);
}

TEST_F(QuickMenu, CancelClosesTheWindowAndDoesNothingElse) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ClickCancel(session_, menu);
  EXPECT_TRUE(menu.window.closed);
  EXPECT_TRUE(called.empty());
}

TEST_F(QuickMenu, WithNoTypeSelectedOKDoesNothing) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  menu.lstTankTypes.selected.clear();
  ClickOK(session_, menu);
  EXPECT_FALSE(menu.cmdOK.enabled);
  EXPECT_FALSE(menu.window.closed);
  EXPECT_TRUE(called.empty());
}

TEST_F(QuickMenu, ATankThatIsGoneMeanwhileIsNotOpenedAndNothingIsSaid) {
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  ChooseOpen(session_, menu);
  PickTank(session_, menu, 0);
  test_.client().Execute("DELETE FROM tank WHERE [USER ID] = 'A-1'");
  OpenTank(session_, menu, 1);
  EXPECT_EQ(menu.txtID.text, "");
  EXPECT_FALSE(menu.cmdOK.enabled);
  EXPECT_TRUE(called.empty());
  EXPECT_TRUE(test_.host.messages.empty()) << "no current record is silent";
}

TEST_F(QuickMenu, WithAnEmptyClientDatabaseStillLetsTanksBeCreated) {
  test_.client().Execute("DELETE FROM tank");
  AddTankEntry();
  auto menu = OpenFrmqmenu(session_);
  EXPECT_TRUE(menu.dblstTanks.items.empty());
  ClickOK(session_, menu);
  EXPECT_EQ(called, Texts{"new 0"});
}

TEST_F(QuickMenu, OpensQuicklyOverManyTanks) {
  {
    store::Transaction writing(test_.client());
    auto tanks = test_.client().OpenTable("tank");
    for (int i = 0; i < 20000; ++i) {
      tanks.AddNew();
      tanks.Set("USER ID", "Tank " + std::to_string(i));
      tanks.Set("TANK_TYPE", kHorizontal);
      tanks.Update();
    }
    writing.Commit();
  }
  const auto start = std::chrono::steady_clock::now();
  auto menu = OpenFrmqmenu(session_);
  PickTank(session_, menu, 20001);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(menu.dblstTanks.items.size(), 20002U);
  EXPECT_EQ(menu.txtID.text, "20002");
  RecordProperty("seconds", std::to_string(taken.count()));
  EXPECT_LT(taken.count(), 2.0);
}

}  // namespace
}  // namespace orvex::shell
