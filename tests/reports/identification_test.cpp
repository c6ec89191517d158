#include "reports/identification.h"

#include <gtest/gtest.h>

#include "reports/detail_fixture.h"

namespace orvex::reports {
namespace {

using store::Value;
using test::Strings;

class IdentificationTest : public test::DetailPages {
 protected:
  /// The element `PhysicalChar` of the page on a tank.
  pugi::xml_node Physical(std::int32_t ID) {
    page_ = document_.append_child("Tank");
    DetailReportPage1(test_.session, Annual(ID), page_);
    return page_.child("PhysicalChar");
  }
  void Change(std::int32_t ID, std::string_view field, const Value& value) {
    test::ChangeTank(test_.client(), ID, {{field, value}});
  }
};

TEST_F(IdentificationTest, NamesTheTankAndItsType) {
  const auto ID = test::AddVerticalTank(test_, {{"USER ID", " T-1 "}});
  Physical(ID);
  const auto texts = Texts(page_);
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0], "TankName=T-1   -   Vertical Fixed Roof Tank");
  EXPECT_EQ(texts[1], "TankType=Vertical Fixed Roof Tank");
}

TEST_F(IdentificationTest, OfAVerticalTank) {
  const auto ID = test::AddVerticalTank(test_, {{"USER ID", "V"},
                                                {"CITY", "Enid"},
                                                {"STATE", "Oklahoma"},
                                                {"COMPANY", "Acme"},
                                                {"DESC", "By the gate"},
                                                {"HEATED", true}});
  const std::string type = " Type=\"Vertical Fixed Roof Tank\">";
  EXPECT_EQ(Xml(Physical(ID)),
            "<Identification><UserID>V</UserID><City>Enid</City><State>Oklahoma</State><Company>Acme</Company>"
            "<TankType>Vertical Fixed Roof Tank</TankType><Description>By the gate</Description></Identification>"
            "<Dimensions" +
                type +
                "<ShellHeight>20.00</ShellHeight><Diameter>20.00</Diameter><LiquidHeight>18.00</LiquidHeight>"
                "<AveLiquidHeight>10.00</AveLiquidHeight><Volume>42,000.00</Volume><Turnovers>10.00</Turnovers>"
                "<NetThroughput>420,000.00</NetThroughput><Heated>Y</Heated></Dimensions>"
                "<PaintChar" +
                type +
                "<ShellColor>White/White</ShellColor><ShellCondition>Good</ShellCondition>"
                "<RoofColor>White/White</RoofColor><RoofCondition>Good</RoofCondition></PaintChar>"
                "<RoofChar" +
                type +
                "<Type>Cone</Type><Height>0.00</Height><Size>0.06</Size></RoofChar>"
                "<BreatherVent" +
                type +
                "<Vacuum>-0.03</Vacuum><Pressure>0.03</Pressure></BreatherVent>"
                "<MeteorologicalData>Sampleton, Ohio (Avg Atmospheric Pressure = 14 psia)</MeteorologicalData>");
}

TEST_F(IdentificationTest, OfAHorizontalTank) {
  const auto physical = Physical(test::AddHorizontalTank(test_));
  EXPECT_EQ(Texts(physical), (Strings{"Identification=", "Dimensions=", "PaintChar=", "BreatherVent=",
                                      "MeteorologicalData=Sampleton, Ohio (Avg Atmospheric Pressure = 14 psia)"}));
  EXPECT_EQ(Texts(physical.child("Dimensions")),
            (Strings{"ShellLength=20.00", "Diameter=10.00", "Volume=10,800.00", "Turnovers=10.00",
                     "NetThroughput=108,000.00", "Heated=N", "Underground=N"}));
  EXPECT_EQ(Texts(physical.child("PaintChar")), (Strings{"ShellColor=White/White", "ShellCondition=Good"}));
}

