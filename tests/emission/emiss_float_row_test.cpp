#include "emission/emiss_float.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

class EmissFloatRow : public LossTest {
 protected:
  void Run(std::int32_t ID, std::string_view Month = shell::kAnnual) {
    EmissFloat(test.session, ID, 1, std::string(Month));
  }
};

// The figures of the worksheet: alpha = (0.54 + 0.74) / 2 = 0.64
//   T_LA = 0.44 x 514.67 + 0.56 x (514.67 + 3.84 - 1) + 0.0079 x 0.64 x 1400 = 523.3388
//   T_LX, T_LN = T_LA +- 0.25 x (0.72 x 20 + 0.028 x 0.64 x 1400) = T_LA +- 9.872
//   r = 1.29182431408 / 14; P* = r / (1 + (1 - r)^0.5)^2 = 0.024198222337
//   M_KR = 5.8 + 0.3 x 8^2.1 = 29.4379727362
//   M_FF = 1 x 1.6 + 2 x (6.2 + 1.2 x (0.7 x 8)^0.94) = 26.120149787
TEST_F(EmissFloatRow, HoldsTheTankTheWeatherAndEveryStepOfTheCalculation) {
  const auto ID = AddExternalTank(test, {{"USER ID", "E-1"},
                                         {"CITY", "Akron"},
                                         {"STATE", "OH"},
                                         {"COMPANY", "Acme"},
                                         {"DESC", "Beside the gate"},
                                         {"DIAMETER", 120.0},
                                         {"VOLUME", 900000.0},
                                         {"TURNOVER", 10.0},
                                         {"Q_NET", 9000000.0},
                                         {"SHL COLSHD", "Gray/Light"},
                                         {"SHL_COND", "Dense Rust"},
                                         {"PT_COND", "Good"},
                                         {"RF_COLSHD", "Gray/Medium"},
                                         {"RF_COND", "Poor"},
                                         {"FITTING", "Typical"},
                                         {"DECK_TYPE", "Bolted"},
                                         {"DECK_CONSTRUCT", "Panel"},
                                         {"DECK_SEAM", "Sheet: 5 Ft Wide"},
                                         {"DECK_SEAM_LENGTH", 9.0},
                                         {"COL_NO", 5.0},
                                         {"COL_DIAM", 0.7},
                                         {"SD", 0.3},
                                         // What only a fixed roof has stays out of the row.
                                         {"HEIGHT S", 9.0},
                                         {"HEIGHT ML", 9.0},
                                         {"HEIGHT AL", 9.0},
                                         {"RF_HEIGHT", 9.0},
                                         {"C_SLOPE", 9.0},
                                         {"D_RADIUS", 9.0},
                                         {"VENT_P", 9.0},
                                         {"VENT_V", 9.0},
                                         {"UNDER", true},
                                         {"HEATED", true}});
  AddFitting(client, ID, 2, {{"K_FA", 6.2}, {"K_FB", 1.2}, {"K_M", 0.94}, {"QUANTITY", 2.0}});
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
                       {"TANK_TYPE", shell::kExternalFloatingRoof},
                       {"USER ID", "E-1"},
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
                       {"S_LOSS", 0.0},
                       {"W_LOSS", 0.0},
                       {"RIM_LOSS", 6676.96723944},  // M_KR x 120 x P* x 78.11
                       {"WD_LOSS", 93.0160044643},   // 0.943 x 9,000,000 / 42 x 0.0075 x 7.365 / 120
                       {"DECKF_LOSS", 49.3702997089},
                       {"DECKS_LOSS", 0.0},
                       {"MOLES", 0.0},
                       {"L_WT_FRACT", 0.0},
                       {"V_WT_FRACT", 0.0},
                       {"L_MO_FRACT", 0.0},
                       {"V_MO_FRACT", 0.0},
                       {"MOLWT", 79.0},
                       {"VP_MOLWT", 78.11},
                       {"L_DENS", 7.365},
                       {"ALPHA", 0.54},
                       {"ALPHA_2", 0.74},
                       {"ALS_TEMP", 523.3388},
                       {"MLS_TEMP", 513.4668},
                       {"XLS_TEMP", 533.2108},
                       {"BULK_T", 517.51},
                       {"A_VP", 1.29182431408},
                       {"DIAMETER", 120.0},
                       {"VOLUME", 900000.0},
                       {"Q_NET", 9000000.0},
                       {"TURNOVER", 10.0},
                       {"SHL COLSHD", "Gray/Light"},
                       {"SHL_COND", "Dense Rust"},
                       {"PT_COND", "Good"},
                       {"RF_COLSHD", "Gray/Medium"},
                       {"RF_COND", "Poor"},
                       {"M_KR", 29.4379727362},
                       {"M_P", 0.024198222337},
                       {"M_KC", 1.0},
                       {"M_C", 0.0075},
                       {"NC", 5.0},
                       {"FC", 0.0},
                       {"M_FF", 26.120149787},
                       {"SD", 0.0},
                       {"KD", 0.0},
                       {"N_FACT", 2.1},
                       {"TANK_CONSTRUCT", "Welded"},
                       {"RIM_PRIM", "Mechanical Shoe"},
                       {"RIM_SEC", "None"},
                       {"M_KRA", 5.8},
                       {"M_KRB", 0.3},
                       {"FITTING", "Typical"},
                       {"M_V", 8.0},
                       {"DECK_TYPE", "Bolted"},
                       {"DECK_CONSTRUCT", "Panel"},
                       {"DECK_SEAM", "Sheet: 5 Ft Wide"},
                       {"DECK_SEAM_LENGTH", 9.0},
                       {"COL_NO", 5.0},
                       {"COL_DIAM", 0.0},
                       {"SELF_SUP", false},
                       {"UNDER", false},
                       {"HEATED", false}});
}

