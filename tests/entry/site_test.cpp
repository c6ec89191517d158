#include "entry/site.h"

#include <algorithm>

#include "entry/lifecycle_fixture.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

using TextRows = test::Rows;

/// The delivered city, and one with figures of the test's own.
class SiteTest : public test::LifecycleTest {
 protected:
  SiteTest() {
    test::AddRow(*session_.ReferenceDb, "met",
                 {{"CTYST", "Aaville, Ohio"},
                  {"CITY", "Aaville"},
                  {"STATE", "Ohio"},
                  {"A_TEMP_DAA", 51.25},
                  {"TAX_ANN", 61.5},
                  {"TAN_ANN", 41},
                  {"INSOL_ANN", 1234.5},
                  {"WIND_ANN", 9.1234567},
                  {"ATMOS_PRS", 14.5}});
  }
  TextRows StoredSite(const FrmTank& form) {
    return Query(fmt::format("SELECT * FROM tank WHERE ID = {}", form.ID), {"MET CTYST", "ATMOS_PRS"});
  }
  std::vector<std::string> Weather() {
    return {Shown("txtAvgTemp"), Shown("txtMaxTemp"), Shown("txtMinTemp"), Shown("txtInsol"), Shown("txtWind")};
  }
};

TEST_F(SiteTest, ListsAllCitiesByName) {
  auto& form = OpenTank(shell::kHorizontal);
  ShowSite(session_, form);
  const auto& cities = At(form, "dbcboCity").box.items;
  EXPECT_EQ(static_cast<std::int64_t>(cities.size()), session_.ReferenceDb->OpenTable("met").RecordCount());
  EXPECT_EQ(cities.front(), "Aaville, Ohio");
  EXPECT_TRUE(std::ranges::is_sorted(cities));
}

TEST_F(SiteTest, ACityThatIsChosenBringsItsPressureAndWeatherAndIsStored) {
  auto& form = OpenTank(shell::kHorizontal);
  ShowSite(session_, form);
  Choose("dbcboCity", "Aaville, Ohio");
  EXPECT_EQ(Weather(), (std::vector<std::string>{"51.25", "61.50", "41.00", "1,234.50", "9.123457"}));
  EXPECT_EQ(Shown("txtAtmosPrs"), "14.50");
  EXPECT_EQ(StoredSite(form), (TextRows{"Aaville, Ohio|14.5"}));
}

TEST_F(SiteTest, ACityThatIsTypedIsTakenWhenItsEntryIsLeft) {
  auto& form = OpenTank(shell::kHorizontal);
  ShowSite(session_, form);
  Type("dbcboCity", "Aaville, Ohio");
  EXPECT_EQ(StoredSite(form), (TextRows{"Aaville, Ohio|14.5"}));
}

TEST_F(SiteTest, ACityThatTheReferenceDatabaseDoesNotHaveShowsZeros) {
  OpenTank(shell::kHorizontal);
  Choose("dbcboCity", "Nowhere");
  EXPECT_EQ(Weather(), std::vector<std::string>(5, "0"));
  EXPECT_EQ(Shown("txtAtmosPrs"), "0.00");
}

TEST_F(SiteTest, AStoredCityShowsItsWeatherAndTheTanksOwnPressure) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"MET CTYST", "Aaville, Ohio"}, {"ATMOS_PRS", 13}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    EXPECT_EQ(Shown("dbcboCity"), "Aaville, Ohio");
    EXPECT_EQ(Weather()[0], "51.25");
    EXPECT_EQ(Shown("txtAtmosPrs"), "13");
  });
}

TEST_F(SiteTest, WithoutACityAllNumbersAreZero) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"ATMOS_PRS", 13}});
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    EXPECT_EQ(Weather(), std::vector<std::string>(5, "0"));
    EXPECT_EQ(Shown("txtAtmosPrs"), "0");
  });
}

TEST_F(SiteTest, AFailureIsReportedUnderTheEntry) {
  auto& form = OpenTank(shell::kHorizontal);
  EnterEntry(session_, form, "dbcboCity");
  session_.ReferenceDb->DeleteTable("met");
  At(form, "dbcboCity").box.text = "Aaville, Ohio";
  host_.ExpectError(3011, "frmTank.dbcboCity_Click");
  ChooseItem(session_, form, "dbcboCity");
}

}  // namespace
}  // namespace orvex::entry
