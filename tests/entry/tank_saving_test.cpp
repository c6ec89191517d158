#include <cmath>

#include "entry/lifecycle_fixture.h"
#include "entry/record_copy.h"

namespace orvex::entry {
namespace {

using TextRows = test::Rows;

constexpr const char* kNoIdentification = "Please enter an Identification Number for this record.";
constexpr const char* kNoMixtureName = "Please enter a mixture name.";
constexpr const char* kNotUnique =
    "Warning: This is not a unique User Identification Number.  Having two records with the same ID will cause errors. "
    "Please change this ID.";

class TankSaving : public test::LifecycleTest {
 protected:
  /// A stored tank, open in the editor.
  FrmTank& OpenStored(std::string_view user_id = "T1") {
    const auto ID = StoreTank(shell::kVerticalFixedRoof, user_id);
    session_.tank_entry->frmTank = std::make_unique<FrmTank>(MakeFrmTank(shell::kVerticalFixedRoof));
    auto& form = Editor(session_);
    form.ID = ID;
    form.visible = true;
    GetRecordCopy(session_, ID);
    editRecord(session_, ID, form.tank_type);
    form.form = Section::kPartial;
    ShowMixtureRow(session_, form);
    host_.status.clear();
    return form;
  }
  void ExpectRefusal(const char* text) { host_.ExpectMessage(text); }
};

TEST_F(TankSaving, StoresWhatWasTypedAndTakesTheCopyForTheUndo) {
  auto& form = OpenStored();
  At(form, "txtDesc").box.text = "North";
  At(form, "txtDiameterVT").box.text = "1,234.5";
  At(form, "txtVPPartial").box.text = "0.25";
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID", "DESC", "DIAMETER"}), (TextRows{"T1|North|1234.5"}));
  EXPECT_EQ(Query("SELECT * FROM mixtures", {"MIX NAME", "VP"}), (TextRows{"Slop|0.25"}));
  EXPECT_EQ(session_.tank_entry->copy.TankCopy[0][6], store::Value("North"));
  EXPECT_EQ(host_.status.front(), "Saving, please wait...");
  ExpectIdle();
}

TEST_F(TankSaving, ShowsVolumeTurnoversAndThroughputInTheirFormat) {
  auto& form = OpenStored();
  At(form, "txtVolumeVT").box.text = "42000";
  At(form, "txtTurnoverVT").box.text = "2.5";
  At(form, "txtThroughputVT").box.text = "105000.1234567";
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Shown("txtVolumeVT"), "42,000.00");
  EXPECT_EQ(Shown("txtTurnoverVT"), "2.50");
  EXPECT_EQ(Shown("txtThroughputVT"), "105,000.123457");
  EXPECT_EQ(form.txtThruSpec.text, "105,000.123457");
}

TEST_F(TankSaving, OfATankWithoutDimensionsIsAllowed) {
  auto& form = OpenStored();
  EXPECT_TRUE(SaveTank(session_, form));
}

TEST_F(TankSaving, WithoutAnIdentificationIsRefusedOnTheFirstPage) {
  auto& form = OpenStored();
  form.page = Page::kMonthly;
  At(form, "txtUserID").box.text = "";
  ExpectRefusal(kNoIdentification);
  EXPECT_FALSE(SaveTank(session_, form));
  EXPECT_EQ(form.page, Page::kIdentification);
  EXPECT_EQ(form.window.focus, "txtUserID");
  ExpectIdle();
}

TEST_F(TankSaving, WithoutAMixtureNameIsRefusedOnTheLiquidPage) {
  auto& form = OpenStored();
  FindLiquid(form, "MIX NAME")->box.text = "";
  ExpectRefusal(kNoMixtureName);
  EXPECT_FALSE(SaveTank(session_, form));
  EXPECT_EQ(form.page, Page::kLiquid);
  EXPECT_EQ(form.window.focus, "dbcboMixNamePartial");
  ExpectIdle();
}

TEST_F(TankSaving, OfANewTankWhoseMixtureHasNoKindYetLeadsToItsCategory) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    At(form, "txtUserID").box.text = "T1";
    ExpectRefusal(kNoMixtureName);
    EXPECT_FALSE(SaveTank(session_, form));
    EXPECT_EQ(form.page, Page::kLiquid);
    EXPECT_EQ(form.window.focus, "cboChemCat");
    EXPECT_TRUE(form.cmdAbandon.enabled);
    ExpectIdle();
  });
  EXPECT_NE(Client().Mark(), 0);
}

