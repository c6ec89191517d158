#include "exchange/reference_import_fixture.h"

namespace orvex::exchange {
namespace {

using test::AddRow;
using test::Chemical;
using test::DbaseRow;
using test::Rows;
using test::With;

constexpr const char* kNoVaporPressure = "One of the vapor pressure options must be filled in.";

/// A chemical without any of the vapor pressure options.
DbaseRow WithoutVaporPressure(const std::string& category) {
  return With(Chemical("Oil"), {{"CATEGORY", category}, {"VP_COEF_A", {}}, {"VP_COEF_B", {}}, {"VP_COEF_C", {}}});
}

class ChemicalImport : public test::OneImportTest {
 protected:
  ChemicalImport() : OneImportTest("chemical") {}
};

TEST_F(ChemicalImport, CopiesEveryFieldOfItsOwn) {
  auto row = Chemical("Everything");
  double figure = 0.125;
  std::vector<std::string> numbers;
  for (const auto& column : test::ChemicalColumns()) {
    if (column.type != 'N') continue;
    numbers.push_back(column.name);
    row.emplace_back(column.name, figure += 1);
  }
  ASSERT_EQ(numbers.size(), 17U);
  Import({row}, 1);
  EXPECT_EQ(Query("SELECT * FROM chemical", {"NAME", "CAS", "CATEGORY", "USER_DEF"}),
            Rows{"Everything|00071-43-2|Organic Liquids|-1"});
  figure = 0.125;
  for (const auto& name : numbers) EXPECT_EQ(Number(name), figure += 1) << name;
}

TEST_F(ChemicalImport, LeavesWhatIsBlankNull) {
  Import({With(Chemical("Benzene"), {{"CAS", {}}})}, 1);
  EXPECT_EQ(Query("SELECT * FROM chemical", {"CAS", "VP_40", "VP_100", "REID", "ASTM_SLOPE", "VP_2_A", "VP_2_B"}),
            Rows{"-|-|-|-|-|-|-"});
}

TEST_F(ChemicalImport, TellsOfANameThatIsThereInAnyCase) {
  AddRow(reference(), "chemical", {{"NAME", "benzene"}});
  ExpectRefused(Chemical("BENZENE"), {"Chemical name is duplicate."});
}

TEST_F(ChemicalImport, OfTwoOfOneNameInTheFileAddsTheFirst) {
  Import({Chemical("Benzene"), With(Chemical("Benzene"), {{"MOLWT", 99}})}, 1);
  EXPECT_EQ(Log(), (Rows{std::string("Benzene|") + test::kImported, "Benzene|Chemical name is duplicate."}));
  EXPECT_EQ(Number("MOLWT"), 78.11);
}

TEST_F(ChemicalImport, ARefusedOneMakesNoDuplicateOfTheNext) {
  Import({With(Chemical("Benzene"), {{"MOLWT", 0}}), Chemical("Benzene")}, 1);
  EXPECT_EQ(Log(),
            (Rows{"Benzene|Liquid molecular weight must be specified.", std::string("Benzene|") + test::kImported}));
}

TEST_F(ChemicalImport, RefusesOtherCategories) {
  for (const auto* category : {"Solvents", "organic liquids", "Organic Liquid", " Organic Liquids"})
    ExpectRefused(With(Chemical("Benzene"), {{"CATEGORY", category}}), {"Chemical category is not valid."});
  ExpectRefused(With(Chemical("Benzene"), {{"CATEGORY", {}}}), {"Chemical category is not valid."});
}

// The blanks that fill up a field of the file belong to no value. A hard one does.
TEST_F(ChemicalImport, RefusesACategoryWithATrailingBlank) {
  ExpectRefused(With(Chemical("Benzene"), {{"CATEGORY", "Organic Liquids\xA0"}}), {"Chemical category is not valid."});
}

TEST_F(ChemicalImport, NeedsALiquidDensity) {
  ExpectRefused(With(Chemical("Benzene"), {{"L_DENS", 0}}), {"Liquid density must be specified."});
  ExpectRefused(With(Chemical("Benzene"), {{"L_DENS", {}}}), {"Liquid density must be specified."});
}

TEST_F(ChemicalImport, NeedsALiquidMolecularWeight) {
  ExpectRefused(With(Chemical("Benzene"), {{"MOLWT", 0}}), {"Liquid molecular weight must be specified."});
  ExpectRefused(With(Chemical("Benzene"), {{"MOLWT", {}}}), {"Liquid molecular weight must be specified."});
}

TEST_F(ChemicalImport, NeedsAVaporMolecularWeight) {
  ExpectRefused(With(Chemical("Benzene"), {{"VP_MOLWT", 0}}), {"Vapor molecular weight must be specified."});
  ExpectRefused(With(Chemical("Benzene"), {{"VP_MOLWT", {}}}), {"Vapor molecular weight must be specified."});
}

TEST_F(ChemicalImport, NeedsOneOfTheVaporPressureOptions) {
  for (const auto* category : {"Organic Liquids", "Crude Oils", "Petroleum Distillates"})
    ExpectRefused(WithoutVaporPressure(category), {kNoVaporPressure});
}

TEST_F(ChemicalImport, TellsAllThatIsWrongInOrder) {
  AddRow(reference(), "chemical", {{"NAME", "Nothing"}});
  ExpectRefused(
      {{"NAME", "Nothing"}},
      {"Chemical name is duplicate.", "Chemical category is not valid.", "Liquid density must be specified.",
       "Liquid molecular weight must be specified.", "Vapor molecular weight must be specified.", kNoVaporPressure});
}

TEST_F(ChemicalImport, TakesTheSevenVaporPressures) {
  const auto row = With(WithoutVaporPressure("Organic Liquids"), {{"VP_40", 0.1},
                                                                  {"VP_50", 0.2},
                                                                  {"VP_60", 0.3},
                                                                  {"VP_70", 0.4},
                                                                  {"VP_80", 0.5},
                                                                  {"VP_90", 0.6},
                                                                  {"VP_100", 0.7}});
  for (const auto* missing : {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"})
    ExpectRefused(With(row, {{missing, 0}}), {kNoVaporPressure});
  ExpectAdded(row);
}

TEST_F(ChemicalImport, TakesTheThreeCoefficientsOfAntoine) {
  for (const auto* missing : {"VP_COEF_A", "VP_COEF_B", "VP_COEF_C"})
    ExpectRefused(With(Chemical("Benzene"), {{missing, {}}}), {kNoVaporPressure});
  ExpectAdded(Chemical("Benzene"));
}

TEST_F(ChemicalImport, TakesTheTwoCoefficientsInKelvin) {
  const auto row = With(WithoutVaporPressure("Organic Liquids"), {{"VP_2_A", 12.5}, {"VP_2_B", 4000}});
  for (const auto* missing : {"VP_2_A", "VP_2_B"}) ExpectRefused(With(row, {{missing, 0}}), {kNoVaporPressure});
  ExpectAdded(row);
}

TEST_F(ChemicalImport, TakesACrudeOilByItsReidVaporPressureAlone) {
  ExpectAdded(With(WithoutVaporPressure("Crude Oils"), {{"REID", 5}}));
}

TEST_F(ChemicalImport, RefusesAnOrganicLiquidWithNothingButAReidVaporPressure) {
  ExpectRefused(With(WithoutVaporPressure("Organic Liquids"), {{"REID", 5}, {"ASTM_SLOPE", 3}}), {kNoVaporPressure});
}

TEST_F(ChemicalImport, TakesADistillateByReidVaporPressureAndSlope) {
  ExpectRefused(With(WithoutVaporPressure("Petroleum Distillates"), {{"REID", 5}}), {kNoVaporPressure});
  ExpectRefused(With(WithoutVaporPressure("Petroleum Distillates"), {{"ASTM_SLOPE", 3}}), {kNoVaporPressure});
  ExpectAdded(With(WithoutVaporPressure("Petroleum Distillates"), {{"REID", 5}, {"ASTM_SLOPE", 3}}));
}

TEST_F(ChemicalImport, TakesNegativeCoefficients) {
  ExpectAdded(With(Chemical("Benzene"), {{"VP_COEF_A", -1}, {"VP_COEF_C", -0.5}}));
}

TEST_F(ChemicalImport, TakesOneWithoutAName) {
  Import({With(Chemical(""), {{"NAME", {}}}), With(Chemical(""), {{"NAME", {}}})}, 2);
  EXPECT_EQ(Query("SELECT * FROM [import errors]", {"IDX_ID", "ID", "Error"}),
            Rows(2, std::string("-|-|") + test::kImported));
}

TEST_F(ChemicalImport, ANameMayBeAsLongAsItsField) {
  ExpectRefused(Chemical(std::string(51, 'x')), {"NAME must have no more than 50 characters."});
  ExpectAdded(Chemical(std::string(50, 'x')));
  ExpectAdded(Chemical(std::string(50, '\xE9')));
  EXPECT_EQ(LastAdded().Text("NAME").size(), 100U) << "50 characters of two bytes each";
}

TEST_F(ChemicalImport, TellsWhichFieldIsTooLongBehindTheOtherFaults) {
  ExpectRefused(With(Chemical("Benzene"), {{"MOLWT", 0}, {"CAS", "000071-43-2"}}),
                {"Liquid molecular weight must be specified.", "CAS must have no more than 10 characters."});
}

TEST_F(ChemicalImport, CutsALongNameInTheLog) {
  const std::string name(test::kWideText, 'n');
  Import({Chemical(name)}, 0);
  EXPECT_EQ(Query("SELECT * FROM [import errors]", {"IDX_ID", "ID"}), Rows{name + "|" + name.substr(0, 100)});
}

}  // namespace
}  // namespace orvex::exchange
