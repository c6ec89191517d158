#include "entry/month_page.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"
#include "support/query_rows.h"

namespace orvex::entry {
namespace {

using Names = std::vector<std::string>;

constexpr std::size_t kJanuary = 0, kFebruary = 1, kMarch = 2, kApril = 3, kDecember = 11;

constexpr const char* kNoMixtureName =
    "Mixture name cannot be null.  Please correct this error on the previous tab.  Delete this mixture if you do not "
    "wish to save it.";

class MonthPageTest : public test::TankEntryTest {
 protected:
  MonthPageTest() { form_.form = Section::kPartial; }

  /// Names the tank's mixtures, of which the first is there, and shows the first.
  void NameMixtures(const Names& names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      const auto MixID = static_cast<std::int32_t>(i + 1);
      if (MixID > 1) test::AddRow(*session_.ClientDb, "mixtures", {{"ID", form_.ID}, {"MIX ID", MixID}});
      Change(MixID, {{"MIX NAME", names[i]}});
    }
    ShowMixtureRow(session_, form_);
  }
  void Change(std::int32_t MixID, test::FieldValues fields) {
    test::ChangeRow(*session_.ClientDb, "mixtures", "IDMIX", {form_.ID, MixID}, fields);
  }

  void Tick(std::initializer_list<std::size_t> months) {
    for (const auto month : months) TickMonth(session_, form_, month, true);
  }
  void TypeThroughput(std::size_t month, const std::string& text) {
    form_.months[month].txtThru.text = text;
    LeaveThroughput(session_, form_, month);
  }
  /// Ticks a month, gives it a throughput and a mixture.
  void Use(std::size_t month, const std::string& gallons, const std::string& mixture) {
    Tick({month});
    TypeThroughput(month, gallons);
    form_.months[month].cboMix.text = mixture;
  }

  MonthEntry& Month(std::size_t month) { return form_.months.at(month); }
  [[nodiscard]] std::string Total() const { return form_.txtTotalMonths.text; }
  test::Rows Stored() {
    return test::QueryRows(*session_.ClientDb,
                           "SELECT [MIX ID], JANUARY, JAN_THRU, FEBRUARY, FEB_THRU FROM mixtures ORDER BY [MIX ID]",
                           {"MIX ID", "JANUARY", "JAN_THRU", "FEBRUARY", "FEB_THRU"});
  }

  FrmTank& form_ = OpenTank(shell::kVerticalFixedRoof);
};

TEST_F(MonthPageTest, ATickedMonthCanBeEnteredAndAClearedOneCannot) {
  for (std::size_t month = 0; month < shell::kMonths.size(); ++month) {
    EXPECT_FALSE(Month(month).txtThru.enabled);
    EXPECT_FALSE(Month(month).cboMix.visible);
    TickMonth(session_, form_, month, true);
    EXPECT_TRUE(Month(month).chk.checked);
    EXPECT_TRUE(Month(month).txtThru.enabled);
    EXPECT_TRUE(Month(month).cboMix.visible);
    TickMonth(session_, form_, month, false);
    EXPECT_FALSE(Month(month).chk.checked);
    EXPECT_FALSE(Month(month).txtThru.enabled);
    EXPECT_FALSE(Month(month).cboMix.visible);
  }
}

TEST_F(MonthPageTest, ClearingABoxSetsItsThroughputToZeroAndTheTotalFallsAtOnce) {
  Use(kJanuary, "1000", "A");
  Use(kDecember, "234.5", "A");
  Month(kDecember).cboMix.items = {"A"};
  EXPECT_EQ(Total(), "1,234.50");
  TickMonth(session_, form_, kDecember, false);
  EXPECT_EQ(Month(kDecember).txtThru.text, "0");
  EXPECT_TRUE(Month(kDecember).cboMix.items.empty());
  EXPECT_EQ(Month(kDecember).cboMix.text, "");
  EXPECT_EQ(Total(), "1,000.00");
}

TEST_F(MonthPageTest, TickingABoxShowsTheTotal) {
  Month(kMarch).txtThru.text = "7";
  Tick({kJanuary});
  EXPECT_EQ(Total(), "7.00");
}

TEST_F(MonthPageTest, LeavingAThroughputFormatsItAndShowsTheTotal) {
  Tick({kJanuary, kFebruary});
  TypeThroughput(kJanuary, " 1,234.5 ");
  EXPECT_EQ(Month(kJanuary).txtThru.text, "1,234.50");
  TypeThroughput(kFebruary, "1e-3");
  EXPECT_EQ(Month(kFebruary).txtThru.text, "0.001");
  EXPECT_EQ(Total(), "1,234.501");
}

TEST_F(MonthPageTest, AThroughputThatIsNoNumberIsRefused) {
  Tick({kApril});
  for (const std::string text : {"", "ten", "1,5", "nan", "inf", "0x10", "1e999", "1\t2"}) {
    host_.ExpectMessage("Please enter a number.");
    form_.window.focus = "";
    TypeThroughput(kApril, text);
    EXPECT_EQ(Month(kApril).txtThru.text, "0") << text;
    EXPECT_EQ(form_.window.focus, "txtThruAPR");
  }
}

TEST_F(MonthPageTest, ATotalBeyondTheRangeIsReportedUnderTheMonth) {
  Tick({kJanuary, kApril});
  TypeThroughput(kJanuary, "1e308");
  host_.ExpectError(6, "frmTank.txtThruAPR_LostFocus");
  TypeThroughput(kApril, "1e308");
  host_.ExpectError(6, "frmTank.chkDEC_Click");
  TickMonth(session_, form_, kDecember, true);
}

TEST_F(MonthPageTest, TheListOfAMonthHoldsTheNamesInTheOrderOfTheMixtures) {
  NameMixtures({"Zeta", "Alpha", "Mid"});
  Tick({kMarch});
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"Zeta", "Alpha", "Mid"}));
  EXPECT_EQ(Month(kMarch).cboMix.text, "");
}

