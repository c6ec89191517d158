#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "emission/run_report.h"
#include "refdata/frmchemical.h"
#include "refdata/frmmet.h"
#include "shell/tank_types.h"
#include "support/sample_tanks.h"

/// A row saved in an editor is what the next calculation of the same session goes by.
///
/// The tank: 20 ft by 20 ft, filled to 10 ft on the average, a cone of 0.0625 ft/ft, white and good (alpha 0.17), vents
/// at 0.03 psig either way, 14 psia, 1400 Btu/(ft2 day), 45 to 65 deg F over the year; its liquid has 80 lb/lb-mole.
///   H_VO = 20 - 10 + 0.0625 x 10 / 3                =   10.2083333 ft
///   V_V  = 3.14159265 / 4 x 20^2 x 10.2083333       = 3207.0425    ft3
///   dT_v = 0.72 x (65 - 45) + 0.028 x 0.17 x 1400   =   21.064     R
///   T_LA = 0.44 x T_AA + 0.56 x (T_AA + 6 x 0.17 - 1) + 0.0079 x 0.17 x 1400 = T_AA + 1.8914 R
///   W_V  = 80 x P / (10.731 x T_LA)
///   K_S  = 1 / (1 + 0.053 x P x 10.2083333)
///   K_E  = 21.064 / T_LA + (dP - 0.06) / (14 - P)
///   S_LOSS = 365 x V_V x W_V x K_E x K_S
namespace orvex::refdata {
namespace {

constexpr std::string_view kLiquid = "Process stream";
constexpr std::string_view kPressures[] = {"txtVP_40", "txtVP_50", "txtVP_60", "txtVP_70",
                                           "txtVP_80", "txtVP_90", "txtVP_100"};

class SavedRowsInUse : public testing::Test {
 protected:
  SavedRowsInUse() {
    test_.session.ReportTime = "Annual";
    ID_ = test::AddVerticalTank(test_);
    test::ChangeRow(test_.reference(), "met", "CTYST", {test::kSampleCity}, {{"USER DEF", true}});
    test::AddRow(test_.reference(), "chemical",
                 {{"NAME", kLiquid},
                  {"CATEGORY", shell::kOrganicLiquids},
                  {"MOLWT", 80.0},
                  {"VP_MOLWT", 80.0},
                  {"L_DENS", 7.0},
                  {"USER_DEF", true}});
    test::ChangeMixture(test_.client(), ID_, 1, {{"MIX NAME", kLiquid}});
  }

  void OpenOn(RecordEditor (*open)(shell::Session&), const std::string& list, std::string_view item) {
    form_ = open(test_.session);
    At(form_, list).box.text = item;
    PickRecord(test_.session, form_, list);
    ASSERT_TRUE(form_.user_defined);
  }
  void Type(std::string_view control, const std::string& text) {
    At(form_, control).box.text = text;
    TypeText(test_.session, form_, control);
    LeaveEntry(test_.session, form_, control);
  }
  void SaveAndClose() {
    ClickSave(test_.session, form_);
    test_.host.ExpectMessage("Save Changes?", shell::Answer::kNo);
    ClickClose(test_.session, form_);
    ASSERT_TRUE(form_.window.closed);
    form_ = {};
  }
  /// Gives the liquid its option 1 {psia}: the pressure at 40 deg F, and how much it grows with each 10 deg F.
  void SavePressures(double at_40, double step) {
    OpenOn(OpenFrmchemical, "dbcboChemName", kLiquid);
    for (const auto control : kPressures) {
      Type(control, store::Value(at_40).AsText());
      at_40 += step;
    }
    SaveAndClose();
  }
  void Run() {
    test_.session.TankList = {"Tank 1"};
    emission::RunReport(test_.session);
  }
  double RunFor(std::string_view field) {
    Run();
    EXPECT_EQ(test_.session.PrintMode, "Report");
    return test_.client().OpenAt("emission", "COMPID", {ID_, 1, kLiquid, "Annual", true}).Double(field);
  }

  test::TestSession test_;
  RecordEditor form_;
  std::int32_t ID_ = 0;
};

void ExpectNear(double actual, double expected) { EXPECT_NEAR(actual, expected, std::abs(expected) * 1e-6); }

// At T_AA = 514.67 R, T_LA is 516.5614 R; the pressure is the same at all temperatures, so dP is 0.
//   P = 2: W_V = 0.0288640878, K_S = 0.480288173, K_E = 0.0407773403 - 0.005       -> S_LOSS = 580.584399 lb
//   P = 3: W_V = 0.0432961317, K_S = 0.381224684, K_E = 0.0407773403 - 0.0054545454 -> S_LOSS = 682.468717 lb
TEST_F(SavedRowsInUse, TheNextCalculationTakesTheEditedVaporPressure) {
  SavePressures(2, 0);
  ExpectNear(RunFor("S_LOSS"), 580.584399);
  SavePressures(3, 0);
  ExpectNear(RunFor("S_LOSS"), 682.468717);
  ExpectNear(RunFor("A_VP"), 3);
}

// The pressure grows by 1 psia in 10 deg F from 1 psia at 40 deg F: P = 1 + (T_LA - 459.67 - 40) / 10; over the daily
// range of the surface, half of dT_v, it grows by dP = 21.064 / 2 / 10 = 1.0532 psia.
//   T_AA 55 F: T_LA = 516.5614 R = 56.8914 F, P = 2.68914, W_V = 0.0388097866, K_S = 0.407342464,
//     K_E = 0.0407773403 + 0.9932 / 11.31086 = 0.128586755 -> S_LOSS = 2379.54958 lb
//   T_AA 65 F: T_LA = 526.5614 R = 66.8914 F, P = 3.68914, W_V = 0.0522307076, K_S = 0.333780772,
//     K_E = 0.0400029436 + 0.9932 / 10.31086 = 0.136328554 -> S_LOSS = 2782.09292 lb
TEST_F(SavedRowsInUse, TheNextCalculationTakesTheEditedWeather) {
  SavePressures(1, 1);
  ExpectNear(RunFor("S_LOSS"), 2379.54958);
  OpenOn(OpenFrmMet, "dbcboMetCTYST", test::kSampleCity);
  Type("txtA_TEMP_DAA", "65");
  SaveAndClose();
  ExpectNear(RunFor("S_LOSS"), 2782.09292);
  ExpectNear(RunFor("A_VP"), 3.68914);
}

TEST_F(SavedRowsInUse, AnUnsavedEditIsNotTaken) {
  SavePressures(2, 0);
  OpenOn(OpenFrmchemical, "dbcboChemName", kLiquid);
  for (const auto control : kPressures) Type(control, "3");
  ExpectNear(RunFor("S_LOSS"), 580.584399);
}

TEST_F(SavedRowsInUse, ABlankYearIsReadAsItStands) {
  SavePressures(2, 0);
  test::ChangeRow(test_.reference(), "met", "CTYST", {test::kSampleCity}, {{"TAX_ANN", store::Value()}});
  OpenOn(OpenFrmMet, "dbcboMetCTYST", test::kSampleCity);
  Type("txtA_TEMP_DAA", "56");
  SaveAndClose();
  EXPECT_TRUE(test_.reference().OpenAt("met", "CTYST", {test::kSampleCity}).IsNull("TAX_ANN"));
  // Both the mixture's properties and the losses read the year.
  test_.host.ExpectError(94, "modEmission.CalcProp");
  test_.host.ExpectError(94, "modEmission.EmissFix");
  Run();
}

}  // namespace
}  // namespace orvex::refdata
