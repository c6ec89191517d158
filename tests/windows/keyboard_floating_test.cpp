#include "shell/periods.h"
#include "shell/tank_types.h"
#include "windows/keyboard_walk.h"

namespace orvex::test {
namespace {

class KeyboardFloatingRoofTank : public KeyboardWalk {
 protected:
  void DescribeInternalTank() {
    typist_.Keys({"Alt+Y"});
    typist_.Fill("txtDiameterIT", "100");
    typist_.Fill("txtVolumeIT", "1400000");
    typist_.Fill("txtTurnoverIT", "12");
    typist_.TabTo("txtThroughputIT");
    typist_.Arrow("cboSelfSupIT", "No");
    typist_.TabTo("txtColumnsIT");
    typist_.Reply("Estimated number of Columns is 6 .  Use this Estimate?", "Return");
    typist_.Read("txtColumnsIT", "6");
    typist_.Open("cboColumnDiamIT", "9\" by 7\" Built-Up Column");
    typist_.Read("cboColumnDiamIT", "1.1");
    typist_.Arrow("cboInternalCondIT", "Light Rust (D)");
    typist_.Arrow("cboShellColorIT", "White/White (D)");
    typist_.Arrow("cboShellCondIT", "Good (D)");
    typist_.Arrow("cboRoofColorIT", "White/White (D)");
    typist_.Arrow("cboRoofCondIT", "Good (D)");
    typist_.Open("cboPrimaryIT", "Mechanical Shoe");
    typist_.Open("cboSecondaryIT", "Rim-mounted");
    typist_.Arrow("cboDeckTypeIT", "Bolted");
    typist_.Arrow("cboFittingIT", "Typical");
    typist_.Arrow("cboDeckConstructIT", "Sheet");
    typist_.Open("cboDeckSeamIT", "Sheet: 5 Ft Wide");
    // 0.2 * 3.14159 / 4 * 100^2 = 1,570.795
    typist_.Reply("The suggested value is 1,570.80. Use This Value?", "Return");
    typist_.Look("internal_physical");
  }

  void ReadTypicalFittings() {
    typist_.Keys({"Alt+V"});
    typist_.At("frmrecfit");
    typist_.Keys({"Alt+N"});
    typist_.Look("internal_fittings");
    typist_.Keys({"Esc"});
    typist_.At("frmTank");
  }

  static void AddInternalRows(store::Database& client) {
    AddRow(client, "tank",
           {{"TANK_TYPE", shell::kInternalFloatingRoof},
            {"MET CTYST", "Tulsa, Oklahoma"},
            {"ATMOS_PRS", 14.397},
            {"DIAMETER", 100.0},
            {"VOLUME", 1'400'000.0},
            {"TURNOVER", 12.0},
            {"Q_NET", 16'800'000.0},
            {"SELF_SUP", false},
            {"COL_NO", 6.0},
            {"COL_DIAM", 1.1},
            {"SHL_COND", "Light Rust"},
            {"SHL COLSHD", "White/White"},
            {"PT_COND", "Good"},
            {"RF_COLSHD", "White/White"},
            {"RF_COND", "Good"},
            {"RIM_PRIM", "Mechanical Shoe"},
            {"RIM_SEC", "Rim-mounted"},
            {"DECK_TYPE", "Bolted"},
            {"FITTING", "Typical"},
            {"DECK_CONSTRUCT", "Sheet"},
            {"DECK_SEAM", "Sheet: 5 Ft Wide"},
            {"DECK_SEAM_LENGTH", 1570.8},
            {"SD", 0.2}});
    SetIdentity(client, "I-1", "Cushing", "Oklahoma");
    AddMixtureOfMonths(client, 0, 11, 1'400'000,
                       {{"ID", 1},
                        {"MIX ID", 1},
                        {"MIX NAME", "Cyclohexane"},
                        {"CAS", "110-82-7"},
                        {"C_CATEGORY", "Organic Liquids"},
                        {"COMPONENT", "Single"},
                        {"MOLWT", 84.162},
                        {"VP_MOLWT", 84.162},
                        {"L_DENS", 6.535}});
    AddTypicalFittings(client);
  }

