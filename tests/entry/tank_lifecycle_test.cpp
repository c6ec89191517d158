#include "entry/tank_lifecycle.h"

#include "entry/lifecycle_fixture.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using TextRows = test::Rows;

constexpr const char* kNoIdentification = "Please enter an Identification Number for this record.";
constexpr const char* kNotUnique =
    "Warning: This is not a unique User Identification Number.  Having two records with the same ID will cause errors. "
    "Please change this ID.";

class TankLifecycle : public test::LifecycleTest {
 protected:
  void ExpectNoRows() {
    for (const auto* table : {"tank", "mixtures", "components", "fittings"}) EXPECT_EQ(Count(table), 0) << table;
  }
};

// New -----------------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, ANewTankClosedWithNoLeavesNoRow) {
  CreateTank(shell::kInternalFloatingRoof, [&](FrmTank& form) {
    test::AddRow(Client(), "components", {{"ID", form.ID}, {"MIX ID", 1}, {"COMP ID", 1}});
    test::AddRow(Client(), "fittings", {{"ID", form.ID}, {"FIT ID", 1}});
    Close(form, Answer::kNo);
    EXPECT_TRUE(form.window.closed);
  });
  ExpectNoRows();
  EXPECT_EQ(Client().Mark(), 0);
}

TEST_F(TankLifecycle, ANewTankClosedWithYesAndNoIdentificationStaysOpenOnTheFirstPage) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    form.page = Page::kLiquid;
    host_.ExpectMessage("Save Changes?", "Save?", shell::Buttons::kYesNoCancel, shell::Icon::kNone, Answer::kYes);
    host_.ExpectMessage(kNoIdentification);
    ClickClose(session_, form);
    EXPECT_FALSE(form.window.closed);
    EXPECT_EQ(form.page, Page::kIdentification);
    EXPECT_TRUE(form.cmdAbandon.enabled);
    ExpectIdle();
  });
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TankLifecycle, CancelOfCloseDoesNothing) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    At(form, "txtDesc").box.text = "typed";
    Close(form, Answer::kCancel);
    EXPECT_FALSE(form.window.closed);
    EXPECT_EQ(Shown("txtDesc"), "typed");
  });
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TankLifecycle, ANewTankIsSavedByCloseWithYes) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    Close(form, Answer::kYes);
    EXPECT_TRUE(form.window.closed);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T1"}));
  EXPECT_EQ(Client().Mark(), 0);
}

// Abandon -------------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, AbandonRemovesTheNewTankAndNothingOfOthers) {
  const auto other = StoreTank(shell::kHorizontal, "T1");
  test::AddRow(Client(), "fittings", {{"ID", other}, {"FIT ID", 1}});
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    host_.status.clear();
    ClickAbandon(session_, form);
    EXPECT_TRUE(form.window.closed);
    EXPECT_EQ(host_.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T1"}));
  EXPECT_EQ(Count("mixtures"), 1);
  EXPECT_EQ(Count("fittings"), 1);
}

TEST_F(TankLifecycle, AbandonIsGoneAfterTheFirstSave) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    ClickSave(session_, form);
    EXPECT_FALSE(form.cmdAbandon.enabled);
    ClickAbandon(session_, form);
    EXPECT_FALSE(form.window.closed);
  });
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TankLifecycle, AbandonStaysAfterASaveThatWasRefused) {
  StoreTank(shell::kHorizontal, "T1");
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    host_.ExpectMessage(kNotUnique);
    ClickSave(session_, form);
    EXPECT_EQ(Shown("txtUserID"), "T11");
    EXPECT_TRUE(form.cmdAbandon.enabled);
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T1"}));
  EXPECT_EQ(Count("mixtures"), 1);
}

TEST_F(TankLifecycle, AnAbandonThatFailsIsReportedAndKeepsTheTankAndTheWindow) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    const auto other = store::Database::Open(session_.ClientPath);
    const store::Transaction holding(*other);
    host_.ExpectError(3260, "frmTank.cmdAbandon_Click");
    ClickAbandon(session_, form);
    EXPECT_FALSE(form.window.closed);
    ExpectIdle();
  });
  EXPECT_EQ(Count("tank"), 1);
  EXPECT_EQ(Count("mixtures"), 1);
}

