#include <algorithm>
#include <cmath>
#include <string>

#include "entry/physical_page_test.h"

namespace orvex::entry {
namespace {

using shell::Answer;

constexpr const char* kManyTurnovers = "This is an unusually large number of turnovers.  Please check.";

struct TypeAndEnding {
  std::string_view tank_type;
  std::string ending;
};

const TypeAndEnding kTypes[] = {
    {shell::kVerticalFixedRoof, "VT"},         {shell::kHorizontal, "HT"},
    {shell::kInternalFloatingRoof, "IT"},      {shell::kExternalFloatingRoof, "ET"},
    {shell::kDomedExternalFloatingRoof, "ET"},
};

/// One tank of each type.
class ThroughputOfEveryType : public test::PhysicalPageTest, public testing::WithParamInterface<TypeAndEnding> {
 protected:
  void SetUp() override { OpenTank(GetParam().tank_type); }

  [[nodiscard]] std::string Volume() const { return "txtVolume" + GetParam().ending; }
  [[nodiscard]] std::string Turnover() const { return "txtTurnover" + GetParam().ending; }
  [[nodiscard]] std::string Throughput() const { return "txtThroughput" + GetParam().ending; }

  void GivenQuantities(const std::string& volume, const std::string& turnovers, const std::string& throughput) {
    Given({{Volume(), volume}, {Turnover(), turnovers}, {Throughput(), throughput}});
  }
  void ExpectQuantities(const std::string& volume, const std::string& turnovers, const std::string& throughput) {
    EXPECT_EQ(Shown(Volume()), volume);
    EXPECT_EQ(Shown(Turnover()), turnovers);
    EXPECT_EQ(Shown(Throughput()), throughput);
  }
};

std::string NameOfType(const testing::TestParamInfo<TypeAndEnding>& info) {
  std::string name(info.param.tank_type);
  std::erase(name, ' ');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Tanks, ThroughputOfEveryType, testing::ValuesIn(kTypes), NameOfType);

// Leaving the volume

TEST_P(ThroughputOfEveryType, FollowsAVolumeThatIsLeft) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(10000);
  ExpectMonthlyQuestion(Answer::kYes);
  Leave(Volume(), "2000");
  // 10 * 2000; a month gets 20000 / 12
  ExpectQuantities("2,000.00", "10.00", "20,000.00");
  EXPECT_EQ(Stored("Q_NET").AsDouble(), 20000);
  EXPECT_EQ(Editor(session_).months[0].txtThru.text, "1,666.666667");
  EXPECT_EQ(Editor(session_).txtThruSpec.text, "20,000.00");
}

TEST_P(ThroughputOfEveryType, StaysWhileTheVolumeIsWithinTenPercent) {
  GivenQuantities("1000", "10", "10000");
  // 10000 / 10 = 1000; 1000 - 1000 * 0.1 = 900 and 1000 * 1.1 = 1100
  Leave(Volume(), "900");
  ExpectQuantities("900.00", "10.00", "10,000.00");
  Leave(Volume(), "1100");
  ExpectQuantities("1,100.00", "10.00", "10,000.00");
}

TEST_P(ThroughputOfEveryType, FollowsAVolumeJustBeyondTenPercent) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(9000);
  // The number below 900; 10 * 899.9999999999999 is in step with months of 9000.
  Leave(Volume(), "899.9999999999999");
  ExpectQuantities("900.00", "10.00", "9,000.00");
  // 1000 * 1.1 is 1100.0000000000002 in binary; the next number is ...0005.
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(11000);
  Leave(Volume(), "1100.0000000000005");
  ExpectQuantities("1,100.00", "10.00", "11,000.00");
}

TEST_P(ThroughputOfEveryType, LeavesAVolumeAloneWhileAnotherIsMissing) {
  GivenQuantities("1000", "0", "10000");
  Leave(Volume(), "5000");
  ExpectQuantities("5,000.00", "0.00", "10,000.00");
  GivenQuantities("1000", "10", "0");
  Leave(Volume(), "5000");
  ExpectQuantities("5,000.00", "10.00", "0.00");
  GivenQuantities("1000", "10", "10000");
  Leave(Volume(), "0");
  ExpectQuantities("0.00", "10.00", "10,000.00");
}

// Leaving the turnovers

TEST_P(ThroughputOfEveryType, FollowsTurnoversThatAreLeft) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(10000);
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Turnover(), "20");
  ExpectQuantities("1,000.00", "20.00", "20,000.00");
  EXPECT_EQ(Editor(session_).months[0].txtThru.text, "833.333333");
}

TEST_P(ThroughputOfEveryType, StaysWhileTheTurnoversAreWithinTenPercent) {
  GivenQuantities("1000", "10", "10000");
  // 10000 / 1000 = 10; 10 - 10 * 0.1 = 9 and 10 * 1.1 = 11
  for (const auto* turnovers : {"9", "11"}) {
    Leave(Turnover(), turnovers);
    EXPECT_EQ(Shown(Throughput()), "10,000.00");
  }
}

