#include "emission/emiss_fix.h"

#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

// Most expected figures are those of the sample tanks: 20 ft by 20 ft under a cone of 1 ft in 16 ft, and 10 ft by 20 ft
// lying, both white and good, with benzene in the sample city. Worked once:
//   alpha = 0.17, T_AA = 55 + 459.67 = 514.67, I = 1400
//   T_LA = 0.44 x 514.67 + 0.56 x (514.67 + 6 x 0.17 - 1) + 0.0079 x 0.17 x 1400 = 516.5614
//   P_VA = 10^(6.905 - 1211.033 / ((516.5614 - 491.67) / 1.8 + 220.79)) x 14.696 / 760 = 1.07071851847
constexpr double kSurface = 516.5614;
constexpr double kPressure = 1.07071851847;

class EmissFixTest : public LossTest {
 protected:
  void Run(std::int32_t ID, const std::string& Month = "Annual", std::int32_t MixID = 1) {
    EmissFix(test.session, ID, MixID, Month);
  }
};

TEST_F(EmissFixTest, VerticalTankHasStandingAndWorkingLoss) {
  const auto ID = AddVerticalTank(test);
  Run(ID);
  // H_VO = 20 - 10 + (0.0625 x 20 / 2) / 3 = 10.2083333; V_V = 3.14159265 / 4 x 400 x H_VO = 3207.04249688
  // W_V = 78.11 x P_VA / (10.731 x T_LA) = 0.0150875876644; K_S = 1 / (1 + 0.053 x P_VA x H_VO) = 0.633190584663
  // K_E = (0.72 x 20 + 0.028 x 0.17 x 1400) / T_LA + (0.317990818296 - 0.06) / (14 - P_VA) = 0.0607313353324
  // S_LOSS = 365 x V_V x W_V x K_E x K_S; W_LOSS = 0.001 x 78.11 x P_VA x 420,000 / 42 = 836.338234776
  ExpectClose(Number(ID, "S_LOSS"), 679.148372892, "S_LOSS");
  ExpectClose(Number(ID, "W_LOSS"), 836.338234776, "W_LOSS");
  EXPECT_EQ(RowCount(), 1);
}

TEST_F(EmissFixTest, VaporPressureEqualToTheAtmosphericPassesAndThenFailsInTheExpansionFactor) {
  const auto ID = AddVerticalTank(test);
  TypeInMixture(ID, 14, 13, 14);
  test.host.ExpectError(11, "modEmission.VaporExpansion");
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_FALSE(test.session.ValidationFailed);
  auto row = Row(ID, "Annual", kTypedName);
  EXPECT_EQ(row.Double("K_E"), 0);
  EXPECT_EQ(row.Double("S_LOSS"), 0);
  ExpectClose(row.Double("W_LOSS"), 0.001 * 78.11 * 14 * 10000, "W_LOSS");
}