// Save ----------------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, SaveStoresAndShowsTheTankAnewWithTheDefaultsOfItsLists) {
  CreateTank(shell::kVerticalFixedRoof, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    At(form, "txtVolumeVT").box.text = "42000";
    ClickSave(session_, form);
    EXPECT_EQ(form.page, Page::kIdentification);
    EXPECT_EQ(Shown("txtVolumeVT"), "42,000.00");
    EXPECT_EQ(Shown("cboShellColorVT"), "White/White (D)");
    EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID", "VOLUME", "SHL COLSHD"}), (TextRows{"T1|42000|White/White"}));
    ExpectIdle();
  });
}

TEST_F(TankLifecycle, ASavedNewTankIsNoLongerUndoneByNoButGoesBackToTheSave) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    ClickSave(session_, form);
    Type("txtDiameterHT", "10");
    EnterEntry(session_, form, "txtLengthHT");
    EXPECT_EQ(Query("SELECT * FROM tank", {"DIAMETER"}), (TextRows{"10"}));
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID", "DIAMETER"}), (TextRows{"T1|-"}));
}

TEST_F(TankLifecycle, ASaveOfATextThatIsTooLongIsRefusedBeforeAnythingIsWritten) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    At(form, "txtDesc").box.text = "typed";
    At(form, "txtCity").box.text = std::string(10000, 'x');
    host_.ExpectMessage("Please enter no more than 255 characters.");
    ClickSave(session_, form);
    EXPECT_EQ(Query("SELECT * FROM tank", {"DESC", "CITY"}), (TextRows{"-|-"}));
  });
}

TEST_F(TankLifecycle, ASaveThatFailsBeforeTheSavingIsReportedUnderTheButton) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    At(form, "txtDesc").box.text = "typed";
    const auto other = store::Database::Open(session_.ClientPath);
    const store::Transaction holding(*other);
    host_.ExpectError(3260, "frmTank.cmdSave_Click");
    ClickSave(session_, form);
  });
}

// Close ---------------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, ASavedTankChangedAndClosedWithNoGetsItsOldRowsBack) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"DIAMETER", 10}});
  test::ChangeRow(Client(), "mixtures", "IDMIX", {ID, 1}, {{"MAY", true}, {"MAY_THRU", 100}});
  test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", 1}, {"NAME", "Benzene"}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    form.form = Section::kPartial;
    ShowMixtureRow(session_, form);
    At(form, "txtDiameterHT").box.text = "12";
    FindLiquid(form, "MIX NAME")->box.text = "Other";
    CommitTank(session_, form);
    CommitMixture(session_, form);
    Client().DeleteMatching("components", "IDMIX", {ID});
    test::ChangeRow(Client(), "mixtures", "IDMIX", {ID, 1}, {{"MAY", false}, {"MAY_THRU", 0}});
    Close(form, Answer::kNo);
    EXPECT_TRUE(form.window.closed);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"DIAMETER"}), (TextRows{"10"}));
  EXPECT_EQ(Query("SELECT * FROM mixtures", {"MIX NAME", "MAY", "MAY_THRU"}), (TextRows{"Slop|-1|100"}));
  EXPECT_EQ(Query("SELECT * FROM components", {"NAME"}), (TextRows{"Benzene"}));
}

TEST_F(TankLifecycle, ComponentsThatTheChoiceOfSingleRemovedComeBackWithNo) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", 1}, {"NAME", "Benzene"}});
  test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", 2}, {"NAME", "Toluene"}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    Choose("cboSingleMultiple", "Single");
    EXPECT_EQ(Count("components"), 0);
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(Query("SELECT * FROM components", {"NAME"}), (TextRows{"Benzene", "Toluene"}));
  EXPECT_EQ(Query("SELECT * FROM mixtures", {"COMPONENT", "SPEC_OPT"}), (TextRows{"Multiple|None"}));
}

