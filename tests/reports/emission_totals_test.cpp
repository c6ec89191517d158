#include "reports/emission_totals.h"

#include <gtest/gtest.h>

#include "reports/detail_fixture.h"
#include "reports/detail_summary.h"
#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

using store::Value;
using test::Strings;

class EmissionTotalsTest : public test::DetailPages {
 protected:
  pugi::xml_node Page(const DetailTank& tank) {
    page_ = document_.append_child("Tank");
    SummedTanks summed({tank.id});
    DetailReportPage4(test_.session, tank, summed, page_);
    return page_.child("EmissionTotals");
  }
  /// "name total" of each line.
  Strings Lines(const DetailTank& tank) {
    Strings lines;
    for (const auto& line : Page(tank).children("COMPONENT"))
      lines.push_back(std::string(line.child_value("NAME")) + " " + line.child_value("TotalEmissions"));
    return lines;
  }
  pugi::xml_node Summary(std::initializer_list<std::string> tanks) {
    test_.session.TankList = tanks;
    auto summary = document_.append_child("Summary");
    DetailSummaryPage(test_.session, summary);
    return summary;
  }
};

TEST_F(EmissionTotalsTest, OfAFixedRoof) {
  // 12.344 + 0.004 is 12.348: the total is that of the unrounded losses.
  AddEmission(1, shell::kVerticalFixedRoof, {{"W_LOSS", 1012.344}, {"S_LOSS", 0.004}, {"RIM_LOSS", 5.0}});
  EXPECT_EQ(Xml(Page(Annual(1))),
            "<COMPONENT Type=\"Vertical Fixed Roof Tank\"><NAME>Benzene</NAME><WorkingLoss>1,012.34</WorkingLoss>"
            "<BreathingLoss>0.00</BreathingLoss><TotalEmissions>1,012.35</TotalEmissions></COMPONENT>");
}

TEST_F(EmissionTotalsTest, OfAFloatingRoofWithAComponentIndentedByEight) {
  AddEmission(1, shell::kDomedExternalFloatingRoof,
              {{"PRIMARY", false},
               {"RIM_LOSS", 1.0},
               {"WD_LOSS", 2.0},
               {"DECKF_LOSS", 3.0},
               {"DECKS_LOSS", 4.0},
               {"W_LOSS", 9.0}});
  EXPECT_EQ(Xml(Page(Annual(1))), "<COMPONENT Type=\"Domed External Floating Roof Tank\"><NAME>" + test::Nbsp(8) +
                                      "Benzene</NAME><RimSealLoss>1.00</RimSealLoss><WithdrawlLoss>2.00</WithdrawlLoss>"
                                      "<DeckFittingLoss>3.00</DeckFittingLoss><DeckSeamLoss>4.00</DeckSeamLoss>"
                                      "<TotalEmissions>10.00</TotalEmissions></COMPONENT>");
}

TEST_F(EmissionTotalsTest, AnAnnualTankHasItsLinesInTheOrderStored) {
  AddEmission(1, shell::kHorizontal, {{"MIX ID", 2}, {"NAME", "Second"}, {"W_LOSS", 2.0}});
  AddEmission(2, shell::kHorizontal, {{"NAME", "Other tank"}});
  AddEmission(1, shell::kHorizontal, {{"PRIMARY", false}, {"NAME", "Toluene"}, {"W_LOSS", 0.5}});
  AddEmission(1, shell::kHorizontal, {{"NAME", "First"}, {"W_LOSS", 1.0}});
  EXPECT_EQ(Lines(Annual(1)), (Strings{"Second 2.00", test::Nbsp(8) + "Toluene 0.50", "First 1.00"}));
}

