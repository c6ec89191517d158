#include <string>
#include <vector>

#include "entry/physical_rules.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

class TypicalMomentsTest : public test::TankEntryTest {
 protected:
  /// An open tank with one fitting of the person's own.
  FrmTank& Open(std::string_view type, std::string_view category) {
    auto& form = OpenTank(type);
    test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID},
                    {{"FITTING", category}, {"DIAMETER", 100.0}, {"TANK_CONSTRUCT", "Welded"}, {"COL_NO", 6.0}});
    ShowTank(session_, form);
    ShowFloatingRoofEntries(session_, form);
    MakeOwn();
    return form;
  }
  void MakeOwn() {
    const auto ID = Editor(session_).ID;
    session_.ClientDb->DeleteMatching("fittings", "fitid", {ID});
    test::AddRow(*session_.ClientDb, "fittings", {{"ID", ID}, {"FIT ID", 1}, {"FIT_TYPE", "Own"}});
  }
  std::int64_t Count(std::string_view type) {
    auto rows = session_.ClientDb->OpenMatching("fittings", "fitid", {Editor(session_).ID});
    std::int64_t count = 0;
    for (; !rows.AtEnd(); rows.MoveNext()) count += rows.TextOrEmpty("FIT_TYPE") == type ? 1 : 0;
    return count;
  }
  std::int64_t All() {
    return session_.ClientDb->OpenMatching("fittings", "fitid", {Editor(session_).ID}).RecordCount();
  }
  /// The quantity of the tank's first fitting of this type; 0 without one.
  double Quantity(std::string_view type) {
    auto rows = session_.ClientDb->OpenMatching("fittings", "fitid", {Editor(session_).ID});
    for (; !rows.AtEnd(); rows.MoveNext())
      if (rows.TextOrEmpty("FIT_TYPE") == type) return rows.Double("QUANTITY");
    return 0;
  }
  bool IsOwn() { return All() == 1 && Count("Own") == 1; }

  void ExpectBuilt(const std::string& moment) {
    EXPECT_EQ(Count("Own"), 0) << moment;
    EXPECT_GT(All(), 1) << moment;
    MakeOwn();
  }
};

TEST_F(TypicalMomentsTest, OfAnInternalTank) {
  Open(shell::kInternalFloatingRoof, "");
  Choose("cboFittingIT", "Typical");
  ExpectBuilt("category");
  Choose("cboDeckTypeIT", "Bolted");
  ExpectBuilt("deck type");
  Choose("cboSelfSupIT", "Yes");
  ExpectBuilt("self-supporting");
  Choose("cboSelfSupIT", "No");
  ExpectBuilt("not self-supporting");
  Type("txtDiameterIT", "90");
  EXPECT_TRUE(IsOwn()) << "not before another entry is come to";
  EnterEntry(session_, Editor(session_), "cboPrimaryIT");
  ExpectBuilt("diameter");
}