TEST_F(IdentificationTest, OfAnInternalTank) {
  const auto physical = Physical(test::AddInternalTank(test_));
  EXPECT_EQ(Texts(physical.child("Dimensions")), (Strings{"Diameter=100.00", "Volume=1,000,000.00", "Turnovers=12.00",
                                                          "SuppRoof=N", "NumCols=6.00", "ColDiam=1.10"}));
  EXPECT_EQ(Texts(physical.child("PaintChar")),
            (Strings{"InternalCondition=Light Rust", "ShellColor=White/White", "ShellCondition=Good",
                     "RoofColor=White/White", "RoofCondition=Good"}));
  EXPECT_EQ(Texts(physical.child("RimSeal")), (Strings{"Primary=Mechanical Shoe", "Secondary=None"}));
  EXPECT_EQ(Texts(physical.child("DeckChar")), (Strings{"Fitting=Detail", "Type=Bolted", "Construction=Sheet",
                                                        "DeckSeam=Sheet: 5 Ft Wide", "SeamLength=0.00"}));
  EXPECT_EQ(Attributes(physical.child("DeckChar")), (Strings{"Type=Internal Floating Roof Tank"}));
  EXPECT_TRUE(Attributes(physical.child("DeckFitting")).empty());
}

TEST_F(IdentificationTest, OfAnExternalTankAndOfOneUnderADome) {
  for (const auto ID : {test::AddExternalTank(test_), test::AddDomedTank(test_)}) {
    const auto physical = Physical(ID);
    EXPECT_EQ(Texts(physical.child("Dimensions")),
              (Strings{"Diameter=100.00", "Volume=1,000,000.00", "Turnovers=12.00"}));
    EXPECT_EQ(Texts(physical.child("PaintChar")),
              (Strings{"InternalCondition=Light Rust", "ShellColor=White/White", "ShellCondition=Good"}));
    // A text that goes through a number's format stands unchanged.
    EXPECT_EQ(Texts(physical.child("RoofChar")), (Strings{"Type=Pontoon", "Category=Detail"}));
    EXPECT_EQ(Texts(physical.child("RimSeal")),
              (Strings{"Construction=Welded", "Primary=Mechanical Shoe", "Secondary=None"}));
  }
}

TEST_F(IdentificationTest, AConeHasItsSlopeADomeItsRadiusAndAFlatRoofNoSize) {
  const auto ID = test::AddVerticalTank(test_, {{"C_SLOPE", 0.125}, {"D_RADIUS", 22.5}});
  EXPECT_STREQ(Physical(ID).child("RoofChar").child_value("Size"), "0.13");
  Change(ID, "RF_TYPE", "Dome");
  EXPECT_STREQ(Physical(ID).child("RoofChar").child_value("Size"), "22.50");
  Change(ID, "RF_TYPE", "Flat");
  EXPECT_EQ(Texts(Physical(ID).child("RoofChar")), (Strings{"Type=Flat", "Height=0.00"}));
}

TEST_F(IdentificationTest, ARoofTypeSpeltInAnotherWayHasNoSize) {
  for (const auto* type : {"CONE", "dome", "Cone "}) {
    const auto ID = test::AddVerticalTank(test_, {{"RF_TYPE", type}});
    EXPECT_FALSE(Physical(ID).child("RoofChar").child("Size")) << type;
  }
}

TEST_F(IdentificationTest, TheFormIsThatOfTheTypeWhateverItsCaseAndBlanks) {
  const auto ID = test::AddInternalTank(test_, {{"TANK_TYPE", " INTERNAL floating roof Tank "}});
  const auto physical = Physical(ID);
  EXPECT_EQ(Texts(physical.child("DeckChar")).size(), 5U);
  EXPECT_EQ(Attributes(physical.child("DeckChar")), (Strings{"Type= INTERNAL floating roof Tank "}));
  EXPECT_STREQ(page_.child_value("TankType"), " INTERNAL floating roof Tank ");
  EXPECT_TRUE(std::string(page_.child_value("TankName")).ends_with("   -   INTERNAL floating roof Tank"));
}