TEST_F(EmissFloatRow, EmptyFieldsOfTheTankReadAsNothing) {
  const auto ID = AddExternalTank(test);
  // A tank without type is a floating roof that sees no wind.
  constexpr std::string_view kTexts[] = {"USER ID", "TANK_TYPE",      "CITY",           "STATE",    "COMPANY",
                                         "DESC",    "SHL COLSHD",     "SHL_COND",       "PT_COND",  "RF_COLSHD",
                                         "RF_COND", "TANK_CONSTRUCT", "DECK_CONSTRUCT", "RIM_PRIM", "RIM_SEC",
                                         "FITTING", "DECK_TYPE",      "DECK_SEAM"};
  constexpr std::string_view kNumbers[] = {"VOLUME", "Q_NET", "TURNOVER", "DECK_SEAM_LENGTH"};
  for (const auto field : kTexts) ChangeTank(client, ID, {{field, kNull}});
  for (const auto field : kNumbers) ChangeTank(client, ID, {{field, kNull}});
  for (const auto* field : {"COL_NO", "COL_DIAM", "SD", "SELF_SUP"}) ChangeTank(client, ID, {{field, kNull}});
  Run(ID);
  auto row = Row(ID);
  ASSERT_FALSE(row.NoMatch());
  for (const auto field : kTexts) EXPECT_EQ(row.Get(field), store::Value("")) << field;
  for (const auto field : kNumbers) EXPECT_EQ(row.Get(field), store::Value(0.0)) << field;
  EXPECT_EQ(row.Get("SELF_SUP"), store::Value(false));
  EXPECT_EQ(row.Double("COL_NO"), 6);  // 100 ft, and not said to support itself
  EXPECT_EQ(row.Double("COL_DIAM"), 0);
  EXPECT_EQ(row.Double("M_V"), 0);
}

