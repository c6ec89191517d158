#include "emission/validate_fixture.h"

namespace orvex::emission {
namespace {

constexpr const char* kLengthDisagrees = "The volume does not agree with the shell length and diameter.";
constexpr const char* kHeightDisagrees = "The volume, maximum shell height and diameter must agree within 10%.";

class TankRule : public ValidateTest, public ::testing::WithParamInterface<BrokenTank> {};

TEST_P(TankRule, IsToldInItsOwnWords) {
  const auto ID = GetParam().add(test, {});
  ChangeFields(ID, GetParam().changes);
  EXPECT_EQ(Validated(ID), GetParam().errors);
}

const BrokenTank kHorizontalTanks[] = {
    {"Sound", AddHorizontalTank, {}, {}},
    {"City",
     AddHorizontalTank,
     {{"MET CTYST", "Nowhere, Ohio"}},
     {"Nearest major city must be specified.", kTankErrors}},
    {"NullCity", AddHorizontalTank, {{"MET CTYST", kNull}}, {"Nearest major city must be specified.", kTankErrors}},
    {"Diameter", AddHorizontalTank, {{"DIAMETER", 0.0}}, {"Tank Diameter cannot be zero.", kLengthDisagrees}},
    {"Length", AddHorizontalTank, {{"HEIGHT S", 0.0}}, {"Shell length cannot be zero.", kLengthDisagrees}},
    {"Volume", AddHorizontalTank, {{"VOLUME", 0.0}}, {"Working volume must be specified.", kTurnoverDisagrees}},
    {"NegativeVolume",
     AddHorizontalTank,
     {{"VOLUME", -1.0}},
     {"Working volume must be specified.", kTurnoverDisagrees}},
    {"Colour", AddHorizontalTank, {{"SHL COLSHD", "Green"}}, {"Shell color must be specified.", kTankErrors}},
    {"ColourInSmallLetters",
     AddHorizontalTank,
     {{"SHL COLSHD", "white/white"}},
     {"Shell color must be specified.", kTankErrors}},
    {"NullColour", AddHorizontalTank, {{"SHL COLSHD", kNull}}, {"Shell color must be specified.", kTankErrors}},
    {"Paint", AddHorizontalTank, {{"PT_COND", "Fair"}}, {"Paint condition must be specified.", kTankErrors}},
    {"NullPaint", AddHorizontalTank, {{"PT_COND", kNull}}, {"Paint condition must be specified.", kTankErrors}},
};
INSTANTIATE_TEST_SUITE_P(Horizontal, TankRule, ::testing::ValuesIn(kHorizontalTanks), NameOf);

const BrokenTank kVerticalTanks[] = {
    {"Sound", AddVerticalTank, {}, {}},
    {"Diameter", AddVerticalTank, {{"DIAMETER", 0.0}}, {"Tank diameter cannot be zero.", kHeightDisagrees}},
    {"ShellHeight", AddVerticalTank, {{"HEIGHT S", 0.0}}, {"Shell height cannot be zero."}},
    {"MaximumLiquidHeight",
     AddVerticalTank,
     {{"HEIGHT ML", 0.0}},
     {"Maximum liquid height cannot be zero.", "Average liquid height cannot exceed maximum liquid height.",
      kHeightDisagrees}},
    {"AverageLiquidHeight", AddVerticalTank, {{"HEIGHT AL", 0.0}}, {"Average liquid height cannot be zero."}},
    {"AverageAboveMaximum",
     AddVerticalTank,
     {{"HEIGHT AL", 18.5}},
     {"Average liquid height cannot exceed maximum liquid height."}},
    {"AverageEqualToMaximum", AddVerticalTank, {{"HEIGHT AL", 18.0}}, {}},
    {"MaximumAboveShell", AddVerticalTank, {{"HEIGHT S", 17.5}}, {"Maximum liquid height cannot exceed shell height."}},
    {"MaximumEqualToShell", AddVerticalTank, {{"HEIGHT S", 18.0}}, {}},
    {"Volume",
     AddVerticalTank,
     {{"VOLUME", 0.0}},
     {"Tank volume cannot be zero.", kTurnoverDisagrees, kHeightDisagrees}},
    {"ShellColour", AddVerticalTank, {{"SHL COLSHD", ""}}, {"Shell color must be specified.", kTankErrors}},
    {"ShellPaint", AddVerticalTank, {{"PT_COND", ""}}, {"Paint condition must be specified.", kTankErrors}},
    {"RoofColour", AddVerticalTank, {{"RF_COLSHD", ""}}, {"Shell color must be specified.", kTankErrors}},
    {"RoofPaint", AddVerticalTank, {{"RF_COND", ""}}, {"Roof condition must be specified.", kTankErrors}},
    {"RoofType", AddVerticalTank, {{"RF_TYPE", "Pontoon"}}, {"Roof type must be specified."}},
    {"DomeRoof", AddVerticalTank, {{"RF_TYPE", "Dome"}}, {}},
};
INSTANTIATE_TEST_SUITE_P(Vertical, TankRule, ::testing::ValuesIn(kVerticalTanks), NameOf);

const BrokenTank kInternalTanks[] = {
    {"Sound", AddInternalTank, {}, {}},
    {"Volume", AddInternalTank, {{"VOLUME", 0.0}}, {"Tank volume cannot be zero.", kTurnoverDisagrees}},
    {"Diameter", AddInternalTank, {{"DIAMETER", 0.0}}, {"Tank diameter cannot be zero."}},
    {"ShellColour", AddInternalTank, {{"SHL COLSHD", ""}}, {"Shell color must be specified.", kTankErrors}},
    {"ShellPaint", AddInternalTank, {{"PT_COND", ""}}, {"Paint condition must be specified.", kTankErrors}},
    {"ShellCondition", AddInternalTank, {{"SHL_COND", "Rusty"}}, {"Shell condition must be specified."}},
    {"RoofColour", AddInternalTank, {{"RF_COLSHD", ""}}, {"Shell color must be specified.", kTankErrors}},
    {"RoofPaint", AddInternalTank, {{"RF_COND", ""}}, {"Roof condition must be specified.", kTankErrors}},
    {"PrimarySeal", AddInternalTank, {{"RIM_PRIM", ""}}, {"Primary seal type must be specified."}},
    {"BothSeals",
     AddInternalTank,
     {{"RIM_PRIM", kNull}, {"RIM_SEC", kNull}},
     {"Primary seal type must be specified.", "Secondary seal type must be specified."}},
    {"SecondarySealOfAnUnknownPrimaryOne",
     AddInternalTank,
     {{"RIM_PRIM", "Wiper"}, {"RIM_SEC", ""}},
     {"Secondary seal type must be specified."}},
    {"FittingCategory", AddInternalTank, {{"FITTING", kNull}}, {"Roof fitting category must be specified."}},
    {"TypicalFittings", AddInternalTank, {{"FITTING", "Typical"}}, {}},
    {"DeckType", AddInternalTank, {{"DECK_TYPE", ""}}, {"Tank volume cannot be zero."}},
    {"DeckConstruction", AddInternalTank, {{"DECK_CONSTRUCT", ""}}, {"Deck construction must be specified."}},
    {"DeckSeam", AddInternalTank, {{"DECK_SEAM", kNull}}, {"Deck seam type or deck seam length must be specified."}},
    {"DeckSeamLengthInstead", AddInternalTank, {{"DECK_SEAM", ""}, {"DECK_SEAM_LENGTH", 300.0}}, {}},
    {"NullDeckSeamLength", AddInternalTank, {{"DECK_SEAM", ""}, {"DECK_SEAM_LENGTH", kNull}}, {}},
    {"WeldedDeckNeedsNoSeam",
     AddInternalTank,
     {{"DECK_TYPE", "Welded"}, {"DECK_CONSTRUCT", ""}, {"DECK_SEAM", ""}},
     {}},
};
INSTANTIATE_TEST_SUITE_P(Internal, TankRule, ::testing::ValuesIn(kInternalTanks), NameOf);

const BrokenTank kExternalTanks[] = {
    {"Sound", AddExternalTank, {}, {}},
    {"Volume", AddExternalTank, {{"VOLUME", 0.0}}, {"Tank volume cannot be zero.", kTurnoverDisagrees}},
    {"Diameter", AddExternalTank, {{"DIAMETER", 0.0}}, {"Tank diameter cannot be zero."}},
    {"ShellColour", AddExternalTank, {{"SHL COLSHD", ""}}, {"Shell Color must be specified.", kTankErrors}},
    {"ShellPaint", AddExternalTank, {{"PT_COND", ""}}, {"Paint Condition must be specified.", kTankErrors}},
    {"ShellCondition", AddExternalTank, {{"SHL_COND", ""}}, {"Shell Condition must be specified."}},
    {"ShellConstruction", AddExternalTank, {{"TANK_CONSTRUCT", ""}}, {"Tank construction must be specified."}},
    {"RivetedShell", AddExternalTank, {{"TANK_CONSTRUCT", "Riveted"}}, {}},
    {"PrimarySeal", AddExternalTank, {{"RIM_PRIM", ""}}, {"Primary seal type must be specified."}},
    {"SecondarySealOfAnUnknownPrimaryOne",
     AddExternalTank,
     {{"RIM_PRIM", "Wiper"}, {"RIM_SEC", kNull}},
     {"Secondary seal type must be specified."}},
    {"FittingCategory", AddExternalTank, {{"FITTING", "None"}}, {"Roof fitting category must be specified."}},
    {"RoofType", AddExternalTank, {{"RF_TYPE", "Cone"}}, {"Roof Type must be specified."}},
    {"DoubleDeckRoof", AddExternalTank, {{"RF_TYPE", "Double Deck"}}, {}},
};
INSTANTIATE_TEST_SUITE_P(External, TankRule, ::testing::ValuesIn(kExternalTanks), NameOf);

class ValidateTank : public ValidateTest {};

TEST_F(ValidateTank, RowsNameTheTank) {
  const auto ID = AddHorizontalTank(test, {{"USER ID", "North yard 7"}, {"PT_COND", ""}});
  EXPECT_EQ(Validated(ID).size(), 2U);
  auto rows = client.OpenTable("error");
  for (; !rows.AtEnd(); rows.MoveNext()) {
    EXPECT_EQ(rows.Long("ID"), ID);
    EXPECT_EQ(rows.Text("USER ID"), "North yard 7");
  }
}

TEST_F(ValidateTank, EmptyVerticalTankGetsItsRowsInTheOrderOfTheChecks) {
  const auto ID = AddVerticalTank(test, {{"DIAMETER", 0.0},
                                         {"HEIGHT S", 0.0},
                                         {"HEIGHT ML", 0.0},
                                         {"HEIGHT AL", 0.0},
                                         {"VOLUME", 0.0},
                                         {"SHL COLSHD", ""},
                                         {"PT_COND", ""},
                                         {"RF_COLSHD", ""},
                                         {"RF_COND", ""},
                                         {"RF_TYPE", ""},
                                         {"TURNOVER", 0.0}});
  EXPECT_EQ(Validated(ID), (Errors{"Tank diameter cannot be zero.", "Shell height cannot be zero.",
                                   "Maximum liquid height cannot be zero.", "Average liquid height cannot be zero.",
                                   "Tank volume cannot be zero.", "Shell color must be specified.",
                                   "Paint condition must be specified.", "Shell color must be specified.",
                                   "Roof condition must be specified.", "Roof type must be specified.", kTankErrors}));
}

TEST_F(ValidateTank, EmptyInternalTankGetsItsRowsInTheOrderOfTheChecks) {
  const auto ID = AddInternalTank(test, {{"MET CTYST", kNull},
                                         {"VOLUME", 0.0},
                                         {"DIAMETER", 0.0},
                                         {"SHL COLSHD", kNull},
                                         {"PT_COND", kNull},
                                         {"SHL_COND", kNull},
                                         {"RF_COLSHD", kNull},
                                         {"RF_COND", kNull},
                                         {"RIM_PRIM", kNull},
                                         {"RIM_SEC", kNull},
                                         {"FITTING", kNull},
                                         {"DECK_TYPE", kNull}});
  DeleteRows("fittings", ID);
  EXPECT_EQ(Validated(ID), (Errors{"Nearest major city must be specified.", "Tank volume cannot be zero.",
                                   "Tank diameter cannot be zero.", "Shell color must be specified.",
                                   "Paint condition must be specified.", "Shell condition must be specified.",
                                   "Shell color must be specified.", "Roof condition must be specified.",
                                   "Primary seal type must be specified.", "Secondary seal type must be specified.",
                                   "Roof fitting category must be specified.", "Tank volume cannot be zero.",
                                   "The tank must have fittings.", kTurnoverDisagrees, kTankErrors}));
}

TEST_F(ValidateTank, EmptyExternalTankGetsItsRowsInTheOrderOfTheChecks) {
  const auto ID = AddExternalTank(test, {{"VOLUME", 0.0},
                                         {"DIAMETER", 0.0},
                                         {"SHL COLSHD", kNull},
                                         {"PT_COND", kNull},
                                         {"SHL_COND", kNull},
                                         {"TANK_CONSTRUCT", kNull},
                                         {"RIM_PRIM", kNull},
                                         {"RIM_SEC", kNull},
                                         {"FITTING", kNull},
                                         {"RF_TYPE", kNull}});
  DeleteRows("fittings", ID);
  EXPECT_EQ(Validated(ID),
            (Errors{"Tank volume cannot be zero.", "Tank diameter cannot be zero.", "Shell Color must be specified.",
                    "Paint Condition must be specified.", "Shell Condition must be specified.",
                    "Tank construction must be specified.", "Primary seal type must be specified.",
                    "Secondary seal type must be specified.", "Roof fitting category must be specified.",
                    "Roof Type must be specified.", "The tank must have fittings.", kTurnoverDisagrees, kTankErrors}));
}

TEST_F(ValidateTank, NullNumbersBreakNoRule) {
  EXPECT_EQ(Validated(AddVerticalTank(test, {{"DIAMETER", kNull},
                                             {"HEIGHT S", kNull},
                                             {"HEIGHT ML", kNull},
                                             {"HEIGHT AL", kNull},
                                             {"VOLUME", kNull},
                                             {"TURNOVER", kNull}})),
            Errors{});
  EXPECT_EQ(Validated(AddHorizontalTank(test, {{"DIAMETER", kNull}, {"HEIGHT S", kNull}, {"VOLUME", kNull}})),
            Errors{});
  EXPECT_EQ(Validated(AddInternalTank(test, {{"DIAMETER", kNull}, {"VOLUME", kNull}})), Errors{});
  EXPECT_EQ(Validated(AddExternalTank(test, {{"DIAMETER", kNull}, {"VOLUME", kNull}})), Errors{});
}

TEST_F(ValidateTank, ComparisonWithANullBreaksNoRule) {
  const auto ID = AddVerticalTank(test, {{"HEIGHT AL", 30.0}, {"HEIGHT ML", kNull}, {"HEIGHT S", 5.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, DomedTankWithoutVolumeAndFittingsFailsOnlyOnItsThroughput) {
  const auto ID = AddDomedTank(test, {{"VOLUME", 0.0},
                                      {"DIAMETER", 0.0},
                                      {"SHL COLSHD", kNull},
                                      {"PT_COND", kNull},
                                      {"SHL_COND", kNull},
                                      {"TANK_CONSTRUCT", kNull},
                                      {"RIM_PRIM", kNull},
                                      {"RIM_SEC", kNull},
                                      {"FITTING", kNull},
                                      {"RF_TYPE", kNull}});
  DeleteRows("fittings", ID);
  EXPECT_EQ(Validated(ID), Errors{kTurnoverDisagrees});
  EXPECT_TRUE(TankField(ID, "RIM_SEC").IsNull());
  ChangeTank(client, ID, {{"TURNOVER", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, UnknownTankTypeHasNoPhysicalRule) {
  const auto ID = AddVerticalTank(test, {{"TANK_TYPE", "Sphere"}, {"DIAMETER", 0.0}, {"SHL COLSHD", ""}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, FittingsOfOtherTanksDoNotCount) {
  AddExternalTank(test);
  const auto ID = AddExternalTank(test);
  AddExternalTank(test);
  DeleteRows("fittings", ID);
  EXPECT_EQ(Validated(ID), Errors{"The tank must have fittings."});
}

TEST_F(ValidateTank, TypicalFittingCategoryNeedsRowsToo) {
  const auto ID = AddInternalTank(test, {{"FITTING", "Typical"}});
  DeleteRows("fittings", ID);
  EXPECT_EQ(Validated(ID), Errors{"The tank must have fittings."});
}

TEST_F(ValidateTank, UndergroundTankNeedsNoPaintAndReachesTheMixtures) {
  const auto ID = AddHorizontalTank(test, {{"UNDER", true}, {"SHL COLSHD", kNull}, {"PT_COND", kNull}});
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  EXPECT_EQ(Validated(ID), Errors{"Mixture: Benzene  Chemical Category must be specified."});
}

TEST_F(ValidateTank, MissingRoofTypeLetsTheMixtureRulesRun) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", kNull}});
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  EXPECT_EQ(Validated(ID),
            (Errors{"Roof type must be specified.", "Mixture: Benzene  Chemical Category must be specified."}));
}

TEST_F(ValidateTank, MissingRoofColourStopsBeforeTheMixtures) {
  const auto ID = AddVerticalTank(test, {{"RF_COLSHD", kNull}});
  ChangeMixture(client, ID, 1, {{"C_CATEGORY", kNull}});
  EXPECT_EQ(Validated(ID), (Errors{"Shell color must be specified.", kTankErrors}));
}

// Repairs ------------------------------------------------------------------------------------------------------------

TEST_F(ValidateTank, MissingSecondarySealBecomesNoneWhereThePrimaryOneMayStandAlone) {
  for (const AddTank add : {AddTank{AddInternalTank}, AddTank{AddExternalTank}}) {
    for (const store::Value& missing : {kNull, store::Value("")}) {
      const auto ID = add(test, {{"RIM_SEC", missing}});
      EXPECT_EQ(Validated(ID), Errors{});
      EXPECT_EQ(TankField(ID, "RIM_SEC"), store::Value("None"));
    }
  }
}

TEST_F(ValidateTank, ChosenSecondarySealIsKept) {
  const auto ID = AddInternalTank(test, {{"RIM_SEC", "Rim-mounted"}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(TankField(ID, "RIM_SEC"), store::Value("Rim-mounted"));
}

TEST_F(ValidateTank, ColumnsAreCompletedFromTheDiameter) {
  // 160 ft lies in the band above 150 up to 170: 16 columns.
  const auto ID = AddInternalTank(test, {{"DIAMETER", 160.0}, {"COL_NO", 0.0}, {"COL_DIAM", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(TankField(ID, "COL_NO"), store::Value(16.0));
  EXPECT_EQ(TankField(ID, "COL_DIAM"), store::Value(1.0));
}

TEST_F(ValidateTank, NumberAndDiameterOfColumnsAreCompletedOneByOne) {
  const auto without_number = AddInternalTank(test, {{"DIAMETER", 80.0}, {"COL_NO", 0.0}});
  EXPECT_EQ(Validated(without_number), Errors{});
  EXPECT_EQ(TankField(without_number, "COL_NO"), store::Value(1.0));  // up to 85 ft
  EXPECT_EQ(TankField(without_number, "COL_DIAM"), store::Value(1.1));
  const auto without_diameter = AddInternalTank(test, {{"COL_NO", 7.0}, {"COL_DIAM", 0.0}});
  EXPECT_EQ(Validated(without_diameter), Errors{});
  EXPECT_EQ(TankField(without_diameter, "COL_NO"), store::Value(7.0));
  EXPECT_EQ(TankField(without_diameter, "COL_DIAM"), store::Value(1.0));
}

TEST_F(ValidateTank, SelfSupportingRoofKeepsItsZeroColumns) {
  const auto ID = AddInternalTank(test, {{"SELF_SUP", true}, {"COL_NO", 0.0}, {"COL_DIAM", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(TankField(ID, "COL_NO"), store::Value(0.0));
  EXPECT_EQ(TankField(ID, "COL_DIAM"), store::Value(0.0));
}

TEST_F(ValidateTank, NullColumnsAreNotCompleted) {
  const auto ID = AddInternalTank(test, {{"COL_NO", kNull}, {"COL_DIAM", kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_TRUE(TankField(ID, "COL_NO").IsNull());
  EXPECT_TRUE(TankField(ID, "COL_DIAM").IsNull());
}

TEST_F(ValidateTank, RepairsStayWhenTheTankFails) {
  const auto ID = AddInternalTank(test, {{"RIM_SEC", kNull}, {"COL_NO", 0.0}, {"SHL COLSHD", ""}});
  EXPECT_EQ(Validated(ID), (Errors{"Shell color must be specified.", kTankErrors}));
  EXPECT_EQ(TankField(ID, "RIM_SEC"), store::Value("None"));
  EXPECT_EQ(TankField(ID, "COL_NO"), store::Value(6.0));  // 100 ft
}

// Agreement of the volumes -------------------------------------------------------------------------------------------

TEST_F(ValidateTank, VolumeExactlyTenPercentFromThroughputByTurnoversPasses) {
  // 12,000,000 gal in 12 turnovers: 1,000,000 gal each.
  const auto ID = AddInternalTank(test, {{"VOLUME", 1000000 * 1.1}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", 1000000 - 1000000 * 0.1}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", 1100000.01}});
  EXPECT_EQ(Validated(ID), Errors{kTurnoverDisagrees});
  ChangeTank(client, ID, {{"VOLUME", 899999.99}});
  EXPECT_EQ(Validated(ID), Errors{kTurnoverDisagrees});
}

TEST_F(ValidateTank, VolumeExactlyAtABoundPassesWhereTheProductFallsABitShort) {
  // 1.1 gal a turnover: the lower bound 1.1 - 1.1 * 0.1 comes out a bit above 0.99 before it is rounded.
  const auto ID = AddDomedTank(test, {{"Q_NET", 2.2}, {"TURNOVER", 2.0}, {"VOLUME", 0.99}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, ComputedVolumeIsComparedInSixDecimals) {
  // 0.0000014 gal in 2 turnovers: 0.0000007 gal, rounded 0.000001; so are the bounds 0.0000009 and 0.0000011.
  const auto ID = AddDomedTank(test, {{"Q_NET", 0.0000014}, {"TURNOVER", 2.0}, {"VOLUME", 0.000001}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", 0.0000007}});
  EXPECT_EQ(Validated(ID), Errors{kTurnoverDisagrees});
}

TEST_F(ValidateTank, WithoutTurnoversTheThroughputIsNotComparedWithTheVolume) {
  const auto ID = AddInternalTank(test, {{"TURNOVER", 0.0}, {"VOLUME", 1.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, WithoutTurnoversTheVerticalVolumeIsStillCompared) {
  const auto ID = AddVerticalTank(test, {{"TURNOVER", 0.0}, {"VOLUME", 30000.0}});
  EXPECT_EQ(Validated(ID), Errors{kHeightDisagrees});
}

TEST_F(ValidateTank, WithoutTurnoversTheHorizontalVolumeIsStillCompared) {
  const auto ID = AddHorizontalTank(test, {{"TURNOVER", 0.0}, {"VOLUME", 13000.0}});
  EXPECT_EQ(Validated(ID), Errors{kLengthDisagrees});
}

TEST_F(ValidateTank, VerticalVolumeMayDifferFromTheFilledCylinderByTenPercent) {
  // 3.14159 x 10^2 x 18 / 0.13368 = 42301.481149 gal: from 38071.333034 to 46531.629264 pass, bounds included.
  const double filled = 42301.481149;
  const auto ID = AddVerticalTank(test, {{"TURNOVER", 0.0}, {"VOLUME", filled * 1.1}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", filled - filled * 0.1}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", 46531.63}});
  EXPECT_EQ(Validated(ID), Errors{kHeightDisagrees});
  ChangeTank(client, ID, {{"VOLUME", 38071.33}});
  EXPECT_EQ(Validated(ID), Errors{kHeightDisagrees});
}

TEST_F(ValidateTank, HorizontalTankFilledToATenthPasses) {
  // Capacity 3.14159 x 5^2 x 20 / 0.13368 = 11750.41143 gal.
  const auto ID = AddHorizontalTank(test, {{"VOLUME", 1175.0}, {"TURNOVER", 108000.0 / 1175.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateTank, HorizontalVolumeMayExceedTheCapacityByTenPercent) {
  // 1.1 x 11750.41143 = 12925.452573 gal.
  const auto ID = AddHorizontalTank(test, {{"TURNOVER", 0.0}, {"VOLUME", 11750.41143 * 1.1}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeTank(client, ID, {{"VOLUME", 12925.46}});
  EXPECT_EQ(Validated(ID), Errors{kLengthDisagrees});
}

}  // namespace
}  // namespace orvex::emission
