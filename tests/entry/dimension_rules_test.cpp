#include <string>

#include "entry/physical_page_test.h"

namespace orvex::entry {
namespace {

using shell::Answer;

constexpr const char* kCalculatedVolume = "The calculated volume is 11,750.41143. Use This Value?";

/// The dimensions of a vertical tank. A cylinder of 10 ft holds 11750.41143 gal at 20 ft:
/// (10 / 2)^2 * 3.14159 * 20 / 0.13368 = 1570.795 / 0.13368.
class VerticalDimensionsTest : public test::PhysicalPageTest {
 protected:
  void SetUp() override { OpenTank(shell::kVerticalFixedRoof); }
};

// Leaving the diameter

TEST_F(VerticalDimensionsTest, ADiameterThatMakesAnotherVolumeProposesIt) {
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kNo);
  Leave("txtDiameterVT", "10");
  EXPECT_EQ(Shown("txtVolumeVT"), "5,000.00");
}

TEST_F(VerticalDimensionsTest, TheVolumeThatIsAcceptedDrivesTheThroughputAndTheMonths) {
  Given(
      {{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}, {"txtTurnoverVT", "2"}, {"txtThroughputVT", "10000"}});
  SpreadOverMonths(10000);
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kYes);
  ExpectMonthlyQuestion(Answer::kYes);
  Leave("txtDiameterVT", "10");
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
  EXPECT_EQ(Shown("txtThroughputVT"), "23,500.82286");  // 2 * 11750.41143
  EXPECT_EQ(Editor(session_).months[0].txtThru.text, "1,958.401905");
  EXPECT_EQ(Stored("VOLUME").AsDouble(), 11750.41143);
  EXPECT_EQ(Stored("Q_NET").AsDouble(), 23500.82286);
}

TEST_F(VerticalDimensionsTest, TheVolumeThatIsAcceptedLeavesAThroughputThatAgrees) {
  // 23000 / 2 = 11500, and 11750.41143 lies within ten percent of it.
  Given(
      {{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}, {"txtTurnoverVT", "2"}, {"txtThroughputVT", "23000"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kYes);
  ExpectMonthlyQuestion(Answer::kNo);
  Leave("txtDiameterVT", "10");
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
  EXPECT_EQ(Shown("txtThroughputVT"), "23,000.00");
}

TEST_F(VerticalDimensionsTest, TheVolumeThatIsAcceptedLeavesAMissingThroughput) {
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}, {"txtTurnoverVT", "2"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kYes);
  Leave("txtDiameterVT", "10");
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
  EXPECT_EQ(Shown("txtThroughputVT"), "0.00");
}

TEST_F(VerticalDimensionsTest, ADiameterWithinTenPercentProposesNothing) {
  // 11750.41143 gal at 20 ft have a diameter of 10; 10 - 10 * 0.1 = 9 and 10 * 1.1 = 11
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "11750.41143"}});
  for (const auto* diameter : {"9", "10", "11"}) Leave("txtDiameterVT", diameter);
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
}

TEST_F(VerticalDimensionsTest, ADiameterJustBeyondTenPercentProposesTheVolume) {
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "11750.41143"}});
  // The number below 9; 4.5^2 * 3.14159 * 20 / 0.13368 = 20.25 * 62.8318 / 0.13368 = 9517.833259
  ExpectProposal("The calculated volume is 9,517.833259. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtDiameterVT", "8.999999999999998");
  // The number above 11; 5.5^2 * 62.8318 / 0.13368 = 30.25 * 470.0164572 = 14217.997831
  ExpectProposal("The calculated volume is 14,217.997831. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtDiameterVT", "11.000000000000002");
}

TEST_F(VerticalDimensionsTest, ADiameterThatIsNotChangedProposesNothing) {
  Given({{"txtDiameterVT", "10"}, {"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}});
  Leave("txtDiameterVT", "10");
  Leave("txtDiameterVT", "10.00");
}

TEST_F(VerticalDimensionsTest, NothingIsProposedWhileADimensionIsMissing) {
  Given({{"txtMaxLiquidHeightVT", "0"}, {"txtVolumeVT", "5000"}});
  Leave("txtDiameterVT", "10");
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "0"}});
  Leave("txtDiameterVT", "11");
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}});
  Leave("txtDiameterVT", "0");
}

TEST_F(VerticalDimensionsTest, ADiameterHasNoLimits) {
  Leave("txtDiameterVT", "1000");
  EXPECT_EQ(Stored("DIAMETER").AsDouble(), 1000);
  Leave("txtDiameterVT", "0.1");
  EXPECT_EQ(Stored("DIAMETER").AsDouble(), 0.1);
}