TEST_F(IdentificationTest, WithoutColumnsTheirDiameterIsZeroWhateverIsStored) {
  const auto ID = test::AddInternalTank(test_, {{"COL_NO", 0.0}, {"COL_DIAM", 1.1}});
  EXPECT_STREQ(Physical(ID).child("Dimensions").child_value("ColDiam"), "0.00");
  EXPECT_STREQ(Physical(ID).child("Dimensions").child_value("NumCols"), "0.00");
  Change(ID, "COL_NO", -1.0);
  EXPECT_STREQ(Physical(ID).child("Dimensions").child_value("ColDiam"), "0.00");
  Change(ID, "COL_NO", Value());
  EXPECT_STREQ(Physical(ID).child("Dimensions").child_value("ColDiam"), "0.00");
  EXPECT_FALSE(Physical(ID).child("Dimensions").child("NumCols"));
}

TEST_F(IdentificationTest, OnlyABoltedDeckHasSeams) {
  const auto ID = test::AddInternalTank(test_, {{"DECK_TYPE", "Welded"}});
  EXPECT_EQ(Texts(Physical(ID).child("DeckChar")), (Strings{"Fitting=Detail", "Type=Welded"}));
  Change(ID, "DECK_TYPE", "boLTed");
  EXPECT_EQ(Texts(Physical(ID).child("DeckChar")).size(), 5U);
  Change(ID, "DECK_TYPE", "Bolted ");
  EXPECT_EQ(Texts(Physical(ID).child("DeckChar")), (Strings{"Fitting=Detail", "Type=Bolted "}));
}

TEST_F(IdentificationTest, ANullTextOrFlagLeavesOutItsElementAlone) {
  const auto ID = test::AddHorizontalTank(test_);
  Change(ID, "SHL COLSHD", Value());
  EXPECT_EQ(Texts(Physical(ID).child("PaintChar")), (Strings{"ShellCondition=Good"}));
  Change(ID, "HEATED", Value());
  EXPECT_EQ(Texts(Physical(ID).child("Dimensions")),
            (Strings{"ShellLength=20.00", "Diameter=10.00", "Volume=10,800.00", "Turnovers=10.00",
                     "NetThroughput=108,000.00", "Underground=N"}));
}

TEST_F(IdentificationTest, ANullNumberLeavesOutItsElementAlone) {
  const auto ID = test::AddVerticalTank(test_);
  Change(ID, "HEIGHT ML", Value());
  EXPECT_EQ(Texts(Physical(ID).child("Dimensions")),
            (Strings{"ShellHeight=20.00", "Diameter=20.00", "AveLiquidHeight=10.00", "Volume=42,000.00",
                     "Turnovers=10.00", "NetThroughput=420,000.00", "Heated=N"}));
}

TEST_F(IdentificationTest, ANullOfThePlaceGivesAnEmptyElement) {
  const auto ID = test::AddVerticalTank(test_, {{"USER ID", "V"}});
  EXPECT_EQ(Texts(Physical(ID).child("Identification")),
            (Strings{"UserID=V", "City=", "State=", "Company=", "TankType=Vertical Fixed Roof Tank", "Description="}));
}

TEST_F(IdentificationTest, FittingsComeInTheirOrderWithTheTanksCategory) {
  const auto ID = test::AddExternalTank(test_);
  test::AddFitting(test_.client(), ID, 3, {{"FIT_TYPE", "Leg"}, {"COVR_TYPE", "Open"}, {"QUANTITY", 12.0}});
  test::AddFitting(test_.client(), ID, 2, {{"FIT_TYPE", "Drain"}, {"COVR_TYPE", "90%"}, {"QUANTITY", 2.0}});
  EXPECT_EQ(Xml(Physical(ID).child("DeckFitting")),
            "<Fitting FitType=\"Access Hatch (24-in. Diam.)\" CoverType=\"Bolted Cover, Gasketed\" Quantity=\"1.00\">"
            "Detail</Fitting>"
            "<Fitting FitType=\"Drain\" CoverType=\"90%\" Quantity=\"2.00\">Detail</Fitting>"
            "<Fitting FitType=\"Leg\" CoverType=\"Open\" Quantity=\"12.00\">Detail</Fitting>");
}