TEST_F(MonthPageTest, AMixtureWithoutANameIsNotInTheList) {
  NameMixtures({"A", "B", "C"});
  Change(2, {{"MIX NAME", store::Value()}});
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"A", "C"}));
}

TEST_F(MonthPageTest, OnlyThisTanksMixturesAreInTheList) {
  NameMixtures({"Mine"});
  test::AddRow(*session_.ClientDb, "mixtures", {{"ID", form_.ID + 1}, {"MIX ID", 1}, {"MIX NAME", "Other"}});
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, Names{"Mine"});
}

TEST_F(MonthPageTest, TheChosenMixtureStaysChosenWhenTheListIsBuiltAnew) {
  NameMixtures({"A", "B"});
  Month(kMarch).cboMix = {.items = {"old"}, .text = "B"};
  OpenMixtures(session_, form_, kMarch);
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"A", "B"}));
  EXPECT_EQ(Month(kMarch).cboMix.text, "B");
}

TEST_F(MonthPageTest, ANameChangedOnTheLiquidPageShowsInTheListAndTheOldOneIsGone) {
  NameMixtures({"A", "B"});
  Month(kMarch).cboMix.text = "A";
  At(form_, "dbcboMixNamePartial").box.text = "50% O'Brien [\"x\"]";
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"50% O'Brien [\"x\"]", "B"}));
  EXPECT_EQ(Month(kMarch).cboMix.text, "");
}

TEST_F(MonthPageTest, AListIsNotOpenedWhileTheMixtureShownHasNoName) {
  ShowMixtureRow(session_, form_);
  Month(kMarch).cboMix = {.items = {"A"}, .text = "A"};
  host_.ExpectMessage(kNoMixtureName);
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, Names{"A"});
  EXPECT_EQ(Month(kMarch).cboMix.text, "A");
}

TEST_F(MonthPageTest, AnotherMixtureOfTheSameNameStopsTheList) {
  NameMixtures({"A", "B", "C", "B"});
  form_.MixID = 2;
  ShowMixtureRow(session_, form_);
  host_.ExpectMessage("Duplicate Mixture Name");
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"A", "B", "C"})) << "the names in front of it";
  EXPECT_EQ(Month(kMarch).cboMix.text, "");
}

TEST_F(MonthPageTest, TwoOtherMixturesOfOneNameDoNotStopTheList) {
  NameMixtures({"A", "B", "B"});
  OpenMixtures(session_, form_, kMarch);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"A", "B", "B"}));
}