  /// Of a bolted deck of 100 ft on columns: 5 + 100 / 10 + 100^2 / 600 = 32 legs, 100^2 / 125 = 80 stub drains.
  static void AddTypicalFittings(store::Database& client) {
    struct Fitting {
      const char* type;
      const char* cover;
      double k_fa, k_fb, m, quantity;
    };
    constexpr Fitting kFittings[] = {
        {"Access Hatch (24-in. Diam.)", "Unbolted Cover, Ungasketed", 36, 5.9, 1.2, 1},
        {"Automatic Gauge Float Well", "Unbolted Cover, Ungasketed", 14, 5.4, 1.1, 1},
        {"Column Well (24-in. Diam.)", "Built-Up Col.-Sliding Cover, Ungask.", 51, 0, 0, 6},
        {"Ladder Well (36-in. Diam.)", "Sliding Cover, Ungasketed", 98, 0, 0, 1},
        {"Roof Leg (3-in. Diameter)", "Adjustable, Internal Floating Deck", 7.9, 0, 0, 32},
        {"Sample Pipe or Well (24-in. Diam.)", "Slit Fabric Seal, 10% Open", 12, 0, 0, 1},
        {"Stub Drain (1-in. Diameter)", "", 1.2, 0, 0, 80},
        {"Vacuum Breaker (10-in. Diam.)", "Weighted Mech. Actuation, Gask.", 6.2, 1.2, 0.94, 1},
    };
    int number = 0;
    for (const auto& fitting : kFittings) {
      AddRow(client, "fittings",
             {{"ID", 1},
              {"FIT ID", ++number},
              {"FIT_TYPE", fitting.type},
              {"COVR_TYPE", *fitting.cover == 0 ? store::Value() : store::Value(fitting.cover)},
              {"K_FA", fitting.k_fa},
              {"K_FB", fitting.k_fb},
              {"K_M", fitting.m},
              {"QUANTITY", fitting.quantity}});
    }
  }

  void DescribeExternalTank() {
    typist_.Keys({"Alt+Y"});
    typist_.Fill("txtDiameterET", "120");
    typist_.Fill("txtVolumeET", "3000000");
    typist_.Fill("txtTurnoverET", "10");
    typist_.TabTo("txtThroughputET");
    typist_.Arrow("cboInternalCondET", "Dense Rust");
    typist_.Arrow("cboShellColorET", "Aluminum/Specular");
    typist_.Arrow("cboShellCondET", "Good (D)");
    typist_.Arrow("cboRoofTypeET", "Pontoon");
    typist_.Open("cboFittingET", "Detail");
    typist_.Arrow("cboConstructET", "Welded");
    typist_.Open("cboPrimaryET", "Liquid-mounted");
    typist_.Open("cboSecondaryET", "Weather Shield");
    typist_.Look("external_physical");
  }

  void EnterFittings() {
    typist_.Keys({"Alt+V"});
    typist_.At("frmrecfit");
    typist_.Keys({"Alt+C"});
    typist_.Reply("This fitting must have a type and status.  Delete this fitting if you do not wish to save it.",
                  "Return");
    typist_.ExpectFocus("cboFitType");
    typist_.Find("cboFitType", "roof leg", "Roof Leg (3-in. Diameter)");
    typist_.Open("cboStatus", "Adjustable, Pontoon Area, Ungasketed");
    typist_.Keys({"Alt+E"});
    typist_.Reply("Estimated number of fittings is 19 .  Use this Estimate?", "Return");
    typist_.Read("txtQuantity", "19");
    typist_.Keys({"Alt+A"});
    typist_.Find("cboFitType", "access", "Access Hatch (24-in. Diam.)");
    typist_.Open("cboStatus", "Bolted Cover, Gasketed");
    typist_.Fill("txtQuantity", "2");
    typist_.Look("external_fittings");
    typist_.Keys({"Alt+C"});
    typist_.At("frmTank");
  }