TEST_F(TankLifecycle, ATankWithoutFittingsThatIsGivenOneAndClosedWithNoKeepsIt) {
  const auto ID = StoreTank(shell::kInternalFloatingRoof, "T1");
  EditTank(ID, shell::kInternalFloatingRoof, [&](FrmTank& form) {
    test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", 1}, {"FIT_TYPE", "Ladder"}});
    Close(form, Answer::kNo);
  });
  EXPECT_EQ(Query("SELECT * FROM fittings", {"ID", "FIT_TYPE"}), (TextRows{fmt::format("{}|Ladder", ID)}));
}

TEST_F(TankLifecycle, AnIdentificationThatAnotherTankHasKeepsTheWindowOpenAtClose) {
  StoreTank(shell::kHorizontal, "T1");
  const auto ID = StoreTank(shell::kHorizontal, "T2");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    host_.ExpectMessage("Save Changes?", "Save?", shell::Buttons::kYesNoCancel, shell::Icon::kNone, Answer::kYes);
    host_.ExpectMessage(kNotUnique);
    ClickClose(session_, form);
    EXPECT_FALSE(form.window.closed);
    form.form = Section::kPartial;
    ShowMixtureRow(session_, form);
    Close(form, Answer::kYes);
    EXPECT_TRUE(form.window.closed);
  });
  EXPECT_EQ(UserId(ID), "T11");
}

// Run Report ----------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, RunReportSavesTheTankAndReportsOnItAlone) {
  StoreTank(shell::kHorizontal, "T0");
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  session_.TankList = {"T0", "T1"};
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtDesc").box.text = "typed";
    form.page = Page::kMonthly;
    host_.WhenShown("Frmreptyp", [&] {
      EXPECT_EQ(session_.TankList, (std::vector<std::string>{"T1"}));
      EXPECT_EQ(Query("SELECT * FROM tank WHERE [USER ID] = 'T1'", {"DESC"}), (TextRows{"typed"}));
    });
    ClickRunReport(session_, form);
    EXPECT_EQ(form.page, Page::kIdentification);
    EXPECT_FALSE(form.window.closed);
    ExpectIdle();
  });
  EXPECT_EQ(host_.windows, (std::vector<std::string>{"frmTank", "Frmreptyp"}));
}

TEST_F(TankLifecycle, RunReportOfATankThatCannotBeSavedSaysSoTwiceAndReportsNothing) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    host_.ExpectMessage(kNoIdentification);
    host_.ExpectMessage(kNoIdentification);
    ClickRunReport(session_, form);
    EXPECT_TRUE(form.cmdAbandon.enabled);
  });
  EXPECT_EQ(host_.windows, (std::vector<std::string>{"frmTank"}));
}

TEST_F(TankLifecycle, RunReportUnderAnIdentificationThatAnotherTankHasRunsUnderTheChangedOne) {
  StoreTank(shell::kHorizontal, "T1");
  const auto ID = StoreTank(shell::kHorizontal, "T2");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    At(form, "txtUserID").box.text = "T1";
    host_.ExpectMessage(kNotUnique);
    ClickRunReport(session_, form);
    EXPECT_EQ(session_.TankList, (std::vector<std::string>{"T11"}));
  });
}

TEST_F(TankLifecycle, ARunReportThatFailsIsReportedUnderTheButton) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank& form) {
    At(form, "txtDesc").box.text = "typed";
    const auto other = store::Database::Open(session_.ClientPath);
    const store::Transaction holding(*other);
    host_.ExpectError(3260, "modEmission.CalcProp");
    host_.ExpectError(3260, "frmTank.cmdRunReport_Click");
    ClickRunReport(session_, form);
    ExpectIdle();
  });
}

// Help ----------------------------------------------------------------------------------------------------------------

TEST_F(TankLifecycle, HelpOpensTheTopicOfThePage) {
  auto& form = OpenTank(shell::kHorizontal);
  for (const auto page : {Page::kIdentification, Page::kPhysical, Page::kSite, Page::kLiquid, Page::kMonthly}) {
    form.page = page;
    ClickHelp(session_, form);
  }
  EXPECT_EQ(host_.help, (std::vector<std::string>{"tank_identification", "tank_physical", "tank_site", "tank_liquid",
                                                  "tank_months"}));
}

}  // namespace
}  // namespace orvex::entry
