#include "entry/frmcopydata.h"

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "entry/copy_command.h"
#include "entry/record_copy.h"
#include "entry/tank_entry_fixture.h"
#include "entry/tank_lifecycle.h"
#include "shell/tank_types.h"
#include "store/raw_file.h"
#include "support/query_rows.h"

namespace orvex::entry {
namespace {

using Names = std::vector<std::string>;
using store::Value;

/// What the copy asked of the editor.
struct Reload {
  std::int32_t ID;
  std::string type;
  bool copy_pending;
};
std::vector<Reload> reloads;  // NOLINT: `Session::editRecord` takes no closure

class FrmCopyDataTest : public test::TankEntryTest {
 protected:
  FrmCopyDataTest() {
    reloads.clear();
    session_.editRecord = [](shell::Session& session, std::int32_t ID, const std::string& type) {
      reloads.push_back({ID, type, session.CopyDataPending});
    };
  }

  store::Database& Client() { return *session_.ClientDb; }

  std::int32_t AddTank(std::string_view type, const Value& user_id) {
    auto tanks = Client().OpenTable("tank");
    tanks.AddNew();
    tanks.Set("TANK_TYPE", type);
    tanks.Set("USER ID", user_id);
    tanks.Update();
    tanks.Move(tanks.LastModified());
    return tanks.Long("ID");
  }

  /// Fills every field of a row but the first `kept` with values of its own.
  void Fill(std::string_view table, std::string_view index, std::initializer_list<Value> key, int kept, int seed) {
    auto row = Client().OpenAt(table, index, key);
    row.Edit();
    for (int i = kept; i < row.FieldCount(); ++i) {
      const auto name = row.FieldName(i);
      const auto& field = store::FindField(store::FindTable(table), name);
      if (name == "TANK_TYPE") continue;
      if (field.type == store::FieldType::kText) {
        row.Set(name, std::to_string(seed) + "." + std::to_string(i));
      } else {
        row.Set(name, field.type == store::FieldType::kBoolean ? (seed + i) % 2 == 0 ? -1.0 : 0.0 : seed * 100.0 + i);
      }
    }
    row.Update();
  }

  /// Gives a tank mixtures, fittings and components, all fields of which are filled.
  void Furnish(std::int32_t ID, int mixtures, int fittings, int components, int seed) {
    Fill("tank", "ID", {ID}, 2, seed);
    for (int i = 1; i <= mixtures; ++i) {
      if (Client().OpenAt("mixtures", "IDMIX", {ID, i}).NoMatch())
        test::AddRow(Client(), "mixtures", {{"ID", ID}, {"MIX ID", i}});
      Fill("mixtures", "IDMIX", {ID, i}, 2, seed + i);
    }
    for (int i = 1; i <= fittings; ++i) {
      test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", i}});
      Fill("fittings", "fitid", {ID, i}, 2, seed + i);
    }
    for (int i = 1; i <= components; ++i) {
      test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", i}});
      Fill("components", "IDMIX", {ID, 1, i}, 3, seed + i);
    }
  }

  /// A tank's rows of a table from the field at `from` on.
  Rows RowsOf(const std::string& table, std::int32_t ID, std::size_t from) {
    Rows rows = Client().OpenQuery("SELECT * FROM " + table + " WHERE ID = " + std::to_string(ID)).GetRows(1000);
    for (auto& row : rows) row.erase(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(from));
    return rows;
  }
  /// All four kinds of rows of a tank.
  std::vector<Rows> AllOf(std::int32_t ID) {
    return {RowsOf("tank", ID, 0), RowsOf("mixtures", ID, 0), RowsOf("fittings", ID, 0), RowsOf("components", ID, 0)};
  }