  /// Winter gasoline from January to April, the other one for the rest of the year, each month by its list.
  void EnterTwoGasolines() {
    ChooseKind("Petroleum Distillates", {});
    typist_.Find("dbcboChemName", "rvp 13)", "Gasoline (RVP 13)");
    typist_.Keys({"Alt+M"});
    typist_.Arrow("cboChemCat", "Petroleum Distillates");
    typist_.Arrow("cboSingleMultiple", "Single");
    typist_.Find("dbcboChemName", "rvp 9)", "Gasoline (RVP 9)");
    typist_.Look("external_liquid");
    typist_.Keys({"Alt+U"});
    int month = 0;
    for (const auto& [name, suffix] : kMonthLists) {
      typist_.Tick(name);
      typist_.Open(suffix, month++ < 4 ? "Gasoline (RVP 13)" : "Gasoline (RVP 9)");
    }
    typist_.Keys({"Alt+D"});
    typist_.Look("external_months");
  }

  static constexpr std::pair<const char*, const char*> kMonthLists[] = {
      {"chkJAN", "cboMixJAN"}, {"chkFEB", "cboMixFEB"}, {"chkMAR", "cboMixMAR"}, {"chkAPR", "cboMixAPR"},
      {"chkMAY", "cboMixMAY"}, {"chkJUN", "cboMixJUN"}, {"chkJUL", "cboMixJUL"}, {"chkAUG", "cboMixAUG"},
      {"chkSEP", "cboMixSEP"}, {"chkOCT", "cboMixOCT"}, {"chkNOV", "cboMixNOV"}, {"chkDEC", "cboMixDEC"}};

  static void AddExternalRows(store::Database& client) {
    AddRow(client, "tank",
           {{"TANK_TYPE", shell::kExternalFloatingRoof},
            {"MET CTYST", "Tulsa, Oklahoma"},
            {"ATMOS_PRS", 14.397},
            {"DIAMETER", 120.0},
            {"VOLUME", 3'000'000.0},
            {"TURNOVER", 10.0},
            {"Q_NET", 30'000'000.0},
            {"SHL_COND", "Dense Rust"},
            {"SHL COLSHD", "Aluminum/Specular"},
            {"PT_COND", "Good"},
            {"RF_TYPE", "Pontoon"},
            {"FITTING", "Detail"},
            {"TANK_CONSTRUCT", "Welded"},
            {"RIM_PRIM", "Liquid-mounted"},
            {"RIM_SEC", "Weather Shield"}});
    SetIdentity(client, "E-1", "Cushing", "Oklahoma");
    AddMixtureOfMonths(client, 0, 3, 2'500'000,
                       {{"ID", 1},
                        {"MIX ID", 1},
                        {"MIX NAME", "Gasoline (RVP 13)"},
                        {"C_CATEGORY", "Petroleum Distillates"},
                        {"COMPONENT", "Single"},
                        {"MOLWT", 92.0},
                        {"VP_MOLWT", 62.0},
                        {"L_DENS", 5.6}});
    AddMixtureOfMonths(client, 4, 11, 2'500'000,
                       {{"ID", 1},
                        {"MIX ID", 2},
                        {"MIX NAME", "Gasoline (RVP 9)"},
                        {"C_CATEGORY", "Petroleum Distillates"},
                        {"COMPONENT", "Single"},
                        {"MOLWT", 92.0},
                        {"VP_MOLWT", 67.0},
                        {"L_DENS", 5.6}});
    AddRow(client, "fittings",
           {{"ID", 1},
            {"FIT ID", 1},
            {"FIT_TYPE", "Roof Leg (3-in. Diameter)"},
            {"COVR_TYPE", "Adjustable, Pontoon Area, Ungasketed"},
            {"K_FA", 2.0},
            {"K_FB", 0.37},
            {"K_M", 0.91},
            {"QUANTITY", 19.0}});
    AddRow(client, "fittings",
           {{"ID", 1},
            {"FIT ID", 2},
            {"FIT_TYPE", "Access Hatch (24-in. Diam.)"},
            {"COVR_TYPE", "Bolted Cover, Gasketed"},
            {"K_FA", 1.6},
            {"K_FB", 0.0},
            {"K_M", 0.0},
            {"QUANTITY", 2.0}});
  }