TEST_F(VerticalDimensionsTest, ANegativeVolumeIsReported) {
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "-5"}});
  host_.ExpectError(5, "frmTank.CheckLostFocus");
  Leave("txtDiameterVT", "10");
}

// Leaving the maximum liquid height

TEST_F(VerticalDimensionsTest, AHeightThatMakesAnotherVolumeProposesIt) {
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "5000"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kNo);
  Leave("txtMaxLiquidHeightVT", "20");
  EXPECT_EQ(Shown("txtVolumeVT"), "5,000.00");
}

TEST_F(VerticalDimensionsTest, TheVolumeOfAHeightDrivesTheThroughput) {
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "5000"}, {"txtTurnoverVT", "2"}, {"txtThroughputVT", "10000"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kYes);
  ExpectMonthlyQuestion(Answer::kNo);
  Leave("txtMaxLiquidHeightVT", "20");
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
  EXPECT_EQ(Shown("txtThroughputVT"), "23,500.82286");
}

TEST_F(VerticalDimensionsTest, AHeightIsComparedEvenWhenItIsNotChanged) {
  Given({{"txtDiameterVT", "10"}, {"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5000"}});
  ExpectProposal(kCalculatedVolume, "Recalculate?", Answer::kNo);
  Leave("txtMaxLiquidHeightVT", "20");
}

TEST_F(VerticalDimensionsTest, AHeightWithinTenPercentProposesNothing) {
  // 11750.41143 gal in 10 ft stand at 20 ft; 20 - 20 * 0.1 = 18 and 20 * 1.1 = 22
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "11750.41143"}});
  for (const auto* height : {"18", "20", "22"}) Leave("txtMaxLiquidHeightVT", height);
}

TEST_F(VerticalDimensionsTest, AHeightJustBeyondTenPercentProposesTheVolume) {
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "11750.41143"}});
  // The number below 18; 25 * 3.14159 * 18 / 0.13368 = 78.53975 * 18 / 0.13368 = 10575.370287
  ExpectProposal("The calculated volume is 10,575.370287. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtMaxLiquidHeightVT", "17.999999999999996");
  // The second number above 22, as 20 * 1.1 is the first; 78.53975 * 22 / 0.13368 = 12925.452573
  ExpectProposal("The calculated volume is 12,925.452573. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtMaxLiquidHeightVT", "22.000000000000007");
}

TEST_F(VerticalDimensionsTest, AHeightProposesNothingWhileADimensionIsMissing) {
  Given({{"txtDiameterVT", "0"}, {"txtVolumeVT", "5000"}});
  Leave("txtMaxLiquidHeightVT", "20");
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "0"}});
  Leave("txtMaxLiquidHeightVT", "20");
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "5000"}});
  Leave("txtMaxLiquidHeightVT", "0");
}

// Leaving the average liquid height

TEST_F(VerticalDimensionsTest, AnAverageHeightAboveTheMaximumBecomesTheMaximum) {
  Given({{"txtMaxLiquidHeightVT", "20.50"}});
  host_.ExpectMessage("Average liquid height must not exceed the maximum liquid height.");
  Leave("txtAvgLiquidHeightVT", "100");
  EXPECT_EQ(Shown("txtAvgLiquidHeightVT"), "20.50");
  EXPECT_EQ(Stored("HEIGHT AL").AsDouble(), 20.5);
}

TEST_F(VerticalDimensionsTest, AnAverageHeightIsComparedAsANumber) {
  Given({{"txtMaxLiquidHeightVT", "20"}});
  Leave("txtAvgLiquidHeightVT", "9");  // above "20" as a text
  EXPECT_EQ(Shown("txtAvgLiquidHeightVT"), "9");
  Leave("txtAvgLiquidHeightVT", "20");
  EXPECT_EQ(Shown("txtAvgLiquidHeightVT"), "20");
  host_.ExpectMessage("Average liquid height must not exceed the maximum liquid height.");
  Leave("txtAvgLiquidHeightVT", "20.000000000000004");  // the number above 20
  EXPECT_EQ(Shown("txtAvgLiquidHeightVT"), "20");
}

TEST_F(VerticalDimensionsTest, AnAverageHeightExceedsAMissingMaximumToo) {
  host_.ExpectMessage("Average liquid height must not exceed the maximum liquid height.");
  Leave("txtAvgLiquidHeightVT", "10");
  EXPECT_EQ(Shown("txtAvgLiquidHeightVT"), "0");
}

// Entering the missing one of diameter, height and volume

TEST_F(VerticalDimensionsTest, FillTheMissingVolume) {
  Given({{"txtDiameterVT", "10"}, {"txtMaxLiquidHeightVT", "20"}});
  Enter("txtVolumeVT");
  EXPECT_EQ(Shown("txtVolumeVT"), "11,750.41143");
}