TEST_F(MonthPageTest, AFailureToOpenAListIsReportedUnderTheMonth) {
  NameMixtures({"A"});
  session_.ClientDb->DeleteTable("mixtures");
  host_.ExpectError(3011, "frmTank.cboMixAPR_DropDown");
  OpenMixtures(session_, form_, kApril);
}

TEST_F(MonthPageTest, DistributeGivesEachTickedMonthItsPart) {
  form_.txtThruSpec.text = "1,200.00";
  Tick({kJanuary, kMarch, kDecember});
  Month(kApril).txtThru.text = "5";
  ClickDistribute(session_, form_);
  // 1200 gal / 3 months = 400 gal
  for (const auto month : {kJanuary, kMarch, kDecember}) EXPECT_EQ(Month(month).txtThru.text, "400.00");
  EXPECT_EQ(Month(kFebruary).txtThru.text, "0");
  EXPECT_EQ(Month(kApril).txtThru.text, "5") << "not ticked";
  EXPECT_EQ(Total(), "1,205.00");
  EXPECT_EQ(host_.status, (Names{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(MonthPageTest, DistributeShowsTheTotalOfTheRoundedParts) {
  form_.txtThruSpec.text = "1000";
  Tick({kJanuary, kMarch, kDecember});
  ClickDistribute(session_, form_);
  // 1000 / 3 = 333.333333 to six decimals; three of them make 999.999999
  EXPECT_EQ(Month(kMarch).txtThru.text, "333.333333");
  EXPECT_EQ(Total(), "999.999999");
}

TEST_F(MonthPageTest, DistributeWithNoTickedMonthDoesNothing) {
  form_.txtThruSpec.text = "1200";
  Month(kApril).txtThru.text = "5";
  ClickDistribute(session_, form_);
  EXPECT_EQ(Month(kApril).txtThru.text, "5");
  for (const auto month : {kJanuary, kDecember}) EXPECT_EQ(Month(month).txtThru.text, "0");
  EXPECT_EQ(Total(), "5.00");
}

TEST_F(MonthPageTest, DistributeWithoutAnAnnualValueGivesZero) {
  Tick({kJanuary});
  TypeThroughput(kJanuary, "8");
  ClickDistribute(session_, form_);
  EXPECT_EQ(Month(kJanuary).txtThru.text, "0.00");
}

TEST_F(MonthPageTest, DistributeThatFailsIsReportedAndNoLongerBusy) {
  form_.txtThruSpec.text = "much";
  Tick({kJanuary});
  host_.ExpectError(13, "frmTank.cmdDistribute_Click");
  ClickDistribute(session_, form_);
  EXPECT_EQ(Month(kJanuary).txtThru.text, "0");
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(MonthPageTest, FillGivesTheTickedMonthsTheFirstMixture) {
  NameMixtures({"First", "Second"});
  Tick({kJanuary, kDecember});
  Month(kDecember).cboMix.text = "Second";
  ClickFillMixName(session_, form_);
  for (const auto month : {kJanuary, kDecember}) {
    EXPECT_EQ(Month(month).cboMix.text, "First");
    EXPECT_EQ(Month(month).cboMix.items, (Names{"First", "Second"}));
  }
  EXPECT_EQ(Month(kMarch).cboMix.text, "");
  EXPECT_TRUE(Month(kMarch).cboMix.items.empty()) << "not ticked";
}

TEST_F(MonthPageTest, FillWithoutAMixtureNameIsRefusedOnce) {
  ShowMixtureRow(session_, form_);
  Tick({kJanuary, kDecember});
  host_.ExpectMessage(kNoMixtureName);
  ClickFillMixName(session_, form_);
  EXPECT_EQ(Month(kJanuary).cboMix.text, "");
}

TEST_F(MonthPageTest, FillWithADuplicateNameIsRefusedOnce) {
  NameMixtures({"A", "A"});
  Tick({kJanuary, kDecember});
  host_.ExpectMessage("Duplicate Mixture Name");
  ClickFillMixName(session_, form_);
  EXPECT_EQ(Month(kJanuary).cboMix.text, "");
  EXPECT_EQ(Month(kDecember).cboMix.text, "");
}

TEST_F(MonthPageTest, FillThatFailsIsReported) {
  NameMixtures({"A"});
  Tick({kJanuary});
  session_.ClientDb->DeleteTable("mixtures");
  host_.ExpectError(3011, "frmTank.cmdFillMixName_Click");
  ClickFillMixName(session_, form_);
}

TEST_F(MonthPageTest, TwoMonthsWithDifferentMixturesAreStoredEachInItsOwnRow) {
  NameMixtures({"A", "B", "C"});
  Change(3, {{"JANUARY", true}, {"JAN_THRU", 9.0}, {"FEBRUARY", true}, {"FEB_THRU", 9.0}});
  Use(kJanuary, "1,000.5", "B");
  Use(kFebruary, "200", "A");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), (test::Rows{"1|0|0|-1|200", "2|-1|1000.5|0|0", "3|0|0|0|0"}));
}

TEST_F(MonthPageTest, EachOfTheTwelveMonthsIsStoredInItsFields) {
  NameMixtures({"A"});
  for (std::size_t month = 0; month < shell::kMonths.size(); ++month) {
    for (std::size_t other = 0; other < shell::kMonths.size(); ++other) TickMonth(session_, form_, other, false);
    Use(month, std::to_string(100 + month), "A");
    StoreMonths(session_, form_);
    auto row = session_.ClientDb->OpenAt("mixtures", "IDMIX", {form_.ID, 1});
    for (std::size_t other = 0; other < shell::kMonths.size(); ++other) {
      EXPECT_EQ(row.Bool(shell::kMonths[other].name), other == month);
      EXPECT_EQ(row.Double(shell::kMonths[other].throughput), other == month ? 100.0 + static_cast<double>(month) : 0);
    }
  }
}

TEST_F(MonthPageTest, AMonthTickedWithAnEmptyListStoresFalseAndZeroAndItsThroughputIsLost) {
  NameMixtures({"A", "B"});
  Change(2, {{"MIX NAME", store::Value()}});
  Use(kJanuary, "1000", "");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), (test::Rows{"1|0|0|0|0", "2|0|0|0|0"}));
  LoadMonths(session_, form_);
  EXPECT_FALSE(Month(kJanuary).chk.checked);
  EXPECT_EQ(Month(kJanuary).txtThru.text, "0");
}

TEST_F(MonthPageTest, AMonthWhoseMixtureIsNotThereAnyMoreStoresFalseAndZero) {
  NameMixtures({"A"});
  Use(kJanuary, "1000", "Renamed since");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), test::Rows{"1|0|0|0|0"});
}

