#include <array>

#include "emission/loss_fixture.h"
#include "emission/run_report.h"

/// Whole tanks, from the record to the row that a run writes, each worked through on paper.
namespace orvex::emission {
namespace {

constexpr std::string_view kHarborview = "Harborview, Texas";

struct Step {
  std::string_view field;
  double value;
};

class WorkedTank : public LossTest {
 protected:
  WorkedTank() {
    // Over the year 58.3 to 78.7 deg F, 68.5 in the mean, 1450 Btu/(ft2 day), 10.2 mph; in July 74.5 to 92.1, 2010.
    AddRow(test.reference(), "met",
           {{"CTYST", kHarborview},
            {"ATMOS_PRS", 14.69},
            {"A_TEMP_DAA", 68.5},
            {"TAN_ANN", 58.3},
            {"TAX_ANN", 78.7},
            {"INSOL_ANN", 1450.0},
            {"WIND_ANN", 10.2},
            {"TAN_JUL", 74.5},
            {"TAX_JUL", 92.1},
            {"INSOL_JUL", 2010.0}});
    test.session.ReportTime = "Annual";
  }

  void AddFittings(std::int32_t ID, std::initializer_list<std::array<double, 4>> fittings) {
    std::int32_t number = 1;
    for (const auto& [quantity, k_fa, k_fb, k_m] : fittings)
      AddFitting(client, ID, ++number, {{"QUANTITY", quantity}, {"K_FA", k_fa}, {"K_FB", k_fb}, {"K_M", k_m}});
  }

  /// Runs the report over the first tank and compares the figures that the run leaves.
  store::RecordSet RunAndRead(std::int32_t ID, std::string_view name, std::string_view Month = shell::kAnnual) {
    test.session.TankList = {"Tank 1"};
    RunReport(test.session);
    EXPECT_EQ(Errors(), std::vector<std::string>{});
    EXPECT_EQ(test.session.PrintMode, "Report");
    return Row(ID, Month, name);
  }