TEST_F(EmissFloatRow, TankWithoutDiameterReadsAsZeroFeet) {
  const auto ID = AddExternalTank(test, {{"DIAMETER", kNull}});
  test.host.ExpectError(11, "modEmission.WithDrawalLoss");
  Run(ID);
  EXPECT_EQ(Number(ID, "DIAMETER"), 0);
}

TEST_F(EmissFloatRow, SingleMixtureNeedsNoSpeciation) {
  const auto ID = AddExternalTank(test);
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", kNull}});
  Run(ID);
  EXPECT_EQ(RowCount(), 1);
}

// Fields that must be there ------------------------------------------------------------------------------------------

class EmissFloatNeeds : public EmissFloatRow, public ::testing::WithParamInterface<NeededField> {
 protected:
  /// Clears the field, runs and expects the report of a null instead of a row.
  void ExpectFailureWithoutIt() {
    Clear(GetParam());
    test.host.ExpectError(94, "modEmission.EmissFloat");
    Run(1, GetParam().Month);
    EXPECT_EQ(RowCount(), 0);
    EXPECT_EQ(Errors(), std::vector<std::string>{});
    EXPECT_FALSE(test.session.ValidationFailed);
  }
};

TEST_P(EmissFloatNeeds, ThisField) {
  AddInternalTank(test);
  ExpectFailureWithoutIt();
}

INSTANTIATE_TEST_SUITE_P(OfTheWeather, EmissFloatNeeds,
                         ::testing::Values(NeededField{"met", "A_TEMP_DAA"}, NeededField{"met", "ATMOS_PRS"},
                                           NeededField{"met", "INSOL_ANN"}, NeededField{"met", "TAN_ANN"},
                                           NeededField{"met", "TAX_ANN"}, NeededField{"met", "WIND_ANN"},
                                           NeededField{"met", "INSOL_MAR", "March"},
                                           NeededField{"met", "TAN_MAR", "March"},
                                           NeededField{"met", "TAX_MAR", "March"},
                                           NeededField{"met", "WIND_MAR", "March"}),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(OfTheMixture, EmissFloatNeeds,
                         ::testing::Values(NeededField{"mixtures", "COMPONENT"}, NeededField{"mixtures", "MIX NAME"},
                                           NeededField{"mixtures", "MOLWT"}, NeededField{"mixtures", "VP_MOLWT"},
                                           NeededField{"mixtures", "L_DENS"}, NeededField{"mixtures", "C_CATEGORY"},
                                           NeededField{"mixtures", "MARCH"},
                                           NeededField{"mixtures", "MAR_THRU", "March"}),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(OfSealAndSeam, EmissFloatNeeds,
                         ::testing::Values(NeededField{"rimseal", "K_RA"}, NeededField{"rimseal", "K_RB"},
                                           NeededField{"rimseal", "N_FACTOR"}, NeededField{"deckseam", "KD"}),
                         NameOf);

class EmissFloatNeedsWhenTypedIn : public EmissFloatNeeds {};

TEST_P(EmissFloatNeedsWhenTypedIn, ThisField) {
  TypeInMixture(AddInternalTank(test), 1, 1, 1);
  ExpectFailureWithoutIt();
}

INSTANTIATE_TEST_SUITE_P(Liquid, EmissFloatNeedsWhenTypedIn,
                         ::testing::Values(NeededField{"mixtures", "SPEC_OPT"}, NeededField{"mixtures", "VP"}), NameOf);

class EmissFloatNeedsInSomeMonths : public EmissFloatNeeds {};

TEST_P(EmissFloatNeedsInSomeMonths, ThisField) {
  ChangeMixture(client, AddInternalTank(test), 1, {{"JUNE", false}});
  ExpectFailureWithoutIt();
}

INSTANTIATE_TEST_SUITE_P(OfAStoredMonth, EmissFloatNeedsInSomeMonths,
                         ::testing::Values(NeededField{"met", "WIND_MAR"}, NeededField{"mixtures", "MAR_THRU"}),
                         NameOf);

}  // namespace
}  // namespace orvex::emission