TEST_F(EmissFixTest, VaporPressureRangeBelowTheVentRangeLeavesNoExpansion) {
  // 21.064 / 516.5614 + (0.318 - 10) / (14 - 1.0707) is below 0.
  const auto ID = AddVerticalTank(test, {{"VENT_P", 5.0}, {"VENT_V", -5.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "K_E"), 0);
  EXPECT_EQ(Number(ID, "S_LOSS"), 0);
  EXPECT_EQ(Number(ID, "BV_RANGE"), 10);
}

TEST_F(EmissFixTest, UndergroundTankDoesNotBreatheButWorks) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}});
  Run(ID);
  auto row = Row(ID);
  for (const auto* field : {"S_LOSS", "K_E", "K_S", "RF_OUT", "V_DENS", "VP_RANGE", "VT_RANGE"})
    EXPECT_EQ(row.Double(field), 0) << field;
  // No sun: T_LA = 0.44 x 514.67 + 0.56 x 513.67 = 514.11, for the extremes as well.
  for (const auto* field : {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP"}) ExpectClose(row.Double(field), 514.11, field);
  for (const auto* field : {"A_VP", "M_VP", "X_VP"}) ExpectClose(row.Double(field), 0.998937299782, field);
  ExpectClose(row.Double("W_LOSS"), 200.640837821, "W_LOSS");  // 0.001 x 78.11 x 0.998937 x 108,000 / 42
  ExpectClose(row.Double("VS_OUT"), 5, "VS_OUT");
  ExpectClose(row.Double("VS_VOL"), 1000.50721338, "VS_VOL");  // 3.14159265 / 4 x 254.777 x 5
  ExpectClose(row.Double("T_RANGE"), 20, "T_RANGE");           // the weather's
  ExpectClose(row.Double("BULK_T"), 513.67, "BULK_T");
  ExpectClose(row.Double("ALPHA"), 0.17, "ALPHA");  // the paint, although no sun reaches it
}

TEST_F(EmissFixTest, UndergroundTankFollowsTheMonthOnlyByItsAmbientMean) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}});
  Run(ID, "January");
  // 0.44 x (35 + 459.67) + 0.56 x (514.67 - 1) = 505.31
  ExpectClose(Number(ID, "ALS_TEMP", "January"), 505.31, "ALS_TEMP");
  EXPECT_EQ(Number(ID, "VT_RANGE", "January"), 0);
}

TEST_F(EmissFixTest, HeatedUndergroundTankBreathesInFullWithoutSun) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}, {"HEATED", true}});
  Run(ID);
  auto row = Row(ID);
  // K_E = (65 - 55) / 519.67 + (1.33941554022 - 1.01497125882 - 0.06) / (14 - 1.16786443644) = 0.0398509524215
  const std::vector<ExpectedField> expected = {
      {"K_E", 0.0398509524215},  {"K_S", 0.763659534767}, {"V_DENS", 0.0163580386636}, {"S_LOSS", 181.795363503},
      {"W_LOSS", 234.570577192}, {"RF_OUT", 0.0},         {"VT_RANGE", 10.0}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFixTest, HeatedTankTakesItsStoredTemperatures) {
  const auto ID = AddVerticalTank(test, {{"HEATED", true}});
  ChangeMixture(client, ID, 1, {{"ALS_TEMP", 80.0}, {"XLS_TEMP", 86.0}, {"MLS_TEMP", 75.0}, {"BULK_TEMP", 78.0}});
  Run(ID);
  auto row = Row(ID);
  // K_E = (86 - 75) / 539.67 + (X_VP - M_VP - 0.06) / (14 - A_VP); the sun adds nothing.
  const std::vector<ExpectedField> expected = {{"ALS_TEMP", 539.67}, {"XLS_TEMP", 545.67}, {"MLS_TEMP", 534.67},
                                               {"BULK_T", 537.67},   {"VT_RANGE", 11.0},   {"T_RANGE", 20.0},
                                               {"AMB_T", 55.0}};
  for (const auto& field : expected) ExpectField(row, field);
  const double average = row.Double("A_VP"), range = row.Double("X_VP") - row.Double("M_VP");
  ExpectClose(row.Double("K_E"), 11 / 539.67 + (range - 0.06) / (14 - average), "K_E");
}

