#include "emission/emiss_fix.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

class EmissFixRow : public LossTest {
 protected:
  void Run(std::int32_t ID, std::string_view Month = shell::kAnnual) {
    EmissFix(test.session, ID, 1, std::string(Month));
  }
};

// The figures of the worksheet: alpha = (0.54 + 0.74) / 2 = 0.64
//   T_LA = 0.44 x 514.67 + 0.56 x (514.67 + 3.84 - 1) + 0.0079 x 0.64 x 1400 = 523.3388
//   T_LX, T_LN = T_LA +- 0.25 x (0.72 x 20 + 0.028 x 0.64 x 1400) = T_LA +- 9.872
//   H_RO = 3 / 3; H_VO = 21 - 11 + 1; V_V = 3.14159265 / 4 x 400 x 11 = 3455.751915
//   W_V = 78.11 x 1.29182431408 / (10.731 x 523.3388); K_S = 1 / (1 + 0.053 x 1.29182431408 x 11)
//   K_E = 39.488 / 523.3388 + (0.699776348551 - 0.09) / (14 - 1.29182431408)
//   K_N = (180 + 40) / (6 x 40)
TEST_F(EmissFixRow, HoldsTheTankTheWeatherAndEveryStepOfTheCalculation) {
  const auto ID = AddVerticalTank(test, {{"USER ID", "V-1"},
                                         {"CITY", "Akron"},
                                         {"STATE", "OH"},
                                         {"COMPANY", "Acme"},
                                         {"DESC", "Beside the gate"},
                                         {"DIAMETER", 20.0},
                                         {"HEIGHT S", 21.0},
                                         {"HEIGHT ML", 19.0},
                                         {"HEIGHT AL", 11.0},
                                         {"RF_HEIGHT", 3.0},
                                         {"C_SLOPE", 0.07},
                                         {"D_RADIUS", 25.0},
                                         {"VENT_P", 0.04},
                                         {"VENT_V", -0.05},
                                         {"VOLUME", 44000.0},
                                         {"TURNOVER", 40.0},
                                         {"Q_NET", 1760000.0},
                                         {"SHL COLSHD", "Gray/Light"},
                                         {"PT_COND", "Good"},
                                         {"RF_COLSHD", "Gray/Medium"},
                                         {"RF_COND", "Poor"},
                                         // What only a floating roof has stays out of the row.
                                         {"SHL_COND", "Dense Rust"},
                                         {"TANK_CONSTRUCT", "Riveted"},
                                         {"RIM_PRIM", "Mechanical Shoe"},
                                         {"RIM_SEC", "None"},
                                         {"FITTING", "Typical"},
                                         {"DECK_TYPE", "Bolted"},
                                         {"DECK_CONSTRUCT", "Panel"},
                                         {"DECK_SEAM", "Sheet: 5 Ft Wide"},
                                         {"DECK_SEAM_LENGTH", 9.0},
                                         {"COL_NO", 9.0},
                                         {"COL_DIAM", 9.0},
                                         {"SD", 9.0},
                                         {"SELF_SUP", true}});
  ChangeMixture(client, ID, 1, {{"MOLWT", 79.0}});
  Run(ID);
  auto row = Row(ID);
  ASSERT_FALSE(row.NoMatch());
  ExpectWholeRow(row, {{"ID", ID},
                       {"MIX ID", 1},
                       {"PRIMARY", true},
                       {"NAME", "Benzene"},
                       {"CAS", "71-43-2"},
                       {"MONTH", "Annual"},
                       {"TANK_TYPE", shell::kVerticalFixedRoof},
                       {"USER ID", "V-1"},
                       {"CITY", "Akron"},
                       {"STATE", "OH"},
                       {"COMPANY", "Acme"},
                       {"DESC", "Beside the gate"},
                       {"MET CTYST", test::kSampleCity},
                       {"AMB_T", 55.0},
                       {"T_MIN", 45.0},
                       {"T_MAX", 65.0},
                       {"INSOL", 1400.0},
                       {"P_A", 14.0},
                       {"S_LOSS", 1595.70528757},  // 365 x V_V x W_V x K_E x K_S
                       {"W_LOSS", 3876.01017711},  // 0.001 x 78.11 x A_VP x 1,760,000 / 42 x K_N
                       {"RIM_LOSS", 0.0},
                       {"WD_LOSS", 0.0},
                       {"DECKF_LOSS", 0.0},
                       {"DECKS_LOSS", 0.0},
                       {"MOLES", 0.0},
                       {"L_WT_FRACT", 0.0},
                       {"V_WT_FRACT", 0.0},
                       {"L_MO_FRACT", 0.0},
                       {"V_MO_FRACT", 0.0},
                       {"MOLWT", 79.0},
                       {"VP_MOLWT", 78.11},
                       {"ALPHA", 0.54},
                       {"ALPHA_2", 0.74},
                       {"ALS_TEMP", 523.3388},
                       {"MLS_TEMP", 513.4668},
                       {"XLS_TEMP", 533.2108},
                       {"BULK_T", 517.51},  // 6 x 0.64 + 514.67 - 1
                       {"A_VP", 1.29182431408},
                       {"M_VP", 0.980781962387},
                       {"X_VP", 1.68055831094},
                       {"DIAMETER", 20.0},
                       {"EFF_DIAM", 20.0},
                       {"HEIGHT_S", 21.0},
                       {"HEIGHT_R", 3.0},
                       {"HEIGHT_L", 19.0},
                       {"HEIGHT_AL", 11.0},
                       {"VOLUME", 44000.0},
                       {"Q_NET", 1760000.0},
                       {"TURNOVER", 40.0},
                       {"SHL COLSHD", "Gray/Light"},
                       {"PT_COND", "Good"},
                       {"RF_COLSHD", "Gray/Medium"},
                       {"RF_COND", "Poor"},
                       {"RF_TYPE", "Cone"},
                       {"VP_RANGE", 0.699776348551},
                       {"T_RANGE", 20.0},
                       {"VT_RANGE", 39.488},
                       {"RF_OUT", 1.0},
                       {"VS_OUT", 11.0},
                       {"VS_VOL", 3455.751915},
                       {"V_DENS", 0.0179674714338},
                       {"BV_RANGE", 0.09},
                       {"K_E", 0.123436985317},
                       {"K_S", 0.570407192126},
                       {"K_N", 0.916666666667},
                       {"K_P", 1.0},
                       {"VENT_P", 0.04},
                       {"VENT_V", -0.05},
                       {"C_SLOPE", 0.07},
                       {"D_RADIUS", 25.0},
                       {"N_FACT", 0.0},
                       {"UNDER", false},
                       {"HEATED", false},
                       {"SELF_SUP", false}});
}

