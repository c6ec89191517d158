#include "shell/tank_types.h"
#include "windows/keyboard_walk.h"

namespace orvex::test {
namespace {

class KeyboardHorizontalTank : public KeyboardWalk {
 protected:
  void DescribeBuriedTank() {
    const QString reason = "Shell diameter must be between 3 and 20 feet.";
    typist_.Keys({"Alt+Y"});
    typist_.Fill("txtLengthHT", "30");
    typist_.Fill("txtDiameterHT", "21");
    typist_.Keys({"Tab"});
    typist_.Reply(reason, "Return");
    typist_.Read("txtDiameterHTRefusal", reason);
    typist_.Fill("txtDiameterHT", "10");
    typist_.Fill("txtVolumeHT", "17000");
    typist_.Fill("txtTurnoverHT", "12");
    typist_.TabTo("txtThroughputHT");
    typist_.Read("txtThroughputHT", "204,000.00");
    typist_.Arrow("cboUndergroundHT", "Yes");
    typist_.Fill("txtVacuumHT", "0.03");
    typist_.Fill("txtPressureHT", "0.03");
    typist_.Look("horizontal_physical");
  }

  /// Goes through the components that came with the profile.
  void ReadComponents() {
    typist_.Keys({"Alt+V"});
    typist_.At("Frmcomponent");
    typist_.Keys({"Alt+N"});
    typist_.Look("horizontal_component");
    typist_.Keys({"Esc"});
    typist_.At("frmTank");
  }

  static void AddRows(store::Database& client) {
    AddRow(client, "tank",
           {{"TANK_TYPE", shell::kHorizontal},
            {"MET CTYST", "Houston Hobby, Texas"},
            {"ATMOS_PRS", kPressure},
            {"HEIGHT S", 30.0},
            {"DIAMETER", 10.0},
            {"VOLUME", 17'000.0},
            {"TURNOVER", 12.0},
            {"Q_NET", 204'000.0},
            {"UNDER", true},
            {"VENT_V", -0.03},
            {"VENT_P", 0.03}});
    SetIdentity(client, "H-1", "Bayport", "Texas");
    AddMixtureOfMonths(client, 0, 11, 17'000,
                       {{"ID", 1},
                        {"MIX ID", 1},
                        {"MIX NAME", "Gasoline (RVP 9)"},
                        {"C_CATEGORY", "Petroleum Distillates"},
                        {"COMPONENT", "Multiple"},
                        {"SPEC_OPT", "Vapor Weight Speciation"},
                        {"MOLWT", 92.0},
                        {"VP_MOLWT", 67.0},
                        {"L_DENS", 5.6}});
    AddProfile(client, 8);
  }

  static constexpr double kPressure = 14.722;
};

TEST_F(KeyboardHorizontalTank, BuriedTankWithAVaporProfileGivesTheReportOfItsRows) {
  NewByMenus("H");
  Identify("H-1", "Bayport", "Texas");
  DescribeBuriedTank();
  ChooseCity("houston h", "Houston Hobby, Texas");
  typist_.Fill("txtAtmosPrs", "14.722");
  ChooseKind("Petroleum Distillates", "Vapor Weight Speciation");
  typist_.Fill("dbcboMixNamePartial", "Gasoline (RVP 9)");
  CopyProfile("Gasoline Vapor");
  ReadComponents();
  typist_.Keys({"Alt+P"});
  typist_.Look("horizontal_liquid");
  UseAllMonths("204,000.00");
  RunDetailReport();
  CloseEditor("Return");
  Exit();
  Run();
  ExpectSameReport(Report(), ReportOfRows("H-1", AddRows));
}

}  // namespace
}  // namespace orvex::test
