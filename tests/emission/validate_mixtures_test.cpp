#include "emission/validate_fixture.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using shell::kFullSpeciation;
using shell::kMultiple;
using shell::kPartialSpeciation;
using shell::kVaporWeightSpeciation;

class MixtureRule : public ValidateTest, public ::testing::WithParamInterface<BrokenTank> {};

TEST_P(MixtureRule, IsToldBehindTheMixturesName) {
  const auto ID = GetParam().add(test, {});
  ChangeMixtureFields(ID, GetParam().changes);
  EXPECT_EQ(Validated(ID), GetParam().errors);
}

// The sample mixture: benzene at 55, 60 and 65 deg F under 14 psia.
constexpr const char* kTooCold = "Mixture: Benzene  Liquid Temperatures cannot be less than zero.";
constexpr const char* kAboveMaximum =
    "Mixture: Benzene  Average liquid surface temperature is greater than the maximum liquid surface temperature.";
constexpr const char* kBelowMinimum =
    "Mixture: Benzene  Average liquid surface temperature is less than the minimum liquid surface temperature.";
constexpr const char* kLiquidWeight = "Mixture: Benzene  Liquid molecular weight must be specified.";
constexpr const char* kVaporWeight = "Mixture: Benzene  Vapor molecular weight must be specified.";
constexpr const char* kAtmosphere =
    "Mixture: Benzene  Vapor pressures must not be greater than 14 psia. (The atmospheric pressure of the nearest "
    "city.)";
constexpr const char* kPressures = "Mixture: Benzene  Vapor pressures must be greater than zero.";
constexpr const char* kPressure = "Mixture: Benzene  Vapor pressure must be greater than zero.";
constexpr const char* kDensity = "Mixture: Benzene  Liquid Density must be greater than zero.";
constexpr const char* kCategory = "Mixture: Benzene  Chemical Category must be specified.";