TEST_F(EmissFixRow, ShowsUndergroundAndHeatedTanksAsSuch) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}, {"HEATED", true}});
  Run(ID);
  EXPECT_TRUE(Row(ID).Bool("UNDER"));
  EXPECT_TRUE(Row(ID).Bool("HEATED"));
}

TEST_F(EmissFixRow, EmptyFieldsOfTheTankReadAsNothing) {
  const auto ID = AddVerticalTank(test);
  constexpr std::string_view kTexts[] = {"USER ID",    "TANK_TYPE", "CITY",      "STATE",   "COMPANY", "DESC",
                                         "SHL COLSHD", "PT_COND",   "RF_COLSHD", "RF_COND", "RF_TYPE"};
  constexpr std::pair<std::string_view, std::string_view> kNumbers[] = {
      {"DIAMETER", "DIAMETER"},  {"HEIGHT S", "HEIGHT_S"}, {"HEIGHT ML", "HEIGHT_L"}, {"HEIGHT AL", "HEIGHT_AL"},
      {"RF_HEIGHT", "HEIGHT_R"}, {"VOLUME", "VOLUME"},     {"VENT_P", "VENT_P"},      {"VENT_V", "VENT_V"},
      {"C_SLOPE", "C_SLOPE"},    {"D_RADIUS", "D_RADIUS"}, {"Q_NET", "Q_NET"},        {"TURNOVER", "TURNOVER"}};
  for (const auto field : kTexts) ChangeTank(client, ID, {{field, kNull}});
  for (const auto& [field, shown] : kNumbers) ChangeTank(client, ID, {{field, kNull}});
  for (const auto* field : {"UNDER", "HEATED"}) ChangeTank(client, ID, {{field, kNull}});
  Run(ID);
  auto row = Row(ID);
  ASSERT_FALSE(row.NoMatch());
  for (const auto field : kTexts) EXPECT_EQ(row.Get(field), store::Value("")) << field;
  for (const auto& [field, shown] : kNumbers) EXPECT_EQ(row.Get(shown), store::Value(0.0)) << shown;
  for (const auto* field : {"UNDER", "HEATED"}) EXPECT_EQ(row.Get(field), store::Value(false)) << field;
  EXPECT_EQ(row.Double("ALPHA"), 0);
  EXPECT_EQ(row.Double("W_LOSS"), 0);
}

TEST_F(EmissFixRow, TankWithoutACityHasNoAtmosphere) {
  const auto ID = AddVerticalTank(test, {{"MET CTYST", kNull}});
  Run(ID);
  EXPECT_EQ(Errors().size(), 1U);
}

TEST_F(EmissFixRow, MixtureWithoutCategoryIsNoCrudeOil) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  Run(ID);
  EXPECT_EQ(Number(ID, "K_P"), 1);
}

