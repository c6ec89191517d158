#include "orvex-report/tank_table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "orvex-report/error_rows.h"
#include "support/test_databases.h"

namespace orvex::report_app {
namespace {

TEST(TankTable, ListsTanksWithTheirTypes) {
  std::ostringstream out;
  PrintTankList({{1, "Öl", "Horizontal Tank"}, {2, "T\x1B-2", "Vertical Fixed Roof Tank"}}, out);
  EXPECT_EQ(out.str(),
            "USER ID  Type\n"
            "Öl       Horizontal Tank\n"
            "T\\x1B-2  Vertical Fixed Roof Tank\n");
}

TEST(TankTable, SumsThePrimaryRowsOfEachTank) {
  test::TestSession test;
  const auto add = [&](std::int32_t id, const char* user_id, const char* type, bool primary, const char* month,
                       test::FieldValues losses) {
    test::AddRow(test.client(), "emission",
                 {{"ID", id}, {"USER ID", user_id}, {"TANK_TYPE", type}, {"PRIMARY", primary}, {"MONTH", month}});
    auto rows = test.client().OpenTable("emission");
    rows.MoveLast();
    rows.Edit();
    for (const auto& [name, value] : losses) rows.Set(name, value);
    rows.Update();
  };
  add(1, "V", "Vertical Fixed Roof Tank", true, "January", {{"S_LOSS", 1000.0}, {"W_LOSS", 100.0}});
  add(1, "V", "Vertical Fixed Roof Tank", true, "March", {{"S_LOSS", 200.0}, {"W_LOSS", 50.5}});
  add(1, "V", "Vertical Fixed Roof Tank", false, "March", {{"S_LOSS", 200.0}, {"W_LOSS", 50.5}});
  add(2, "E", "External Floating Roof Tank", true, "January",
      {{"RIM_LOSS", 1.0}, {"WD_LOSS", 2.0}, {"DECKF_LOSS", 3.0}, {"DECKS_LOSS", 4.0}});
  add(3, "Other", "Horizontal Tank", true, "January", {{"S_LOSS", 7.0}});
  std::ostringstream out;
  PrintLossTable(test.client(),
                 {{1, "V", "Vertical Fixed Roof Tank"}, {2, "E", "External Floating Roof Tank"}, {4, "N", "Odd"}},
                 "January, March", out);
  // V: 1000 + 200 standing, 100 + 50.5 working; E: 1 + 2 + 3 + 4. The tank Other was not chosen.
  EXPECT_EQ(out.str(),
            "Losses in pounds: January, March\n"
            "\n"
            "USER ID  Type  Total lb  Standing  Working  Rim seal  Withdrawal  Deck fitting  Deck seam\n"
            "V        VFRT  1,350.50  1,200.00   150.50         -           -             -          -\n"
            "E        EFRT     10.00         -        -      1.00        2.00          3.00       4.00\n"
            "N        Odd       0.00         -        -      0.00        0.00          0.00       0.00\n"
            "Total          1,360.50  1,200.00   150.50      1.00        2.00          3.00       4.00\n");
}

TEST(ErrorRows, PrintTheTankAndTheText) {
  test::TestSession test;
  test::AddRow(test.client(), "error", {{"ID", 1}, {"USER ID", "T\x1B"}, {"error", "The tank must have fittings."}});
  test::AddRow(test.client(), "error", {{"ID", 2}, {"USER ID", "B"}, {"error", "Shell length cannot be zero."}});
  std::ostringstream out;
  PrintErrorRows(test.client(), "warning: ", out);
  EXPECT_EQ(out.str(),
            "warning: T\\x1B: The tank must have fittings.\n"
            "warning: B: Shell length cannot be zero.\n");
}

}  // namespace
}  // namespace orvex::report_app
