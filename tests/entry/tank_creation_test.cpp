#include <vector>

#include "entry/lifecycle_fixture.h"
#include "entry/unsaved_tank.h"
#include "shell/command.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using TextRows = test::Rows;

struct NewCommand {
  std::string_view name;
  std::string_view type;
  Section section;
  std::vector<std::string> options;
};

const std::vector<std::string> kFixedOptions = {"Full Speciation", "Partial Speciation", "Vapor Weight Speciation",
                                                "None"};
const std::vector<std::string> kFloatingOptions = {"Full Speciation", "Partial Speciation", "None"};

const NewCommand kNewCommands[] = {
    {"mnuNewVFRT", "Vertical Fixed Roof Tank", Section::kVertical, kFixedOptions},
    {"mnuNewHT", "Horizontal Tank", Section::kHorizontal, kFixedOptions},
    {"mnuNewIFRT", "Internal Floating Roof Tank", Section::kInternal, kFloatingOptions},
    {"mnuNewEFRT", "External Floating Roof Tank", Section::kExternal, kFloatingOptions},
    {"mnuNewDEFRT", "Domed External Floating Roof Tank", Section::kExternal, kFloatingOptions},
};

class TankCreation : public test::LifecycleTest {};

TEST_F(TankCreation, OfEachTypeStoresATankWithItsFirstMixtureBeforeTheWindowShows) {
  for (const auto& [name, type, section, options] : kNewCommands) {
    SCOPED_TRACE(name);
    host_.WhenShown("frmTank", [&, type = type, section = section] {
      const auto& form = Editor(session_);
      EXPECT_TRUE(form.visible);
      EXPECT_EQ(form.tank_type, type);
      EXPECT_EQ(PhysicalSection(form), section);
      EXPECT_EQ(Query(fmt::format("SELECT * FROM tank WHERE ID = {}", form.ID), {"TANK_TYPE", "USER ID", "DIAMETER"}),
                (TextRows{std::string(type) + "|-|-"}));
      EXPECT_EQ(Query(fmt::format("SELECT * FROM mixtures WHERE ID = {}", form.ID), {"MIX ID", "MIX NAME"}),
                (TextRows{"1|-"}));
    });
    const auto* command = shell::FindCommand(session_, name);
    ASSERT_NE(command, nullptr);
    shell::RunCommand(session_, *command);
    EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
    ForgetUnsaved();
  }
}

TEST_F(TankCreation, GivesEveryTankANumberOfItsOwn) {
  std::vector<std::int32_t> numbers;
  for (int i = 0; i < 3; ++i) {
    CreateTank(shell::kHorizontal, [&](FrmTank& form) {
      numbers.push_back(form.ID);
      ClickAbandon(session_, form);
    });
  }
  EXPECT_LT(numbers[0], numbers[1]);
  EXPECT_LT(numbers[1], numbers[2]);
}

TEST_F(TankCreation, OfFixedRoofsSaysThatTheTankIsNeitherHeatedNorUnderground) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank&) { EXPECT_EQ(Shown("cboHeatedVT"), "No"); });
  ForgetUnsaved();
  CreateTank(shell::kHorizontal, [&](FrmTank&) {
    EXPECT_EQ(Shown("cboHeatedHT"), "No");
    EXPECT_EQ(Shown("cboUndergroundHT"), "No");
  });
}

TEST_F(TankCreation, ChoosesNoColorsYet) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank&) {
    EXPECT_EQ(Shown("cboShellColorVT"), "");
    EXPECT_EQ(Shown("cboShellCondVT"), "");
  });
}

TEST_F(TankCreation, OffersTheSpeciationOptionsOfTheTypeWithNoneChosen) {
  for (const auto& [name, type, section, options] : kNewCommands) {
    SCOPED_TRACE(type);
    CreateTank(type, [&, options = options](FrmTank& form) {
      EXPECT_EQ(At(form, "cboSpecOpt").box.items, options);
      EXPECT_EQ(Shown("cboSpecOpt"), "");
      ClickAbandon(session_, form);
    });
  }
}

TEST_F(TankCreation, BeginsWithoutACityAndWithZeroWeather) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank& form) {
    EXPECT_EQ(Shown("dbcboCity"), "");
    EXPECT_GT(At(form, "dbcboCity").box.items.size(), 200U);
    for (const auto* control : {"txtAtmosPrs", "txtAvgTemp", "txtMinTemp", "txtMaxTemp", "txtWind", "txtInsol"})
      EXPECT_EQ(Shown(control), "0") << control;
  });
}

TEST_F(TankCreation, OpensOnTheFirstPageWithAbandonAvailable) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank& form) {
    EXPECT_EQ(form.page, Page::kIdentification);
    EXPECT_TRUE(form.cmdAbandon.enabled);
    EXPECT_EQ(form.MixID, 1);
  });
}

TEST_F(TankCreation, ShowsTheFirstMixtureAndNoMonths) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank& form) {
    EXPECT_EQ(form.lblMixtureXofX.text, "Mixture 1 of 1");
    EXPECT_FALSE(form.cmdPrevMix.enabled);
    EXPECT_FALSE(form.cmdNextMix.enabled);
    EXPECT_EQ(form.form, std::nullopt);
    EXPECT_EQ(form.txtThruSpec.text, "0");
    EXPECT_EQ(form.txtTotalMonths.text, "0.00");
    // Nobody enters temperatures of a tank that is not heated.
    EXPECT_FALSE(At(form, "txtALSPartial").box.enabled);
  });
}

TEST_F(TankCreation, ShowsOfADeckAndARoofOnColumnsWhatANewTankHas) {
  CreateTank(shell::kInternalFloatingRoof, [&](FrmTank& form) {
    EXPECT_EQ(Shown("cboSelfSupIT"), "No");
    EXPECT_TRUE(At(form, "txtColumnsIT").box.enabled);
    EXPECT_TRUE(At(form, "cboColumnDiamIT").box.visible);
  });
}

TEST_F(TankCreation, TakesNoCopyForTheUndo) {
  const auto other = StoreTank(shell::kHorizontal, "T1");
  EditTank(other, shell::kHorizontal, [&](FrmTank& form) { Close(form, Answer::kNo); });
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank& form) {
    EXPECT_NE(session_.tank_entry->copy.ID, form.ID);
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(UserId(other), "T1");
}

TEST_F(TankCreation, ThatTheFileRefusesShowsNoWindowAndLeavesNothing) {
  // The mixture of the new tank is there already, so its rows cannot be made.
  test::AddRow(Client(), "mixtures", {{"ID", 1}, {"MIX ID", 1}});
  host_.ExpectError(3022, "MDIForm1.");
  NewTank(session_, shell::kHorizontal);
  EXPECT_EQ(Count("tank"), 0);
  EXPECT_EQ(Client().Mark(), 0);
  EXPECT_EQ(host_.windows, std::vector<std::string>{});
  EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
}

}  // namespace
}  // namespace orvex::entry
