#include <cmath>

#include "emission/calc_prop.h"
#include "entry/liquid_fixture.h"

namespace orvex::entry {
namespace {

using test::LiquidTest;

constexpr const char* kNoForm = "Speciation Option must be selected before properties are calculated.";

class MixturePropertiesTest : public LiquidTest {
 protected:
  void OpenNamed(std::string_view tank_type, const std::string& option, const std::string& name) {
    OpenLiquid(tank_type);
    ChooseKind("Multiple", option);
    At(Form(), option == shell::kFullSpeciation ? "dbcboMixNameFull" : "dbcboMixNamePartial").box.text = name;
  }
  void ExpectTemperatures(const std::string& ending, const char* average, const char* minimum, const char* maximum,
                          const char* bulk) {
    EXPECT_EQ(Shown("txtALS" + ending), average);
    EXPECT_EQ(Shown("txtMLS" + ending), minimum);
    EXPECT_EQ(Shown("txtXLS" + ending), maximum);
    EXPECT_EQ(Shown("txtBulk" + ending), bulk);
  }
  void ExpectPressures(const char* average, const char* minimum, const char* maximum) {
    EXPECT_EQ(Shown("txtVPPartial"), average);
    EXPECT_EQ(Shown("txtVPMinPartial"), minimum);
    EXPECT_EQ(Shown("txtVPMaxPartial"), maximum);
  }
  void ExpectWeights(const std::string& ending, const char* liquid, const char* vapor, const char* density) {
    EXPECT_EQ(Shown("txtMolWt" + ending), liquid);
    EXPECT_EQ(Shown("txtVPMolWt" + ending), vapor);
    EXPECT_EQ(Shown("txtLDens" + ending), density);
  }
};

// Light is 1 psia at 40 F and rises by 1 psia every 10 F: at 56.8914, 51.6254 and 62.1574 F it is 2.68914, 2.16254 and
// 3.21574 psia.
TEST_F(MixturePropertiesTest, OfPartialOptionsAreTheTemperaturesAndThePressuresOfTheNamedChemical) {
  for (const auto* option : {"Partial Speciation", "Vapor Weight Speciation", "None"}) {
    OpenNamed(shell::kVerticalFixedRoof, option, "Light");
    Calculate();
    ExpectTemperatures("Partial", "56.8914", "51.6254", "62.1574", "55.02");
    ExpectPressures("2.6891", "2.1625", "3.2157");
    EXPECT_EQ(Stored("VP_MIN").AsDouble(), 2.1625);
    EXPECT_EQ(Stored("ALS_TEMP").AsDouble(), 56.8914);
  }
}

TEST_F(MixturePropertiesTest, OfAPartialMixtureThatIsNoChemicalAreTheTemperaturesAlone) {
  OpenNamed(shell::kVerticalFixedRoof, "Partial Speciation", "Slop");
  Type("txtVPPartial", "9");
  Calculate();
  ExpectTemperatures("Partial", "56.8914", "51.6254", "62.1574", "55.02");
  ExpectPressures("9", "0", "0");
}

// Vapor moles per unit: 50/50 + 50/80 = 1.625, so y = 0.615385 and 0.384615. Heavy has a quarter of Light's pressure:
//   1/P = (y_L + 4 y_H) / P_L = 2.153846 / 2.68914, P = 1.248529
//   x = y P / p = 0.285714 and 0.714286, so that P at T2 = P_L(T2) x (0.285714 + 0.714286 / 4) = 0.464286 P_L(T2)
//   M_L = 0.285714 x 50 + 0.714286 x 100 = 85.714286, M_V = 0.615385 x 50 + 0.384615 x 80 = 61.538462
//   density, with the last y for both: x = 0.178571 and 0.714286, w = 0.104167 and 0.833333,
//   1 / (0.104167 / 5 + 0.833333 / 8) = 8
TEST_F(MixturePropertiesTest, OfVaporWeightsComeFromTheComponents) {
  OpenNamed(shell::kVerticalFixedRoof, "Vapor Weight Speciation", "Slop");
  AddShares("VP_FRACT", 50, 50);
  Calculate();
  ExpectPressures("1.2485", "1.0040", "1.4930");
  ExpectWeights("Partial", "85.714286", "61.538462", "8.00");
}

TEST_F(MixturePropertiesTest, OfVaporWeightsThatAddUpToNinetyComeFromTheNamedChemical) {
  OpenNamed(shell::kVerticalFixedRoof, "Vapor Weight Speciation", "Light");
  AddShares("VP_FRACT", 50, 40);
  Calculate();
  ExpectPressures("2.6891", "2.1625", "3.2157");
}

TEST_F(MixturePropertiesTest, TakeVaporWeightsUpToBothBoundsAndNoFurther) {
  // Light alone is all of the vapor, whatever its percents: 2.6891 psia. "Heavy", the mixture's name, gives 0.6723.
  for (const auto& [percents, taken] :
       {std::pair(99.9, true), {std::nextafter(99.9, 0), false}, {100.1, true}, {std::nextafter(100.1, 200), false}}) {
    OpenNamed(shell::kVerticalFixedRoof, "Vapor Weight Speciation", "Heavy");
    test::AddComponent(Client(), Form().ID, 1, 1,
                       {{"NAME", "Light"}, {"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"VP_FRACT", percents}});
    Calculate();
    EXPECT_EQ(Shown("txtVPPartial"), taken ? "2.6891" : "0.6723") << percents;
  }
}

TEST_F(MixturePropertiesTest, OfVaporWeightsWaitForASurfaceTemperatureInAHeatedTank) {
  OpenNamed(shell::kVerticalFixedRoof, "Vapor Weight Speciation", "Slop");
  AddShares("VP_FRACT", 50, 50);
  Heat();
  Calculate();
  ExpectPressures("0", "0", "0");
  Type("txtALSPartial", "60");
  Calculate();
  // P_L = 3 psia at 60 F: 3 / 2.153846 = 1.392857
  EXPECT_EQ(Shown("txtVPPartial"), "1.3929");
}

TEST_F(MixturePropertiesTest, OfASingleChemicalAreTheTemperaturesAndItsPressure) {
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  At(Form(), "dbcboChemName").box.text = "Heavy";
  Calculate();
  ExpectTemperatures("Single", "56.8914", "51.6254", "62.1574", "55.02");
  EXPECT_EQ(Shown("txtVPSingle"), "0.6723");
}

// Equal weights: N = 50/50 + 50/100 = 1.5; M_L = (50/50)/1.5 x 50 + (50/80)/1.5 x 80 = 66.666667;
//   x = 0.5 x 66.666667 / 50 = 0.666667 and 0.333333; P = 0.666667 x 2.68914 + 0.333333 x 0.672285 = 2.016855
//   M_V = (50 x 1.79276 + 80 x 0.224095) / 2.016855 = 53.333333; density 1 / (0.5/5 + 0.5/8) = 6.153846
TEST_F(MixturePropertiesTest, OfFullSpeciationComeFromTheComponents) {
  OpenNamed(shell::kInternalFloatingRoof, "Full Speciation", "Slop");
  AddShares("WT_FRACT", 50, 50);
  Calculate();
  ExpectTemperatures("Full", "56.8914", "51.6254", "62.1574", "55.02");
  EXPECT_EQ(Shown("txtVPFull"), "2.0169");
  ExpectWeights("Full", "66.666667", "53.333333", "6.153846");
  EXPECT_EQ(Stored("L_DENS").AsDouble(), 6.153846);
}

TEST_F(MixturePropertiesTest, OfAHeatedTankKeepTheTypedTemperatures) {
  OpenNamed(shell::kHorizontal, "Partial Speciation", "Light");
  Heat();
  Type("txtALSPartial", "70");
  Type("txtMLSPartial", "60");
  Type("txtXLSPartial", "80");
  Type("txtBulkPartial", "65");
  Calculate();
  ExpectTemperatures("Partial", "70", "60", "80", "65");
  ExpectPressures("4.0000", "3.0000", "5.0000");
}

TEST_F(MixturePropertiesTest, OfHeatedSingleAndFullFormsUseTheTypedTemperature) {
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  Heat();
  At(Form(), "dbcboChemName").box.text = "Light";
  Type("txtALSSingle", "70");
  Calculate();
  EXPECT_EQ(Shown("txtVPSingle"), "4.0000");
  OpenNamed(shell::kVerticalFixedRoof, "Full Speciation", "Slop");
  Heat();
  AddShares("WT_FRACT", 100, 0);
  Type("txtALSFull", "60");
  Calculate();
  EXPECT_EQ(Shown("txtVPFull"), "3.0000");
  EXPECT_EQ(Shown("txtMLSFull"), "0");
}

// No sun: T_B = 514.67 - 1 = 513.67 R = 54 F, T_LA = 0.44 x 514.67 + 0.56 x 513.67 = 514.11 R = 54.44 F all day.
TEST_F(MixturePropertiesTest, UndergroundNeedNoPaintAndKnowNoSun) {
  OpenNamed(shell::kHorizontal, "Partial Speciation", "Light");
  Physical(Form(), "UNDER").box.text = "Yes";
  Physical(Form(), "SHL COLSHD").box.text = "";
  Calculate();
  ExpectTemperatures("Partial", "54.44", "54.44", "54.44", "54.00");
  ExpectPressures("2.4440", "2.4440", "2.4440");
}

// Absorptance (0.17 + 0.89) / 2 = 0.53: T_B = 514.67 + 6 x 0.53 - 1 = 516.85 R = 57.18 F,
// T_LA = 0.44 x 514.67 + 0.56 x 516.85 + 0.0079 x 0.53 x 1400 = 521.7526 R = 62.0826 F
TEST_F(MixturePropertiesTest, CountAStoredRoofPaintForWhichTheTypeHasNoEntryAsTheRefreshDoes) {
  for (const auto type : {shell::kHorizontal, shell::kExternalFloatingRoof}) {
    OpenNamed(type, "Partial Speciation", "Light");
    test::ChangeRow(Client(), "tank", "ID", {Form().ID}, {{"RF_COLSHD", "Red/Primer"}, {"RF_COND", "Good"}});
    Calculate();
    EXPECT_EQ(Shown("txtALSPartial"), "62.0826") << type;
    EXPECT_EQ(Shown("txtBulkPartial"), "57.18") << type;
    CommitTank(session_, Form());
    emission::CalcProp(session_, Form().ID);
    EXPECT_NEAR(Stored("ALS_TEMP").AsDouble(), 62.0826, 1e-6) << type;
  }
}

TEST_F(MixturePropertiesTest, ThatAreTooSmallForFourDecimalsShowInScientificForm) {
  // 0.00001 psia at 40 F and 0.00001 more every 10 F: 2.68914E-05 at 56.8914 F.
  emission::AddTabulated(*session_.ReferenceDb, "Tar", 0.00001, 0.00001);
  OpenLiquid(shell::kVerticalFixedRoof);
  ChooseKind("Single");
  At(Form(), "dbcboChemName").box.text = "Tar";
  Calculate();
  EXPECT_EQ(Shown("txtVPSingle"), "2.69E-05");
  EXPECT_EQ(Stored("VP").AsDouble(), 2.69e-5);
}

TEST_F(MixturePropertiesTest, AreLeftAloneWithoutACity) {
  OpenNamed(shell::kVerticalFixedRoof, "Partial Speciation", "Light");
  At(Form(), "dbcboCity").box.text = "";
  Calculate();
  ExpectTemperatures("Partial", "0", "0", "0", "0");
  ExpectPressures("0", "0", "0");
}

TEST_F(MixturePropertiesTest, AreLeftAloneWithoutAPaintThatTheTypeNeeds) {
  const std::vector<std::string_view> shell_fields = {"SHL COLSHD", "PT_COND"}, roof_fields = {"RF_COLSHD", "RF_COND"};
  for (const auto type : test::kAllTypes) {
    auto fields = shell_fields;
    if (type == shell::kVerticalFixedRoof || type == shell::kInternalFloatingRoof)
      fields.insert(fields.end(), roof_fields.begin(), roof_fields.end());
    for (const auto field : fields) {
      OpenNamed(type, "Partial Speciation", "Light");
      Physical(Form(), field).box.text = "";
      Calculate();
      ExpectPressures("0", "0", "0");
    }
    OpenNamed(type, "Partial Speciation", "Light");
    Calculate();
    EXPECT_EQ(Shown("txtVPPartial"), "2.6891") << type;
  }
}

TEST_F(MixturePropertiesTest, NeedAnOption) {
  OpenLiquid(shell::kVerticalFixedRoof);
  host_.ExpectMessage(kNoForm);
  Calculate();
  ChooseKind("Multiple");
  host_.ExpectMessage(kNoForm);
  Calculate();
  At(Form(), "dbcboCity").box.text = "";
  Calculate();
}

TEST_F(MixturePropertiesTest, AreComputedUnderTheBusyStatus) {
  OpenNamed(shell::kVerticalFixedRoof, "Partial Speciation", "Light");
  host_.status.clear();
  Calculate();
  EXPECT_EQ(host_.status.front().substr(0, 10), "Processing");
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(MixturePropertiesTest, ReportAFailureUnderTheCommand) {
  OpenNamed(shell::kVerticalFixedRoof, "Full Speciation", std::string(51, 'x'));
  host_.ExpectError(3163, "frmTank.cmdCalcProp_Click");
  At(Form(), "dbcboCity").box.text = "";
  Calculate();
  host_.ExpectError(13, "frmTank.cmdCalcProp_Click");
  At(Form(), "dbcboCity").box.text = test::kSampleCity;
  At(Form(), "txtAvgTemp").box.text = "cold";
  Calculate();
}

TEST_F(MixturePropertiesTest, AgreeWithTheRefreshOfTheStoredRows) {
  for (const auto type : test::kAllTypes) {
    for (const auto* option : {"Partial Speciation", "None", "Full Speciation"}) {
      OpenNamed(type, option, "Light");
      AddShares("WT_FRACT", 30, 70);
      Calculate();
      const auto fields = {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP", "VP_MIN", "VP_MAX"};
      std::vector<double> shown;
      for (const auto* field : fields) shown.push_back(Stored(field).DoubleOrZero());
      CommitTank(session_, Form());
      emission::CalcProp(session_, Form().ID);
      auto value = shown.begin();
      for (const std::string_view field : fields) {
        // The full form has no entries for the range of the pressure.
        const bool has_entry = option != shell::kFullSpeciation || !field.starts_with("VP_");
        if (has_entry) {
          EXPECT_NEAR(*value, Stored(field).AsDouble(), 5e-5) << type << " " << option << " " << field;
        }
        ++value;
      }
    }
  }
}

}  // namespace
}  // namespace orvex::entry