  static void ExpectSteps(store::RecordSet& row, std::initializer_list<Step> steps) {
    ASSERT_FALSE(row.NoMatch());
    for (const auto& [field, value] : steps) EXPECT_NEAR(row.Double(field), value, std::abs(value) * 1e-6) << field;
  }
};

// Gasoline of Reid vapor pressure 10 and distillation slope 3, vapor 66 lb/lb-mole, in a vertical tank of 30 ft by 24
// ft, half full at 11 ft, under a cone of 1 ft in 16 ft; shell of diffuse aluminum, good, roof light gray, poor; vents
// at 0.03 psig either way; 116,000 gal turned over 40 times a year.
//   alpha  = (0.60 + 0.63) / 2                                            =      0.615
//   T_AA   = 68.5 + 459.67                                                =    528.17      R
//   T_B    = 528.17 + 6 x 0.615 - 1                                       =    530.86      R
//   T_LA   = 0.44 x 528.17 + 0.56 x 530.86 + 0.0079 x 0.615 x 1450        =    536.721225  R
//   dT_v   = 0.72 x (78.7 - 58.3) + 0.028 x 0.615 x 1450                  =     39.657     R
//   T_LX   = 536.721225 + 39.657 / 4                                      =    546.635475  R
//   T_LN   = 536.721225 - 39.657 / 4                                      =    526.806975  R
//   A      = 15.64 - 1.854 x 3^0.5 - (0.8742 - 0.328 x 3^0.5) x ln 10     =     11.7239857
//   B      = 8742 - 1042 x 3^0.5 - (1049 - 179.4 x 3^0.5) x ln 10         =   5237.27337
//   P_VA   = e^(11.7239857 - 5237.27337 / 536.721225)                     =      7.14264532 psia
//   P_VX   = e^(11.7239857 - 5237.27337 / 546.635475)                     =      8.52549334 psia
//   P_VN   = e^(11.7239857 - 5237.27337 / 526.806975)                     =      5.94436814 psia
//   H_RO   = (0.0625 x 30 / 2) / 3                                        =      0.3125    ft
//   H_VO   = 24 - 11 + 0.3125                                             =     13.3125    ft
//   V_V    = 3.14159265 / 4 x 30^2 x 13.3125                              =   9410.05173   ft3
//   W_V    = 66 x 7.14264532 / (10.731 x 536.721225)                      =      0.0818491277 lb/ft3
//   K_S    = 1 / (1 + 0.053 x 7.14264532 x 13.3125)                       =      0.165574354
//   K_E    = 39.657 / 536.721225 + (2.58112520 - 0.06) / (14.69 - 7.14264532) = 0.407928426
//   S_LOSS = 365 x 9410.05173 x 0.0818491277 x 0.407928426 x 0.165574354  =  18987.8577    lb
//   K_N    = (180 + 40) / (6 x 40)                                        =      0.916666667
//   W_LOSS = 0.001 x 66 x 7.14264532 x 4,640,000 / 42 x 0.916666667       =  47740.0808    lb
TEST_F(WorkedTank, GasolineUnderAConeRoof) {
  AddRow(test.reference(), "chemical",
         {{"NAME", "Gasoline"},
          {"CATEGORY", shell::kPetroleumDistillates},
          {"MOLWT", 92.0},
          {"VP_MOLWT", 66.0},
          {"L_DENS", 5.6},
          {"REID", 10.0},
          {"ASTM_SLOPE", 3.0}});
  const auto ID = AddVerticalTank(test, {{"MET CTYST", kHarborview},
                                         {"DIAMETER", 30.0},
                                         {"HEIGHT S", 24.0},
                                         {"HEIGHT ML", 22.0},
                                         {"HEIGHT AL", 11.0},
                                         {"VOLUME", 116000.0},
                                         {"TURNOVER", 40.0},
                                         {"Q_NET", 4640000.0},
                                         {"SHL COLSHD", "Aluminum/Diffuse"},
                                         {"RF_COLSHD", "Gray/Light"},
                                         {"RF_COND", "Poor"}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Gasoline"}, {"C_CATEGORY", shell::kPetroleumDistillates}});
  auto row = RunAndRead(ID, "Gasoline");
  ExpectSteps(row, {{"BULK_T", 530.86},
                    {"ALS_TEMP", 536.721225},
                    {"VT_RANGE", 39.657},
                    {"XLS_TEMP", 546.635475},
                    {"MLS_TEMP", 526.806975},
                    {"A_VP", 7.14264532},
                    {"X_VP", 8.52549334},
                    {"M_VP", 5.94436814},
                    {"RF_OUT", 0.3125},
                    {"VS_OUT", 13.3125},
                    {"VS_VOL", 9410.05173},
                    {"V_DENS", 0.0818491277},
                    {"K_S", 0.165574354},
                    {"K_E", 0.407928426},
                    {"S_LOSS", 18987.8577},
                    {"K_N", 0.916666667},
                    {"W_LOSS", 47740.0808}});
}

// Toluene in July in a medium gray tank of 9 ft by 28 ft that lies above the ground; vents at 0.3 psig either way;
// 13,500 gal turned over 48 times a year, 54,000 gal a month.
//   alpha  = 0.68, as the tank has no roof paint
//   T_AA   = 68.5 + 459.67, the year's                                    =    528.17      R
//   T_PER  = (74.5 + 92.1) / 2 + 459.67                                   =    542.97      R
//   T_B    = 528.17 + 6 x 0.68 - 1                                        =    531.25      R
//   T_LA   = 0.44 x 542.97 + 0.56 x 531.25 + 0.0079 x 0.68 x 2010         =    547.20452   R
//   dT_v   = 0.72 x (92.1 - 74.5) + 0.028 x 0.68 x 2010                   =     50.9424    R
//   T_LX   = 547.20452 + 50.9424 / 4                                      =    559.94012   R
//   T_LN   = 547.20452 - 50.9424 / 4                                      =    534.46892   R
//   T_LA   = (547.20452 - 491.67) / 1.8                                   =     30.8525111 deg C
//   P_VA   = 10^(6.954 - 1344.8 / (30.8525111 + 219.48))                  =     38.1895967 mmHg
//          = 38.1895967 x 14.696 / 760                                    =      0.738466201 psia
//   P_VX, P_VN in the same way                                            =      1.03750821, 0.515323592 psia
//   D_E    = (28 x 9 / 0.785)^0.5                                         =     17.9170061 ft
//   H_VO   = 9 / 2                                                        =      4.5       ft
//   V_V    = 3.14159265 / 4 x 17.9170061^2 x 4.5                          =   1134.57518   ft3
//   W_V    = 92.13 x 0.738466201 / (10.731 x 547.20452)                   =      0.0115862214 lb/ft3
//   K_S    = 1 / (1 + 0.053 x 0.738466201 x 4.5)                          =      0.850250347
//   K_E    = 50.9424 / 547.20452 + (0.522184618 - 0.6) / (14.69 - 0.738466201) = 0.0875181721
//   S_LOSS = 31 x 1134.57518 x 0.0115862214 x 0.0875181721 x 0.850250347  =     30.3236763 lb
//   K_N    = (180 + 48) / (6 x 48)                                        =      0.791666667
//   W_LOSS = 0.001 x 92.13 x 0.738466201 x 54,000 / 42 x 0.791666667      =     69.2497999 lb
TEST_F(WorkedTank, TolueneInALyingTankInJuly) {
  const auto ID = AddHorizontalTank(test, {{"MET CTYST", kHarborview},
                                           {"DIAMETER", 9.0},
                                           {"HEIGHT S", 28.0},
                                           {"VOLUME", 13500.0},
                                           {"TURNOVER", 48.0},
                                           {"Q_NET", 648000.0},
                                           {"VENT_P", 0.3},
                                           {"VENT_V", -0.3},
                                           {"SHL COLSHD", "Gray/Medium"}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Toluene"}});
  test.session.ReportTime = "Monthly";
  test.session.MonthSelected[6] = true;
  auto row = RunAndRead(ID, "Toluene", "July");
  ExpectSteps(row, {{"BULK_T", 531.25},
                    {"ALS_TEMP", 547.20452},
                    {"VT_RANGE", 50.9424},
                    {"XLS_TEMP", 559.94012},
                    {"MLS_TEMP", 534.46892},
                    {"A_VP", 0.738466201},
                    {"X_VP", 1.03750821},
                    {"M_VP", 0.515323592},
                    {"EFF_DIAM", 17.9170061},
                    {"VS_OUT", 4.5},
                    {"VS_VOL", 1134.57518},
                    {"V_DENS", 0.0115862214},
                    {"K_S", 0.850250347},
                    {"K_E", 0.0875181721},
                    {"S_LOSS", 30.3236763},
                    {"K_N", 0.791666667},
                    {"W_LOSS", 69.2497999}});
}

// The same tank under the ground, over the year.
//   T_LA   = 0.44 x 528.17 + 0.56 x (528.17 - 1)                          =    527.61      R
//          = (527.61 - 491.67) / 1.8                                      =     19.9666667 deg C
//   P_VA   = 10^(6.954 - 1344.8 / (19.9666667 + 219.48)) = 21.7629626 mmHg =     0.420826972 psia
//   W_LOSS = 0.001 x 92.13 x 0.420826972 x 648,000 / 42 x 0.791666667     =    473.557494  lb
TEST_F(WorkedTank, TolueneUnderTheGround) {
  const auto ID = AddHorizontalTank(test, {{"MET CTYST", kHarborview},
                                           {"DIAMETER", 9.0},
                                           {"HEIGHT S", 28.0},
                                           {"VOLUME", 13500.0},
                                           {"TURNOVER", 48.0},
                                           {"Q_NET", 648000.0},
                                           {"UNDER", true}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Toluene"}});
  auto row = RunAndRead(ID, "Toluene");
  ExpectSteps(row, {{"ALS_TEMP", 527.61}, {"A_VP", 0.420826972}, {"W_LOSS", 473.557494}, {"S_LOSS", 0}});
}

// 30 percent of benzene and 70 of toluene by weight, under an internal roof of 130 ft: white and good, bolted panel
// deck on 8 columns of 1.1 ft, liquid-mounted seal (K_RA 1.6), light rust; 3,000,000 gal turned over 12 times a year.
//   alpha  = (0.17 + 0.17) / 2                                            =      0.17
//   T_B    = 528.17 + 6 x 0.17 - 1                                        =    528.19      R
//   T_LA   = 0.44 x 528.17 + 0.56 x 528.19 + 0.0079 x 0.17 x 1450         =    530.12855   R
//   N      = 30 / 78.11 + 70 / 92.13                                      =      1.14386968
//   M_L    = 100 / 1.14386968                                             =     87.422546  lb/lb-mole
//   x      = 30 / 78.11 / 1.14386968, 70 / 92.13 / 1.14386968             =      0.335767044, 0.664232956
//   P      = 10^(6.905 - 1211.033 / (21.3658611 + 220.79)) x 14.696 / 760 =      1.55002214 psia
//            10^(6.954 - 1344.8 / (21.3658611 + 219.48)) x 14.696 / 760   =      0.453660918 psia
//   P_VA   = 1.55002214 x 0.335767044 + 0.453660918 x 0.664232956         =      0.821782885 psia
//   M_V    = (78.11 x 0.520446352 + 92.13 x 0.301336533) / 0.821782885    =     83.250942  lb/lb-mole
//   W_L    = 1 / (0.3 / 7.365 + 0.7 / 7.261)                              =      7.29189029 lb/gal
//   r      = 0.821782885 / 14.69                                          =      0.0559416532
//   P*     = r / (1 + (1 - r)^0.5)^2                                      =      0.0143908331
//   RIM    = 1.6 x 130 x 0.0143908331 x 83.250942                         =    249.194486  lb
//   WD     = 0.943 x 36,000,000 / 42 x 0.0015 x 7.29189029 / 130 x (1 + 8 x 1.1 / 130) = 72.6104368 lb
//   F_F    = 1 x 1.6 + 8 x 33 + 35 x 7.9 + 12 x 1.2                       =    556.5       lb-mole/yr
//   DECKF  = 556.5 x 0.0143908331 x 83.250942                             =    666.715055  lb
//   DECKS  = 130^2 x (0.14 x 0.33) x 0.0143908331 x 83.250942             =    935.413802  lb
// Of the vapor benzene has 0.520446352 / 0.821782885 = 0.633313691 by moles, x 78.11 / 83.250942 = 0.594205077 by
// weight: 148.072629, 396.165471 and 555.82763 lb; of the liquid 0.3: 21.783131 lb.
TEST_F(WorkedTank, BenzeneAndTolueneUnderAnInternalRoofOnColumns) {
  const auto ID = AddInternalTank(test, {{"MET CTYST", kHarborview},
                                         {"DIAMETER", 130.0},
                                         {"VOLUME", 3000000.0},
                                         {"Q_NET", 36000000.0},
                                         {"COL_NO", 8.0},
                                         {"RIM_PRIM", "Liquid-mounted"},
                                         {"DECK_CONSTRUCT", "Panel"},
                                         {"DECK_SEAM", "Panel: 5 x 7.5 Ft"},
                                         {"SD", 0.33}});
  AddRow(test.reference(), "rimseal",
         {{"PRIM_SEAL", "Liquid-mounted"},
          {"SECND_SEAL", "None"},
          {"WELDED", true},
          {"K_RA", 1.6},
          {"K_RB", 0.3},
          {"N_FACTOR", 1.5},
          {"IFLT", true}});
  AddRow(test.reference(), "deckseam",
         {{"NAME", "Panel: 5 x 7.5 Ft"}, {"CONSTRUC", "Panel"}, {"SD", 0.33}, {"KD", 0.14}});
  AddFittings(ID, {{8, 33, 0, 0}, {35, 7.9, 0, 0}, {12, 1.2, 0, 0}});
  ChangeMixture(client, ID, 1,
                {{"MIX NAME", "Light cut"},
                 {"CAS", kNull},
                 {"COMPONENT", shell::kMultiple},
                 {"SPEC_OPT", shell::kFullSpeciation}});
  AddComponent(client, ID, 1, 1, {{"WT_FRACT", 30.0}});
  AddComponent(client, ID, 1, 2, {{"NAME", "Toluene"}, {"WT_FRACT", 70.0}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}});
  auto row = RunAndRead(ID, "Light cut");
  ExpectSteps(row, {{"BULK_T", 528.19},
                    {"ALS_TEMP", 530.12855},
                    {"MOLWT", 87.422546},
                    {"A_VP", 0.821782885},
                    {"VP_MOLWT", 83.250942},
                    {"L_DENS", 7.29189029},
                    {"M_P", 0.0143908331},
                    {"M_KR", 1.6},
                    {"RIM_LOSS", 249.194486},
                    {"WD_LOSS", 72.6104368},
                    {"M_FF", 556.5},
                    {"DECKF_LOSS", 666.715055},
                    {"DECKS_LOSS", 935.413802},
                    {"KD", 0.14},
                    {"SD", 0.33}});
  row.Seek({ID, 1, "Benzene", "Annual", false});
  ExpectSteps(row, {{"L_MO_FRACT", 0.335767044},
                    {"V_MO_FRACT", 0.633313691},
                    {"V_WT_FRACT", 0.594205077},
                    {"L_WT_FRACT", 0.3},
                    {"RIM_LOSS", 148.072629},
                    {"WD_LOSS", 21.783131},
                    {"DECKF_LOSS", 396.165471},
                    {"DECKS_LOSS", 555.82763}});
}

// Crude oil of Reid vapor pressure 5, vapor 50 lb/lb-mole, 7.1 lb/gal, under an external pontoon roof of 150 ft: shell
// of specular aluminum, good, welded, light rust; mechanical shoe with a rim-mounted secondary seal (0.6, 0.4, 1.0);
// 10,000,000 gal turned over 12 times a year; wind 10.2 mph.
//   alpha  = 0.39
//   T_B    = 528.17 + 6 x 0.39 - 1                                        =    529.51      R
//   T_LA   = 0.44 x 528.17 + 0.56 x 529.51 + 0.0079 x 0.39 x 1450         =    533.38785   R
//   A      = 12.82 - 0.9672 x ln 5                                        =     11.2633517
//   B      = 7261 - 1216 x ln 5                                           =   5303.9235
//   P_VA   = e^(11.2633517 - 5303.9235 / 533.38785)                       =      3.74159331 psia
//   r      = 3.74159331 / 14.69                                           =      0.254703425
//   P*     = r / (1 + (1 - r)^0.5)^2                                      =      0.0733612295
//   M_KR   = 0.6 + 0.4 x 10.2                                             =      4.68      lb-mole/(ft yr)
//   RIM    = 4.68 x 150 x 0.0733612295 x 50 x 0.4                         =   1029.99166   lb
//   WD     = 0.943 x 120,000,000 / 42 x 0.006 x 7.1 / 150                 =    765.177143  lb
//   wind at the fittings = 0.7 x 10.2                                     =      7.14      mph
//   hatch                 1 x 1.6                                         =      1.6
//   float wells           2 x (6.2 + 1.2 x 7.14^0.94)                     =     27.6295672
//   sample well           1 x 2.3                                         =      2.3
//   legs                 36 x (2.0 + 0.37 x 7.14^0.91)                    =    151.683719
//   guide pole            1 x (31 + 150 x 7.14^1.4)                       =   2382.0873
//   F_F    =                                                              =   2565.30059   lb-mole/yr
//   DECKF  = 2565.30059 x 0.0733612295 x 50 x 0.4                         =   3763.8721    lb
TEST_F(WorkedTank, CrudeOilUnderAnExternalRoofInTheWind) {
  AddRow(test.reference(), "chemical",
         {{"NAME", "Crude oil"},
          {"CATEGORY", shell::kCrudeOils},
          {"MOLWT", 207.0},
          {"VP_MOLWT", 50.0},
          {"L_DENS", 7.1},
          {"REID", 5.0}});
  const auto ID = AddExternalTank(test, {{"MET CTYST", kHarborview},
                                         {"DIAMETER", 150.0},
                                         {"VOLUME", 10000000.0},
                                         {"Q_NET", 120000000.0},
                                         {"SHL COLSHD", "Aluminum/Specular"},
                                         {"RIM_SEC", "Rim-mounted"}});
  AddFittings(ID, {{2, 6.2, 1.2, 0.94}, {1, 2.3, 0, 0}, {36, 2.0, 0.37, 0.91}, {1, 31, 150, 1.4}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Crude oil"}, {"C_CATEGORY", shell::kCrudeOils}});
  auto row = RunAndRead(ID, "Crude oil");
  ExpectSteps(row, {{"BULK_T", 529.51},
                    {"ALS_TEMP", 533.38785},
                    {"A_VP", 3.74159331},
                    {"M_P", 0.0733612295},
                    {"M_KR", 4.68},
                    {"M_KC", 0.4},
                    {"M_C", 0.006},
                    {"M_V", 10.2},
                    {"RIM_LOSS", 1029.99166},
                    {"WD_LOSS", 765.177143},
                    {"M_FF", 2565.30059},
                    {"DECKF_LOSS", 3763.8721},
                    {"DECKS_LOSS", 0}});
}

}  // namespace
}  // namespace orvex::emission