const BrokenTank kMixtures[] = {
    {"Category", AddVerticalTank, {{"C_CATEGORY", "Solvents"}}, {kCategory}},
    {"NullCategory", AddDomedTank, {{"C_CATEGORY", kNull}}, {kCategory}},
    {"CrudeOil", AddVerticalTank, {{"C_CATEGORY", "Crude Oils"}}, {}},
    {"PetroleumDistillate", AddVerticalTank, {{"C_CATEGORY", "Petroleum Distillates"}}, {}},
    {"AverageBelowZero", AddVerticalTank, {{"ALS_TEMP", -1.0}}, {kTooCold, kBelowMinimum}},
    {"MinimumBelowZero", AddVerticalTank, {{"MLS_TEMP", -1.0}}, {kTooCold}},
    {"MaximumBelowZero", AddVerticalTank, {{"XLS_TEMP", -1.0}}, {kTooCold, kAboveMaximum}},
    {"AverageAboveMaximum", AddVerticalTank, {{"ALS_TEMP", 65.5}}, {kAboveMaximum}},
    {"AverageAboveAMaximumOfZero", AddVerticalTank, {{"XLS_TEMP", 0.0}}, {}},
    {"AverageBelowMinimum", AddVerticalTank, {{"ALS_TEMP", 54.5}}, {kBelowMinimum}},
    {"AverageBelowMinimumWithAMaximumOfZero", AddVerticalTank, {{"ALS_TEMP", 54.5}, {"XLS_TEMP", 0.0}}, {}},
    {"NullMaximum", AddVerticalTank, {{"ALS_TEMP", 54.5}, {"XLS_TEMP", kNull}}, {}},
    {"LiquidWeight", AddVerticalTank, {{"MOLWT", 0.0}}, {kLiquidWeight}},
    {"NegativeLiquidWeight", AddVerticalTank, {{"MOLWT", -1.0}}, {kLiquidWeight}},
    {"NullLiquidWeight", AddVerticalTank, {{"MOLWT", kNull}}, {}},
    {"NoSpeciationNeedsNoLiquidWeight", AddVerticalTank, {{"SPEC_OPT", "None"}, {"MOLWT", 0.0}}, {}},
    {"VaporWeight", AddVerticalTank, {{"VP_MOLWT", 0.0}}, {kVaporWeight}},
    {"BothWeights", AddVerticalTank, {{"MOLWT", 0.0}, {"VP_MOLWT", 0.0}}, {kLiquidWeight, kVaporWeight}},
    {"PressureEqualToTheAtmosphere", AddInternalTank, {{"VP", 14.0}}, {kAtmosphere}},
    {"MinimumPressureEqualToTheAtmosphere", AddVerticalTank, {{"VP_MIN", 14.0}}, {kAtmosphere}},
    {"MaximumPressureAboveTheAtmosphere", AddVerticalTank, {{"VP_MAX", 20.0}}, {kAtmosphere}},
    {"PressureJustBelowTheAtmosphere", AddVerticalTank, {{"VP_MAX", 13.999}}, {}},
    {"FixedRoofPressure",
     AddVerticalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP", 0.0}},
     {kPressures}},
    {"FixedRoofMinimumPressure",
     AddHorizontalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", "None"}, {"VP_MIN", 0.0}},
     {kPressures}},
    {"FixedRoofMaximumPressure",
     AddVerticalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP_MAX", -1.0}},
     {kPressures}},
    {"PressureOfAMixtureWithoutSpeciation",
     AddVerticalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kNull}, {"VP", 0.0}},
     {kPressures}},
    {"PressureOfASingleChemical", AddVerticalTank, {{"VP", 0.0}, {"VP_MIN", 0.0}, {"VP_MAX", 0.0}}, {}},
    {"NullPressures",
     AddVerticalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP", kNull}, {"VP_MIN", kNull}, {"VP_MAX", kNull}},
     {}},
    {"ExternalPressureAndDensity",
     AddExternalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP", 0.0}, {"L_DENS", 0.0}},
     {kPressure, kDensity}},
    {"DomedPressureAndDensity",
     AddDomedTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", "None"}, {"VP", -0.1}, {"L_DENS", -0.1}},
     {kPressure, kDensity}},
    {"ExternalMinimumAndMaximumPressure",
     AddExternalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP_MIN", 0.0}, {"VP_MAX", 0.0}},
     {}},
    {"ExternalSingleChemical", AddExternalTank, {{"VP", 0.0}, {"L_DENS", 0.0}}, {}},
    {"InternalTankIsExempt",
     AddInternalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"VP", 0.0}, {"L_DENS", 0.0}},
     {}},
    {"VerticalTankNeedsNoDensity",
     AddVerticalTank,
     {{"COMPONENT", kMultiple}, {"SPEC_OPT", kPartialSpeciation}, {"L_DENS", 0.0}},
     {}},
};
INSTANTIATE_TEST_SUITE_P(Row, MixtureRule, ::testing::ValuesIn(kMixtures), NameOf);

class ValidateMixtures : public ValidateTest {
 protected:
  /// A second mixture with a fault, to see whether it is looked at.
  void AddFaultyMixture(std::int32_t ID) { AddMixture(client, ID, 2, {{"MIX NAME", "Second"}, {"C_CATEGORY", kNull}}); }
};

constexpr const char* kSecondMixture = "Mixture: Second  Chemical Category must be specified.";

TEST_F(ValidateMixtures, AllFaultsOfAMixtureStandInTheOrderOfTheChecks) {
  const auto ID = AddExternalTank(test);
  ChangeMixture(client, ID, 1,
                {{"C_CATEGORY", ""},
                 {"COMPONENT", kMultiple},
                 {"SPEC_OPT", kPartialSpeciation},
                 {"ALS_TEMP", -5.0},
                 {"MLS_TEMP", -4.0},
                 {"XLS_TEMP", -6.0},
                 {"MOLWT", 0.0},
                 {"VP_MOLWT", 0.0},
                 {"VP", 0.0},
                 {"VP_MAX", 15.0},
                 {"L_DENS", 0.0}});
  EXPECT_EQ(Validated(ID), (Errors{kCategory, kTooCold, kAboveMaximum, kBelowMinimum, kLiquidWeight, kVaporWeight,
                                   kAtmosphere, kPressure, kDensity}));
}

