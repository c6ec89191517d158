#include "entry/bound_record.h"

#include <string>

#include "entry/tank_entry_fixture.h"
#include "entry/update_tank.h"
#include "shell/tank_types.h"
#include "support/expect_error.h"
#include "support/sample_tanks.h"

namespace orvex::entry {
namespace {

class BoundRecordTest : public test::TankEntryTest {
 protected:
  store::Value Stored(std::string_view field) {
    return session_.ClientDb->OpenAt("tank", "ID", {Editor(session_).ID}).Get(field);
  }
  store::Value StoredLiquid(std::string_view field) {
    return session_.ClientDb->OpenAt("mixtures", "IDMIX", {Editor(session_).ID, 1}).Get(field);
  }
};

TEST_F(BoundRecordTest, ShowsNullNumbersAsZeroAndNullTextsAsNothing) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  EXPECT_EQ(At(form, "txtDiameterVT").box.text, "0");
  EXPECT_EQ(At(form, "txtUserID").box.text, "");
  EXPECT_EQ(At(form, "cboHeatedVT").box.text, "No");
  EXPECT_EQ(At(form, "cboShellColorVT").box.text, "");
}

TEST_F(BoundRecordTest, LeavesANullAloneThatNobodyChanged) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  CommitTank(session_, form);
  EXPECT_TRUE(Stored("DIAMETER").IsNull());
}

TEST_F(BoundRecordTest, WritesChangedEntries) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  At(form, "txtUserID").box.text = "T-1";
  At(form, "txtDiameterVT").box.text = "1,234.5";
  At(form, "cboHeatedVT").box.text = "Yes";
  At(form, "cboShellColorVT").box.text = "White/White (D)";
  CommitTank(session_, form);
  EXPECT_EQ(Stored("USER ID").AsText(), "T-1");
  EXPECT_EQ(Stored("DIAMETER").AsDouble(), 1234.5);
  EXPECT_TRUE(Stored("HEATED").AsBool());
  EXPECT_EQ(Stored("SHL COLSHD").AsText(), "White/White");
  EXPECT_FALSE(IsChanged(At(form, "txtDiameterVT")));
}

TEST_F(BoundRecordTest, KeepsDigitsThatItDoesNotShow) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  const double third = 1.0 / 3;
  test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, {{"DIAMETER", third}});
  ShowTank(session_, form);
  EXPECT_EQ(At(form, "txtDiameterVT").box.text, "0.333333333333333");
  At(form, "txtUserID").box.text = "T-1";
  CommitTank(session_, form);
  EXPECT_EQ(Stored("DIAMETER").AsDouble(), third);
}

TEST_F(BoundRecordTest, ShowsWhatWasStoredInTheOtherTypesSections) {
  auto& form = OpenTank(shell::kHorizontal);
  At(form, "txtPressureHT").box.text = "0.5";
  EXPECT_EQ(At(form, "txtPressureVT").box.text, "0");
  CommitTank(session_, form);
  EXPECT_EQ(At(form, "txtPressureVT").box.text, "0.5");
}

TEST_F(BoundRecordTest, NeverWritesWhatStandsInAnotherTypesSection) {
  auto& form = OpenTank(shell::kHorizontal);
  At(form, "txtPressureVT").box.text = "0.75";
  CommitTank(session_, form);
  EXPECT_TRUE(Stored("VENT_P").IsNull());
}

TEST_F(BoundRecordTest, StoresATextThatIsNoNumberAsZero) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  for (const std::string text : {"", "wide", "nan", "inf", "1,5", "1e999"}) {
    test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, {{"DIAMETER", 7.0}});
    ShowTank(session_, form);
    At(form, "txtDiameterVT").box.text = text;
    CommitTank(session_, form);
    EXPECT_EQ(At(form, "txtDiameterVT").box.text, "0") << text;
    EXPECT_EQ(Stored("DIAMETER").AsDouble(), 0) << text;
  }
}