TEST_F(VerticalDimensionsTest, FillTheVolumeOfTheThroughputBeforeThatOfTheCylinder) {
  Given({{"txtDiameterVT", "10"}, {"txtMaxLiquidHeightVT", "20"}, {"txtTurnoverVT", "4"}, {"txtThroughputVT", "1000"}});
  Enter("txtVolumeVT");
  EXPECT_EQ(Shown("txtVolumeVT"), "250.00");  // 1000 / 4
}

TEST_F(VerticalDimensionsTest, FillTheMissingMaximumHeight) {
  Given({{"txtDiameterVT", "10"}, {"txtVolumeVT", "10000"}});
  Enter("txtMaxLiquidHeightVT");
  // 10000 * 0.13368 / (25 * 3.14159) = 1336.8 / 78.53975
  EXPECT_EQ(Shown("txtMaxLiquidHeightVT"), "17.020681");
}

TEST_F(VerticalDimensionsTest, ShowTheMissingDiameterInTheVolume) {
  Given({{"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "10000"}});
  Enter("txtDiameterVT");
  // The root of 10000 * 4 * 0.13368 / (20 * 3.14159) = 85.10340306
  EXPECT_EQ(Shown("txtVolumeVT"), "9.225151");
  EXPECT_EQ(Shown("txtDiameterVT"), "0");
}

TEST_F(VerticalDimensionsTest, FillNothingThatIsGivenOrThatTwoAreMissingFor) {
  Given({{"txtDiameterVT", "10"}});
  for (const auto* control : {"txtVolumeVT", "txtMaxLiquidHeightVT", "txtDiameterVT"}) Enter(control);
  EXPECT_EQ(Shown("txtVolumeVT"), "0.00");
  EXPECT_EQ(Shown("txtMaxLiquidHeightVT"), "0");
  Given({{"txtMaxLiquidHeightVT", "5"}, {"txtVolumeVT", "77"}});
  for (const auto* control : {"txtVolumeVT", "txtMaxLiquidHeightVT", "txtDiameterVT"}) Enter(control);
  EXPECT_EQ(Shown("txtVolumeVT"), "77.00");
  EXPECT_EQ(Shown("txtMaxLiquidHeightVT"), "5");
  EXPECT_EQ(Shown("txtDiameterVT"), "10");
}

// Limits of the shell

struct Limits {
  std::string_view tank_type;
  const char* control;
  const char* field;
  const char* refusal;
  std::vector<const char*> inside, outside;
};

class ShellLimitsTest : public test::PhysicalPageTest, public testing::WithParamInterface<Limits> {};

TEST_P(ShellLimitsTest, TakeWhatLiesWithinAndZero) {
  auto& form = OpenTank(GetParam().tank_type);
  for (const auto* text : GetParam().inside) {
    Leave(GetParam().control, text);
    EXPECT_EQ(form.window.focus, "") << text;
    EXPECT_EQ(Shown(GetParam().control), text);
  }
}

TEST_P(ShellLimitsTest, RefuseWhatLiesBeyondAndKeepTheValue) {
  auto& form = OpenTank(GetParam().tank_type);
  for (const auto* text : GetParam().outside) {
    form.window.focus = {};
    host_.ExpectMessage(GetParam().refusal);
    Leave(GetParam().control, text);
    EXPECT_EQ(form.window.focus, GetParam().control) << text;
    EXPECT_EQ(At(form, GetParam().control).refusal, GetParam().refusal);
    EXPECT_EQ(Shown(GetParam().control), text);
    EXPECT_FALSE(IsChanged(At(form, GetParam().control)));
  }
}

INSTANTIATE_TEST_SUITE_P(Shells, ShellLimitsTest,
                         testing::Values(Limits{shell::kVerticalFixedRoof,
                                                "txtShellHeightVT",
                                                "HEIGHT S",
                                                "Shell height must be between 5 and 65 feet.",
                                                {"0", "5", "65", "5.000000000000001", "64.99999999999999"},
                                                {"4", "65.5", "4.999999999999999", "65.00000000000001", "-10",
                                                 "0.000001"}},
                                         Limits{shell::kHorizontal,
                                                "txtLengthHT",
                                                "HEIGHT S",
                                                "Shell length must be between 5 and 75 feet.",
                                                {"0", "5", "75"},
                                                {"4", "75.5", "4.999999999999999", "75.00000000000001", "-10"}},
                                         Limits{shell::kHorizontal,
                                                "txtDiameterHT",
                                                "DIAMETER",
                                                "Shell diameter must be between 3 and 20 feet.",
                                                {"0", "3", "20"},
                                                {"2", "20.5", "2.9999999999999996", "20.000000000000004", "-10"}}),
                         [](const auto& limits) { return std::string(limits.param.control); });

}  // namespace
}  // namespace orvex::entry
