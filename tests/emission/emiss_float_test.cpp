#include "emission/emiss_float.h"

#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

// Most expected figures are those of the sample tanks: 100 ft, white and good, welded, light rust, mechanical shoe seal
// (K_RA 5.8, K_RB 0.3, n 2.1), one access hatch (K_FA 1.6), 12,000,000 gal of benzene a year, wind of 8 mph. Worked
// once:
//   T_LA = 516.5614 and P_VA = 1.07071851847, as under a fixed roof of the same paint
//   r = P_VA / 14; P* = r / (1 + (1 - r)^0.5)^2 = 0.0198880543013
//   a loss of 1 lb-mole/yr is P* x 78.11 = 1.55345592147 lb
constexpr double kPerMole = 1.55345592147;
constexpr double kTwelve = 12;

class EmissFloatTest : public LossTest {
 protected:
  void Run(std::int32_t ID, const std::string& Month = "Annual", std::int32_t MixID = 1) {
    EmissFloat(test.session, ID, MixID, Month);
  }
  void ChangeSeal(test::FieldValues changes) {
    test::ChangeRow(test.reference(), "rimseal", "primsec", {"Mechanical Shoe", "None"}, changes);
  }
};

TEST_F(EmissFloatTest, ExternalRoofLosesAtRimFittingsAndWall) {
  const auto ID = AddExternalTank(test);
  Run(ID);
  auto row = Row(ID);
  // RIM_LOSS = (5.8 + 0.3 x 8^2.1) x 100 x P* x 78.11; WD_LOSS = 0.943 x 285,714.2857 x 0.0015 x 7.365 / 100
  const std::vector<ExpectedField> expected = {{"M_KR", 29.4379727362},        {"RIM_LOSS", 4573.05930634},
                                               {"WD_LOSS", 29.7651214286},     {"M_FF", 1.6},
                                               {"DECKF_LOSS", 1.6 * kPerMole}, {"DECKS_LOSS", 0.0}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFloatTest, DomedRoofSeesNoWindAndHasNoSeamLoss) {
  const auto ID = AddDomedTank(test, {{"DECK_CONSTRUCT", "Sheet"}, {"DECK_SEAM", "Sheet: 5 Ft Wide"}, {"SD", 0.2}});
  Run(ID);
  auto row = Row(ID);
  const std::vector<ExpectedField> expected = {{"M_V", 0.0}, {"DECKS_LOSS", 0.0}, {"SD", 0.0},
                                               {"KD", 0.0},  {"M_KR", 5.8},       {"RIM_LOSS", 580 * kPerMole}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFloatTest, SealWithoutWindExponentCountsBothFactorsUnderADome) {
  const auto ID = AddDomedTank(test);
  ChangeSeal({{"N_FACTOR", 0.0}});
  Run(ID);
  ExpectClose(Number(ID, "M_KR"), 6.1, "M_KR");  // 5.8 + 0.3 x 0^0
  ExpectClose(Number(ID, "RIM_LOSS"), 610 * kPerMole, "RIM_LOSS");
}

TEST_F(EmissFloatTest, ColumnsOfAnExternalRoofHoldNoLiquid) {
  const auto ID = AddExternalTank(test, {{"COL_NO", 40.0}, {"COL_DIAM", 2.0}});
  Run(ID);
  auto row = Row(ID);
  const std::vector<ExpectedField> expected = {
      {"WD_LOSS", 29.7651214286}, {"NC", 40.0}, {"COL_NO", 40.0}, {"FC", 0.0}, {"COL_DIAM", 0.0}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFloatTest, ColumnsOfAnExternalRoofAreShownEvenIfNoneAreStored) {
  const auto ID = AddExternalTank(test, {{"COL_NO", 0.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "NC"), 6);  // what 100 ft would need
  ExpectClose(Number(ID, "WD_LOSS"), 29.7651214286, "WD_LOSS");
}

TEST_F(EmissFloatTest, InternalRoofOf90FeetWithoutColumnCountStandsOnSixColumnsOfOneFoot) {
  const auto ID = AddInternalTank(test, {{"DIAMETER", 90.0}, {"COL_NO", 0.0}, {"COL_DIAM", 0.0}});
  Run(ID);
  auto row = Row(ID);
  // WD_LOSS = (0.943 x 285,714.2857 x 0.0015 x 7.365 / 90) x (1 + 6 x 1 / 90)
  const std::vector<ExpectedField> expected = {
      {"NC", 6.0}, {"COL_NO", 6.0}, {"FC", 1.0}, {"COL_DIAM", 1.0}, {"WD_LOSS", 35.2771809524}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFloatTest, SelfSupportingRoofShowsItsStoredColumnsWithoutUsingThem) {
  const auto ID = AddInternalTank(test, {{"SELF_SUP", true}, {"COL_NO", 6.0}, {"COL_DIAM", 1.1}});
  Run(ID);
  auto row = Row(ID);
  const std::vector<ExpectedField> expected = {
      {"FC", 0.0}, {"NC", 6.0}, {"WD_LOSS", 29.7651214286}, {"SELF_SUP", true}};
  for (const auto& field : expected) ExpectField(row, field);
}

TEST_F(EmissFloatTest, SelfSupportingRoofWithoutColumnCountKeepsNone) {
  const auto ID = AddInternalTank(test, {{"SELF_SUP", true}, {"COL_NO", 0.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "NC"), 0);
}

// Seams --------------------------------------------------------------------------------------------------------------

TEST_F(EmissFloatTest, DeckWithoutSeamLengthGoesByTheTanksSeamFactor) {
  const auto ID = AddInternalTank(test, {{"DECK_SEAM_LENGTH", 0.0}, {"SD", 0.25}});
  Run(ID);
  EXPECT_EQ(Number(ID, "SD"), 0.25);
  ExpectClose(Number(ID, "DECKS_LOSS"), 10000 * (0.14 * 0.25) * kPerMole, "DECKS_LOSS");
}

TEST_F(EmissFloatTest, SeamLengthReplacesTheTanksSeamFactor) {
  const auto ID = AddInternalTank(test, {{"DECK_SEAM_LENGTH", 900.0}, {"SD", 0.25}});
  Run(ID);
  ExpectClose(Number(ID, "SD"), 0.114591655818, "SD");  // 4 x 900 / (10,000 x 3.14159)
  ExpectClose(Number(ID, "DECKS_LOSS"), 249.218320794, "DECKS_LOSS");
  EXPECT_EQ(Number(ID, "DECK_SEAM_LENGTH"), 900);
  EXPECT_EQ(client.OpenMatching("tank", "ID", {ID}).Double("SD"), 0.25);  // the tank itself keeps its own
}

TEST_F(EmissFloatTest, SeamFactorComesFromTheSeamsOwnRow) {
  const auto ID = AddInternalTank(test);
  test::ChangeRow(test.reference(), "deckseam", "name", {"Sheet: 5 Ft Wide"}, {{"KD", 0.34}});
  Run(ID);
  EXPECT_EQ(Number(ID, "KD"), 0.34);
  ExpectClose(Number(ID, "DECKS_LOSS"), 10000 * (0.34 * 0.2) * kPerMole, "DECKS_LOSS");
}

TEST_F(EmissFloatTest, UnknownSeamHasTheUsualFactor) {
  const auto ID = AddInternalTank(test, {{"DECK_SEAM", "Glued"}});
  test::ChangeRow(test.reference(), "deckseam", "name", {"Sheet: 5 Ft Wide"}, {{"KD", 0.34}});
  Run(ID);
  EXPECT_EQ(Number(ID, "KD"), 0.14);
  ExpectClose(Number(ID, "DECKS_LOSS"), 434.967658014, "DECKS_LOSS");
}

TEST_F(EmissFloatTest, WeldedDeckHasNoSeamLoss) {
  const auto ID = AddInternalTank(test, {{"DECK_CONSTRUCT", "Welded"}, {"DECK_SEAM_LENGTH", 900.0}});
  Run(ID);
  for (const auto* field : {"DECKS_LOSS", "SD", "KD"}) EXPECT_EQ(Number(ID, field), 0) << field;
}

// Seals --------------------------------------------------------------------------------------------------------------

class EmissFloatSeals : public EmissFloatTest {
 protected:
  EmissFloatSeals() {
    test::AddSampleReference(test.reference());
    AddRow(test.reference(), "rimseal",
           {{"PRIM_SEAL", "Mechanical Shoe"},
            {"SECND_SEAL", "None"},
            {"RIVETED", true},
            {"K_RA", 10.8},
            {"K_RB", 0.4},
            {"N_FACTOR", 2.0}});
  }
};

TEST_F(EmissFloatSeals, RivetedShellHasSealsOfItsOwn) {
  const auto ID = AddExternalTank(test, {{"TANK_CONSTRUCT", "Riveted"}});
  Run(ID);
  auto row = Row(ID);
  for (const auto& field : {ExpectedField{"M_KRA", 10.8}, {"M_KRB", 0.4}, {"N_FACT", 2.0}, {"M_KR", 36.4}})
    ExpectField(row, field);  // 10.8 + 0.4 x 64
  ExpectClose(row.Double("RIM_LOSS"), 3640 * kPerMole, "RIM_LOSS");
}

TEST_F(EmissFloatSeals, ShellOfUnstatedConstructionCountsAsRiveted) {
  const auto ID = AddDomedTank(test, {{"TANK_CONSTRUCT", ""}});
  Run(ID);
  EXPECT_EQ(Number(ID, "M_KRA"), 10.8);
}

TEST_F(EmissFloatSeals, InternalRoofTakesTheSealOfAWeldedShellWhateverItsConstruction) {
  const auto ID = AddInternalTank(test, {{"TANK_CONSTRUCT", "Riveted"}});
  Run(ID);
  EXPECT_EQ(Number(ID, "M_KRA"), 5.8);
}

TEST_F(EmissFloatSeals, SecondarySealIsPartOfTheKey) {
  const auto ID = AddExternalTank(test, {{"RIM_SEC", "Rim-mounted"}});
  Run(ID);
  ExpectClose(Number(ID, "M_KR"), 0.6 + 0.4 * 8, "M_KR");
}

TEST_F(EmissFloatSeals, UnknownCombinationLosesNothingAtTheRim) {
  const auto ID = AddExternalTank(test, {{"RIM_SEC", "Rim-mounted"}, {"TANK_CONSTRUCT", "Riveted"}});
  Run(ID);
  auto row = Row(ID);
  for (const auto* field : {"M_KRA", "M_KRB", "N_FACT", "M_KR", "RIM_LOSS"}) EXPECT_EQ(row.Double(field), 0) << field;
  EXPECT_GT(row.Double("DECKF_LOSS"), 0);
  EXPECT_TRUE(test.host.messages.empty());
}

// Months -------------------------------------------------------------------------------------------------------------

TEST_F(EmissFloatTest, MonthHasATwelfthOfTheRateWhateverItsLengthAndItsOwnWithdrawal) {
  const auto ID = AddInternalTank(test);
  ChangeWeather({{"TAN_FEB", 50.0},
                 {"TAX_FEB", 70.0},
                 {"INSOL_FEB", 1500.0},
                 {"TAN_JUL", 50.0},
                 {"TAX_JUL", 70.0},
                 {"INSOL_JUL", 1500.0}});
  ChangeMixture(client, ID, 1, {{"FEB_THRU", 420000.0}, {"JUL_THRU", 840000.0}});
  Run(ID, "February");
  Run(ID, "July");
  auto february = Row(ID, "February"), july = Row(ID, "July");
  for (const auto* field : {"RIM_LOSS", "DECKF_LOSS", "DECKS_LOSS"}) {
    EXPECT_GT(february.Double(field), 0) << field;
    EXPECT_EQ(february.Double(field), july.Double(field)) << field;
  }
  ExpectClose(february.Double("RIM_LOSS"), 580 * february.Double("M_P") * 78.11 / kTwelve, "RIM_LOSS");
  ExpectClose(february.Double("DECKF_LOSS"), 1.6 * february.Double("M_P") * 78.11 / kTwelve, "DECKF_LOSS");
  ExpectClose(february.Double("DECKS_LOSS"), 280 * february.Double("M_P") * 78.11 / kTwelve, "DECKS_LOSS");
  // (0.943 x 10,000 x 0.0015 x 7.365 / 100) x (1 + 6 x 1.1 / 100), and twice that
  ExpectClose(february.Double("WD_LOSS"), 1.11053668050, "WD_LOSS");
  ExpectClose(july.Double("WD_LOSS"), 2.22107336100, "WD_LOSS");
  EXPECT_EQ(february.Double("Q_NET"), 420000);
}

TEST_F(EmissFloatTest, MonthGoesByItsOwnWeatherAndWind) {
  const auto ID = AddExternalTank(test);
  ChangeWeather({{"WIND_JAN", 10.0}});
  Run(ID, "January");
  auto row = Row(ID, "January");
  const std::vector<ExpectedField> expected = {
      {"AMB_T", 35.0},         {"T_MIN", 25.0},          {"T_MAX", 45.0},         {"INSOL", 650.0},
      {"ALS_TEMP", 506.75415}, {"XLS_TEMP", 511.12765},  {"MLS_TEMP", 502.38065}, {"BULK_T", 514.69},
      {"M_V", 10.0},           {"A_VP", 0.807154552637}, {"M_P", 0.0148445740975}};
  for (const auto& field : expected) ExpectField(row, field);
  ExpectClose(row.Double("M_KR"), 5.8 + 0.3 * std::pow(10, 2.1), "M_KR");
}

TEST_F(EmissFloatTest, MonthThatTheMixtureDoesNotHaveGivesNoRowAndNoMessage) {
  const auto ID = AddInternalTank(test);
  ChangeMixture(client, ID, 1, {{"MAY", false}});
  Run(ID, "May");
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_TRUE(test.host.messages.empty());
}

TEST_F(EmissFloatTest, YearOfAMixtureOfTwoMonthsHasTheirPlainMeansAndTheWholeRate) {
  const auto ID = AddExternalTank(test);
  test::SetMonths(client, ID, 1, false);
  ChangeMixture(client, ID, 1, {{"JANUARY", true}, {"FEBRUARY", true}});
  ChangeWeather({{"WIND_JAN", 6.0}, {"WIND_FEB", 9.0}});
  Run(ID);
  auto row = Row(ID);
  const std::vector<ExpectedField> expected = {{"AMB_T", 37.0},  {"T_MIN", 27.0}, {"T_MAX", 47.0},
                                               {"INSOL", 725.0}, {"M_V", 7.5},    {"Q_NET", 12000000.0}};
  for (const auto& field : expected) ExpectField(row, field);
  ExpectClose(row.Double("RIM_LOSS"), row.Double("M_KR") * 100 * row.Double("M_P") * 78.11, "RIM_LOSS");
}

TEST_F(EmissFloatTest, NewRunOverwritesTheRowOfItsKey) {
  const auto ID = AddInternalTank(test);
  Run(ID);
  ChangeTank(client, ID, {{"SELF_SUP", true}});
  Run(ID);
  EXPECT_EQ(RowCount(), 1);
  ExpectClose(Number(ID, "WD_LOSS"), 29.7651214286, "WD_LOSS");
}

// The liquid ---------------------------------------------------------------------------------------------------------

TEST_F(EmissFloatTest, CrudeOilLosesTwoFifthsAndClingsFourTimesAsMuch) {
  const auto ID = AddInternalTank(test);
  Run(ID);
  const double rim = Number(ID, "RIM_LOSS"), fittings = Number(ID, "DECKF_LOSS"), seams = Number(ID, "DECKS_LOSS"),
               withdrawal = Number(ID, "WD_LOSS");
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", shell::kCrudeOils}});
  Run(ID);
  EXPECT_EQ(Number(ID, "M_KC"), 0.4);
  EXPECT_EQ(Number(ID, "M_C"), 0.006);
  ExpectClose(Number(ID, "RIM_LOSS"), 0.4 * rim, "RIM_LOSS");
  ExpectClose(Number(ID, "DECKF_LOSS"), 0.4 * fittings, "DECKF_LOSS");
  ExpectClose(Number(ID, "DECKS_LOSS"), 0.4 * seams, "DECKS_LOSS");
  ExpectClose(Number(ID, "WD_LOSS"), 4 * withdrawal, "WD_LOSS");
}

TEST_F(EmissFloatTest, ShellConditionThatIsNotKnownClingsNothing) {
  const auto ID = AddInternalTank(test, {{"SHL_COND", "Polished"}});
  Run(ID);
  EXPECT_EQ(Number(ID, "M_C"), 0);
  EXPECT_EQ(Number(ID, "WD_LOSS"), 0);
}

TEST_F(EmissFloatTest, PressureAboveTheAtmosphericStopsTheMixtureWithAnErrorRow) {
  const auto ID = AddExternalTank(test, {{"USER ID", "North 7"}});
  TypeInMixture(ID, 14.001, 1, 1);
  Run(ID);
  EXPECT_EQ(Errors(),
            std::vector<std::string>{std::to_string(ID) +
                                     "|North 7|The vapor pressure for Solvent X exceeds atmospheric pressure."});
  EXPECT_TRUE(test.session.ValidationFailed);
  EXPECT_EQ(RowCount(), 0);
}

TEST_F(EmissFloatTest, PressureEqualToTheAtmosphericPasses) {
  const auto ID = AddExternalTank(test);
  TypeInMixture(ID, 14, 20, 20);  // only the average counts
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{});
  EXPECT_EQ(Number(ID, "M_P", "Annual", kTypedName), 1);  // 1 / (1 + 0)^2
}

TEST_F(EmissFloatTest, MultipleMixtureOfAChemicalsNameGoesByTheChemical) {
  const auto ID = AddExternalTank(test);
  ChangeMixture(client, ID, 1, {{"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kPartialSpeciation}, {"VP", 9.0}});
  Run(ID);
  ExpectClose(Number(ID, "A_VP"), 1.07071851847, "A_VP");
}

TEST_F(EmissFloatTest, FullySpeciatedMixtureGoesByItsComponents) {
  const auto ID = AddExternalTank(test);
  TypeInMixture(ID, 9, 9, 9);
  ChangeMixture(client, ID, 1,
                {{"SPEC_OPT", shell::kFullSpeciation}, {"MOLWT", 1.0}, {"VP_MOLWT", 1.0}, {"L_DENS", 1.0}});
  AddComponent(client, ID, 1, 1, {{"WT_FRACT", 40.0}});
  AddComponent(client, ID, 1, 2, {{"NAME", "Toluene"}, {"WT_FRACT", 60.0}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}});
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  // As under a fixed roof; L_DENS = 1 / (0.4 / 7.365 + 0.6 / 7.261)
  for (const auto& field : {ExpectedField{"MOLWT", 85.9585071311},
                            {"A_VP", 0.638964230637},
                            {"VP_MOLWT", 81.7883699298},
                            {"L_DENS", 7.30224554169}})
    ExpectField(row, field);
}

TEST_F(EmissFloatTest, VaporWeightsSayNothingAboutALiquidUnderAFloatingRoof) {
  const auto ID = AddExternalTank(test);
  TypeInMixture(ID, 2, 1, 3);
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", shell::kVaporWeightSpeciation}});
  AddComponent(client, ID, 1, 1, {{"VP_FRACT", 100.0}});
  Run(ID);
  EXPECT_EQ(Number(ID, "A_VP", "Annual", kTypedName), 2);
}

TEST_F(EmissFloatTest, MixtureOfNoKnownKindLosesNothing) {
  const auto ID = AddInternalTank(test);
  ChangeMixture(client, ID, 1, {{"COMPONENT", ""}});
  Run(ID);
  for (const auto* field : {"A_VP", "MOLWT", "VP_MOLWT", "L_DENS", "RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"})
    EXPECT_EQ(Number(ID, field), 0) << field;
}

// What fails ---------------------------------------------------------------------------------------------------------

TEST_F(EmissFloatTest, TankWithoutDiameterIsToldByTheWithdrawalLoss) {
  const auto ID = AddExternalTank(test, {{"DIAMETER", 0.0}});
  test.host.ExpectError(11, "modEmission.WithDrawalLoss");
  Run(ID);
  EXPECT_EQ(Number(ID, "WD_LOSS"), 0);
  ExpectClose(Number(ID, "DECKF_LOSS"), 1.6 * kPerMole, "DECKF_LOSS");
}

TEST_F(EmissFloatTest, TankWithoutDiameterIsToldByTheSeamLossToo) {
  const auto ID = AddInternalTank(test, {{"DIAMETER", 0.0}, {"DECK_SEAM_LENGTH", 900.0}});
  test.host.ExpectError(11, "modEmission.WithDrawalLoss");
  test.host.ExpectError(11, "modEmission.DeckSeamLoss");
  Run(ID);
  EXPECT_EQ(Number(ID, "DECKS_LOSS"), 0);
  EXPECT_EQ(RowCount(), 1);
}

TEST_F(EmissFloatTest, WeatherThatIsNotFoundReadsAsNothing) {
  const auto ID = AddExternalTank(test, {{"MET CTYST", "Nowhere"}});
  Run(ID);
  EXPECT_EQ(Errors(), std::vector<std::string>{std::to_string(ID) +
                                               "|Tank 1|The vapor pressure for Benzene exceeds atmospheric pressure."});
}

TEST_F(EmissFloatTest, LiquidWithoutVaporInWeatherThatIsNotFoundFailsInThePressureFunction) {
  const auto ID = AddExternalTank(test, {{"MET CTYST", "Nowhere"}});
  ChangeMixture(client, ID, 1, {{"MIX NAME", kTypedName}});  // single, and no chemical: 0 psia
  test.host.ExpectError(11, "modEmission.P");
  Run(ID);
  auto row = Row(ID, "Annual", kTypedName);
  for (const auto& field : {ExpectedField{"P_A", 0.0}, {"M_P", 0.0}, {"RIM_LOSS", 0.0}, {"M_V", 0.0}})
    ExpectField(row, field);
}

TEST_F(EmissFloatTest, MixtureThatIsNotFoundHasNoMonth) {
  const auto ID = AddExternalTank(test);
  Run(ID, "January", 9);
  EXPECT_EQ(RowCount(), 0);
  EXPECT_TRUE(test.host.messages.empty());
}

}  // namespace
}  // namespace orvex::emission