TEST_F(BoundRecordTest, WritesNothingWhenOneTextIsTooLong) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  At(form, "txtDiameterVT").box.text = "30";
  At(form, "txtDesc").box.text = std::string(256, 'x');
  EXPECT_RUN_TIME_ERROR(CommitTank(session_, form), store::ErrorNumber::kTextTooLong);
  EXPECT_TRUE(Stored("DIAMETER").IsNull());
  EXPECT_TRUE(Stored("DESC").IsNull());
}

TEST_F(BoundRecordTest, FailsQuietlyWhenTheTankIsGone) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  session_.ClientDb->DeleteMatching("tank", "ID", {form.ID});
  At(form, "txtUserID").box.text = "T-1";
  EXPECT_RUN_TIME_ERROR(CommitTank(session_, form), store::ErrorNumber::kNoCurrentRecord);
}

TEST_F(BoundRecordTest, WritesTheMixtureOfTheFormShown) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  form.form = Section::kPartial;
  At(form, "dbcboMixNamePartial").box.text = "Slop oil";
  At(form, "txtVPPartial").box.text = "0.25";
  At(form, "txtVPFull").box.text = "9";
  CommitMixture(session_, form);
  EXPECT_EQ(StoredLiquid("MIX NAME").AsText(), "Slop oil");
  EXPECT_EQ(StoredLiquid("VP").AsDouble(), 0.25);
  EXPECT_EQ(At(form, "txtVPFull").box.text, "0.25");
  EXPECT_EQ(At(form, "dbcboChemName").box.text, "Slop oil");
}

TEST_F(BoundRecordTest, ShowsAPressureTooSmallForFourDecimalsInScientificFormAndKeepsItsDigits) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  form.form = Section::kPartial;
  test::ChangeMixture(*session_.ClientDb, form.ID, 1,
                      {{"VP", 2.68914e-5}, {"VP_MIN", 0.00005}, {"VP_MAX", 1e-20}, {"MOLWT", 2.68914e-5}});
  ShowMixtureRow(session_, form);
  EXPECT_EQ(At(form, "txtVPPartial").box.text, "2.69E-05");
  EXPECT_EQ(At(form, "txtVPMinPartial").box.text, "0.00005") << "which rounds up to 0.0001";
  EXPECT_EQ(At(form, "txtVPMaxPartial").box.text, "1.00E-20");
  EXPECT_EQ(At(form, "txtMolWtPartial").box.text, "0.0000268914");
  At(form, "dbcboMixNamePartial").box.text = "Tar";
  CommitMixture(session_, form);
  EXPECT_EQ(StoredLiquid("VP").AsDouble(), 2.68914e-5);
}

TEST_F(BoundRecordTest, UpdatingTheTankFormatsItsQuantities) {
  auto& form = OpenTank(shell::kHorizontal);
  At(form, "txtVolumeHT").box.text = "12345.6";
  At(form, "txtThroughputHT").box.text = "1e6";
  UpdateTank(session_, form);
  EXPECT_EQ(At(form, "txtVolumeHT").box.text, "12,345.60");
  EXPECT_EQ(At(form, "txtTurnoverHT").box.text, "0.00");
  EXPECT_EQ(At(form, "txtThroughputHT").box.text, "1,000,000.00");
  EXPECT_EQ(form.txtThruSpec.text, "1,000,000.00");
  EXPECT_EQ(Stored("VOLUME").AsDouble(), 12345.6);
}

TEST_F(BoundRecordTest, FormattingShowsMonthsAndTotalAlike) {
  auto& form = OpenTank(shell::kHorizontal);
  form.months[4].txtThru.text = "1234.5678901";
  form.txtTotalMonths.text = "99999";
  FormatLarge(form);
  EXPECT_EQ(form.months[4].txtThru.text, "1,234.56789");
  EXPECT_EQ(form.months[0].txtThru.text, "0.00");
  EXPECT_EQ(form.txtTotalMonths.text, "99,999.00");
}

}  // namespace
}  // namespace orvex::entry