TEST_F(EmissFixTest, HorizontalTankIsHalfFullUnderAnEffectiveDiameter) {
  const auto ID = AddHorizontalTank(test, {{"RF_TYPE", "Dome"}, {"RF_HEIGHT", 4.0}, {"D_RADIUS", 0.0}});
  Run(ID);
  auto row = Row(ID);
  const std::vector<ExpectedField> expected = {{"VS_OUT", 5.0},              // half of 10 ft, the actual diameter
                                               {"EFF_DIAM", 15.9617376894},  // (20 x 10 / 0.785)^0.5
                                               {"DIAMETER", 10.0},
                                               {"RF_OUT", 0.0},  // its roof fields say nothing
                                               {"D_RADIUS", 0.0},
                                               {"VS_VOL", 1000.50721338},
                                               {"S_LOSS", 260.65647274},
                                               {"W_LOSS", 215.058403228}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFixTest, DomeWithoutHeightAndRadiusShowsTheDiameterAsItsRadius) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", "Dome"}});
  Run(ID);
  auto row = Row(ID);
  // H = 20 - (400 - 100)^0.5 = 2.67949192431; RF_OUT = H x (1/2 + (H / 10)^2 / 6)
  const std::vector<ExpectedField> expected = {
      {"D_RADIUS", 20.0}, {"RF_OUT", 1.37180910627}, {"VS_OUT", 11.3718091063}, {"S_LOSS", 726.193493411}};
  for (const auto& field : expected) ExpectField(row, field);
  EXPECT_EQ(client.OpenMatching("tank", "ID", {ID}).Double("D_RADIUS"), 0);  // the tank itself keeps its own
}

TEST_F(EmissFixTest, DomeWithHeightKeepsItsRadius) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", "Dome"}, {"RF_HEIGHT", 3.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "D_RADIUS"), 0);
  ExpectClose(Number(ID, "RF_OUT"), 3 * (0.5 + 0.09 / 6), "RF_OUT");
}

TEST_F(EmissFixTest, DomeFlatterThanItsTankIsToldByBothOutages) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", "Dome"}, {"D_RADIUS", 9.0}});
  test.host.ExpectError(5, "modEmission.HRO");
  test.host.ExpectError(5, "modEmission.HVO");
  Run(ID);
  for (const auto* field : {"RF_OUT", "VS_OUT", "VS_VOL", "S_LOSS"}) EXPECT_EQ(Number(ID, field), 0) << field;
  ExpectClose(Number(ID, "W_LOSS"), 836.338234776, "W_LOSS");
}

TEST_F(EmissFixTest, UnknownRoofTypeHasNoVaporSpace) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", "Flat"}});
  Run(ID);
  for (const auto* field : {"RF_OUT", "VS_OUT", "VS_VOL", "S_LOSS"}) EXPECT_EQ(Number(ID, field), 0) << field;
  EXPECT_EQ(Number(ID, "K_S"), 1);
}

TEST_F(EmissFixTest, TankOfNoKnownTypeLiesButShowsItsOwnDiameter) {
  const auto ID = AddVerticalTank(test, {{"TANK_TYPE", "Sphere"}, {"HEIGHT S", 31.4}});
  Run(ID);
  EXPECT_EQ(Number(ID, "EFF_DIAM"), 20);
  EXPECT_EQ(Number(ID, "VS_OUT"), 10);
  // D_E^2 = 31.4 x 20 / 0.785 = 800
  ExpectClose(Number(ID, "VS_VOL"), 3.14159265 / 4 * 800 * 10, "VS_VOL");
}