TEST_P(ThroughputOfEveryType, FollowsTurnoversJustBeyondTenPercent) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(9000);
  Leave(Turnover(), "8.999999999999998");  // the number below 9
  EXPECT_EQ(Shown(Throughput()), "9,000.00");
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(11000);
  Leave(Turnover(), "11.000000000000002");  // the number above 11, which is 10 * 1.1
  EXPECT_EQ(Shown(Throughput()), "11,000.00");
}

TEST_P(ThroughputOfEveryType, LeavesTurnoversAloneWhileAnotherIsMissing) {
  GivenQuantities("0", "10", "10000");
  Leave(Turnover(), "20");
  ExpectQuantities("0.00", "20.00", "10,000.00");
  GivenQuantities("1000", "10", "0");
  Leave(Turnover(), "20");
  ExpectQuantities("1,000.00", "20.00", "0.00");
}

TEST_P(ThroughputOfEveryType, IsNothingWithoutTurnovers) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(0);
  Leave(Turnover(), "0");
  ExpectQuantities("1,000.00", "0.00", "0.00");
}

// Leaving the net throughput

TEST_P(ThroughputOfEveryType, DrivesTheTurnovers) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(10000);
  ExpectMonthlyQuestion(Answer::kYes);
  Leave(Throughput(), "30000");
  ExpectQuantities("1,000.00", "30.00", "30,000.00");
  EXPECT_EQ(Editor(session_).months[0].txtThru.text, "2,500.00");
  EXPECT_EQ(Stored("TURNOVER").AsDouble(), 30);
}

TEST_P(ThroughputOfEveryType, LeavesTheTurnoversAloneWithinTenPercentAndStillAsksAboutTheMonths) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(10000);
  // 10 * 1000 = 10000; 10000 - 10000 * 0.1 = 9000 and 10000 * 1.1 = 11000
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "9000");
  ExpectQuantities("1,000.00", "10.00", "9,000.00");
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "11000");
  ExpectQuantities("1,000.00", "10.00", "11,000.00");
}

TEST_P(ThroughputOfEveryType, DrivesTheTurnoversJustBeyondTenPercent) {
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(9000);
  Leave(Throughput(), "8999.999999999998");  // the number below 9000
  ExpectQuantities("1,000.00", "9.00", "9,000.00");
  GivenQuantities("1000", "10", "10000");
  SpreadOverMonths(11000);
  // 10000 * 1.1 is 11000.000000000002 in binary; the next number is ...004.
  Leave(Throughput(), "11000.000000000004");
  ExpectQuantities("1,000.00", "11.00", "11,000.00");
}

TEST_P(ThroughputOfEveryType, GivesMissingTurnoversOnLeaving) {
  GivenQuantities("1000", "0", "0");
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "5000");
  ExpectQuantities("1,000.00", "5.00", "5,000.00");
}

TEST_P(ThroughputOfEveryType, AsksAboutTheMonthsWithoutAVolume) {
  GivenQuantities("0", "10", "0");
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "5000");
  ExpectQuantities("0.00", "10.00", "5,000.00");
}

TEST_P(ThroughputOfEveryType, AsksNothingAboutTheMonthsWhenItIsLeftUnchanged) {
  GivenQuantities("1000", "10", "10000");
  Leave(Throughput(), "10,000.00");
  ExpectQuantities("1,000.00", "10.00", "10,000.00");
}

TEST_P(ThroughputOfEveryType, AsksOnceAboutTheMonthsHoweverManyEntriesFollow) {
  GivenQuantities("1000", "10", "0");
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "12345");
  ChangePage(session_, Editor(session_), Page::kSite);
  Enter("cboShellColor" + GetParam().ending);
}

TEST_P(ThroughputOfEveryType, AsksOnceAboutTheMonthsWhenMoreDigitsAreTypedThanItShows) {
  GivenQuantities("1000", "10", "0");
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "12345.12345678");
  EXPECT_EQ(Shown(Throughput()), "12,345.123457");
  Enter("cboShellColor" + GetParam().ending);
  ExpectMonthlyQuestion(Answer::kNo);
  Leave(Throughput(), "12345.123458");
}

TEST_P(ThroughputOfEveryType, AsksNothingAboutTheMonthsOfALoadedTankForDigitsThatItDoesNotShow) {
  auto& form = Editor(session_);
  test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, {{"Q_NET", 1000.0 / 3}});
  ShowTank(session_, form);
  FormatLarge(form);
  Enter(Throughput());
  Leave(Throughput(), "333.333333");
}

TEST_P(ThroughputOfEveryType, LeavesVolumeTurnoversAndThroughputAloneThatAgree) {
  GivenQuantities("1000", "10", "10500");
  SpreadOverMonths(10500);
  for (const auto& [control, text] : {std::pair{Volume(), "1000"}, {Turnover(), "10"}, {Throughput(), "10500"}}) {
    Enter(control);
    Leave(control, text);
    ExpectQuantities("1,000.00", "10.00", "10,500.00");
  }
}

