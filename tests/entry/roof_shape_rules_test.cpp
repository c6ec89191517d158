#include "entry/physical_page_test.h"

namespace orvex::entry {
namespace {

using shell::Answer;

class RoofShapeTest : public test::PhysicalPageTest {
 protected:
  void SetUp() override { OpenTank(shell::kVerticalFixedRoof); }
  bool IsVisible(const std::string& control) { return At(Editor(session_), control).box.visible; }
};

// Leaving the diameter under a cone roof

TEST_F(RoofShapeTest, ADiameterSetsTheUsualSlopeSilentlyWhereThereIsNone) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtRoofHeightVT", "2"}});
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
  EXPECT_EQ(Stored("C_SLOPE").AsDouble(), 0.0625);
}

TEST_F(RoofShapeTest, AMissingDiameterSetsTheUsualSlopeSilently) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtDiameterVT", "30"}, {"txtConeSlopeVT", "0.5"}});
  Leave("txtDiameterVT", "0");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
}

TEST_F(RoofShapeTest, ADiameterProposesTheSlopeThatTheRoofsHeightMakes) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", "0.0625"}});
  // 2 / 15 * 100 = 13.33
  ExpectProposal("The calculated cone roof slope value is 0.13(ft/ft). Use This Value?", "Cone Roof Slope",
                 Answer::kNo);
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
  // 2 / 16 * 100 = 12.5, halfway between 12 and 13: the even one
  ExpectProposal("The calculated cone roof slope value is 0.12(ft/ft). Use This Value?", "Cone Roof Slope",
                 Answer::kYes);
  Leave("txtDiameterVT", "32");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.12");
}

TEST_F(RoofShapeTest, ADiameterProposesTheUsualSlopeWhileTheRoofHasNoHeight) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtConeSlopeVT", "0.5"}});
  ExpectProposal("The default cone roof slope value is 0.0625 (ft/ft). Use This Value?", "Cone Roof Slope",
                 Answer::kYes);
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
}

TEST_F(RoofShapeTest, ADiameterProposesNoSlopeThatIsThere) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", ".130"}});
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtConeSlopeVT"), ".130");
}

TEST_F(RoofShapeTest, ADiameterThatIsNotChangedProposesNoSlope) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtDiameterVT", "30"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", "0.5"}});
  Leave("txtDiameterVT", "30");
}

TEST_F(RoofShapeTest, ADiameterWithoutARoofTypeProposesNothing) {
  Given({{"txtRoofHeightVT", "2"}, {"txtDomeRadiusVT", "50"}});
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0");
}

TEST_F(RoofShapeTest, ASlopeOutOfRangeIsReported) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", "0.5"}});
  host_.ExpectError(6, "frmTank.CheckLostFocus");
  Leave("txtDiameterVT", "1e-9");
}

// Leaving the diameter under a dome roof

TEST_F(RoofShapeTest, ADiameterProposesItselfForTheRadius) {
  Given({{"cboRoofTypeVT", "Dome"}, {"txtDomeRadiusVT", "40"}});
  ExpectProposal("The default dome roof radius value is 30(ft). Use This Value?", "Dome Roof Radius", Answer::kNo);
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "40");
  ExpectProposal("The default dome roof radius value is 31.5(ft). Use This Value?", "Dome Roof Radius", Answer::kYes);
  Leave("txtDiameterVT", "31.5");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "31.5");
  EXPECT_EQ(Stored("D_RADIUS").AsDouble(), 31.5);
}

TEST_F(RoofShapeTest, ARadiusIsComparedAsAText) {
  Given({{"cboRoofTypeVT", "Dome"}, {"txtDomeRadiusVT", "30.0"}});
  ExpectProposal("The default dome roof radius value is 30(ft). Use This Value?", "Dome Roof Radius", Answer::kNo);
  Leave("txtDiameterVT", "30");
  Given({{"txtDomeRadiusVT", "35"}});
  Leave("txtDiameterVT", "35");
}

TEST_F(RoofShapeTest, ADiameterLeavesAMissingRadiusAlone) {
  Given({{"cboRoofTypeVT", "Dome"}});
  Leave("txtDiameterVT", "30");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "0");
}

TEST_F(RoofShapeTest, ADiameterThatIsNotChangedProposesNoRadius) {
  Given({{"cboRoofTypeVT", "Dome"}, {"txtDiameterVT", "30"}, {"txtDomeRadiusVT", "40"}});
  Leave("txtDiameterVT", "30");
}

TEST_F(RoofShapeTest, ADiameterAsksForTheRadiusBeforeTheVolume) {
  Given({{"cboRoofTypeVT", "Dome"}, {"txtDomeRadiusVT", "40"}, {"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5"}});
  ExpectProposal("The default dome roof radius value is 10(ft). Use This Value?", "Dome Roof Radius", Answer::kYes);
  ExpectProposal("The calculated volume is 11,750.41143. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtDiameterVT", "10");
}

