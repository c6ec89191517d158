#include "entry/seal_rules.h"

#include <set>
#include <string>
#include <vector>

#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using Texts = std::vector<std::string>;

class SealRulesTest : public test::TankEntryTest {
 protected:
  /// What the list drops down with.
  Texts ListOf(const std::string& control) {
    auto& form = Editor(session_);
    EnterEntry(session_, form, control);
    OpenList(session_, form, control);
    return At(form, control).box.items;
  }

  /// How many different values the field has in the delivered seals that a condition picks, counted by hand.
  std::size_t Different(const std::string& field, const std::string& condition) {
    std::set<std::string> values;
    auto rows = session_.ReferenceDb->OpenQuery("SELECT * FROM rimseal WHERE " + condition);
    for (; !rows.AtEnd(); rows.MoveNext()) values.insert(rows.Text(field));
    return values.size();
  }
};

TEST_F(SealRulesTest, AnInternalTankListsEachOfItsPrimarySealsOnce) {
  OpenTank(shell::kInternalFloatingRoof);
  EXPECT_EQ(ListOf("cboPrimaryIT"), (Texts{"Mechanical Shoe", "Liquid-mounted", "Vapor-mounted"}));
  EXPECT_EQ(ListOf("cboPrimaryIT").size(), Different("PRIM_SEAL", "IFLT = True"));
}

TEST_F(SealRulesTest, AnExternalOrDomedTankListsThePrimarySealsOfItsConstructionOnce) {
  for (const auto type : {shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    OpenTank(type);
    Choose("cboConstructET", "Welded");
    EXPECT_EQ(ListOf("cboPrimaryET"), (Texts{"Mechanical Shoe", "Liquid-mounted", "Vapor-mounted"})) << type;
    EXPECT_EQ(ListOf("cboPrimaryET").size(), Different("PRIM_SEAL", "EFLT = True AND WELDED = True"));
    Choose("cboConstructET", "Riveted");
    EXPECT_EQ(ListOf("cboPrimaryET"), Texts{"Mechanical Shoe"}) << type;
    EXPECT_EQ(ListOf("cboPrimaryET").size(), Different("PRIM_SEAL", "EFLT = True AND RIVETED = True"));
  }
}

TEST_F(SealRulesTest, NoSealSuitsAnExternalTankOfUnknownConstruction) {
  OpenTank(shell::kExternalFloatingRoof);
  EXPECT_EQ(ListOf("cboPrimaryET"), Texts());
  EXPECT_EQ(ListOf("cboSecondaryET"), Texts());
}

TEST_F(SealRulesTest, AnInternalTankListsTheSecondarySealsOfItsPrimaryOne) {
  OpenTank(shell::kInternalFloatingRoof);
  EXPECT_EQ(ListOf("cboSecondaryIT"), Texts()) << "no primary seal yet";
  Choose("cboPrimaryIT", "Mechanical Shoe");
  EXPECT_EQ(ListOf("cboSecondaryIT"), (Texts{"None", "Shoe-mounted", "Rim-mounted"}));
  Choose("cboPrimaryIT", "Vapor-mounted");
  EXPECT_EQ(ListOf("cboSecondaryIT"), (Texts{"None", "Weather Shield", "Rim-mounted"}));
  EXPECT_EQ(ListOf("cboSecondaryIT").size(), Different("SECND_SEAL", "IFLT = True AND PRIM_SEAL = 'Vapor-mounted'"));
}

TEST_F(SealRulesTest, AnExternalOrDomedTankListsTheSecondarySealsOfItsConstructionAndPrimarySeal) {
  for (const auto type : {shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    OpenTank(type);
    for (const std::string construction : {"Welded", "Riveted"}) {
      Choose("cboConstructET", construction);
      Choose("cboPrimaryET", "Mechanical Shoe");
      EXPECT_EQ(ListOf("cboSecondaryET"), (Texts{"None", "Shoe-mounted", "Rim-mounted"})) << type << construction;
    }
    EXPECT_EQ(ListOf("cboSecondaryET").size(),
              Different("SECND_SEAL", "EFLT = True AND RIVETED = True AND PRIM_SEAL = 'Mechanical Shoe'"));
  }
}

TEST_F(SealRulesTest, SealsOfOneKindOfTankAreNotListedForTheOther) {
  auto& reference = *session_.ReferenceDb;
  test::AddRow(reference, "rimseal",
               {{"PRIM_SEAL", "Inner"}, {"SECND_SEAL", "None"}, {"WELDED", true}, {"IFLT", true}});
  test::AddRow(reference, "rimseal",
               {{"PRIM_SEAL", "Outer"}, {"SECND_SEAL", "None"}, {"WELDED", true}, {"EFLT", true}});
  OpenTank(shell::kInternalFloatingRoof);
  EXPECT_EQ(ListOf("cboPrimaryIT"), (Texts{"Mechanical Shoe", "Liquid-mounted", "Vapor-mounted", "Inner"}));
  OpenTank(shell::kExternalFloatingRoof);
  Choose("cboConstructET", "Welded");
  EXPECT_EQ(ListOf("cboPrimaryET"), (Texts{"Mechanical Shoe", "Liquid-mounted", "Vapor-mounted", "Outer"}));
}

TEST_F(SealRulesTest, ASealWithQuotesInItsNameIsFound) {
  const std::string name = R"(Bob's "best" ' OR 1=1)";
  test::AddRow(*session_.ReferenceDb, "rimseal", {{"PRIM_SEAL", name}, {"SECND_SEAL", "It's"}, {"IFLT", true}});
  OpenTank(shell::kInternalFloatingRoof);
  Choose("cboPrimaryIT", name);
  EXPECT_EQ(ListOf("cboSecondaryIT"), Texts{"It's"});
}

TEST_F(SealRulesTest, AFilledListIsPositionedOnTheStoredSeal) {
  auto& form = OpenTank(shell::kInternalFloatingRoof);
  test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID},
                  {{"RIM_PRIM", "Vapor-mounted"}, {"RIM_SEC", "Rim-mounted"}});
  ShowTank(session_, form);
  ListOf("cboPrimaryIT");
  EXPECT_EQ(Shown("cboPrimaryIT"), "Vapor-mounted");
  ListOf("cboSecondaryIT");
  EXPECT_EQ(Shown("cboSecondaryIT"), "Rim-mounted");
}

