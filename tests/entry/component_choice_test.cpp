#include <gtest/gtest.h>

#include <algorithm>

#include "emission/liquid_temperature.h"
#include "emission/vapor_pressure.h"
#include "entry/component_fixture.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

class ComponentChoiceTest : public test::ComponentTest {
 protected:
  /// Name and number in the lists, then the entries.
  static Texts Seen(const Frmcomponent& form) {
    return {form.dbcboChemName.text, form.dbcboCAS.text,   form.txtName,      form.txtCAS,
            form.txtMolWt.text,      form.txtVPMolWt.text, form.txtLDens.text};
  }
  void ShowTemperatures(const std::string& partial, const std::string& full) {
    At(Tank(), "txtALSPartial").box.text = partial;
    At(Tank(), "txtALSFull").box.text = full;
  }
  std::string PressureOf(const std::string& name, double fahrenheit) {
    return shell::FormatFourDecimals(emission::PVA(session_, name, emission::FahrenheitToRankine(fahrenheit)));
  }
};

TEST_F(ComponentChoiceTest, ListsHoldEveryChemicalOfTheReferenceDatabase) {
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Nameless number"}});
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Another benzene"}, {"CAS", "71-43-2"}});
  const auto form = Open(shell::kFullSpeciation);
  const auto& names = form.dbcboChemName.items;
  const auto& numbers = form.dbcboCAS.items;
  EXPECT_EQ(static_cast<std::int64_t>(names.size()), session_.ReferenceDb->OpenTable("chemical").RecordCount());
  EXPECT_TRUE(std::ranges::is_sorted(numbers));
  EXPECT_EQ(std::ranges::count(numbers, "71-43-2"), 1) << "a number that two chemicals share is listed once";
  EXPECT_EQ(std::ranges::count(numbers, ""), 0);
  EXPECT_LT(numbers.size(), names.size());
}

TEST_F(ComponentChoiceTest, ByNameTakesNumberWeightsAndDensity) {
  auto form = Open(shell::kFullSpeciation);
  ChooseChemName(session_, form, "Acetone");
  EXPECT_EQ(Seen(form), (Texts{"Acetone", "67-64-1", "Acetone", "67-64-1", "58.08", "58.08", "6.644"}));
}

TEST_F(ComponentChoiceTest, ByNumberTakesNameWeightsAndDensity) {
  auto form = Open(shell::kFullSpeciation);
  ChooseCAS(session_, form, "67-64-1");
  EXPECT_EQ(Seen(form), (Texts{"Acetone", "67-64-1", "Acetone", "67-64-1", "58.08", "58.08", "6.644"}));
}

TEST_F(ComponentChoiceTest, OfAChemicalWithoutANumberStoresAnEmptyOne) {
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "House blend"}, {"MOLWT", 90.0}});
  auto form = Open(shell::kFullSpeciation);
  ChooseChemName(session_, form, "Acetone");
  Fill(form, "House blend", "5");
  EXPECT_EQ(Seen(form), (Texts{"House blend", "", "House blend", "", "90", "0", "0"}));
  ClickClose(session_, form);
  EXPECT_EQ(Column("CAS"), Texts{""}) << "speciation reads the number of every component";
}

TEST_F(ComponentChoiceTest, OfAnUnknownNameOrNumberChangesNothing) {
  ShowTemperatures("70", "60");
  AddComponent(1, {{"NAME", "Benzene"}, {"CAS", "71-43-2"}, {"WT_FRACT", 1.0}, {"MOLWT", 78.0}, {"VP", 1.5}});
  auto form = Open(shell::kFullSpeciation);
  const auto before = Seen(form);
  for (const auto& unknown : {std::string("Unobtainium"), std::string(), std::string("'; DROP TABLE chemical"),
                              std::string(400, 'x'), std::string("Ben\0zene", 8), std::string("*")}) {
    form.dbcboChemName.text = form.dbcboCAS.text = unknown;
    ChooseChemName(session_, form, unknown);
    EXPECT_EQ(Seen(form), before) << unknown;
    form.dbcboChemName.text = form.dbcboCAS.text = unknown;
    ChooseCAS(session_, form, unknown);
    EXPECT_EQ(Seen(form), before) << unknown;
  }
  EXPECT_EQ(form.txtVP.text, "1.5");
}