  FrmCopyData Open(const std::string& source, void (*choose)(shell::Session&, FrmCopyData&)) {
    auto window = OpenFrmCopyData(session_);
    ChangeTankName(session_, window, source);
    choose(session_, window);
    return window;
  }
  FrmCopyData CopyFrom(const std::string& source, void (*choose)(shell::Session&, FrmCopyData&)) {
    auto window = Open(source, choose);
    EXPECT_TRUE(window.cmdOK.enabled);
    ClickOK(session_, window);
    return window;
  }
};

TEST_F(FrmCopyDataTest, CopyOnTheOnlyTankOfItsTypeSaysSoAndOpensNothing) {
  auto& form = OpenTank(shell::kHorizontal);
  AddTank(shell::kVerticalFixedRoof, "Vertical");
  AddTank(shell::kHorizontal, Value());
  host_.ExpectMessage("There are no other Horizontal Tank tanks.", "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  ClickCopy(session_, form);
  EXPECT_TRUE(host_.windows.empty());
}

TEST_F(FrmCopyDataTest, CopyOpensTheWindowOnTheOtherTanksOfTheType) {
  auto& form = OpenTank(shell::kHorizontal);
  test::ChangeRow(Client(), "tank", "ID", {form.ID}, {{"USER ID", "Mine"}});
  for (const auto* name : {"zeta", "Alpha", "", "100% [x] 'y' \"z\" *"}) AddTank(shell::kHorizontal, name);
  AddTank(shell::kVerticalFixedRoof, "Vertical");
  ClickCopy(session_, form);
  EXPECT_EQ(host_.windows, Names{"FrmCopyData"});
  const auto window = OpenFrmCopyData(session_);
  EXPECT_EQ(window.cboTankName.items, (Names{"", "100% [x] 'y' \"z\" *", "Alpha", "zeta"})) << "in the index's order";
  EXPECT_EQ(window.cboTankName.text, "");
}

TEST_F(FrmCopyDataTest, CopyStoresWhatStandsInTheEditorFirst) {
  auto& form = OpenTank(shell::kHorizontal);
  form.form = Section::kPartial;
  AddTank(shell::kHorizontal, "Other");
  At(form, "txtUserID").box.text = "Typed";
  At(form, "dbcboMixNamePartial").box.text = "Sludge";
  ClickCopy(session_, form);
  EXPECT_EQ(Client().OpenAt("tank", "ID", {form.ID}).Text("USER ID"), "Typed");
  EXPECT_EQ(Client().OpenAt("mixtures", "IDMIX", {form.ID, 1}).Text("MIX NAME"), "Sludge");
}

TEST_F(FrmCopyDataTest, CopyIsRefusedWhileAnEntryCannotBeStored) {
  auto& form = OpenTank(shell::kHorizontal);
  AddTank(shell::kHorizontal, "Other");
  At(form, "txtDesc").box.text = std::string(256, 'x');
  host_.ExpectMessage("Please enter no more than 255 characters.");
  ClickCopy(session_, form);
  EXPECT_TRUE(host_.windows.empty());
  EXPECT_EQ(form.window.focus, "txtDesc");
}

TEST_F(FrmCopyDataTest, ATypeWithAQuoteInItIsLookedForAsItStands) {
  auto& form = OpenTank("O'Brien's Tank");
  AddTank("O'Brien's Tank", "Other");
  EXPECT_EQ(CopySources(session_, form), Names{"Other"});
}

TEST_F(FrmCopyDataTest, AFailureOfTheCommandIsReportedUnderItsName) {
  auto& form = OpenTank(shell::kHorizontal);
  Client().DeleteTable("tank");
  host_.ExpectError(3011, "frmTank.cmdCopy_Click");
  ClickCopy(session_, form);
}

TEST_F(FrmCopyDataTest, OKIsEnabledOnceATankAndAChoiceAreMade) {
  OpenTank(shell::kHorizontal);
  AddTank(shell::kHorizontal, "Other");
  auto window = OpenFrmCopyData(session_);
  EXPECT_FALSE(window.cmdOK.enabled);
  EXPECT_FALSE(window.optAll.chosen || window.optLiquid.chosen || window.optTank.chosen);
  ChangeTankName(session_, window, "Other");
  EXPECT_FALSE(window.cmdOK.enabled) << "without a choice";
  for (auto* choose : {ChooseAll, ChooseLiquid, ChooseTank}) {
    choose(session_, window);
    EXPECT_TRUE(window.cmdOK.enabled);
    EXPECT_EQ(window.optAll.chosen + window.optLiquid.chosen + window.optTank.chosen, 1);
  }
  EXPECT_TRUE(window.optTank.chosen);
  ChangeTankName(session_, window, "");
  EXPECT_FALSE(window.cmdOK.enabled) << "without a tank";
}

TEST_F(FrmCopyDataTest, AnUnfinishedNameIsNoChosenTank) {
  OpenTank(shell::kHorizontal);
  AddTank(shell::kHorizontal, "North 1");
  auto window = Open("North", ChooseAll);
  EXPECT_FALSE(window.cmdOK.enabled);
  ChangeTankName(session_, window, "North 1");
  EXPECT_TRUE(window.cmdOK.enabled);
  ChangeTankName(session_, window, "North 12");
  EXPECT_FALSE(window.cmdOK.enabled);
}

TEST_F(FrmCopyDataTest, TheChosenTankIsShown) {
  OpenTank(shell::kHorizontal);
  const auto ID = AddTank(shell::kHorizontal, "Other");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"CITY", "Enid"}});
  auto window = OpenFrmCopyData(session_);
  ChangeTankName(session_, window, "Other");
  const auto& shown = window.details;
  EXPECT_EQ(shown.txtUserID.text, "Other");
  EXPECT_EQ(shown.txtCity.text, "Enid");
  EXPECT_EQ(shown.txtState.text, "");
  EXPECT_EQ(shown.txtCompany.text, "");
  EXPECT_EQ(shown.txtTankType.text, "Horizontal Tank");
  EXPECT_EQ(shown.txtID.text, std::to_string(ID));
  ChangeTankName(session_, window, "");
  EXPECT_EQ(shown.txtUserID.text, "");
}