TEST_F(EmissFixTest, ThirtySixTurnoversStillFillTheVaporSpace) {
  const auto ID = AddVerticalTank(test, {{"TURNOVER", 36.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "K_N"), 1);
  ChangeTank(client, ID, {{"TURNOVER", 37.0}});
  Run(ID);
  ExpectClose(Number(ID, "K_N"), 217.0 / 222.0, "K_N");  // (180 + 37) / (6 x 37)
}

TEST_F(EmissFixTest, MonthUsesItsOwnThroughputButTheAnnualTurnovers) {
  const auto ID = AddVerticalTank(test, {{"TURNOVER", 60.0}});
  ChangeMixture(client, ID, 1, {{"JAN_THRU", 4200.0}, {"FEB_THRU", 8400.0}});
  Run(ID, "January");
  Run(ID, "February");
  const double k_n = 240.0 / 360.0;
  for (const auto& [month, barrels] : {std::pair{"January", 100.0}, std::pair{"February", 200.0}}) {
    EXPECT_EQ(Number(ID, "Q_NET", month), barrels * 42);
    ExpectClose(Number(ID, "K_N", month), k_n, "K_N");
    ExpectClose(Number(ID, "W_LOSS", month), 0.001 * 78.11 * Number(ID, "A_VP", month) * barrels * k_n, "W_LOSS");
  }
  EXPECT_EQ(RowCount(), 2);
}

TEST_F(EmissFixTest, MonthGoesByItsOwnWeatherOnTheAnnualBulkTemperature) {
  const auto ID = AddVerticalTank(test);
  Run(ID, "January");  // 25 to 45 deg F, 650 Btu/ft2
  auto row = Row(ID, "January");
  // T_LA = 0.44 x 494.67 + 0.56 x 514.69 + 0.0079 x 0.17 x 650 = 506.75415; 31 days
  const std::vector<ExpectedField> expected = {
      {"AMB_T", 35.0},         {"T_MIN", 25.0},          {"T_MAX", 45.0},           {"INSOL", 650.0},
      {"ALS_TEMP", 506.75415}, {"XLS_TEMP", 511.12765},  {"MLS_TEMP", 502.38065},   {"BULK_T", 514.69},
      {"VT_RANGE", 17.494},    {"K_E", 0.0457833066774}, {"S_LOSS", 36.7309380533}, {"W_LOSS", 52.5390350887}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFixTest, EveryMonthCountsItsDays) {
  const auto ID = AddVerticalTank(test);
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
    const std::string month(shell::kMonths[i].name);
    Run(ID, month);
    auto row = Row(ID, month);
    ExpectClose(row.Double("S_LOSS"),
                kDays[i] * row.Double("VS_VOL") * row.Double("V_DENS") * row.Double("K_E") * row.Double("K_S"), month);
    EXPECT_GT(row.Double("S_LOSS"), 0) << month;
  }
}

TEST_F(EmissFixTest, MonthThatTheMixtureDoesNotHaveGivesNoRowAndNoMessage) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"MAY", false}});
  Run(ID, "May");
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_TRUE(test.host.messages.empty());
}

TEST_F(EmissFixTest, YearOfAMixtureOfTwoMonthsHasTheirPlainMeans) {
  const auto ID = AddVerticalTank(test);
  test::SetMonths(client, ID, 1, false);
  ChangeMixture(client, ID, 1, {{"JANUARY", true}, {"FEBRUARY", true}});
  Run(ID);
  auto row = Row(ID);
  // January 25 to 45 deg F and 650 Btu, February 29 to 49 and 800; 31 and 28 days do not weigh.
  const std::vector<ExpectedField> expected = {
      {"AMB_T", 37.0}, {"T_MIN", 27.0}, {"T_MAX", 47.0}, {"INSOL", 725.0}, {"Q_NET", 420000.0}};
  for (const auto& field : expected) ExpectField(row, field);
  ExpectClose(row.Double("S_LOSS"),
              59 * row.Double("VS_VOL") * row.Double("V_DENS") * row.Double("K_E") * row.Double("K_S"), "S_LOSS");
}

TEST_F(EmissFixTest, CrudeOilWorksAtThreeQuarters) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", shell::kCrudeOils}});
  Run(ID);
  EXPECT_EQ(Number(ID, "K_P"), 0.75);
  ExpectClose(Number(ID, "W_LOSS"), 0.75 * 836.338234776, "W_LOSS");
}

TEST_F(EmissFixTest, NewRunOverwritesTheRowOfItsKey) {
  const auto ID = AddVerticalTank(test);
  Run(ID);
  ChangeTank(client, ID, {{"Q_NET", 840000.0}});
  Run(ID);
  EXPECT_EQ(RowCount(), 1);
  ExpectClose(Number(ID, "W_LOSS"), 2 * 836.338234776, "W_LOSS");
}

TEST_F(EmissFixTest, ComponentRowOfTheSameNameIsNotTakenForTheMixtures) {
  const auto ID = AddVerticalTank(test);
  AddRow(client, "emission", {{"ID", ID}, {"MIX ID", 1}, {"NAME", "Benzene"}, {"MONTH", "Annual"}, {"PRIMARY", false}});
  Run(ID);
  EXPECT_EQ(RowCount(), 2);
}