TEST_F(SealRulesTest, ChangingThePrimarySealClearsTheSecondaryOne) {
  for (const std::string end : {"IT", "ET"}) {
    auto& form = OpenTank(end == "IT" ? shell::kInternalFloatingRoof : shell::kExternalFloatingRoof);
    if (end == "ET") Choose("cboConstructET", "Welded");
    Choose("cboPrimary" + end, "Mechanical Shoe");
    Choose("cboSecondary" + end, "Shoe-mounted");
    Choose("cboPrimary" + end, "Mechanical Shoe");
    EXPECT_EQ(Shown("cboSecondary" + end), "Shoe-mounted") << "nothing was changed";
    Choose("cboPrimary" + end, "Liquid-mounted");
    EXPECT_EQ(Shown("cboSecondary" + end), "");
    CheckLostFocus(session_, form);
    EXPECT_TRUE(session_.ClientDb->OpenAt("tank", "ID", {form.ID}).IsNull("RIM_SEC"));
  }
}

TEST_F(SealRulesTest, ChangingTheConstructionClearsBothSeals) {
  OpenTank(shell::kDomedExternalFloatingRoof);
  Choose("cboConstructET", "Welded");
  Choose("cboPrimaryET", "Mechanical Shoe");
  Choose("cboSecondaryET", "Shoe-mounted");
  Choose("cboConstructET", "Welded");
  EXPECT_EQ(Shown("cboPrimaryET"), "Mechanical Shoe") << "nothing was changed";
  Choose("cboConstructET", "Riveted");
  EXPECT_EQ(Shown("cboPrimaryET"), "");
  EXPECT_EQ(Shown("cboSecondaryET"), "");
}

}  // namespace
}  // namespace orvex::entry
