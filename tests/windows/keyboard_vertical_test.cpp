#include "shell/tank_types.h"
#include "windows/keyboard_walk.h"

namespace orvex::test {
namespace {

class KeyboardVerticalTank : public KeyboardWalk {
 protected:
  void DescribeConeRoofTank() {
    typist_.Keys({"Alt+Y"});
    typist_.ExpectFocus("txtShellHeightVT");
    typist_.Type("32");
    typist_.Fill("txtDiameterVT", "40");
    typist_.Fill("txtMaxLiquidHeightVT", "30");
    typist_.Fill("txtAvgLiquidHeightVT", "15");
    // 20^2 * 3.14159 * 30 / 0.13368 = 282,009.874327
    typist_.TabTo("txtVolumeVT");
    typist_.Read("txtVolumeVT", "282,009.874327");
    typist_.Type("282000");
    typist_.Fill("txtTurnoverVT", "10");
    typist_.TabTo("txtThroughputVT");
    typist_.Read("txtThroughputVT", "2,820,000.00");
    typist_.Arrow("cboShellColorVT", "Gray/Light");
    typist_.Open("cboShellCondVT", "Good (D)");
    typist_.Arrow("cboRoofColorVT", "Aluminum/Diffuse");
    typist_.Open("cboRoofCondVT", "Poor");
    typist_.Open("cboRoofTypeVT", "Cone");
    typist_.Fill("txtRoofHeightVT", "1.25");
    // 1.25 / (40 / 2) = 0.0625, to the nearest hundredth
    typist_.TabTo("txtConeSlopeVT");
    typist_.Reply("The calculated value is 0.06. Use This Value?", "Return");
    typist_.ExpectFocus("txtConeSlopeVT");
    typist_.Fill("txtVacuumVT", "0.03");
    typist_.Fill("txtPressureVT", "0.03");
    typist_.Look("vertical_physical");
  }

  void AddComponents() {
    typist_.Keys({"Alt+V"});
    typist_.At("Frmcomponent");
    typist_.ExpectFocus("dbcboChemName");
    typist_.Find("dbcboChemName", "benzene", "Benzene");
    typist_.Fill("txtShare", "40");
    typist_.Keys({"Alt+A"});
    typist_.Find("dbcboChemName", "toluene", "Toluene");
    typist_.Fill("txtShare", "35");
    typist_.Keys({"Alt+A"});
    typist_.Find("dbcboCAS", "108-38", "108-38-3");
    typist_.Fill("txtShare", "25");
    typist_.Look("vertical_component");
    typist_.Keys({"Alt+C"});
    typist_.At("frmTank");
  }

