#include "orvex-report/list_text.h"

#include <gtest/gtest.h>

#include "orvex-report/failure.h"

namespace orvex::report_app {
namespace {

using List = std::vector<std::string>;

TEST(ListText, SplitsAtCommasAndTakesOffBlanks) {
  EXPECT_EQ(SplitList("T-1, T 2 ,T-3"), (List{"T-1", "T 2", "T-3"}));
  EXPECT_EQ(SplitList("one"), (List{"one"}));
}

TEST(ListText, QuotedItemsMayHoldCommasQuotesAndBlanks) {
  EXPECT_EQ(SplitList(R"("T-1, north",T-2)"), (List{"T-1, north", "T-2"}));
  EXPECT_EQ(SplitList(R"( "6"" line" , " x ")"), (List{"6\" line", " x "}));
}

TEST(ListText, EmptyItemsCountOnlyWhenQuoted) {
  EXPECT_EQ(SplitList(",a,, ,b,"), (List{"a", "b"}));
  EXPECT_EQ(SplitList(R"("")"), (List{""}));
  EXPECT_EQ(SplitList(""), List{});
}

TEST(ListText, AQuoteInsideAnItemStandsForItself) { EXPECT_EQ(SplitList("6\" line,b"), (List{"6\" line", "b"})); }

TEST(ListText, RefusesQuotesThatDoNotMatch) {
  EXPECT_THROW(SplitList("\"open"), Failure);
  EXPECT_THROW(SplitList("\"closed\" early,b"), Failure);
}

}  // namespace
}  // namespace orvex::report_app