TEST_F(TankSaving, UnderAnIdentificationThatAnotherTankHasAddsAOneAndTheSecondTimeStoresIt) {
  StoreTank(shell::kHorizontal, "T1");
  auto& form = OpenStored("T2");
  At(form, "txtUserID").box.text = "T1";
  form.page = Page::kPhysical;
  ExpectRefusal(kNotUnique);
  EXPECT_FALSE(SaveTank(session_, form));
  EXPECT_EQ(Shown("txtUserID"), "T11");
  EXPECT_EQ(form.page, Page::kIdentification);
  EXPECT_EQ(form.window.focus, "txtUserID");
  EXPECT_FALSE(form.window.closed);
  ExpectIdle();
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(UserId(form.ID), "T11");
}

TEST_F(TankSaving, UnderAnIdentificationInOtherLettersIsNoOtherOne) {
  StoreTank(shell::kHorizontal, "tank a");
  auto& form = OpenStored("T2");
  At(form, "txtUserID").box.text = "TANK A";
  ExpectRefusal(kNotUnique);
  EXPECT_FALSE(SaveTank(session_, form));
}

TEST_F(TankSaving, UnderItsOwnIdentificationIsNoConflict) {
  auto& form = OpenStored();
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(UserId(form.ID), "T1");
}

TEST_F(TankSaving, StoresAMonthOnlyForTheMixtureThatItsListShows) {
  auto& form = OpenStored();
  test::AddRow(Client(), "mixtures",
               {{"ID", form.ID}, {"MIX ID", 2}, {"MIX NAME", "Second"}, {"JANUARY", true}, {"JAN_THRU", 9}});
  form.months[0].chk.checked = true;
  form.months[0].txtThru.text = "1,500.00";
  form.months[0].cboMix.text = "Slop";
  // Ticked, but with no mixture; and a mixture without a tick.
  form.months[1].chk.checked = true;
  form.months[1].txtThru.text = "7";
  form.months[2].cboMix.text = "Second";
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM mixtures ORDER BY [MIX ID]",
                  {"JANUARY", "JAN_THRU", "FEBRUARY", "FEB_THRU", "MARCH", "MAR_THRU"}),
            (TextRows{"-1|1500|0|0|0|0", "0|0|0|0|0|0"}));
}

TEST_F(TankSaving, DoesNotCalculateThePropertiesOfAHeatedTank) {
  auto& form = OpenStored();
  At(form, "cboHeatedVT").box.text = "Yes";
  At(form, "txtVPPartial").box.text = "0.5";
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM mixtures", {"VP"}), (TextRows{"0.5"}));
}

TEST_F(TankSaving, ThatFailsIsReportedAndStoresNothingAndCanBeRepeated) {
  auto& form = OpenStored();
  At(form, "txtDesc").box.text = "North";
  // Another program holds the file.
  {
    const auto other = store::Database::Open(session_.ClientPath);
    const store::Transaction holding(*other);
    host_.ExpectError(3260, "frmTank.SaveTank");
    EXPECT_FALSE(SaveTank(session_, form));
  }
  ExpectIdle();
  EXPECT_EQ(Query("SELECT * FROM tank", {"DESC"}), (TextRows{"-"}));
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM tank", {"DESC"}), (TextRows{"North"}));
}

TEST_F(TankSaving, ThatFailsHalfwayIsUndoneAndCanBeRepeated) {
  auto& form = OpenStored();
  At(form, "txtDesc").box.text = "North";
  form.months[0] = {.chk = {.checked = true}, .txtThru = {.text = "1"}, .cboMix = {.items = {}, .text = "Slop"}};
  const auto lock_out = [&] { Client().DeleteTable("mixtures"); };
  {
    // The tank's row is written before the mixtures, which are gone.
    store::Transaction gone(Client());
    lock_out();
    host_.ExpectError(3011, "frmTank.SaveTank");
    EXPECT_FALSE(SaveTank(session_, form));
    EXPECT_TRUE(IsChanged(At(form, "txtDesc")));
  }
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM tank", {"DESC"}), (TextRows{"North"}));
}

TEST_F(TankSaving, OfATankWhoseRowsAreGoneSaysNothing) {
  auto& form = OpenStored();
  At(form, "txtDesc").box.text = "North";
  Client().DeleteMatching("tank", "ID", {form.ID});
  Client().DeleteMatching("mixtures", "IDMIX", {form.ID});
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Count("tank"), 0);
  EXPECT_EQ(Count("mixtures"), 0);
}

// Hostile texts -------------------------------------------------------------------------------------------------------

TEST_F(TankSaving, RefusesATextLongerThanItsFieldOnItsPage) {
  auto& form = OpenStored();
  form.page = Page::kLiquid;
  At(form, "txtCompany").box.text = std::string(256, 'x');
  host_.ExpectMessage("Please enter no more than 255 characters.");
  EXPECT_FALSE(SaveTank(session_, form));
  EXPECT_EQ(form.page, Page::kIdentification);
  EXPECT_EQ(form.window.focus, "txtCompany");
  EXPECT_EQ(Query("SELECT * FROM tank", {"COMPANY"}), (TextRows{"-"}));
  At(form, "txtCompany").box.text.pop_back();
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(Query("SELECT * FROM tank", {"COMPANY"}), (TextRows{std::string(255, 'x')}));
}