TEST_F(EmissionTotalsTest, AMonthlyTankHasSumsOverItsMonthsInTheOrderOfItsMixtures) {
  for (const std::int32_t mix_id : {2, 1}) {
    AddEmission(1, shell::kHorizontal,
                {{"MIX ID", mix_id}, {"PRIMARY", false}, {"NAME", "P"}, {"MONTH", "May"}, {"W_LOSS", 0.25 * mix_id}});
    for (const auto* month : {"May", "June"})
      AddEmission(1, shell::kHorizontal,
                  {{"MIX ID", mix_id}, {"NAME", "M"}, {"MONTH", month}, {"W_LOSS", 1.0 * mix_id}, {"S_LOSS", 10.0}});
  }
  // Mixture 1: 2 x 1 + 2 x 10; mixture 2: 2 x 2 + 2 x 10.
  EXPECT_EQ(Lines(Monthly(1)), (Strings{"M 22.00", test::Nbsp(8) + "P 0.25", "M 24.00", test::Nbsp(8) + "P 0.50"}));
}

TEST_F(EmissionTotalsTest, ATankWithoutRowsHasAnEmptyElement) {
  EXPECT_EQ(Xml(Page(Annual(1))), "");
  EXPECT_TRUE(page_.child("EmissionTotals"));
  EXPECT_EQ(Xml(Page(Monthly(1))), "");
}

TEST_F(EmissionTotalsTest, AFailureIsReportedForThePage) {
  test_.client().DeleteTable("emission");
  test_.host.ExpectError(3011, "frmPreview.DetailReportPage4");
  EXPECT_FALSE(Page(Annual(1)));
}

TEST_F(EmissionTotalsTest, TheRollUpAddsThePrimaryLinesOfEachTank) {
  AddEmission(1, shell::kVerticalFixedRoof,
              {{"USER ID", "V"},
               {"COMPANY", "Acme"},
               {"CITY", "Enid"},
               {"STATE", "OK"},
               {"S_LOSS", 1000.0},
               {"W_LOSS", 0.25},
               {"RIM_LOSS", 7.0}});
  AddEmission(1, shell::kVerticalFixedRoof, {{"USER ID", "V"}, {"PRIMARY", false}, {"S_LOSS", 500.0}});
  AddEmission(2, shell::kExternalFloatingRoof,
              {{"USER ID", "E"},
               {"COMPANY", "Acme"},
               {"CITY", "Enid"},
               {"STATE", "OK"},
               {"RIM_LOSS", 1.0},
               {"WD_LOSS", 2.0},
               {"DECKF_LOSS", 3.0},
               {"DECKS_LOSS", 4.0},
               {"W_LOSS", 7.0}});
  EXPECT_EQ(Xml(Summary({"E", "V"})),
            "<TankSum id=\"E\" company=\"Acme\" type=\"External Floating Roof Tank\" location=\"Enid, OK\" "
            "loss=\"10.00\"/><TankSum id=\"V\" company=\"Acme\" type=\"Vertical Fixed Roof Tank\" "
            "location=\"Enid, OK\" loss=\"1,000.25\"/><Total>1,010.25</Total>");
}

TEST_F(EmissionTotalsTest, ALocationWithoutCityBeginsWithTheComma) {
  AddEmission(1, shell::kVerticalFixedRoof, {{"USER ID", "A"}, {"CITY", Value()}, {"STATE", "OK"}});
  AddEmission(2, shell::kVerticalFixedRoof, {{"USER ID", "B"}, {"CITY", "Enid"}, {"STATE", Value()}});
  const auto summary = Summary({"A", "B"});
  EXPECT_STREQ(summary.first_element_by_path("TankSum").attribute("location").value(), ", OK");
  EXPECT_STREQ(summary.find_child_by_attribute("id", "B").attribute("location").value(), "Enid, ");
}

TEST_F(EmissionTotalsTest, AFailureInTheRollUpIsReported) {
  test_.client().DeleteTable("emission");
  test_.host.ExpectError(3011, "frmPreview.DetailSummaryPage");
  Summary({"A", "B"});
}

}  // namespace
}  // namespace orvex::reports