TEST_F(ValidateMixtures, AtmosphericPressureIsTheCitysInPlainDecimals) {
  const auto ID = AddVerticalTank(test, {{"ATMOS_PRS", 1.0}});
  test::ChangeRow(test.reference(), "met", "CTYST", {test::kSampleCity}, {{"ATMOS_PRS", 14.696}});
  ChangeMixture(client, ID, 1, {{"VP_MAX", 14.7}});
  EXPECT_EQ(Validated(ID), Errors{"Mixture: Benzene  Vapor pressures must not be greater than 14.696 psia. (The "
                                  "atmospheric pressure of the nearest city.)"});
}

TEST_F(ValidateMixtures, MixtureWithoutANameIsStillTold) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"MIX NAME", kNull}, {"C_CATEGORY", kNull}});
  EXPECT_EQ(Validated(ID), Errors{"Mixture:   Chemical Category must be specified."});
}

TEST_F(ValidateMixtures, EveryMixtureIsLookedAt) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  AddFaultyMixture(ID);
  EXPECT_EQ(Validated(ID), (Errors{kCategory, kSecondMixture}));
}

// What ends the validation before the next mixture -------------------------------------------------------------------

TEST_F(ValidateMixtures, MixtureWithoutVaporWeightHidesTheFaultsOfLaterOnes) {
  const auto ID = AddVerticalTank(test);
  AddFaultyMixture(ID);
  ChangeMixture(client, ID, 1, {{"VP_MOLWT", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{kVaporWeight});
  ChangeMixture(client, ID, 1, {{"VP_MOLWT", 78.11}});
  EXPECT_EQ(Validated(ID), Errors{kSecondMixture});
}

TEST_F(ValidateMixtures, MixtureWithoutLiquidWeightHidesTheFaultsOfLaterOnes) {
  const auto ID = AddVerticalTank(test);
  AddFaultyMixture(ID);
  ChangeMixture(client, ID, 1, {{"MOLWT", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{kLiquidWeight});
}

TEST_F(ValidateMixtures, MixtureWithoutVaporPressureEndsTheValidationWithoutAWord) {
  const auto ID = AddVerticalTank(test);
  AddFaultyMixture(ID);
  for (const store::Value& none : {store::Value(0.0), kNull}) {
    ChangeMixture(client, ID, 1, {{"VP", none}});
    EXPECT_EQ(Validated(ID), Errors{});
  }
}

TEST_F(ValidateMixtures, VaporPressureEqualToTheAtmosphereEndsTheValidationOfAFixedRoof) {
  const auto vertical = AddVerticalTank(test);
  AddFaultyMixture(vertical);
  ChangeMixture(client, vertical, 1, {{"VP", 14.0}});
  EXPECT_EQ(Validated(vertical), Errors{kAtmosphere});
  const auto external = AddExternalTank(test);
  AddFaultyMixture(external);
  ChangeMixture(client, external, 1, {{"VP", 14.0}});
  EXPECT_EQ(Validated(external), (Errors{kAtmosphere, kSecondMixture}));
}

TEST_F(ValidateMixtures, AbsoluteZeroEndsTheValidationOfAFixedRoof) {
  const auto ID = AddHorizontalTank(test);
  AddFaultyMixture(ID);
  ChangeMixture(client, ID, 1, {{"ALS_TEMP", -459.67}});
  EXPECT_EQ(Validated(ID), (Errors{kTooCold, kBelowMinimum}));
}

TEST_F(ValidateMixtures, VentsWiderThanThePressureRangePassSinceTheExpansionFactorIsNeverBelowZero) {
  // 0 / 519.67 + (0 - (5 + 0.9)) / (14 - 1.1679) is negative, and the factor then is 0.
  const auto ID = AddVerticalTank(test, {{"HEATED", true}, {"VENT_P", 5.0}, {"VENT_V", -0.9}});
  ChangeMixture(client, ID, 1, {{"MLS_TEMP", 60.0}, {"XLS_TEMP", 60.0}, {"VP_MIN", 1.1679}, {"VP_MAX", 1.1679}});
  AddFaultyMixture(ID);
  EXPECT_EQ(Validated(ID), Errors{kSecondMixture});
}

TEST_F(ValidateMixtures, NullVentsReadAsZero) {
  const auto ID = AddVerticalTank(test, {{"VENT_P", kNull}, {"VENT_V", kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
}

// Components ---------------------------------------------------------------------------------------------------------

constexpr const char* kNotAHundred = "Mixture: Blend  Liquid weight percents do not add up to 100.";
constexpr const char* kAboveAHundred = "Mixture: Blend  Liquid weight percents add up to greater than 100.";
constexpr const char* kNoShare = "One or more components have weight fractions of zero.";
constexpr const char* kTooMuchVapor =
    "Mixture: Blend  The vapor mole fractions or vapor weight percents for the component information you entered add "
    "up to more than one.  Therefore, the component information is inconsistent with the information specified for "
    "the mixture. ";

class ValidateComponents : public ValidateTest {
 protected:
  /// A tank of 60 % benzene and 40 % toluene by weight, with what follows from them at 60 deg F: 83.173 lb/lb-mole
  /// liquid, 80.04 lb/lb-mole vapor, 0.8654 psia.
  ///   moles of 100 lb: 60 / 78.11 + 40 / 92.13 = 0.76815 + 0.43417 = 1.20232; weight 100 / 1.20232 = 83.173
  ///   mole fractions 0.63889 and 0.36111; partial pressures 0.63889 x 1.16786 + 0.36111 x 0.33014 = 0.74614 + 0.11922
  ///   vapor mole fractions 0.86223 and 0.13777; weight 0.86223 x 78.11 + 0.13777 x 92.13 = 80.042
  std::int32_t AddBlend(std::string_view speciation, AddTank add = AddVerticalTank) {
    const auto ID = add(test, {});
    ChangeMixture(client, ID, 1,
                  {{"MIX NAME", "Blend"},
                   {"COMPONENT", kMultiple},
                   {"SPEC_OPT", speciation},
                   {"MOLWT", 83.173},
                   {"VP_MOLWT", 80.04},
                   {"VP", 0.8654}});
    return ID;
  }
  void AddBenzene(std::int32_t ID, Changes changes) { AddShare(ID, 1, std::move(changes), {}); }
  void AddToluene(std::int32_t ID, Changes changes) {
    AddShare(ID, 2, std::move(changes), {{"NAME", "Toluene"}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}});
  }

 private:
  void AddShare(std::int32_t ID, std::int32_t CompID, const Changes& changes, test::FieldValues chemical) {
    AddComponent(client, ID, 1, CompID, chemical);
    for (const auto& change : changes) test::ChangeRow(client, "components", "IDMIX", {ID, 1, CompID}, {change});
  }
};

TEST_F(ValidateComponents, ConsistentBlendPasses) {
  for (const std::string_view speciation : {kFullSpeciation, kPartialSpeciation}) {
    const auto ID = AddBlend(speciation);
    AddBenzene(ID, {{"WT_FRACT", 60.0}});
    AddToluene(ID, {{"WT_FRACT", 40.0}});
    EXPECT_EQ(Validated(ID), Errors{}) << speciation;
  }
}

TEST_F(ValidateComponents, RelativeWeightsNeedNoSum) {
  const auto ID = AddBlend(kFullSpeciation);
  AddBenzene(ID, {{"WEIGHT", 300.0}});
  AddToluene(ID, {{"WEIGHT", 200.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, FullSpeciationMustSumToAHundredPercent) {
  const auto ID = AddBlend(kFullSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  AddToluene(ID, {{"WT_FRACT", 39.95}});
  EXPECT_EQ(Validated(ID), Errors{});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 2}, {{"WT_FRACT", 39.8}});
  EXPECT_EQ(Validated(ID), Errors{kNotAHundred});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 2}, {{"WT_FRACT", 40.2}});
  EXPECT_EQ(Validated(ID), Errors{kNotAHundred});
}

TEST_F(ValidateComponents, PercentsBehindAnOnlyRelativeWeightFail) {
  // The weight stands for 100 %; the 40 % behind it make 140.
  const auto ID = AddBlend(kFullSpeciation);
  AddBenzene(ID, {{"WEIGHT", 60.0}});
  AddToluene(ID, {{"WT_FRACT", 40.0}});
  EXPECT_EQ(Validated(ID), Errors{kNotAHundred});
}

TEST_F(ValidateComponents, OnlyRelativeWeightBehindPercentsPasses) {
  // 60 % benzene before the weight do not count; 60 + 40 make the shares right.
  const auto ID = AddBlend(kFullSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  AddToluene(ID, {{"WEIGHT", 40.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, PartialSpeciationMayNotExceedAHundredPercent) {
  const auto ID = AddBlend(kPartialSpeciation);
  ChangeMixture(client, ID, 1, {{"VP", 3.0}, {"VP_MAX", 3.2}});  // keeps the vapor fractions low
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  AddToluene(ID, {{"WT_FRACT", 40.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 2}, {{"WT_FRACT", 40.1}});
  EXPECT_EQ(Validated(ID), Errors{kAboveAHundred});
}

TEST_F(ValidateComponents, ComponentsMayNotGiveMoreVaporThanTheMixture) {
  // 60 % benzene alone give 0.74614 psia of the mixture's 0.7 psia.
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeMixture(client, ID, 1, {{"VP", 0.7}});
  EXPECT_EQ(Validated(ID), Errors{kTooMuchVapor});
}

TEST_F(ValidateComponents, VaporWeightsCountAsWellAsMoleFractions) {
  // 0.74614 / 0.8654 = 0.86219 of the moles, but 0.86219 x 78.11 / 66 = 1.0204 of the weight.
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  ChangeMixture(client, ID, 1, {{"VP_MOLWT", 66.0}});
  EXPECT_EQ(Validated(ID), Errors{kTooMuchVapor});
}

TEST_F(ValidateComponents, ChemicalThatIsNotInTheTableGivesNoVapor) {
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"NAME", "Unknownene"}, {"WT_FRACT", 60.0}});
  ChangeMixture(client, ID, 1, {{"VP", 0.01}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, VaporWeightPercentsMayNotExceedAHundredAndOne) {
  const auto ID = AddBlend(kVaporWeightSpeciation);
  AddBenzene(ID, {{"VP_FRACT", 101.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 1}, {{"VP_FRACT", 101.1}});
  EXPECT_EQ(Validated(ID), Errors{kTooMuchVapor});
}

TEST_F(ValidateComponents, ComponentWithoutShareIsToldWithoutTheMixture) {
  const auto full = AddBlend(kFullSpeciation);
  ChangeMixture(client, full, 1, {{"MOLWT", 78.11}, {"VP_MOLWT", 78.11}});  // all benzene
  AddBenzene(full, {{"WT_FRACT", 100.0}});
  AddToluene(full, {});
  EXPECT_EQ(Validated(full), Errors{kNoShare});
  const auto partial = AddBlend(kPartialSpeciation);
  AddBenzene(partial, {{"WEIGHT", 10.0}});
  EXPECT_EQ(Validated(partial), Errors{kNoShare});
  const auto vapor = AddBlend(kVaporWeightSpeciation);
  AddBenzene(vapor, {{"WT_FRACT", 10.0}});
  EXPECT_EQ(Validated(vapor), Errors{kNoShare});
}

TEST_F(ValidateComponents, ComponentsBehindOneWithoutShareDoNotCount) {
  const auto ID = AddBlend(kVaporWeightSpeciation);
  AddBenzene(ID, {});
  AddToluene(ID, {{"VP_FRACT", 200.0}});
  EXPECT_EQ(Validated(ID), Errors{kNoShare});
}

TEST_F(ValidateComponents, ComponentsBeforeOneWithoutShareCount) {
  const auto ID = AddBlend(kVaporWeightSpeciation);
  AddBenzene(ID, {{"VP_FRACT", 200.0}});
  AddToluene(ID, {});
  EXPECT_EQ(Validated(ID), (Errors{kNoShare, kTooMuchVapor}));
}

TEST_F(ValidateComponents, NullShareIsNoShareOfZero) {
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  AddToluene(ID, {{"WT_FRACT", kNull}, {"WEIGHT", kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, NoSpeciationLooksAtNoZeroShares) {
  const auto ID = AddBlend("None");
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  AddToluene(ID, {});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, FullSpeciationWithoutVaporPressureEndsTheValidation) {
  // The stored pressure of 0.8654 does not count: no component is in the table, so the blend's own is 0.
  const auto ID = AddBlend(kFullSpeciation);
  AddBenzene(ID, {{"NAME", "Unknownene"}, {"WT_FRACT", 100.0}});
  AddMixture(client, ID, 2, {{"C_CATEGORY", kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateComponents, FloatingRoofsHaveTheirComponentsCheckedToo) {
  const auto ID = AddBlend(kPartialSpeciation, AddInternalTank);
  AddBenzene(ID, {{"WT_FRACT", 60.0}});
  ChangeMixture(client, ID, 1, {{"VP", 0.7}});
  EXPECT_EQ(Validated(ID), Errors{kTooMuchVapor});
}

TEST_F(ValidateComponents, LongestMixtureNameFitsIntoItsMessage) {
  const auto ID = AddBlend(kVaporWeightSpeciation);
  AddBenzene(ID, {{"VP_FRACT", 200.0}});
  const std::string name(50, 'm');
  ChangeMixture(client, ID, 1, {{"MIX NAME", name}});
  EXPECT_EQ(Validated(ID), Errors{"Mixture: " + name + std::string(kTooMuchVapor).substr(14)});
}

// The outcome --------------------------------------------------------------------------------------------------------

class ValidateOutcome : public ValidateComponents {};

TEST_F(ValidateOutcome, FlagTellsAboutTheLastTankWhileTheRowsOfAllStay) {
  const auto faulty = AddVerticalTank(test, {{"RF_TYPE", ""}});
  const auto sound = AddVerticalTank(test);
  Validate(test.session, faulty);
  EXPECT_TRUE(test.session.ValidationFailed);
  Validate(test.session, sound);
  EXPECT_FALSE(test.session.ValidationFailed);
  Validate(test.session, faulty);
  EXPECT_TRUE(test.session.ValidationFailed);
  EXPECT_EQ(Rows(), (Errors{"Roof type must be specified.", "Roof type must be specified."}));
}

TEST_F(ValidateOutcome, RowsOfEarlierRunsAreKept) {
  test::AddRow(client, "error", {{"ID", 99}, {"USER ID", "Old"}, {"error", "Old text"}});
  Validate(test.session, AddVerticalTank(test, {{"RF_TYPE", ""}}));
  EXPECT_EQ(Rows(), (Errors{"Old text", "Roof type must be specified."}));
}

TEST_F(ValidateOutcome, RunTimeFaultIsReportedAndKeepsTheFlag) {
  // A component without a molecular weight: division by zero.
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}, {"MOLWT", 0.0}});
  for (const bool flag : {false, true}) {
    test.session.ValidationFailed = flag;
    test.host.ExpectError(11, "modEmission.Validate");
    Validate(test.session, ID);
    EXPECT_EQ(test.session.ValidationFailed, flag);
  }
  EXPECT_EQ(Rows(), Errors{});
}

TEST_F(ValidateOutcome, RowsBeforeARunTimeFaultStay) {
  const auto ID = AddBlend(kPartialSpeciation);
  AddBenzene(ID, {{"WT_FRACT", 60.0}, {"MOLWT", kNull}});
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  test.host.ExpectError(11, "modEmission.Validate");
  Validate(test.session, ID);
  EXPECT_FALSE(test.session.ValidationFailed);
  EXPECT_EQ(Rows(), Errors{"Mixture: Blend  Chemical Category must be specified."});
}

TEST_F(ValidateOutcome, TankThatDoesNotExistHasNoMixture) {
  AddVerticalTank(test);
  EXPECT_EQ(Validated(4711), Errors{"There is no mixture information for this tank!"});
  auto rows = client.OpenTable("error");
  EXPECT_EQ(rows.Long("ID"), 4711);
  EXPECT_EQ(rows.TextOrEmpty("USER ID"), "");
}

}  // namespace
}  // namespace orvex::emission