TEST_F(MonthPageTest, AMonthThatIsNotTickedStoresFalseAndZero) {
  NameMixtures({"A"});
  Month(kJanuary).cboMix.text = "A";
  Month(kJanuary).txtThru.text = "1000";
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), test::Rows{"1|0|0|0|0"});
}

TEST_F(MonthPageTest, OfTwoMixturesOfOneNameOnlyTheFirstHoldsAMonth) {
  NameMixtures({"A", "B", "B"});
  Use(kJanuary, "1000", "B");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), (test::Rows{"1|0|0|0|0", "2|-1|1000|0|0", "3|0|0|0|0"}));
}

TEST_F(MonthPageTest, ATickedMonthWithoutAThroughputStoresZero) {
  NameMixtures({"A"});
  Use(kJanuary, "1", "A");
  Month(kJanuary).txtThru.text = "";
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), test::Rows{"1|-1|0|0|0"});
}

TEST_F(MonthPageTest, AFailureWhileTheMonthsAreStoredStoresNone) {
  NameMixtures({"A", "B"});
  Use(kJanuary, "1000", "A");
  Use(kFebruary, "2000", "B");
  Month(kFebruary).txtThru.text = "two thousand";
  EXPECT_THROW(StoreMonths(session_, form_), store::RunTimeError);
  EXPECT_EQ(Stored(), (test::Rows{"1|0|-|0|-", "2|0|-|0|-"}));
}

