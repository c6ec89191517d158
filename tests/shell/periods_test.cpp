#include "shell/periods.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "store/field_table.h"

namespace orvex::shell {
namespace {

TEST(Periods, MonthsStandFromJanuaryToDecember) {
  EXPECT_EQ(MonthIndex("January"), 0U);
  EXPECT_EQ(MonthIndex("February"), 1U);
  EXPECT_EQ(MonthIndex("December"), 11U);
}

TEST(Periods, OnlyAFullMonthNameIsAMonth) {
  for (const auto* text : {"Annual", "Monthly", "", "Jan", "JANUARY", "january", "January "})
    EXPECT_EQ(MonthIndex(text), std::nullopt) << text;
}

TEST(Periods, TheMonthsMakeAYearWithoutALeapDay) {
  EXPECT_EQ(kMonths[1].days, 28);
  const int days =
      std::accumulate(kMonths.begin(), kMonths.end(), 0, [](int sum, const Month& month) { return sum + month.days; });
  EXPECT_EQ(days, kDaysPerYear);
}

TEST(Periods, EveryMonthHasItsFieldsInTheTables) {
  const auto& mixtures = store::FindTable("mixtures");
  const auto& weather = store::FindTable("met");
  for (const auto& month : kMonths) {
    EXPECT_EQ(store::FindField(mixtures, month.name).type, store::FieldType::kBoolean) << month.name;
    EXPECT_EQ(store::FindField(mixtures, month.throughput).type, store::FieldType::kDouble) << month.name;
    for (const auto* prefix : {"TAX_", "TAN_", "INSOL_", "WIND_"}) {
      const std::string field = prefix + std::string(month.suffix);
      EXPECT_EQ(store::FindField(weather, field).name, field);
    }
  }
}

}  // namespace
}  // namespace orvex::shell