  /// As DE-501 of the sample but for its roof, its shell and its fittings.
  void DescribeDomedTank() {
    typist_.Keys({"Alt+Y"});
    typist_.Fill("txtDiameterET", "110");
    typist_.Fill("txtVolumeET", "2900000");
    typist_.Fill("txtTurnoverET", "36");
    typist_.TabTo("txtThroughputET");
    typist_.Arrow("cboInternalCondET", "Gunite Lining");
    typist_.Arrow("cboShellColorET", "White/White (D)");
    typist_.Arrow("cboShellCondET", "Good (D)");
    typist_.Arrow("cboRoofTypeET", "Pontoon");
    typist_.Arrow("cboConstructET", "Welded");
    typist_.Open("cboPrimaryET", "Mechanical Shoe");
    typist_.Open("cboSecondaryET", "Rim-mounted");
    typist_.Arrow("cboFittingET", "Typical");
    typist_.Look("domed_physical");
  }

  void CopyLiquid() {
    typist_.Keys({"Alt+C"});
    typist_.At("FrmCopyData");
    typist_.Find("cboTankName", "501", "DE-501");
    typist_.Keys({"Alt+L"});
    typist_.Look("domed_copy");
    typist_.Keys({"Return"});
    typist_.At("frmTank");
  }

  void DeleteTank(const QString& user_id) {
    typist_.At("MDIForm1");
    typist_.Keys({"Alt+D", "T", "D"});
    typist_.At("frmrecdelete");
    typist_.Row("lstTanks", user_id);
    typist_.Keys({"Alt+S"});
    typist_.Look("domed_delete");
    typist_.Keys({"Alt+D"});
    typist_.Reply("Are you sure you want to delete these tanks?", "Return");
    typist_.Keys({"Esc"});
  }
};

TEST_F(KeyboardFloatingRoofTank, InternalRoofWithTypicalFittingsGivesTheReportOfItsRows) {
  NewByMenus("I");
  Identify("I-1", "Cushing", "Oklahoma");
  DescribeInternalTank();
  ReadTypicalFittings();
  ChooseCity("tulsa", "Tulsa, Oklahoma");
  ChooseKind("Organic Liquids", {});
  typist_.Find("dbcboChemName", "cyclohexane", "Cyclohexane");
  typist_.Look("internal_liquid");
  UseAllMonths("16,800,000.00");
  RunDetailReport();
  CloseEditor("Return");
  Exit();
  Run();
  ExpectSameReport(Report(), ReportOfRows("I-1", AddInternalRows));
}

TEST_F(KeyboardFloatingRoofTank, ExternalRoofWithTwoLiquidsAndDetailFittingsGivesTheReportOfItsRows) {
  NewByMenus("E");
  Identify("E-1", "Cushing", "Oklahoma");
  DescribeExternalTank();
  EnterFittings();
  ChooseCity("tulsa", "Tulsa, Oklahoma");
  EnterTwoGasolines();
  RunDetailReport();
  CloseEditor("Return");
  Exit();
  Run();
  ExpectSameReport(Report(), ReportOfRows("E-1", AddExternalRows));
}

TEST_F(KeyboardFloatingRoofTank, DomedRoofWithACopiedLiquidGivesTheReportOfItsRowsAndIsDeleted) {
  std::filesystem::copy_file(ORVEX_SAMPLE_DATABASE, Client());
  NewByQuickMenu("Domed External Floating Roof Tank");
  Identify("D-1", "Carteret", "New Jersey");
  DescribeDomedTank();
  ChooseCity("newark", "Newark, New Jersey");
  CopyLiquid();
  RunDetailReport();
  CloseEditor("Return");
  DeleteTank("D-1");
  Exit();
  Run();
  const auto rows = ReportOfSample("D-1", [](store::Database& client) {
    ChangeRow(client, "tank", "USER ID", {"DE-501"},
              {{"USER ID", "D-1"},
               {"DESC", "Entered without a mouse"},
               {"COMPANY", "Lakeside Chemical Works"},
               {"SHL_COND", "Gunite Lining"}});
  });
  ExpectSameReport(Report(), rows);
  EXPECT_TRUE(store::Database::Open(Client())->OpenAt("tank", "USER ID", {"D-1"}).NoMatch());
}

}  // namespace
}  // namespace orvex::test