TEST_F(MonthPageTest, StoredMonthsAreShownAgain) {
  NameMixtures({"A", "B"});
  Change(1, {{"JANUARY", true}, {"JAN_THRU", 1234.5}});
  Change(2, {{"FEBRUARY", true}, {"FEB_THRU", 0.000001}, {"DECEMBER", true}});
  LoadMonths(session_, form_);
  EXPECT_TRUE(Month(kJanuary).chk.checked);
  EXPECT_TRUE(Month(kJanuary).txtThru.enabled);
  EXPECT_EQ(Month(kJanuary).txtThru.text, "1,234.50");
  EXPECT_TRUE(Month(kJanuary).cboMix.visible);
  EXPECT_EQ(Month(kJanuary).cboMix.text, "A");
  EXPECT_EQ(Month(kFebruary).txtThru.text, "0.000001");
  EXPECT_EQ(Month(kFebruary).cboMix.text, "B");
  EXPECT_EQ(Month(kDecember).txtThru.text, "0.00") << "a month without a stored throughput";
  EXPECT_EQ(Month(kDecember).cboMix.text, "B");
  EXPECT_FALSE(Month(kMarch).chk.checked);
  for (const auto& month : form_.months) EXPECT_EQ(month.cboMix.items, (Names{"A", "B"}));
  EXPECT_EQ(Total(), "1,234.500001");
}

TEST_F(MonthPageTest, LoadingForgetsWhatStoodThere) {
  NameMixtures({"A"});
  Use(kMarch, "77", "A");
  LoadMonths(session_, form_);
  EXPECT_FALSE(Month(kMarch).chk.checked);
  EXPECT_FALSE(Month(kMarch).txtThru.enabled);
  EXPECT_FALSE(Month(kMarch).cboMix.visible);
  EXPECT_EQ(Month(kMarch).cboMix.text, "");
  EXPECT_EQ(Total(), "0.00");
}

TEST_F(MonthPageTest, LoadingShowsTheMonthsOfAMixtureWithoutAName) {
  NameMixtures({"A", "B"});
  Change(1, {{"MIX NAME", store::Value()}});
  Change(2, {{"MARCH", true}, {"MAR_THRU", 5.0}});
  LoadMonths(session_, form_);
  EXPECT_EQ(Month(kMarch).cboMix.items, (Names{"", "B"})) << "each mixture has its place";
  EXPECT_EQ(Month(kMarch).cboMix.text, "B");
}

TEST_F(MonthPageTest, AMixtureWhoseNumberIsMissingIsPassedOver) {
  NameMixtures({"A", "B"});
  Change(2, {{"MIX ID", 3}, {"JANUARY", true}, {"JAN_THRU", 5.0}});
  LoadMonths(session_, form_);
  EXPECT_FALSE(Month(kJanuary).chk.checked) << "only numbers up to the count are sought";
  Use(kJanuary, "5", "A");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), (test::Rows{"1|-1|5|0|0", "3|-1|5|0|-"}));
}

TEST_F(MonthPageTest, AMonthIsStoredInTheMixtureOfItsNameThoughANumberIsMissing) {
  NameMixtures({"A", "B", "C"});
  session_.ClientDb->DeleteMatching("mixtures", "IDMIX", {form_.ID, 1});
  Use(kJanuary, "5", "B");
  StoreMonths(session_, form_);
  EXPECT_EQ(Stored(), (test::Rows{"2|-1|5|0|0", "3|0|-|0|-"})) << "only numbers up to the count are sought";
}

TEST_F(MonthPageTest, WhatIsStoredComesBackAsItWas) {
  NameMixtures({"A", "B", "C"});
  for (std::size_t month = 0; month < shell::kMonths.size(); ++month)
    if (month % 4 != 3) Use(month, std::to_string(1000 * month) + ".25", Names{"A", "B", "C"}[month % 3]);
  const auto entered = form_.months;
  const auto total = Total();
  StoreMonths(session_, form_);
  LoadMonths(session_, form_);
  for (std::size_t month = 0; month < shell::kMonths.size(); ++month) {
    EXPECT_EQ(Month(month).chk.checked, entered[month].chk.checked) << month;
    EXPECT_EQ(Month(month).txtThru.text, entered[month].txtThru.text) << month;
    EXPECT_EQ(Month(month).cboMix.text, entered[month].cboMix.text) << month;
  }
  EXPECT_EQ(Total(), total);
}

TEST_F(MonthPageTest, NothingIsStoredBeforeItIsSaved) {
  NameMixtures({"A"});
  Use(kJanuary, "1000", "A");
  ClickDistribute(session_, form_);
  ClickFillMixName(session_, form_);
  EXPECT_EQ(Stored(), test::Rows{"1|0|-|0|-"});
}

}  // namespace
}  // namespace orvex::entry