TEST_F(EmissFixTest, MixtureOfNoKnownKindLosesNothing) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"COMPONENT", ""}});
  Run(ID);
  for (const auto* field : {"A_VP", "M_VP", "X_VP", "MOLWT", "VP_MOLWT", "S_LOSS", "W_LOSS"})
    EXPECT_EQ(Number(ID, field), 0) << field;
}

// Pressure above the atmospheric -------------------------------------------------------------------------------------

struct Excess {
  const char* name;
  double average, minimum, maximum;
};

class EmissFixExcess : public EmissFixTest, public ::testing::WithParamInterface<Excess> {};

TEST_P(EmissFixExcess, StopsTheMixtureWithAnErrorRow) {
  const auto ID = AddVerticalTank(test, {{"USER ID", "North 7"}});
  TypeInMixture(ID, GetParam().average, GetParam().minimum, GetParam().maximum);
  Run(ID);
  EXPECT_EQ(Errors(),
            std::vector<std::string>{std::to_string(ID) +
                                     "|North 7|Vapor pressure(s) for Solvent X exceed atmospheric pressure."});
  EXPECT_TRUE(test.session.ValidationFailed);
  EXPECT_EQ(RowCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(AnyOfTheThree, EmissFixExcess,
                         ::testing::Values(Excess{"Average", 14.001, 1, 2}, Excess{"Minimum", 1, 14.001, 2},
                                           Excess{"Maximum", 1, 1, 14.001}),
                         [](const auto& given) { return given.param.name; });

TEST_F(EmissFixTest, UndergroundTankIsOnlyJudgedByItsAveragePressure) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}});
  TypeInMixture(ID, 1, 20, 20);
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_EQ(Number(ID, "X_VP", "Annual", kTypedName), 1);
}

TEST_F(EmissFixTest, AtmosphericPressureIsTheCitysNotTheTanks) {
  const auto ID = AddVerticalTank(test, {{"ATMOS_PRS", 0.5}});
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_EQ(Number(ID, "P_A"), 14);
}

// The liquid ---------------------------------------------------------------------------------------------------------

TEST_F(EmissFixTest, MultipleMixtureOfAChemicalsNameGoesByTheChemical) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1,
                {{"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kPartialSpeciation}, {"VP_MOLWT", 80.0}});
  Run(ID);
  ExpectClose(Number(ID, "A_VP"), kPressure, "A_VP");
  EXPECT_EQ(Number(ID, "VP_MOLWT"), 80);
}

TEST_F(EmissFixTest, MultipleMixtureOfAnyOtherNameGoesByItsStoredPressures) {
  const auto ID = AddVerticalTank(test);
  TypeInMixture(ID, 2, 1.5, 2.75);
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  for (const auto& field :
       {ExpectedField{"A_VP", 2.0}, {"M_VP", 1.5}, {"X_VP", 2.75}, {"VP_RANGE", 1.25}, {"MOLWT", 78.11}})
    ExpectField(row, field);
}

TEST_F(EmissFixTest, FullySpeciatedMixtureGoesByItsComponents) {
  const auto ID = AddVerticalTank(test);
  TypeInMixture(ID, 9, 9, 9);
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", shell::kFullSpeciation}, {"MOLWT", 1.0}, {"VP_MOLWT", 1.0}});
  AddComponent(client, ID, 1, 1, {{"WT_FRACT", 40.0}});
  AddComponent(client, ID, 1, 2, {{"NAME", "Toluene"}, {"WT_FRACT", 60.0}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}});
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  // N = 40 / 78.11 + 60 / 92.13 = 1.16335198618; M = 100 / N = 85.9585071311; x = 0.440192073389, 0.559807926611
  // At T_LA benzene has 1.07071851847 psia and toluene 0.299464187638.
  for (const auto& field :
       {ExpectedField{"MOLWT", 85.9585071311}, {"A_VP", 0.638964230637}, {"VP_MOLWT", 81.7883699298}})
    ExpectField(row, field);
}