TEST_F(ComponentChoiceTest, ANameThatIsNotInTheListDoesNotMakeAComponent) {
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Unobtainium", "5");
  host_.ExpectMessage(kIncomplete);
  ClickClose(session_, form);
  EXPECT_FALSE(form.window.closed);
}

TEST_F(ComponentChoiceTest, TemperatureComesFromTheFullPageForFullSpeciation) {
  ShowTemperatures("70", "60");
  EXPECT_EQ(Open(shell::kFullSpeciation).txtALST.text, "60");
}

TEST_F(ComponentChoiceTest, TemperatureComesFromThePartialPageForTheOtherOptions) {
  ShowTemperatures("70", "60");
  EXPECT_EQ(Open(shell::kPartialSpeciation).txtALST.text, "70");
  EXPECT_EQ(Open(shell::kVaporWeightSpeciation).txtALST.text, "70");
}

TEST_F(ComponentChoiceTest, TemperatureIsReadAnewWithEveryComponentAndChoice) {
  auto form = Open(shell::kPartialSpeciation);
  ShowTemperatures("71.5", "60");
  Fill(form, "Acetone", "5");
  EXPECT_EQ(form.txtALST.text, "71.5");
  ShowTemperatures("72.5", "60");
  ClickAdd(session_, form);
  EXPECT_EQ(form.txtALST.text, "72.5");
}

TEST_F(ComponentChoiceTest, VaporPressureIsThatOfTheChemicalAtTheTemperature) {
  ShowTemperatures("70", "60");
  auto full = Open(shell::kFullSpeciation);
  ChooseChemName(session_, full, "Benzene");
  EXPECT_EQ(full.txtVP.text, PressureOf("Benzene", 60));
  EXPECT_NE(full.txtVP.text, "0.0000");
  auto partial = Open(shell::kPartialSpeciation);
  ChooseCAS(session_, partial, "71-43-2");
  EXPECT_EQ(partial.txtVP.text, PressureOf("Benzene", 70));
  EXPECT_NE(partial.txtVP.text, full.txtVP.text);
}

TEST_F(ComponentChoiceTest, VaporPressureIsShownForAnyTemperatureButZero) {
  auto form = Open(shell::kFullSpeciation);
  for (const auto* none : {"0", "", "0.00", "-0"}) {
    ShowTemperatures("70", none);
    ChooseChemName(session_, form, "Benzene");
    EXPECT_EQ(form.txtVP.text, "0") << none;
  }
  ShowTemperatures("70", "-0.0001");
  ChooseChemName(session_, form, "Benzene");
  EXPECT_EQ(form.txtVP.text, PressureOf("Benzene", -0.0001));
}

TEST_F(ComponentChoiceTest, AVaporPressureTooSmallForFourDecimalsIsShownInScientificForm) {
  // At 60 F: 14.696 psia / 760 mmHg x 10^(1 - 1500 / (15.56 + 200)) = 0.0193 x 10^-5.96 = 2.1E-08.
  test::AddRow(*session_.ReferenceDb, "chemical",
               {{"NAME", "Heavy wax"},
                {"CATEGORY", shell::kOrganicLiquids},
                {"VP_COEF_A", 1.0},
                {"VP_COEF_B", 1500.0},
                {"VP_COEF_C", 200.0}});
  ShowTemperatures("0", "60");
  auto form = Open(shell::kFullSpeciation);
  Fill(form, "Heavy wax", "5");
  EXPECT_EQ(form.txtVP.text.substr(0, 3), "2.1");
  EXPECT_EQ(form.txtVP.text.substr(4), "E-08");
  ClickClose(session_, form);
  EXPECT_NEAR(Row(1).Double("VP"), 2.1e-8, 0.05e-8);
}

TEST_F(ComponentChoiceTest, ATemperatureThatIsNoNumberIsReportedAndTheChemicalStands) {
  ShowTemperatures("70", "warm");
  auto form = Open(shell::kFullSpeciation);
  host_.ExpectError(13, "frmComponent.");
  ChooseChemName(session_, form, "Benzene");
  EXPECT_EQ(form.txtName, "Benzene");
}

}  // namespace
}  // namespace orvex::entry