  static void AddConeRoofRows(store::Database& client) {
    AddRow(client, "tank",
           {{"TANK_TYPE", shell::kVerticalFixedRoof},
            {"MET CTYST", "Chicago, Illinois"},
            {"ATMOS_PRS", 14.386},
            {"HEIGHT S", 32.0},
            {"DIAMETER", 40.0},
            {"HEIGHT ML", 30.0},
            {"HEIGHT AL", 15.0},
            {"VOLUME", 282'000.0},
            {"TURNOVER", 10.0},
            {"Q_NET", 2'820'000.0},
            {"SHL COLSHD", "Gray/Light"},
            {"PT_COND", "Good"},
            {"RF_COLSHD", "Aluminum/Diffuse"},
            {"RF_COND", "Poor"},
            {"RF_TYPE", "Cone"},
            {"RF_HEIGHT", 1.25},
            {"C_SLOPE", 0.06},
            {"VENT_V", -0.03},
            {"VENT_P", 0.03}});
    SetIdentity(client, "V-1", "Gary", "Indiana");
    AddMixtureOfMonths(client, 0, 11, 235'000,
                       {{"ID", 1},
                        {"MIX ID", 1},
                        {"MIX NAME", "BTX cut"},
                        {"C_CATEGORY", "Organic Liquids"},
                        {"COMPONENT", "Multiple"},
                        {"SPEC_OPT", "Full Speciation"}});
    AddRow(client, "components",
           {{"ID", 1},
            {"MIX ID", 1},
            {"COMP ID", 1},
            {"NAME", "Benzene"},
            {"CAS", "71-43-2"},
            {"WT_FRACT", 40.0},
            {"MOLWT", 78.114},
            {"VP_MOLWT", 78.114},
            {"L_DENS", 7.373}});
    AddRow(client, "components",
           {{"ID", 1},
            {"MIX ID", 1},
            {"COMP ID", 2},
            {"NAME", "Toluene"},
            {"CAS", "108-88-3"},
            {"WT_FRACT", 35.0},
            {"MOLWT", 92.141},
            {"VP_MOLWT", 92.141},
            {"L_DENS", 7.273}});
    AddRow(client, "components",
           {{"ID", 1},
            {"MIX ID", 1},
            {"COMP ID", 3},
            {"NAME", "Xylene (-m)"},
            {"CAS", "108-38-3"},
            {"WT_FRACT", 25.0},
            {"MOLWT", 106.168},
            {"VP_MOLWT", 106.168},
            {"L_DENS", 7.241}});
  }

  /// Opens the tank again from the menus, changes it, thinks better of it, and leaves it as it was.
  void EditAndUndo() {
    typist_.At("MDIForm1");
    typist_.Keys({"Alt+D", "T", "E"});
    typist_.At("frmeditrec");
    typist_.Row("lstTanks", "V-1");
    typist_.Keys({"Return"});
    typist_.At("frmTank");
    typist_.Fill("txtDesc", "Changed");
    CloseEditor("Esc");
    CloseEditor("Alt+N");
  }

  void DescribeHeatedDomeRoofTank() {
    typist_.Keys({"Alt+Y"});
    RefuseShellHeight();
    typist_.Fill("txtShellHeightVT", "40");
    typist_.Fill("txtDiameterVT", "80");
    typist_.Fill("txtMaxLiquidHeightVT", "37.5");
    typist_.Fill("txtAvgLiquidHeightVT", "20");
    typist_.Fill("txtVolumeVT", "1,410,000");
    typist_.Fill("txtTurnoverVT", "8");
    typist_.Fill("txtThroughputVT", "12e6");
    typist_.Keys({"Tab"});
    typist_.Reply("Update monthly throughput information?", "Return");
    typist_.ExpectFocus("cboHeatedVT");
    typist_.Arrow("cboShellColorVT", "Gray/Medium");
    typist_.Arrow("cboShellCondVT", "Poor");
    typist_.Arrow("cboRoofColorVT", "Gray/Medium");
    typist_.Arrow("cboRoofCondVT", "Poor");
    typist_.Arrow("cboRoofTypeVT", "Dome");
    typist_.TabTo("txtDomeRadiusVT");
    typist_.Reply("The default value is 80. Use This Value?", "Return");
    typist_.Fill("txtVacuumVT", "-0.03");
    typist_.Fill("txtPressureVT", "0.03");
    typist_.Arrow("cboHeatedVT", "Yes");
    typist_.Reply(
        "The breather vent setting for a heated tank must be zero.  Do you want to set these values to zero now?",
        "Return");
    typist_.Read("txtVacuumVT", "0");
    typist_.Look("dome_physical");
  }

  /// What is refused is told in front of the window and stays beside the entry, which gets the focus back.
  void RefuseShellHeight() {
    const QString reason = "Shell height must be between 5 and 65 feet.";
    typist_.Fill("txtShellHeightVT", "4");
    typist_.Keys({"Tab"});
    typist_.Reply(reason, "Return");
    typist_.ExpectFocus("txtShellHeightVT");
    typist_.Read("txtShellHeightVTRefusal", reason);
    typist_.Look("dome_refusal");
  }

  void DescribeHeatedOil() {
    ChooseKind("Petroleum Distillates", "Partial Speciation");
    typist_.Find("dbcboMixNamePartial", "residual", "Residual oil no. 6");
    for (const auto* temperature : {"txtALSPartial", "txtMLSPartial", "txtXLSPartial", "txtBulkPartial"})
      typist_.Fill(temperature, "150");
    CopyProfile("Residual Oil No. 6");
    typist_.Keys({"Alt+P"});
    typist_.Look("dome_liquid");
  }

  /// A tank without an identification is not saved; the person is led to the entry.
  void SaveOnlyWhenIdentified() {
    const QString reason = "Please enter an Identification Number for this record.";
    typist_.Keys({"Alt+S"});
    typist_.Reply(reason, "Return");
    typist_.Read("txtUserIDRefusal", reason);
    Identify("V-2", "Marcus Hook", "Pennsylvania");
    typist_.Keys({"Alt+S"});
  }

  static void AddHeatedDomeRows(store::Database& client) {
    AddRow(client, "tank",
           {{"TANK_TYPE", shell::kVerticalFixedRoof},
            {"MET CTYST", "Philadelphia, Pennsylvania"},
            {"ATMOS_PRS", 14.745},
            {"HEIGHT S", 40.0},
            {"DIAMETER", 80.0},
            {"HEIGHT ML", 37.5},
            {"HEIGHT AL", 20.0},
            {"VOLUME", 1'410'000.0},
            {"TURNOVER", 8.0},
            {"Q_NET", 12'000'000.0},
            {"SHL COLSHD", "Gray/Medium"},
            {"PT_COND", "Poor"},
            {"RF_COLSHD", "Gray/Medium"},
            {"RF_COND", "Poor"},
            {"RF_TYPE", "Dome"},
            {"D_RADIUS", 80.0},
            {"HEATED", true},
            {"VENT_V", 0.0},
            {"VENT_P", 0.0}});
    SetIdentity(client, "V-2", "Marcus Hook", "Pennsylvania");
    AddMixtureOfMonths(client, 0, 11, 1'000'000,
                       {{"ID", 1},
                        {"MIX ID", 1},
                        {"MIX NAME", "Residual oil no. 6"},
                        {"C_CATEGORY", "Petroleum Distillates"},
                        {"COMPONENT", "Multiple"},
                        {"SPEC_OPT", "Partial Speciation"},
                        {"ALS_TEMP", 150.0},
                        {"MLS_TEMP", 150.0},
                        {"XLS_TEMP", 150.0},
                        {"BULK_TEMP", 150.0},
                        {"MOLWT", 387.0},
                        {"VP_MOLWT", 190.0},
                        {"L_DENS", 7.9}});
    AddProfile(client, 7);
  }
};

TEST_F(KeyboardVerticalTank, ConeRoofTankOfThreeComponentsGivesTheReportOfItsRows) {
  NewByMenus("V");
  Identify("V-1", "Gary", "Indiana");
  DescribeConeRoofTank();
  ChooseCity("chicago, i", "Chicago, Illinois");
  typist_.Read("txtAtmosPrs", "14.386");
  ChooseKind("Organic Liquids", "Full Speciation");
  typist_.Fill("dbcboMixNameFull", "BTX cut");
  AddComponents();
  typist_.Keys({"Alt+P"});
  typist_.Look("vertical_liquid");
  UseAllMonths("2,820,000.00");
  typist_.Look("vertical_months");
  typist_.Keys({"Alt+S"});
  RunDetailReport();
  CloseEditor("Return");
  EditAndUndo();
  Exit();
  Run();
  ExpectSameReport(Report(), ReportOfRows("V-1", AddConeRoofRows));
  EXPECT_EQ(store::Database::Open(Client())->OpenTable("tank").Text("DESC"), "Entered without a mouse");
}

TEST_F(KeyboardVerticalTank, HeatedDomeRoofTankWithAProfileGivesTheReportOfItsRows) {
  NewByQuickMenu("Vertical Fixed Roof Tank");
  DescribeHeatedDomeRoofTank();
  ChooseCity("philadel", "Philadelphia, Pennsylvania");
  DescribeHeatedOil();
  typist_.Keys({"Alt+U", "Alt+F"});
  SaveOnlyWhenIdentified();
  RunDetailReport();
  CloseEditor("Return");
  Exit();
  Run();
  ExpectSameReport(Report(), ReportOfRows("V-2", AddHeatedDomeRows));
}

}  // namespace
}  // namespace orvex::test
