#include "entry/frmcomponent.h"
#include "entry/lifecycle_fixture.h"
#include "entry/update_tank.h"
#include "shell/editing.h"
#include "support/sample_tanks.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using TextRows = test::Rows;

class TankLoading : public test::LifecycleTest {};

TEST_F(TankLoading, ShowsATankOnItsFirstPageWithoutAbandon) {
  const auto ID = StoreTank(shell::kVerticalFixedRoof, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID},
                  {{"DESC", "North"}, {"DIAMETER", 20}, {"VOLUME", 42000}, {"Q_NET", 420000}, {"HEATED", true}});
  EditTank(ID, shell::kVerticalFixedRoof, [&](FrmTank& form) {
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.ID, ID);
    EXPECT_EQ(form.page, Page::kIdentification);
    EXPECT_FALSE(form.cmdAbandon.enabled);
    EXPECT_TRUE(form.cmdAdd.enabled);
    EXPECT_EQ(Shown("txtDesc"), "North");
    EXPECT_EQ(Shown("txtDiameterVT"), "20");
    EXPECT_EQ(Shown("txtVolumeVT"), "42,000.00");
    EXPECT_EQ(Shown("cboHeatedVT"), "Yes");
    EXPECT_EQ(form.txtThruSpec.text, "420,000.00");
  });
  EXPECT_EQ(host_.status.front(), "Finding data, please wait...");
}

TEST_F(TankLoading, IsDoneWithTheBusyPointerBeforeTheWindowShows) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) { ExpectIdle(); });
}

TEST_F(TankLoading, TakesTheCopyForTheUndoOnlyWhileTheWindowIsNotShown) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_EQ(session_.tank_entry->copy.ID, ID);
    test::ChangeRow(Client(), "tank", "ID", {ID}, {{"DESC", "changed"}});
    editRecord(session_, ID, form.tank_type);
    EXPECT_EQ(Shown("txtDesc"), "changed");
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"DESC"}), (TextRows{"-"}));
}

TEST_F(TankLoading, ReloadsTheShownTankInItsPlace) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    form.page = Page::kLiquid;
    editRecord(session_, ID, form.tank_type);
    EXPECT_EQ(&Editor(session_), &form);
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.page, Page::kIdentification);
  });
  EXPECT_EQ(host_.windows, (std::vector<std::string>{"frmTank"}));
}

TEST_F(TankLoading, ChoosesTheDefaultOfEachListThatHoldsNothingKnown) {
  const auto ID = StoreTank(shell::kInternalFloatingRoof, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"SHL COLSHD", "Violet"}, {"PT_COND", "Poor"}});
  EditTank(ID, shell::kInternalFloatingRoof, [&](FrmTank& form) {
    EXPECT_EQ(Shown("cboShellColorIT"), "White/White (D)");
    EXPECT_EQ(Shown("cboRoofColorIT"), "White/White (D)");
    EXPECT_EQ(Shown("cboShellCondIT"), "Poor");
    EXPECT_EQ(Shown("cboRoofCondIT"), "Good (D)");
    EXPECT_EQ(Shown("cboInternalCondIT"), "Light Rust (D)");
    // Stored with the next commit, without the mark.
    EXPECT_EQ(Query("SELECT * FROM tank", {"SHL COLSHD"}), (TextRows{"Violet"}));
    UpdateTank(session_, form);
    EXPECT_EQ(Query("SELECT * FROM tank", {"SHL COLSHD", "RF_COLSHD", "PT_COND", "RF_COND", "SHL_COND"}),
              (TextRows{"White/White|White/White|Poor|Good|Light Rust"}));
  });
}

TEST_F(TankLoading, ChoosesStoredItemsThatAreDefaults) {
  const auto ID = StoreTank(shell::kVerticalFixedRoof, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"SHL COLSHD", "White/White"}, {"RF_COLSHD", "Gray/Light"}});
  EditTank(ID, shell::kVerticalFixedRoof, [&](FrmTank&) {
    EXPECT_EQ(Shown("cboShellColorVT"), "White/White (D)");
    EXPECT_EQ(Shown("cboRoofColorVT"), "Gray/Light");
  });
}

TEST_F(TankLoading, ShowsTheColumnDiameterOfARoofOnColumns) {
  const auto ID = StoreTank(shell::kInternalFloatingRoof, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"SELF_SUP", false}, {"COL_NO", 6}, {"COL_DIAM", 1.1}});
  EditTank(ID, shell::kInternalFloatingRoof, [&](FrmTank& form) {
    EXPECT_EQ(Shown("cboSelfSupIT"), "No");
    EXPECT_EQ(Number(At(form, "cboColumnDiamIT")), 1.1);
  });
}

TEST_F(TankLoading, ShowsTheMonthsOfAllMixtures) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::ChangeRow(Client(), "mixtures", "IDMIX", {ID, 1}, {{"JANUARY", true}, {"JAN_THRU", 1000}});
  test::AddRow(Client(), "mixtures",
               {{"ID", ID}, {"MIX ID", 2}, {"MIX NAME", "Second"}, {"MARCH", true}, {"MAR_THRU", 500.5}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_EQ(form.mixtures, 2);
    EXPECT_EQ(form.lblMixtureXofX.text, "Mixture 1 of 2");
    EXPECT_TRUE(form.cmdNextMix.enabled);
    EXPECT_FALSE(form.cmdPrevMix.enabled);
    EXPECT_TRUE(form.months[0].chk.checked);
    EXPECT_EQ(form.months[0].cboMix.text, "Slop");
    EXPECT_EQ(form.months[2].cboMix.text, "Second");
    EXPECT_EQ(form.months[2].txtThru.text, "500.50");
    EXPECT_FALSE(form.months[1].chk.checked);
    EXPECT_EQ(form.txtTotalMonths.text, "1,500.50");
  });
}