TEST_F(EmissFixRow, SingleMixtureNeedsNoSpeciation) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", kNull}});
  Run(ID);
  EXPECT_EQ(RowCount(), 1);
}

TEST_F(EmissFixRow, NoWindIsNeeded) {
  const auto ID = AddVerticalTank(test);
  ChangeWeather({{"WIND_ANN", kNull}, {"WIND_MAR", kNull}});
  Run(ID);
  Run(ID, "March");
  EXPECT_EQ(RowCount(), 2);
}

// Fields that must be there ------------------------------------------------------------------------------------------

class EmissFixNeeds : public EmissFixRow, public ::testing::WithParamInterface<NeededField> {
 protected:
  /// Clears the field, runs and expects the report of a null instead of a row.
  void ExpectFailureWithoutIt(std::int32_t ID) {
    Clear(GetParam());
    test.host.ExpectError(94, "modEmission.EmissFix");
    Run(ID, GetParam().Month);
    EXPECT_EQ(RowCount(), 0);
    EXPECT_EQ(Errors(), std::vector<std::string>{});
    EXPECT_FALSE(test.session.ValidationFailed);
  }
};

TEST_P(EmissFixNeeds, ThisField) { ExpectFailureWithoutIt(AddVerticalTank(test)); }

INSTANTIATE_TEST_SUITE_P(OfTheWeather, EmissFixNeeds,
                         ::testing::Values(NeededField{"met", "A_TEMP_DAA"}, NeededField{"met", "ATMOS_PRS"},
                                           NeededField{"met", "INSOL_ANN"}, NeededField{"met", "TAN_ANN"},
                                           NeededField{"met", "TAX_ANN"}, NeededField{"met", "INSOL_MAR", "March"},
                                           NeededField{"met", "TAN_MAR", "March"},
                                           NeededField{"met", "TAX_MAR", "March"}),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(OfTheMixture, EmissFixNeeds,
                         ::testing::Values(NeededField{"mixtures", "COMPONENT"}, NeededField{"mixtures", "MIX NAME"},
                                           NeededField{"mixtures", "MOLWT"}, NeededField{"mixtures", "VP_MOLWT"},
                                           NeededField{"mixtures", "MARCH"},
                                           NeededField{"mixtures", "MAR_THRU", "March"}),
                         NameOf);

class EmissFixNeedsWhenHeated : public EmissFixNeeds {};

TEST_P(EmissFixNeedsWhenHeated, ThisField) { ExpectFailureWithoutIt(AddVerticalTank(test, {{"HEATED", true}})); }

INSTANTIATE_TEST_SUITE_P(Temperatures, EmissFixNeedsWhenHeated,
                         ::testing::Values(NeededField{"mixtures", "ALS_TEMP"}, NeededField{"mixtures", "XLS_TEMP"},
                                           NeededField{"mixtures", "MLS_TEMP"}, NeededField{"mixtures", "BULK_TEMP"}),
                         NameOf);

class EmissFixNeedsWhenTypedIn : public EmissFixNeeds {};

TEST_P(EmissFixNeedsWhenTypedIn, ThisField) {
  const auto ID = AddVerticalTank(test);
  TypeInMixture(ID, 1, 1, 1);
  ExpectFailureWithoutIt(ID);
}

INSTANTIATE_TEST_SUITE_P(Liquid, EmissFixNeedsWhenTypedIn,
                         ::testing::Values(NeededField{"mixtures", "SPEC_OPT"}, NeededField{"mixtures", "VP"},
                                           NeededField{"mixtures", "VP_MIN"}, NeededField{"mixtures", "VP_MAX"}),
                         NameOf);

class EmissFixNeedsInSomeMonths : public EmissFixNeeds {};

TEST_P(EmissFixNeedsInSomeMonths, ThisField) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"JUNE", false}});
  ExpectFailureWithoutIt(ID);
}

INSTANTIATE_TEST_SUITE_P(OfAStoredMonth, EmissFixNeedsInSomeMonths,
                         ::testing::Values(NeededField{"met", "TAN_MAR"}, NeededField{"met", "TAX_MAR"},
                                           NeededField{"met", "INSOL_MAR"}, NeededField{"mixtures", "MAR_THRU"}),
                         NameOf);

TEST_F(EmissFixRow, YearOfSomeMonthsNeedsNothingOfTheOthers) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"JUNE", false}, {"JUN_THRU", kNull}});
  ChangeWeather({{"TAN_JUN", kNull}, {"TAX_JUN", kNull}, {"INSOL_JUN", kNull}});
  Run(ID);
  EXPECT_EQ(RowCount(), 1);
}

}  // namespace
}  // namespace orvex::emission
