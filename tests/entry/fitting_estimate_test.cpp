#include <string>

#include "entry/fittings_fixture.h"

namespace orvex::entry {
namespace {

using shell::Answer;

class FittingEstimateTest : public test::FittingsTest {
 protected:
  /// Opens a tank of this type with one fitting of the kind, which the reference table has.
  Frmrecfit OpenWith(std::string_view tank_type, std::string_view type, std::string_view status,
                     double reference_quantity = 3) {
    OpenFloating(tank_type, "Detail");
    test::AddRow(*session_.ReferenceDb, "fitting",
                 {{"FIT_TYPE", type},
                  {"COVR_TYPE", status.empty() ? store::Value() : store::Value(status)},
                  {"QUANTITY", reference_quantity}});
    AddFitting(1, type, status, 1);
    return OpenFrmrecfit(session_);
  }
  void Set(test::FieldValues fields) {
    auto& form = Editor(session_);
    test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, fields);
    ShowTank(session_, form);
  }
  void ExpectEstimate(const std::string& estimate, Answer answer) {
    host_.ExpectMessage("Estimated number of fittings is " + estimate + " .  Use this Estimate?", "Number of Fittings",
                        shell::Buttons::kOkCancel, shell::Icon::kNone, answer);
  }
  void ExpectEstimateOf(Frmrecfit form, const std::string& estimate) {
    ExpectEstimate(estimate, Answer::kOk);
    ClickQuantity(session_, form);
    EXPECT_EQ(form.txtQuantity.text, estimate);
    EXPECT_EQ(Row(1).Get("QUANTITY").AsText(), estimate);
  }
};

constexpr std::string_view kExternals[] = {shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof};

// Breakers at 200 ft: 3 on a pontoon roof, 2 on any other.
TEST_F(FittingEstimateTest, VacuumBreakersOfAnExternalRoofFollowDiameterAndRoofType) {
  for (const auto tank : kExternals) {
    auto form = OpenWith(tank, "Odd Vacuum thing", "");
    Set({{"DIAMETER", 200.0}, {"RF_TYPE", "Pontoon"}});
    ExpectEstimateOf(form, "3");
    Set({{"RF_TYPE", "Double Deck"}});
    ExpectEstimateOf(form, "2");
  }
}

// RoofDrains at 200 ft: none on a pontoon roof, 3 on any other.
TEST_F(FittingEstimateTest, DrainsOfAnExternalRoofFollowDiameterAndRoofType) {
  for (const auto tank : kExternals) {
    auto form = OpenWith(tank, "Odd Drain thing", "");
    Set({{"DIAMETER", 200.0}, {"RF_TYPE", "Double Deck"}});
    ExpectEstimateOf(form, "3");
    Set({{"RF_TYPE", "Pontoon"}});
    ExpectEstimateOf(form, "0");
  }
}

// At 200 ft: 30 pontoon legs, 69 center legs, 90 double deck legs.
TEST_F(FittingEstimateTest, RoofLegsOfAnExternalRoofFollowCoverAndDiameter) {
  const std::pair<std::string_view, std::string> covers[] = {
      {"Odd Pontoon leg", "30"}, {"Odd Center leg", "69"}, {"Odd Double leg", "90"}};
  for (const auto tank : kExternals) {
    for (const auto& [cover, legs] : covers) {
      auto form = OpenWith(tank, "Odd Roof Leg thing", cover);
      Set({{"DIAMETER", 200.0}, {"RF_TYPE", "Pontoon"}});
      ExpectEstimateOf(form, legs);
    }
  }
}

TEST_F(FittingEstimateTest, ARoofLegOfAnotherCoverHasItsReferenceQuantity) {
  ExpectEstimateOf(OpenWith(shell::kExternalFloatingRoof, "Odd Roof Leg thing", "Fixed leg", 12), "12");
}

TEST_F(FittingEstimateTest, ALaterRuleOverwritesAnEarlierOne) {
  auto form = OpenWith(shell::kExternalFloatingRoof, "Vacuum Drain Roof Leg", "Pontoon Center Double");
  Set({{"DIAMETER", 200.0}, {"RF_TYPE", "Double Deck"}});
  ExpectEstimateOf(form, "90");
  form = OpenWith(shell::kExternalFloatingRoof, "Vacuum Drain Roof Leg", "Pontoon Center");
  Set({{"DIAMETER", 200.0}, {"RF_TYPE", "Double Deck"}});
  ExpectEstimateOf(form, "69");
  form = OpenWith(shell::kExternalFloatingRoof, "Vacuum Drain Roof Leg", "Other");
  Set({{"DIAMETER", 300.0}, {"RF_TYPE", "Double Deck"}});
  ExpectEstimateOf(form, "7");  // drains, where 300 ft have 3 breakers
  form = OpenWith(shell::kInternalFloatingRoof, "Column Stub Drain", "");
  Set({{"DIAMETER", 100.0}, {"DECK_TYPE", "Bolted"}});
  ExpectEstimateOf(form, "80");  // stub drains, where 100 ft have 6 columns
}

TEST_F(FittingEstimateTest, ColumnsOfAnInternalTankFollowTheDiameter) {
  auto form = OpenWith(shell::kInternalFloatingRoof, "Odd Column thing", "");
  Set({{"DIAMETER", 85.0}});
  ExpectEstimateOf(form, "1");
  Set({{"DIAMETER", 85.01}});
  ExpectEstimateOf(form, "6");
}

// round(100 * 100 / 125 + 0.49) = round(80.49) = 80 on a bolted deck
TEST_F(FittingEstimateTest, StubDrainsOfAnInternalTankFollowDiameterAndDeckType) {
  auto form = OpenWith(shell::kInternalFloatingRoof, "Odd Stub Drain thing", "");
  Set({{"DECK_TYPE", "Bolted"}});
  ExpectEstimateOf(form, "80");
  Set({{"DECK_TYPE", "Welded"}});
  ExpectEstimateOf(form, "0");
}

// round((100 / 10 + 5) + 100 * 100 / 600 + 0.49) = round(32.1567) = 32
TEST_F(FittingEstimateTest, RoofLegsOfAnInternalTankFollowTheDiameterWhateverTheirCover) {
  ExpectEstimateOf(OpenWith(shell::kInternalFloatingRoof, "Odd Roof Leg thing", "Odd Pontoon leg"), "32");
}

TEST_F(FittingEstimateTest, RulesOfOneKindOfTankSayNothingOfTheOther) {
  ExpectEstimateOf(OpenWith(shell::kInternalFloatingRoof, "Odd Vacuum thing", "", 4), "4");
  ExpectEstimateOf(OpenWith(shell::kInternalFloatingRoof, "Odd Roof Drain thing", "", 5), "5");
  ExpectEstimateOf(OpenWith(shell::kExternalFloatingRoof, "Odd Column thing", "", 6), "6");
}

TEST_F(FittingEstimateTest, NamesAreMatchedWithRegardToCase) {
  ExpectEstimateOf(OpenWith(shell::kInternalFloatingRoof, "Odd column thing", "", 4), "4");
}

TEST_F(FittingEstimateTest, AnyOtherFittingHasItsReferenceQuantity) {
  ExpectEstimateOf(OpenWith(shell::kInternalFloatingRoof, "Odd thing", "Odd cover", 7), "7");
}

TEST_F(FittingEstimateTest, TheAnswerCancelLeavesTheQuantityAlone) {
  auto form = OpenWith(shell::kInternalFloatingRoof, "Odd thing", "", 7);
  ExpectEstimate("7", Answer::kCancel);
  ClickQuantity(session_, form);
  EXPECT_EQ(form.txtQuantity.text, "1");
  EXPECT_EQ(Row(1).Double("QUANTITY"), 1);
}

TEST_F(FittingEstimateTest, AFittingWithoutTypeOrStatusIsNotFound) {
  const std::string not_found = "Fitting was not found.  Please make sure you have specified a fitting and status.";
  OpenFloating(shell::kInternalFloatingRoof, "Detail");
  auto form = OpenFrmrecfit(session_);
  host_.ExpectMessage(not_found);
  ClickQuantity(session_, form);
  ChooseType(form, test::kHatch);
  host_.ExpectMessage(not_found);
  ClickQuantity(session_, form);
  ChooseStatus(form, test::kHatchBolted);
  ExpectEstimate("1", Answer::kCancel);
  ClickQuantity(session_, form);
}

TEST_F(FittingEstimateTest, ACountBeyondALongIsReportedAndOfferedAsNone) {
  auto form = OpenWith(shell::kInternalFloatingRoof, "Odd Roof Leg thing", "");
  Set({{"DIAMETER", 1e9}});
  host_.ExpectError(6, "modEmission.LegsIFRT");
  ExpectEstimate("0", Answer::kCancel);
  ClickQuantity(session_, form);
}

TEST_F(FittingEstimateTest, ADiameterThatIsNoNumberIsReported) {
  auto form = OpenWith(shell::kInternalFloatingRoof, "Odd Roof Leg thing", "");
  At(Editor(session_), "txtDiameterIT").box.text = "wide";
  host_.ExpectError(13, "frmRecFit.");
  ClickQuantity(session_, form);
}

}  // namespace
}  // namespace orvex::entry