TEST_F(TypicalMomentsTest, OfExternalAndDomedTanks) {
  for (const auto type : {shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    Open(type, "");
    Choose("cboFittingET", "Typical");
    ExpectBuilt("category");
    Choose("cboRoofTypeET", "Pontoon");
    ExpectBuilt("roof type");
    Choose("cboPrimaryET", "Mechanical Shoe");
    ExpectBuilt("primary seal");
    Type("txtDiameterET", "90");
    EXPECT_TRUE(IsOwn()) << "not before another entry is come to";
    EnterEntry(session_, Editor(session_), "cboSecondaryET");
    ExpectBuilt("diameter");
  }
}

TEST_F(TypicalMomentsTest, FittingsOfAnotherCategoryStayAsTheyAre) {
  for (const std::string category : {"Detail", ""}) {
    Open(shell::kInternalFloatingRoof, category);
    Choose("cboFittingIT", "Detail");
    Choose("cboDeckTypeIT", "Bolted");
    Type("txtDiameterIT", "90");
    CheckLostFocus(session_, Editor(session_));
    Choose("cboSelfSupIT", "Yes");
    EXPECT_TRUE(IsOwn()) << category;
    Open(shell::kExternalFloatingRoof, category);
    Choose("cboFittingET", "Detail");
    Choose("cboRoofTypeET", "Pontoon");
    Choose("cboPrimaryET", "Mechanical Shoe");
    Type("txtDiameterET", "90");
    CheckLostFocus(session_, Editor(session_));
    EXPECT_TRUE(IsOwn()) << category;
  }
}

TEST_F(TypicalMomentsTest, NothingElseBuildsFittings) {
  Open(shell::kInternalFloatingRoof, "Typical");
  Choose("cboPrimaryIT", "Mechanical Shoe");
  Choose("cboDeckConstructIT", "Sheet");
  Type("txtDiameterIT", "100");
  CheckLostFocus(session_, Editor(session_));
  EXPECT_TRUE(IsOwn()) << "an internal tank's diameter that is not changed";
  Open(shell::kExternalFloatingRoof, "Typical");
  Choose("cboConstructET", "Riveted");
  EXPECT_TRUE(IsOwn());
}

// Columns(100) = 6; StubDrains(100, bolted) = round(100 * 100 / 125 + 0.49) = 80;
// LegsIFRT(100) = round(100 / 10 + 5 + 100 * 100 / 600 + 0.49) = round(32.1567) = 32.
TEST_F(TypicalMomentsTest, OfABoltedInternalDeckFollowTheDiameter) {
  Open(shell::kInternalFloatingRoof, "Typical");
  Choose("cboDeckTypeIT", "Bolted");
  EXPECT_EQ(Quantity("Column Well (24-in. Diam.)"), 6);
  EXPECT_EQ(Quantity("Stub Drain (1-in. Diameter)"), 80);
  EXPECT_EQ(Quantity("Roof Leg (3-in. Diameter)"), 32);
  Choose("cboDeckTypeIT", "Welded");
  EXPECT_EQ(Count("Stub Drain (1-in. Diameter)"), 0) << "a welded deck has none";
  EXPECT_EQ(Quantity("Column Well (24-in. Diam.)"), 6);
  Choose("cboSelfSupIT", "Yes");
  EXPECT_EQ(Count("Column Well (24-in. Diam.)"), 0) << "a self-supporting roof has none";
}

// At 100 ft a pontoon roof has 1 breaker, no drain, 17 pontoon and 16 center legs; a double deck roof 25 legs, 1 drain.
TEST_F(TypicalMomentsTest, OfAnExternalRoofFollowRoofTypeAndSeal) {
  Open(shell::kExternalFloatingRoof, "Typical");
  Choose("cboPrimaryET", "Mechanical Shoe");
  Choose("cboRoofTypeET", "Pontoon");
  EXPECT_EQ(Quantity("Vacuum Breaker (10-in. Diam.)"), 1);
  EXPECT_EQ(Count("Roof Drain (3-in. Diameter)"), 0);
  EXPECT_EQ(Count("Roof Leg (3-in. Diameter)"), 2);
  EXPECT_EQ(Count("Rim Vent (6-in. Diameter)"), 1);
  Choose("cboRoofTypeET", "Double Deck");
  EXPECT_EQ(Quantity("Roof Drain (3-in. Diameter)"), 1);
  EXPECT_EQ(Quantity("Roof Leg (3-in. Diameter)"), 25);
  Choose("cboPrimaryET", "Vapor-mounted");
  EXPECT_EQ(Count("Rim Vent (6-in. Diameter)"), 0) << "only a shoe has a rim vapor space";
}

TEST_F(TypicalMomentsTest, AFixedRoofHasNoFittingsToBuild) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  RebuildTypicalFittings(session_, form);
  EXPECT_EQ(All(), 0);
}

TEST_F(TypicalMomentsTest, AnExternalDiameterThatIsNoNumberBecomesZeroAndBuildsThatOfZero) {
  Open(shell::kExternalFloatingRoof, "Typical");
  Type("txtDiameterET", "wide");
  CheckLostFocus(session_, Editor(session_));
  EXPECT_EQ(Shown("txtDiameterET"), "0");
  ExpectBuilt("diameter");
}

TEST_F(TypicalMomentsTest, TheFittingsOpenOnTheTank) {
  for (const auto type : {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof}) {
    auto& form = OpenTank(type);
    ClickSpecFit(session_, form);
  }
  EXPECT_EQ(host_.windows, (std::vector<std::string>{"frmrecfit", "frmrecfit"}));
}

}  // namespace
}  // namespace orvex::entry