TEST_F(TankSaving, RefusesAnIdentificationThatTheAddedOneMakesTooLong) {
  const std::string longest(255, 'x');
  StoreTank(shell::kHorizontal, longest);
  auto& form = OpenStored("T2");
  At(form, "txtUserID").box.text = longest;
  ExpectRefusal(kNotUnique);
  EXPECT_FALSE(SaveTank(session_, form));
  host_.ExpectMessage("Please enter no more than 255 characters.");
  EXPECT_FALSE(SaveTank(session_, form));
  At(form, "txtUserID").box.text = "short";
  EXPECT_TRUE(SaveTank(session_, form));
}

TEST_F(TankSaving, RefusesControlCharacters) {
  for (const auto& text : {std::string("a\nb"), std::string("a\tb"), std::string("a\0b", 3), std::string("\x7F")}) {
    auto& form = OpenStored();
    At(form, "txtUserID").box.text = text;
    host_.ExpectMessage("Please enter a text without control characters.");
    EXPECT_FALSE(SaveTank(session_, form));
    EXPECT_EQ(UserId(form.ID), "T1");
    Client().DeleteMatching("tank", "ID", {form.ID});
  }
}

TEST_F(TankSaving, StoresQuotesAndLettersOfAllLanguagesAsTheyAre) {
  auto& form = OpenStored();
  const std::string name = "O'Neil's \"Tank\" \xC3\xA4\xE2\x82\xAC; DROP TABLE tank --";
  At(form, "txtUserID").box.text = name;
  EXPECT_TRUE(SaveTank(session_, form));
  EXPECT_EQ(UserId(form.ID), name);
}

/// What is no number on the physical page is stored as 0 and shown so.
TEST_F(TankSaving, TakesNumbersOfThePhysicalPageByOneRule) {
  struct Case {
    std::string typed;
    double stored;
  };
  const Case cases[] = {{"1,234.5", 1234.5}, {" 12 ", 12},  {"1e3", 1000}, {"1,5", 0},
                        {"nan", 0},          {"inf", 0},    {"-inf", 0},   {std::string(400, '9'), 0},
                        {"1e400", 0},        {"0x10", 0},   {"", 0},       {"abc", 0},
                        {"1.5\n", 0},        {"1,23,4", 0}, {"-5", -5}};
  auto& form = OpenStored();
  for (const auto& [typed, stored] : cases) {
    SCOPED_TRACE(typed);
    At(form, "txtDiameterVT").box.text = typed;
    EXPECT_TRUE(SaveTank(session_, form));
    EXPECT_EQ(Client().OpenAt("tank", "ID", {form.ID}).DoubleOrZero("DIAMETER"), stored);
    EXPECT_TRUE(stored != 0 || Shown("txtDiameterVT") == "0") << Shown("txtDiameterVT");
  }
}

TEST_F(TankSaving, RefusesWhatIsNoNumberOnTheOtherPages) {
  for (const auto& [control, page] :
       {std::pair("txtAtmosPrs", Page::kSite), std::pair("txtVPPartial", Page::kLiquid)}) {
    for (const auto& text : {std::string("1,5"), std::string("nan"), std::string("inf"), std::string(400, '9')}) {
      auto& form = OpenStored();
      At(form, control).box.text = text;
      host_.ExpectMessage("Please enter a number.");
      EXPECT_FALSE(SaveTank(session_, form)) << control << " " << text;
      EXPECT_EQ(form.page, page);
      EXPECT_EQ(form.window.focus, control);
      EXPECT_EQ(Shown(control), "0");
      Client().DeleteMatching("tank", "ID", {form.ID});
    }
  }
}

TEST_F(TankSaving, RefusesAMonthWhoseThroughputIsNoNumber) {
  auto& form = OpenStored();
  form.months[3] = {.chk = {.checked = true}, .txtThru = {.text = "1,5"}, .cboMix = {.items = {}, .text = "Slop"}};
  host_.ExpectMessage("Please enter a number.");
  EXPECT_FALSE(SaveTank(session_, form));
  EXPECT_EQ(form.page, Page::kMonthly);
  EXPECT_EQ(form.window.focus, "txtThruAPR");
  EXPECT_EQ(form.months[3].txtThru.text, "0");
  EXPECT_TRUE(SaveTank(session_, form));
}

}  // namespace
}  // namespace orvex::entry