/// A type, the fittings of the source and its components.
class CopyChoicesTest : public FrmCopyDataTest,
                        public testing::WithParamInterface<std::tuple<std::string_view, int, int>> {
 protected:
  CopyChoicesTest() {
    const auto [type, fittings, components] = GetParam();
    fittings_ = fittings;
    components_ = components;
    test::ChangeRow(Client(), "tank", "ID", {D_}, {{"USER ID", "D"}});
    Furnish(D_, 2, 2, 2, 100);
    S_ = AddTank(type, "S");
    Furnish(S_, 3, fittings, components, 500);
    source_ = AllOf(S_);
    before_ = AllOf(D_);
  }
  ~CopyChoicesTest() override { EXPECT_TRUE(AllOf(S_) == source_) << "the source stays as it is"; }

  void ExpectTankCopied() {
    const auto tank = RowsOf("tank", D_, 0).at(0);
    EXPECT_EQ(tank[0], Value(D_));
    EXPECT_EQ(tank[1], Value("D")) << "the identification stays";
    EXPECT_EQ(RowsOf("tank", D_, 2), RowsOf("tank", S_, 2));
    if (fittings_ > 0) {
      EXPECT_EQ(RowsOf("fittings", D_, 1), RowsOf("fittings", S_, 1));
    } else {
      EXPECT_EQ(RowsOf("fittings", D_, 0), before_[2]) << "a source without fittings leaves them";
    }
  }
  void ExpectLiquidCopied() {
    EXPECT_EQ(RowsOf("mixtures", D_, 1), RowsOf("mixtures", S_, 1));
    if (components_ > 0) {
      EXPECT_EQ(RowsOf("components", D_, 1), RowsOf("components", S_, 1));
    } else {
      EXPECT_EQ(RowsOf("components", D_, 0), before_[3]) << "a source without components leaves them";
    }
  }
  /// The window closed after the editor had shown the tank anew.
  void ExpectReloaded(const FrmCopyData& window, bool copy_pending) {
    ASSERT_EQ(reloads.size(), 1U);
    EXPECT_EQ(reloads[0].ID, D_);
    EXPECT_EQ(reloads[0].type, std::get<0>(GetParam()));
    EXPECT_EQ(reloads[0].copy_pending, copy_pending);
    EXPECT_TRUE(window.window.closed);
    EXPECT_EQ(host_.status, (Names{"Processing, please wait...", "Ready"}));
    EXPECT_EQ(host_.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
  }

  std::int32_t D_ = OpenTank(std::get<0>(GetParam())).ID;
  std::int32_t S_ = 0;
  int fittings_ = 0, components_ = 0;
  std::vector<Rows> source_, before_;
};

TEST_P(CopyChoicesTest, AllDataCopiesTheTankAndItsLiquids) {
  const auto window = CopyFrom("S", ChooseAll);
  ExpectTankCopied();
  ExpectLiquidCopied();
  ExpectReloaded(window, false);
}

TEST_P(CopyChoicesTest, LiquidDataLeavesThePhysicalFieldsAlone) {
  const auto window = CopyFrom("S", ChooseLiquid);
  EXPECT_EQ(RowsOf("tank", D_, 0), before_[0]);
  EXPECT_EQ(RowsOf("fittings", D_, 0), before_[2]);
  ExpectLiquidCopied();
  ExpectReloaded(window, false);
}

TEST_P(CopyChoicesTest, TankDataLeavesTheLiquidsAlone) {
  const auto window = CopyFrom("S", ChooseTank);
  ExpectTankCopied();
  EXPECT_EQ(RowsOf("mixtures", D_, 0), before_[1]);
  EXPECT_EQ(RowsOf("components", D_, 0), before_[3]);
  ExpectReloaded(window, true);
}

INSTANTIATE_TEST_SUITE_P(OfEachType, CopyChoicesTest,
                         testing::Combine(testing::Values(shell::kVerticalFixedRoof, shell::kHorizontal,
                                                          shell::kInternalFloatingRoof, shell::kExternalFloatingRoof,
                                                          shell::kDomedExternalFloatingRoof),
                                          testing::Values(0, 3), testing::Values(0, 4)));

TEST_F(FrmCopyDataTest, TheFirstTwoFieldsOfATankAreItsNumberAndItsIdentification) {
  const auto fields = Client().Fields("tank");
  EXPECT_EQ(fields.at(0).name, "ID");
  EXPECT_EQ(fields.at(1).name, "USER ID");
}

TEST_F(FrmCopyDataTest, OfTwoTanksOfOneNameTheOneOfThisTypeIsTheSource) {
  const auto target = OpenTank(shell::kHorizontal).ID;
  test::ChangeRow(Client(), "tank", "ID", {target}, {{"USER ID", "Twin"}});
  const auto vertical = AddTank(shell::kVerticalFixedRoof, "Twin");
  const auto source = AddTank(shell::kHorizontal, "Twin");
  test::ChangeRow(Client(), "tank", "ID", {vertical}, {{"COMPANY", "Wrong"}});
  test::ChangeRow(Client(), "tank", "ID", {source}, {{"COMPANY", "Right"}});
  const auto window = CopyFrom("Twin", ChooseTank);
  EXPECT_EQ(window.details.txtCompany.text, "Right");
  EXPECT_EQ(Client().OpenAt("tank", "ID", {target}).Text("COMPANY"), "Right");
}

TEST_F(FrmCopyDataTest, OfTwoNamesThatDifferInCaseTheOneChosenIsTheSource) {
  const auto target = OpenTank(shell::kHorizontal).ID;
  for (const auto* name : {"tank", "Tank"}) {
    const auto ID = AddTank(shell::kHorizontal, name);
    test::ChangeRow(Client(), "tank", "ID", {ID}, {{"COMPANY", name}});
  }
  CopyFrom("Tank", ChooseTank);
  EXPECT_EQ(Client().OpenAt("tank", "ID", {target}).Text("COMPANY"), "Tank");
  CopyFrom("tank", ChooseTank);
  EXPECT_EQ(Client().OpenAt("tank", "ID", {target}).Text("COMPANY"), "tank");
}

TEST_F(FrmCopyDataTest, ASourceThatHasGoneIsToldAndNothingIsCopied) {
  const auto target = OpenTank(shell::kHorizontal).ID;
  Furnish(target, 2, 1, 1, 100);
  const auto before = AllOf(target);
  const auto source = AddTank(shell::kHorizontal, "Sold");
  auto window = Open("Sold", ChooseAll);
  Client().DeleteMatching("tank", "ID", {source});
  host_.ExpectError(3167, "frmCopyData.");
  ClickOK(session_, window);
  EXPECT_TRUE(AllOf(target) == before);
  EXPECT_TRUE(reloads.empty());
  EXPECT_FALSE(window.window.closed);
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(FrmCopyDataTest, AFailureInTheMiddleCopiesNothing) {
  const auto target = OpenTank(shell::kHorizontal).ID;
  Furnish(target, 2, 1, 1, 100);
  const auto source = AddTank(shell::kHorizontal, "S");
  Furnish(source, 2, 3, 3, 500);
  const auto before = AllOf(target);
  // Another program stored a name that is longer than the field.
  test::RawFile(session_.ClientPath)
      .Run("UPDATE components SET NAME = '" + std::string(60, 'x') + "' WHERE \"COMP ID\" = 3");
  auto window = Open("S", ChooseAll);
  host_.ExpectError(3163, "frmCopyData.");
  ClickOK(session_, window);
  EXPECT_TRUE(AllOf(target) == before);
  EXPECT_FALSE(session_.CopyDataPending);
  EXPECT_TRUE(reloads.empty());
  EXPECT_FALSE(window.window.closed);
}

TEST_F(FrmCopyDataTest, NoToTheQuestionOfCloseUndoesACopy) {
  auto& form = OpenTank(shell::kHorizontal);
  const auto target = form.ID;
  form.cmdAbandon.enabled = false;
  Furnish(target, 2, 1, 1, 100);
  const auto source = AddTank(shell::kHorizontal, "S");
  Furnish(source, 3, 2, 2, 500);
  const auto before = AllOf(target);
  GetRecordCopy(session_, target);
  CopyFrom("S", ChooseAll);
  ASSERT_FALSE(AllOf(target) == before);
  host_.ExpectMessage("Save Changes?", shell::Answer::kNo);
  ClickClose(session_, form);
  EXPECT_TRUE(AllOf(target) == before);
}

TEST_F(FrmCopyDataTest, CancelClosesAndHelpShowsItsTopic) {
  OpenTank(shell::kHorizontal);
  auto window = OpenFrmCopyData(session_);
  ClickHelp(session_, window);
  EXPECT_EQ(host_.help, Names{"copy_tank"});
  EXPECT_FALSE(window.window.closed);
  ClickCancel(session_, window);
  EXPECT_TRUE(window.window.closed);
}

TEST_F(FrmCopyDataTest, FailuresOfTheWindowAreReportedUnderItsName) {
  OpenTank(shell::kHorizontal);
  auto window = OpenFrmCopyData(session_);
  Client().DeleteTable("tank");
  host_.ExpectError(3011, "frmCopyData.");
  ChangeTankName(session_, window, "Other");
  host_.ExpectError(3011, "frmCopyData.");
  OpenFrmCopyData(session_);
}

}  // namespace
}  // namespace orvex::entry