TEST_F(RoofShapeTest, ADiameterAsksForTheSlopeBeforeTheVolume) {
  Given({{"cboRoofTypeVT", "Cone"}, {"txtConeSlopeVT", "0.5"}, {"txtMaxLiquidHeightVT", "20"}, {"txtVolumeVT", "5"}});
  ExpectProposal("The default cone roof slope value is 0.0625 (ft/ft). Use This Value?", "Cone Roof Slope",
                 Answer::kNo);
  ExpectProposal("The calculated volume is 11,750.41143. Use This Value?", "Recalculate?", Answer::kNo);
  Leave("txtDiameterVT", "10");
}

// Entering the slope

TEST_F(RoofShapeTest, EnteringAMissingSlopeProposesTheCalculatedOne) {
  Given({{"txtDiameterVT", "30"}, {"txtRoofHeightVT", "2"}});
  ExpectProposal("The calculated value is 0.13. Use This Value?", "Recalculate?", Answer::kYes);
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.13");
  EXPECT_EQ(Stored("C_SLOPE").AsDouble(), 0.13);
}

TEST_F(RoofShapeTest, EnteringAMissingSlopeProposesTheUsualOneWithoutHeightOrDiameter) {
  ExpectProposal("The default value is 0.0625. Use This Value?", "Recalculate?", Answer::kNo);
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0");
  Given({{"txtRoofHeightVT", "2"}});
  ExpectProposal("The default value is 0.0625. Use This Value?", "Recalculate?", Answer::kNo);
  Enter("txtConeSlopeVT");
  Given({{"txtRoofHeightVT", "0"}, {"txtDiameterVT", "30"}});
  ExpectProposal("The default value is 0.0625. Use This Value?", "Recalculate?", Answer::kYes);
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
  EXPECT_EQ(Stored("C_SLOPE").AsDouble(), 0.0625);
}

TEST_F(RoofShapeTest, EnteringASlopeThatDiffersAsksTheSame) {
  Given({{"txtDiameterVT", "30"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", "0.5"}});
  ExpectProposal("The calculated value is 0.13. Use This Value?", "Recalculate?", Answer::kNo);
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.5");
  Given({{"txtRoofHeightVT", "0"}});
  ExpectProposal("The default value is 0.0625. Use This Value?", "Recalculate?", Answer::kYes);
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.0625");
}

TEST_F(RoofShapeTest, EnteringASlopeThatFitsOrCannotBeComparedAsksNothing) {
  Given({{"txtDiameterVT", "30"}, {"txtRoofHeightVT", "2"}, {"txtConeSlopeVT", "0.13"}});
  Enter("txtConeSlopeVT");
  Given({{"txtDiameterVT", "0"}, {"txtConeSlopeVT", "0.5"}});
  Enter("txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.5");
}

TEST_F(RoofShapeTest, ASlopeOutOfRangeIsReportedUnderTheEntry) {
  Given({{"txtDiameterVT", "1e-9"}, {"txtRoofHeightVT", "2"}});
  host_.ExpectError(6, "frmTank.txtConeSlopeVT_GotFocus");
  Enter("txtConeSlopeVT");
}

// Entering the radius

TEST_F(RoofShapeTest, EnteringAMissingRadiusProposesTheDiameter) {
  Given({{"txtDiameterVT", "30"}});
  ExpectProposal("The default value is 30. Use This Value?", "Recalculate?", Answer::kYes);
  Enter("txtDomeRadiusVT");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "30");
  Enter("txtDomeRadiusVT");
}

TEST_F(RoofShapeTest, EnteringARadiusThatIsNotTheDiameterInTextProposesIt) {
  Given({{"txtDiameterVT", "30"}, {"txtDomeRadiusVT", "30.0"}});
  ExpectProposal("The default value is 30. Use This Value?", "Recalculate?", Answer::kNo);
  Enter("txtDomeRadiusVT");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "30.0");
}

TEST_F(RoofShapeTest, EnteringARadiusOfATankWithoutDiameterProposesZero) {
  ExpectProposal("The default value is 0. Use This Value?", "Recalculate?", Answer::kYes);
  Enter("txtDomeRadiusVT");
  EXPECT_EQ(Shown("txtDomeRadiusVT"), "0");
}

// Roof type

TEST_F(RoofShapeTest, ADomeShowsItsRadiusAloneAndAConeItsSlope) {
  EXPECT_TRUE(IsVisible("txtConeSlopeVT"));
  EXPECT_TRUE(IsVisible("txtDomeRadiusVT"));
  Choose("cboRoofTypeVT", "Dome");
  EXPECT_FALSE(IsVisible("txtConeSlopeVT"));
  EXPECT_TRUE(IsVisible("txtDomeRadiusVT"));
  Choose("cboRoofTypeVT", "Cone");
  EXPECT_TRUE(IsVisible("txtConeSlopeVT"));
  EXPECT_FALSE(IsVisible("txtDomeRadiusVT"));
}

}  // namespace
}  // namespace orvex::entry
