#include "exchange/reference_import_fixture.h"

namespace orvex::exchange {
namespace {

using test::AddRow;
using test::City;
using test::Rows;
using test::With;

constexpr const char* kNoName = "The city name and state name must be specified.";
constexpr const char* kNoWeather =
    "All temperatures, solar factors, wind speeds, and the atmospheric pressure must be specified.";

class CityImport : public test::OneImportTest {
 protected:
  CityImport() : OneImportTest("met") {}
};

TEST_F(CityImport, CopiesEveryFieldAndBuildsTheKey) {
  Import({City("Denver", "Colorado")}, 1);
  EXPECT_EQ(Query("SELECT * FROM met", {"CTYST", "CITY", "STATE", "USER DEF"}),
            Rows{"Denver, Colorado|Denver|Colorado|-1"});
  EXPECT_EQ(Number("A_TEMP_DAA"), 58.25);
  EXPECT_EQ(Number("ATMOS_PRS"), 14.7);
  double figure = 0.5;
  const auto names = test::WeatherNames(true);
  ASSERT_EQ(names.size(), 52U);
  for (const auto& name : names) EXPECT_EQ(Number(name), figure += 1) << name;
}

TEST_F(CityImport, TellsOfACityThatIsThereInAnyCase) {
  AddRow(reference(), "met", {{"CTYST", "DENVER, colorado"}});
  ExpectRefused(City("Denver", "Colorado"), {"Duplicate city."});
}

TEST_F(CityImport, LooksAtTheKeyAndNotAtItsParts) {
  AddRow(reference(), "met", {{"CTYST", "Denver,Colorado"}, {"CITY", "Denver"}, {"STATE", "Colorado"}});
  ExpectAdded(City("Denver", "Colorado"));
}

TEST_F(CityImport, TakesCitiesOfOneNameInTwoStates) {
  Import({City("Springfield", "Ohio"), City("Springfield", "Texas")}, 2);
}

TEST_F(CityImport, OfTwoOfOneNameInTheFileAddsTheFirst) {
  Import({City("Denver", "Colorado"), City("Denver", "COLORADO")}, 1);
  EXPECT_EQ(Said(), (Rows{test::kImported, "Duplicate city."}));
}

TEST_F(CityImport, NeedsNamesOfCityAndState) {
  ExpectRefused(With(City("", "Colorado"), {{"CITY", {}}}), {kNoName});
  ExpectRefused(With(City("Denver", ""), {{"STATE", {}}}), {kNoName});
}

TEST_F(CityImport, NeedsEveryFigureOfTheMonths) {
  auto names = test::WeatherNames(false);
  ASSERT_EQ(names.size(), 48U);
  names.insert(names.end(), {"A_TEMP_DAA", "ATMOS_PRS"});
  std::vector<test::DbaseRow> rows;
  for (const auto& name : names) {
    rows.push_back(With(City("Denver", "Colorado"), {{name, 0}}));
    rows.push_back(With(City("Denver", "Colorado"), {{name, {}}}));
  }
  Import(rows, 0);
  EXPECT_EQ(Said(), Rows(rows.size(), kNoWeather));
}

TEST_F(CityImport, CanDoWithoutTheFiguresOfTheYear) {
  Import({With(City("Denver", "Colorado"), {{"TAX_ANN", 0}, {"TAN_ANN", {}}, {"INSOL_ANN", {}}, {"WIND_ANN", 0}})}, 1);
  EXPECT_EQ(Query("SELECT * FROM met", {"TAX_ANN", "TAN_ANN", "INSOL_ANN", "WIND_ANN"}), Rows{"0|-|-|0"});
}

TEST_F(CityImport, TakesTemperaturesBelowZero) {
  ExpectAdded(With(City("Nome", "Alaska"), {{"TAX_JAN", -2.5}, {"TAN_JAN", -19.75}}));
  EXPECT_EQ(Number("TAN_JAN"), -19.75);
}

TEST_F(CityImport, TellsAllThatIsWrongInOrder) {
  AddRow(reference(), "met", {{"CTYST", ", Colorado"}});
  ExpectRefused({{"STATE", "Colorado"}}, {"Duplicate city.", kNoName, kNoWeather});
}

TEST_F(CityImport, CutsTheNameInTheLogByCharacters) {
  // 50 characters, a comma, a blank and 50 characters: the log shows 48 of the state's.
  Import({City(std::string(50, '\xE9'), std::string(50, 's'))}, 1);
  std::string city;
  for (int i = 0; i < 50; ++i) city += "é";
  EXPECT_EQ(Query("SELECT * FROM [import errors]", {"IDX_ID", "ID"}),
            Rows{city + ", " + std::string(50, 's') + "|" + city + ", " + std::string(48, 's')});
}

}  // namespace
}  // namespace orvex::exchange
