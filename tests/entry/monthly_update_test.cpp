#include "entry/monthly_update.h"

#include <cmath>

#include "entry/physical_page_test.h"
#include "entry/physical_rules.h"

namespace orvex::entry {
namespace {

using shell::Answer;

class MonthlyUpdateTest : public test::PhysicalPageTest {
 protected:
  void SetUp() override { OpenTank(shell::kInternalFloatingRoof); }
  FrmTank& Form() { return Editor(session_); }
  void UseMonth(std::size_t month, const std::string& throughput) {
    Form().months.at(month).chk.checked = true;
    Form().months.at(month).txtThru.text = throughput;
  }
};

TEST(OutOfStep, BeginsBeyondATenthOfAPercent) {
  // 1000 - 1000 * 0.001 = 999 and 1000 * 1.001 = 1001
  const double lower = 1000 - 1000 * 0.001, upper = 1000 * 1.001;
  EXPECT_FALSE(OutOfStep(lower, 1000));
  EXPECT_TRUE(OutOfStep(std::nextafter(lower, 0), 1000));
  EXPECT_FALSE(OutOfStep(upper, 1000));
  EXPECT_TRUE(OutOfStep(std::nextafter(upper, 2000), 1000));
  EXPECT_FALSE(OutOfStep(0, 0));
  EXPECT_TRUE(OutOfStep(std::nextafter(0, 1), 0));
}

TEST_F(MonthlyUpdateTest, AsksNothingWhileTheMonthsAreInStep) {
  Given({{"txtThroughputIT", "1000"}});
  UseMonth(0, "499.00");
  UseMonth(6, "500.00");
  MonthlyUpdate(session_, Form());
  EXPECT_EQ(Form().months[0].txtThru.text, "499.00");
  EXPECT_EQ(Form().txtTotalMonths.text, "999.00");
}

TEST_F(MonthlyUpdateTest, LeavesMonthsThatAreNotTickedOutOfTheSum) {
  Given({{"txtThroughputIT", "1000"}});
  UseMonth(0, "500.00");
  UseMonth(6, "500.00");
  Form().months[6].chk.checked = false;
  ExpectMonthlyQuestion(Answer::kNo);
  MonthlyUpdate(session_, Form());
}

TEST_F(MonthlyUpdateTest, GivesTickedMonthsTheSameShare) {
  Given({{"txtThroughputIT", "1000"}});
  UseMonth(0, "1");
  UseMonth(1, "2");
  UseMonth(11, "0");
  ExpectMonthlyQuestion(Answer::kYes);
  MonthlyUpdate(session_, Form());
  // 1000 / 3
  for (const std::size_t month : {0U, 1U, 11U}) EXPECT_EQ(Form().months.at(month).txtThru.text, "333.333333");
  EXPECT_EQ(Form().months[5].txtThru.text, "0");
  EXPECT_FALSE(Form().months[5].chk.checked);
  EXPECT_EQ(Form().txtTotalMonths.text, "999.999999");
}

TEST_F(MonthlyUpdateTest, TicksAllTwelveWhenNoneIsTicked) {
  Given({{"txtThroughputIT", "12,000"}});
  ExpectMonthlyQuestion(Answer::kYes);
  MonthlyUpdate(session_, Form());
  for (const auto& month : Form().months) {
    EXPECT_TRUE(month.chk.checked);
    EXPECT_TRUE(month.txtThru.enabled);
    EXPECT_TRUE(month.cboMix.visible);
    EXPECT_EQ(month.txtThru.text, "1,000.00");
  }
  EXPECT_EQ(Form().txtTotalMonths.text, "12,000.00");
}

TEST_F(MonthlyUpdateTest, LeavesTheMonthsAloneOnNo) {
  Given({{"txtThroughputIT", "1000"}});
  UseMonth(3, "7.00");
  ExpectMonthlyQuestion(Answer::kNo);
  MonthlyUpdate(session_, Form());
  EXPECT_EQ(Form().months[3].txtThru.text, "7.00");
  EXPECT_EQ(Form().txtTotalMonths.text, "7.00");
}

TEST_F(MonthlyUpdateTest, AsksToEmptyTheMonthsOfATankWithoutThroughput) {
  UseMonth(3, "7.00");
  ExpectMonthlyQuestion(Answer::kYes);
  MonthlyUpdate(session_, Form());
  EXPECT_EQ(Form().months[3].txtThru.text, "0.00");
}

TEST_F(MonthlyUpdateTest, ReportsAMonthThatHoldsNoNumberUnderTheCheckThatMetIt) {
  UseMonth(3, "some");
  host_.ExpectError(13, "frmTank.CheckLostFocus");
  Leave("txtThroughputIT", "5");
}

}  // namespace
}  // namespace orvex::entry