// Entering the missing one of three

TEST_P(ThroughputOfEveryType, FillsTheMissingVolume) {
  GivenQuantities("0", "3", "10000");
  Enter(Volume());
  EXPECT_EQ(Shown(Volume()), "3,333.333333");  // 10000 / 3
}

TEST_P(ThroughputOfEveryType, FillsTheMissingTurnovers) {
  GivenQuantities("7", "0", "10000");
  Enter(Turnover());
  EXPECT_EQ(Shown(Turnover()), "1,428.571429");  // 10000 / 7
}

TEST_P(ThroughputOfEveryType, FillsTheMissingThroughputAndStoresIt) {
  GivenQuantities("1000", "2.5", "0");
  Enter(Throughput());
  EXPECT_EQ(Shown(Throughput()), "2,500.00");  // 2.5 * 1000
  EXPECT_EQ(Stored("Q_NET").AsDouble(), 2500);
  EXPECT_EQ(Editor(session_).txtThruSpec.text, "2,500.00");
}

TEST_P(ThroughputOfEveryType, FillsNothingWhileTwoAreMissing) {
  for (const auto& control : {Volume(), Turnover(), Throughput()}) {
    GivenQuantities("0", "0", "0");
    Given({{control, "5"}});
    for (const auto& entered : {Volume(), Turnover(), Throughput()}) {
      Enter(entered);
      EXPECT_EQ(Shown(entered), entered == control ? "5.00" : "0.00");
    }
  }
}

TEST_P(ThroughputOfEveryType, FillsNothingThatIsGiven) {
  GivenQuantities("1000", "10", "55555");
  for (const auto& control : {Volume(), Turnover(), Throughput()}) Enter(control);
  ExpectQuantities("1,000.00", "10.00", "55,555.00");
}

TEST_P(ThroughputOfEveryType, ReportsAThroughputOutOfRangeUnderTheCheck) {
  GivenQuantities("1", "1e200", "1e200");
  host_.ExpectError(6, "frmTank.CheckLostFocus");
  Leave(Volume(), "1e200");
}

TEST_P(ThroughputOfEveryType, ReportsAFilledThroughputOutOfRangeUnderTheEntry) {
  GivenQuantities("1e200", "1e200", "0");
  host_.ExpectError(6, "frmTank." + Throughput() + "_GotFocus");
  Enter(Throughput());
  EXPECT_EQ(Shown(Throughput()), "0.00");
}

// Many turnovers

class ManyTurnoversTest : public test::PhysicalPageTest {};

TEST_F(ManyTurnoversTest, WarnAtAThousandOnAVerticalTank) {
  OpenTank(shell::kVerticalFixedRoof);
  host_.ExpectMessage(kManyTurnovers);
  Leave("txtTurnoverVT", "1000");
  EXPECT_EQ(Shown("txtTurnoverVT"), "1,000.00");
}

TEST_F(ManyTurnoversTest, WarnAtAThousandOnAHorizontalTank) {
  OpenTank(shell::kHorizontal);
  host_.ExpectMessage(kManyTurnovers);
  Leave("txtTurnoverHT", "1,000");
}

TEST_F(ManyTurnoversTest, DoNotWarnBelowAThousand) {
  OpenTank(shell::kVerticalFixedRoof);
  Leave("txtTurnoverVT", "999");
  Leave("txtTurnoverVT", "999.9999999999999");  // the number below 1000
  OpenTank(shell::kHorizontal);
  Leave("txtTurnoverHT", "999");
}

TEST_F(ManyTurnoversTest, DoNotWarnOnFloatingRoofs) {
  OpenTank(shell::kInternalFloatingRoof);
  Leave("txtTurnoverIT", "5000");
  OpenTank(shell::kExternalFloatingRoof);
  Leave("txtTurnoverET", "5000");
  OpenTank(shell::kDomedExternalFloatingRoof);
  Leave("txtTurnoverET", "5000");
}

TEST_F(ManyTurnoversTest, WarnAfterTheMonthsAndAlsoWhenTheyAgree) {
  OpenTank(shell::kVerticalFixedRoof);
  Given({{"txtVolumeVT", "10"}, {"txtTurnoverVT", "1"}, {"txtThroughputVT", "10"}});
  ExpectMonthlyQuestion(Answer::kNo);
  host_.ExpectMessage(kManyTurnovers);
  Leave("txtTurnoverVT", "2000");
  host_.ExpectMessage(kManyTurnovers);
  Leave("txtTurnoverVT", "2001");
}

TEST_F(ManyTurnoversTest, WarnOnceForWhatWasTyped) {
  OpenTank(shell::kVerticalFixedRoof);
  host_.ExpectMessage(kManyTurnovers);
  Leave("txtTurnoverVT", "1000");
  Enter("cboShellColorVT");
  ChangePage(session_, Editor(session_), Page::kSite);
}

}  // namespace
}  // namespace orvex::entry