TEST_F(TankLoading, OfATankWithOneMixtureHasNoNextOne) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_EQ(form.lblMixtureXofX.text, "Mixture 1 of 1");
    EXPECT_FALSE(form.cmdNextMix.enabled);
    EXPECT_FALSE(form.cmdPrevMix.enabled);
    EXPECT_TRUE(form.cmdAdd.enabled);
  });
}

TEST_F(TankLoading, AfterACopyOfTheTanksOwnDataLeavesMixturesAndMonthsAlone) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    form.months[4].chk.checked = true;
    form.months[4].txtThru.text = "77";
    session_.CopyDataPending = true;
    editRecord(session_, ID, form.tank_type);
    EXPECT_FALSE(session_.CopyDataPending);
    EXPECT_EQ(form.months[4].txtThru.text, "77.00");
    editRecord(session_, ID, form.tank_type);
    EXPECT_EQ(form.months[4].txtThru.text, "0.00");
  });
}

TEST_F(TankLoading, AfterACopyOfTheTanksOwnDataTheMixtureKeepsItsOptionAndItsForm) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::ChangeMixture(Client(), ID, 1, {{"SPEC_OPT", "Full Speciation"}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    session_.CopyDataPending = true;
    editRecord(session_, ID, form.tank_type);
    EXPECT_EQ(Shown("cboSpecOpt"), "");
    EXPECT_EQ(form.form, Section::kFull);
    EXPECT_EQ(OpenFrmcomponent(session_).SpecOpt, "Full Speciation");
    EXPECT_TRUE(SaveTank(session_, form));
    EXPECT_EQ(Query("SELECT * FROM mixtures", {"SPEC_OPT"}), (test::Rows{"Full Speciation"}));
  });
}

TEST_F(TankLoading, GoesBackToTheFirstMixture) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::AddRow(Client(), "mixtures", {{"ID", ID}, {"MIX ID", 2}, {"MIX NAME", "Second"}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    form.MixID = 2;
    ShowMixture(session_, form);
    editRecord(session_, ID, form.tank_type);
    EXPECT_EQ(form.MixID, 1);
    EXPECT_EQ(Shown("dbcboMixNamePartial"), "Slop");
    EXPECT_TRUE(form.cmdNextMix.enabled);
    EXPECT_FALSE(form.cmdPrevMix.enabled);
  });
}

TEST_F(TankLoading, ThatFailsAfterACopyLoadsTheNextTankWhole) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    session_.CopyDataPending = true;
    Client().DeleteMatching("tank", "ID", {ID});
    host_.ExpectMessage("The tank is no longer in the client database.");
    editRecord(session_, ID, form.tank_type);
  });
  const auto next = StoreTank(shell::kHorizontal, "T2");
  EditTank(next, shell::kHorizontal, [&](FrmTank& form) { EXPECT_EQ(form.lblMixtureXofX.text, "Mixture 1 of 1"); });
}

TEST_F(TankLoading, OfATankThatIsGoneTellsSoAndShowsNoWindow) {
  host_.ExpectMessage("The tank is no longer in the client database.");
  editRecord(session_, 77, std::string(shell::kHorizontal));
  EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
  EXPECT_TRUE(host_.windows.empty());
  ExpectIdle();
}

TEST_F(TankLoading, OfATankWithoutAnyMixtureStillOpens) {
  test::AddRow(Client(), "tank", {{"TANK_TYPE", shell::kHorizontal}, {"USER ID", "bare"}});
  EditTank(1, shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_EQ(Shown("txtUserID"), "bare");
    EXPECT_EQ(form.lblMixtureXofX.text, "Mixture 1 of 0");
    EXPECT_FALSE(form.cmdNextMix.enabled);
    EXPECT_FALSE(form.cmdPrevMix.enabled);
    EXPECT_TRUE(form.cmdAdd.enabled);
  });
}

TEST_F(TankLoading, LeavesNoEditorBehindWhenItsWindowFails) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  host_.WhenShown("frmTank", [] { throw store::RunTimeError(store::ErrorNumber::kTypeMismatch, "no window"); });
  host_.ExpectError(13, "mDatabase.editRecord");
  editRecord(session_, ID, std::string(shell::kHorizontal));
  EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
  EXPECT_FALSE(std::filesystem::exists(shell::EditingPath(session_.ClientPath)));
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) { EXPECT_EQ(form.ID, ID); });
}

TEST_F(TankLoading, ThatFailsIsReportedUnderItsOwnNameAndShowsNoWindow) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  session_.ReferenceDb->DeleteTable("met");
  // The properties are calculated first, and fail by themselves.
  host_.ExpectError(3011, "modEmission.CalcProp");
  host_.ExpectError(3011, "mDatabase.editRecord");
  editRecord(session_, ID, std::string(shell::kHorizontal));
  EXPECT_TRUE(host_.windows.empty());
  EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
  ExpectIdle();
}

}  // namespace
}  // namespace orvex::entry