class EmissFixVaporWeights : public EmissFixTest, public ::testing::WithParamInterface<std::pair<double, bool>> {};

TEST_P(EmissFixVaporWeights, CountOnlyWhenTheyAddUp) {
  const auto [sum, counts] = GetParam();
  const auto ID = AddVerticalTank(test);
  TypeInMixture(ID, 2, 1.5, 2.75);
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", shell::kVaporWeightSpeciation}});
  AddComponent(client, ID, 1, 1, {{"VP_FRACT", sum}});
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  // Its one component is benzene, so the liquid that gives this vapor is benzene.
  ExpectClose(row.Double("A_VP"), counts ? kPressure : 2, "A_VP");
  ExpectClose(row.Double("X_VP"), counts ? 1.23949882022 : 2.75, "X_VP");
  ExpectClose(row.Double("M_VP"), counts ? 0.921508001921 : 1.5, "M_VP");
  EXPECT_TRUE(test.host.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Sums, EmissFixVaporWeights,
                         ::testing::Values(std::pair{99.95, true}, std::pair{100.05, true}, std::pair{99.9, false},
                                           std::pair{100.1, false}));

// What is not there --------------------------------------------------------------------------------------------------

TEST_F(EmissFixTest, WeatherThatIsNotFoundReadsAsNothing) {
  // Without an atmosphere every pressure exceeds it.
  const auto ID = AddVerticalTank(test, {{"MET CTYST", "Nowhere"}});
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{std::to_string(ID) +
                                               "|Tank 1|Vapor pressure(s) for Benzene exceed atmospheric pressure."});
  EXPECT_EQ(RowCount(), 0);
}

TEST_F(EmissFixTest, LiquidWithoutVaporInWeatherThatIsNotFoundFailsInTheExpansionFactor) {
  const auto ID = AddVerticalTank(test, {{"MET CTYST", "Nowhere"}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", kTypedName}});  // single, and no chemical: 0 psia
  test.host.ExpectError(11, "modEmission.VaporExpansion");
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  for (const auto& field : {ExpectedField{"P_A", 0.0}, {"AMB_T", 0.0}, {"INSOL", 0.0}, {"K_E", 0.0}, {"W_LOSS", 0.0}})
    ExpectField(row, field);
}

TEST_F(EmissFixTest, MixtureThatIsNotFoundHasNoMonth) {
  const auto ID = AddVerticalTank(test);
  Run(ID, "January", 9);
  EXPECT_EQ(RowCount(), 0);
  EXPECT_TRUE(test.host.messages.empty());
}

TEST_F(EmissFixTest, MixtureThatIsNotFoundHasNoMeanYear) {
  const auto ID = AddVerticalTank(test);
  test.host.ExpectError(11, "modEmission.EmissFix");
  Run(ID, "Annual", 9);
  EXPECT_EQ(RowCount(), 0);
}

TEST_F(EmissFixTest, LiquidAtAbsoluteZeroEndsTheRoutineWithoutARow) {
  const auto ID = AddVerticalTank(test, {{"HEATED", true}});
  TypeInMixture(ID, 1, 1, 1);
  ChangeMixture(client, ID, 1, {{"ALS_TEMP", -459.67}});
  test.host.ExpectError(11, "modEmission.EmissFix");  // W_V = M_V x P_VA / (10.731 x 0)
  Run(ID);
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(test.host.status, std::vector<std::string>{"Ready"});
}

TEST_F(EmissFixTest, SurfaceTemperatureIsThatOfTheSampleCity) {
  const auto ID = AddVerticalTank(test);
  Run(ID);
  ExpectClose(Number(ID, "ALS_TEMP"), kSurface, "ALS_TEMP");
  ExpectClose(Number(ID, "A_VP"), kPressure, "A_VP");
}

}  // namespace
}  // namespace orvex::emission
