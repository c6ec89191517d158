#include "refdata/vapor_pressure_plot.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "emission/liquid_temperature.h"
#include "emission/vapor_pressure.h"
#include "refdata/editor_fixture.h"
#include "refdata/frmchemical.h"
#include "refdata/plot_fixture.h"
#include "refdata/vapor_pressure_options.h"

namespace orvex::refdata {
namespace {

using test::HeldTexts;
using test::Picture;
using ::testing::HasSubstr;
using ::testing::Not;

RecordEditor Chemical(const HeldTexts& texts) { return test::RecordOf(kChemicalEntries, texts); }

HeldTexts Together(std::initializer_list<HeldTexts> parts) {
  HeldTexts all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

const HeldTexts kTableTexts = {{"VP_40", "1"}, {"VP_50", "2"}, {"VP_60", "3"}, {"VP_70", "4"},
                               {"VP_80", "5"}, {"VP_90", "6"}, {"VP_100", "7"}};
const HeldTexts kAntoineTexts = {{"VP_COEF_A", "6.90565"}, {"VP_COEF_B", "1211.033"}, {"VP_COEF_C", "220.79"}};
const HeldTexts kKelvinTexts = {{"VP_2_A", "34172.3"}, {"VP_2_B", "7.9622"}};

/// Two of the seven pressures of the table stand for all: they are the same from 40 to 70 F.
HeldTexts FlatTable(const std::string& below, const std::string& above) {
  return {{"VP_40", below}, {"VP_50", below}, {"VP_60", below}, {"VP_70", below},
          {"VP_80", above}, {"VP_90", above}, {"VP_100", above}};
}

class VaporPressurePlotTest : public test::EditorTest {
 protected:
  VaporPressurePlotTest() { Open(OpenFrmchemical); }

  /// Saves a chemical that has only this option, and compares its curve with what a calculation takes.
  void ExpectCurveOfTheCalculation(const std::string& category, const HeldTexts& option) {
    Add();
    Type("dbcboChemName", "Brew");
    Choose("cboCategory", category);
    for (const auto* control : {"txtMOLWT", "txtVP_MOLWT", "txtL_DENS"}) Type(control, "5");
    for (const auto& [field, text] : option) Type("txt" + field, text);
    const auto before = VaporPressureCurves(form_);
    SaveAdded();
    const auto curves = VaporPressureCurves(form_);
    ASSERT_EQ(curves.size(), 1U);
    EXPECT_EQ(before.front().psia, curves.front().psia);
    ASSERT_EQ(curves.front().psia.size(), 61U);
    for (std::size_t i = 0; i < curves.front().psia.size(); ++i) {
      const double fahrenheit = 40 + static_cast<double>(i);
      EXPECT_EQ(curves.front().psia[i], emission::PVA(session_, "Brew", emission::FahrenheitToRankine(fahrenheit)))
          << fahrenheit;
    }
  }
};

TEST_F(VaporPressurePlotTest, DrawsOption1AsACalculationComputesIt) {
  ExpectCurveOfTheCalculation("Organic Liquids", kTableTexts);
}

TEST_F(VaporPressurePlotTest, DrawsOption2AsACalculationComputesIt) {
  ExpectCurveOfTheCalculation("Organic Liquids", kAntoineTexts);
}

TEST_F(VaporPressurePlotTest, DrawsOption3AsACalculationComputesIt) {
  ExpectCurveOfTheCalculation("Organic Liquids", kKelvinTexts);
}

TEST_F(VaporPressurePlotTest, DrawsOption4AsACalculationComputesIt) {
  ExpectCurveOfTheCalculation("Crude Oils", {{"REID", "5.3"}});
}

TEST_F(VaporPressurePlotTest, DrawsOption4OfADistillateAsACalculationComputesIt) {
  ExpectCurveOfTheCalculation("Petroleum Distillates", {{"REID", "9.7"}, {"ASTM_SLOPE", "2.7"}});
}

TEST_F(VaporPressurePlotTest, EveryDeliveredChemicalIsDrawn) {
  int curves = 0;
  const auto names = Items("dbcboChemName");
  for (std::size_t i = 0; i < names.size(); i += 10) {
    Pick("dbcboChemName", names[i]);
    curves += VaporPressureCurves(form_).empty() ? 0 : 1;
    Picture(VaporPressurePlot(form_)).ExpectAllOnThePaper();
  }
  EXPECT_EQ(curves, static_cast<int>((names.size() + 9) / 10));
}

TEST_F(VaporPressurePlotTest, IsThePlotOfTheEditor) {
  ASSERT_NE(form_.info->plot, nullptr);
  EXPECT_EQ(form_.info->plot(form_), VaporPressurePlot(form_));
}

// Pressures of 1 to 7 psia: the axis goes from 0 to 8 in steps of 2. The panel lies between x = 10 + 7.2 + 5 = 22.2 (a
// label of one letter) and 320 - 10 - 7.2 = 302.8, and between y = 38 + 12 = 50 and 315 - 81 - 16 = 218.
//   40 F, 1 psia: x = 22.2,  y = 218 - 168 / 8     = 197
//   70 F, 4 psia: x = 162.5, y = 218 - 168 x 4 / 8 = 134
//  100 F, 7 psia: x = 302.8, y = 218 - 168 x 7 / 8 = 71
TEST(VaporPressurePlot, PlacesPressuresByTheAxes) {
  const Picture picture(VaporPressurePlot(Chemical(kTableTexts)));
  const auto curves = picture.Parts("curve");
  ASSERT_EQ(curves.size(), 1U);
  const std::string path = curves.front().attribute("d").value();
  EXPECT_TRUE(path.starts_with("M22.20 197.00 L")) << path;
  EXPECT_THAT(path, HasSubstr(" L162.50 134.00 L"));
  EXPECT_TRUE(path.ends_with(" L302.80 71.00")) << path;
  // One in the legend, and one each ten degrees.
  EXPECT_EQ(picture.Parts("mark").size(), 8U);
  EXPECT_TRUE(picture.Parts("shade").empty());
}

TEST(VaporPressurePlot, TellsWhereTwoOptionsDiffer) {
  // The Antoine form nearest to a constant: A - 1e-9 / (t + 1000) is log10 of 2 psia x 760 / 14.696 = 103.43 mmHg.
  const HeldTexts two_psia = {{"VP_COEF_A", "2.0146478"}, {"VP_COEF_B", "0.000000001"}, {"VP_COEF_C", "1000"}};
  // 2 psia up to 70 F, then rising by 0.1 psia each degree to 3 at 80 F. At 71 F 0.1 of 2.1 is 4.8 percent, at 72 F
  // 0.2 of 2.2 is 9.1 percent.
  const auto form = Chemical(Together({FlatTable("2", "3"), two_psia}));
  EXPECT_EQ(VaporPressureSummary(form), "Options 1 and 2 differ by more than 5 percent from 72 F to 100 F.");
  const Picture picture(VaporPressurePlot(form));
  EXPECT_THAT(picture.Words(), HasSubstr("Options 1 and 2 differ by more than 5 percent from 72 F to 100 F."));
  // From half a degree before 72 F to the edge: 28.5 of the 60 degrees of the panel.
  const auto shades = picture.Parts("shade");
  ASSERT_EQ(shades.size(), 1U);
  EXPECT_NEAR(Picture::Number(shades.front(), "x") + Picture::Number(shades.front(), "width"), 302.8, 0.011);
  const auto frame = picture.Parts("frame").front();
  EXPECT_NEAR(Picture::Number(shades.front(), "width"), Picture::Number(frame, "width") * 28.5 / 60, 0.011);
}

TEST(VaporPressurePlot, SaysThatOptionsAgree) {
  const HeldTexts two_psia = {{"VP_COEF_A", "2.0146478"}, {"VP_COEF_B", "0.000000001"}, {"VP_COEF_C", "1000"}};
  const auto form = Chemical(Together({FlatTable("2", "2.1"), two_psia}));  // 0.1 of 2.1 is 4.8 percent
  EXPECT_EQ(VaporPressureSummary(form), "The options agree within 5 percent.");
  EXPECT_TRUE(Picture(VaporPressurePlot(form)).Parts("shade").empty());
}

TEST(VaporPressurePlot, SaysThatNoOptionIsFilled) {
  for (const auto& texts : {HeldTexts{}, HeldTexts{{"VP_40", "1"}}, HeldTexts{{"REID", "5"}}}) {
    const Picture picture(VaporPressurePlot(Chemical(texts)));
    EXPECT_THAT(picture.Words(), HasSubstr("No option is filled in completely yet."));
    EXPECT_TRUE(picture.Parts("curve").empty());
  }
}

TEST_F(VaporPressurePlotTest, SaysThatAnOptionIsNotCalculatedWith) {
  Add();
  Type("dbcboChemName", "Brew");
  for (const auto* control : {"txtMOLWT", "txtVP_MOLWT", "txtL_DENS"}) Type(control, "5");
  for (const auto& [field, text] : kTableTexts) Type("txt" + field, text);
  Choose("cboCategory", "Crude Oils");
  SaveAdded();
  EXPECT_EQ(VaporPressureSummary(form_), "Crude Oils are calculated by option 4 alone.");
  EXPECT_EQ(emission::PVA(session_, "Brew", emission::FahrenheitToRankine(60)), 0);
  Type("txtREID", "5");
  EXPECT_THAT(VaporPressureSummary(form_), Not(HasSubstr("alone")));
  Type("txtREID", "0");
  Choose("cboCategory", "Organic Liquids");
  EXPECT_EQ(VaporPressureSummary(form_), "By option 1.");
}

// A and C are null, with which the calculation has no vapor pressure.
TEST_F(VaporPressurePlotTest, SaysThatOption2IsCalculatedWithThoughItIsNotFilledIn) {
  Add();
  Type("dbcboChemName", "Brew");
  Choose("cboCategory", "Organic Liquids");
  for (const auto* control : {"txtMOLWT", "txtVP_MOLWT", "txtL_DENS"}) Type(control, "5");
  for (const auto& [field, text] : kTableTexts) Type("txt" + field, text);
  Type("txtVP_COEF_B", "1211.033");
  SaveAdded();
  EXPECT_EQ(VaporPressureSummary(form_), "With a B, Organic Liquids are calculated by option 2 alone.");
  const Picture picture(VaporPressurePlot(form_));
  EXPECT_THAT(picture.Words(), HasSubstr("With a B, Organic Liquids are calculated by option 2 alone."));
  EXPECT_EQ(emission::PVA(session_, "Brew", emission::FahrenheitToRankine(60)), 0);
  Type("txtVP_COEF_A", "6.90565");
  Type("txtVP_COEF_C", "220.79");
  EXPECT_THAT(VaporPressureSummary(form_), Not(HasSubstr("alone")));
  for (const auto* control : {"txtVP_COEF_A", "txtVP_COEF_B", "txtVP_COEF_C"}) Type(control, "0");
  EXPECT_EQ(VaporPressureSummary(form_), "By option 1.");
}

// t + C is 0 at 60 F, 15.5555555555556 degrees C; close to it the power of ten overflows.
TEST(VaporPressurePlot, LeavesOutWhatAnOptionCannotGive) {
  const auto form = Chemical({{"VP_COEF_A", "1"}, {"VP_COEF_B", "-1000"}, {"VP_COEF_C", "-15.555555555555555"}});
  const auto curves = VaporPressureCurves(form);
  ASSERT_EQ(curves.size(), 1U);
  EXPECT_FALSE(curves.front().psia[21]);
  EXPECT_TRUE(curves.front().psia[0]);
  EXPECT_THAT(VaporPressureSummary(form), HasSubstr("Option 2 gives no vapor pressure "));
  EXPECT_EQ(Picture(VaporPressurePlot(form)).Parts("curve").size(), 2U);
}

TEST(VaporPressurePlot, TellsCurvesApartByColourDashesAndMarkers) {
  auto texts = Together({kTableTexts, kAntoineTexts, kKelvinTexts, {{"REID", "5"}, {"CATEGORY", "Crude Oils"}}});
  const Picture picture(VaporPressurePlot(Chemical(texts)));
  std::set<std::string> colors, dashes;
  for (const auto& sample : picture.Parts("sample")) {
    colors.insert(sample.attribute("stroke").value());
    dashes.insert(sample.attribute("stroke-dasharray").value());
  }
  EXPECT_EQ(colors.size(), 4U);
  EXPECT_EQ(dashes.size(), 4U);
  for (const auto* name : {"Option 1", "Option 2", "Option 3", "Option 4"})
    EXPECT_THAT(picture.Texts(), testing::Contains(name));
}

RC_GTEST_PROP(AnyVaporPressurePlot, IsAWholePictureOnThePaper, ()) {
  HeldTexts texts = {{"CATEGORY", std::string(*rc::gen::elementOf(std::vector<std::string_view>(
                                      std::begin(shell::kCategories), std::end(shell::kCategories))))}};
  for (const auto& info : kChemicalEntries)
    if (IsNumber(info)) texts.emplace_back(info.field, *rc::gen::elementOf(test::HostileNumbers()));
  const auto form = Chemical(texts);
  Picture(VaporPressurePlot(form)).ExpectAllOnThePaper();
  RC_ASSERT(!VaporPressureSummary(form).empty());
}

}  // namespace
}  // namespace orvex::refdata