TEST_F(IdentificationTest, ANullCoverRepeatsTheOneBeforeAndIsEmptyInTheFirstRow) {
  const auto ID = test::AddExternalTank(test_);
  test::ChangeRow(test_.client(), "fittings", "fitid", {ID, 1}, {{"COVR_TYPE", Value()}});
  test::AddFitting(test_.client(), ID, 2, {{"COVR_TYPE", "Open"}});
  test::AddFitting(test_.client(), ID, 3, {{"COVR_TYPE", Value()}});
  Strings covers;
  for (const auto& fitting : Physical(ID).child("DeckFitting").children("Fitting"))
    covers.emplace_back(fitting.attribute("CoverType").value());
  EXPECT_EQ(covers, (Strings{"", "Open", "Open"}));
}

TEST_F(IdentificationTest, ANullTypeOrQuantityOfAFittingLeavesOutItsAttributeAlone) {
  const auto ID = test::AddExternalTank(test_);
  const auto fitting = [&] { return Attributes(Physical(ID).child("DeckFitting").child("Fitting")); };
  const std::string type = "FitType=Access Hatch (24-in. Diam.)", cover = "CoverType=Bolted Cover, Gasketed";
  test::ChangeRow(test_.client(), "fittings", "fitid", {ID, 1}, {{"QUANTITY", Value()}});
  EXPECT_EQ(fitting(), (Strings{type, cover}));
  test::ChangeRow(test_.client(), "fittings", "fitid", {ID, 1}, {{"QUANTITY", 4.0}, {"FIT_TYPE", Value()}});
  EXPECT_EQ(fitting(), (Strings{cover, "Quantity=4.00"}));
}

TEST_F(IdentificationTest, WithoutACategoryNoFittingIsListed) {
  const auto ID = test::AddExternalTank(test_, {{"FITTING", Value()}});
  EXPECT_EQ(Xml(Physical(ID).child("DeckFitting")), "");
}

TEST_F(IdentificationTest, ThePressureOfTheCityHasNoZerosAtItsEnd) {
  const auto ID = test::AddVerticalTank(test_);
  struct {
    double psia;
    const char* shown;
  } const cases[] = {{14.70, "14.7"}, {14.696, "14.7"}, {14.0, "14"}, {12.345, "12.35"}, {12.004, "12"}};
  for (const auto& [psia, shown] : cases) {
    test::ChangeRow(test_.reference(), "met", "CTYST", {test::kSampleCity}, {{"ATMOS_PRS", psia}});
    EXPECT_EQ(std::string(Physical(ID).child_value("MeteorologicalData")),
              std::string("Sampleton, Ohio (Avg Atmospheric Pressure = ") + shown + " psia)");
  }
}

TEST_F(IdentificationTest, ACityThatIsNotThereHasNoWeather) {
  const auto ID = test::AddVerticalTank(test_);
  Change(ID, "MET CTYST", "Nowhere, Ohio");
  EXPECT_FALSE(Physical(ID).child("MeteorologicalData"));
  Change(ID, "MET CTYST", Value());
  EXPECT_FALSE(Physical(ID).child("MeteorologicalData"));
}

TEST_F(IdentificationTest, ACityOfUnknownPressureHasNoWeather) {
  const auto ID = test::AddVerticalTank(test_);
  test::ChangeRow(test_.reference(), "met", "CTYST", {test::kSampleCity}, {{"ATMOS_PRS", Value()}});
  EXPECT_FALSE(Physical(ID).child("MeteorologicalData"));
}

TEST_F(IdentificationTest, ATankThatIsNotThereGivesAnEmptyFrame) {
  Physical(77);
  EXPECT_EQ(Xml(page_), "<PhysicalChar><Identification/></PhysicalChar>");
}

TEST_F(IdentificationTest, AnUnknownTypeHasNoGroups) {
  const auto ID = test::AddVerticalTank(test_);
  Change(ID, "TANK_TYPE", "Sphere");
  EXPECT_EQ(Texts(Physical(ID)).size(), 2U);
}

TEST_F(IdentificationTest, AMissingTableIsReportedForThePage) {
  const auto ID = test::AddExternalTank(test_);
  test_.client().DeleteTable("fittings");
  test_.host.ExpectError(3011, "frmPreview.DetailReportPage1");
  EXPECT_TRUE(Physical(ID).child("RimSeal"));
}

}  // namespace
}  // namespace orvex::reports
