#include <gtest/gtest.h>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

/// The queries that routines run on a client database, in their own words.
namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::Rows;

class ClientQueries : public testing::Test {
 protected:
  void AddEmission(int id, int mix, const char* name, const char* month, bool primary, double s_loss,
                   const char* user_id = "T") {
    AddRow(client, "emission",
           {{"ID", id},
            {"MIX ID", mix},
            {"NAME", name},
            {"MONTH", month},
            {"PRIMARY", primary},
            {"USER ID", user_id},
            {"TANK_TYPE", "Vertical Fixed Roof Tank"},
            {"CITY", "Sampleton"},
            {"S_LOSS", s_loss},
            {"W_LOSS", s_loss * 10}});
  }
  void AddFitting(int id, int fit, const char* type, double quantity, Value cover = {}) {
    AddRow(client, "fittings",
           {{"ID", id}, {"FIT ID", fit}, {"FIT_TYPE", type}, {"COVR_TYPE", cover}, {"QUANTITY", quantity}});
  }
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(ClientQueries, TheTankOfANumber) {
  for (const char* name : {"a", "b"}) AddRow(client, "tank", {{"USER ID", name}});
  EXPECT_EQ(QueryRows(client, "SELECT DISTINCTROW tank.* FROM tank WHERE ((tank.ID=2));", {"USER ID"}), (Rows{"b"}));
  EXPECT_EQ(QueryRows(client, "SELECT tank.* FROM tank WHERE (((tank.ID)= 1));", {"USER ID"}), (Rows{"a"}));
  EXPECT_EQ(QueryRows(client, "SELECT tank.* FROM tank WHERE (((tank.ID)= 3));", {"USER ID"}), Rows{});
}

TEST_F(ClientQueries, ATankFoundByAQueryCanBeEdited) {
  AddRow(client, "tank", {{"USER ID", "a"}});
  auto tank = client.OpenQuery("SELECT DISTINCTROW tank.* FROM tank WHERE ((tank.ID=1));");
  tank.Edit();
  tank.Set("DIAMETER", 12.5);
  tank.Update();
  EXPECT_EQ(client.OpenTable("tank").Double("DIAMETER"), 12.5);
}

TEST_F(ClientQueries, TheMixturesOfATankInTheirOrder) {
  for (const int mix : {2, 3, 1}) AddRow(client, "mixtures", {{"ID", 1}, {"MIX ID", mix}});
  AddRow(client, "mixtures", {{"ID", 2}, {"MIX ID", 1}});
  EXPECT_EQ(QueryRows(client,
                      "SELECT DISTINCTROW mixtures.* FROM mixtures WHERE ((mixtures.ID=1)) ORDER BY mixtures.[MIX ID];",
                      {"ID", "MIX ID"}),
            (Rows{"1|1", "1|2", "1|3"}));
  EXPECT_EQ(QueryRows(client, "SELECT mixtures.* FROM mixtures WHERE (((mixtures.ID)=1));", {"ID", "MIX ID"}),
            (Rows{"1|2", "1|3", "1|1"}))
      << "without an order the rows come as they stand in the file";
}

TEST_F(ClientQueries, TheFittingsOfATankInTheirOrder) {
  AddFitting(1, 2, "Vacuum Breaker", 1);
  AddFitting(1, 1, "Access Hatch", 1, "Bolted Cover");
  AddFitting(2, 1, "Other", 4);
  EXPECT_EQ(QueryRows(client,
                      "SELECT DISTINCTROW fittings.* FROM fittings WHERE ((fittings.ID=1)) ORDER BY fittings.[FIT ID];",
                      {"FIT_TYPE"}),
            (Rows{"Access Hatch", "Vacuum Breaker"}));
  EXPECT_EQ(QueryRows(client, "SELECT FIT_TYPE, COVR_TYPE, QUANTITY FROM Fittings WHERE ID = 1 ORDER BY [FIT ID]",
                      {"FIT_TYPE", "COVR_TYPE", "QUANTITY"}),
            (Rows{"Access Hatch|Bolted Cover|1", "Vacuum Breaker|-|1"}));
  EXPECT_EQ(QueryRows(client, "SELECT * FROM Fittings WHERE ID = 2 ORDER BY [FIT ID]", {"QUANTITY"}), (Rows{"4"}));
}

TEST_F(ClientQueries, TheComponentsOfATankByMixtureAndNumber) {
  struct Key {
    int id, mix, comp;
  };
  for (const auto [id, mix, comp] : {Key{1, 2, 1}, Key{1, 1, 2}, Key{2, 1, 1}, Key{1, 1, 1}}) {
    AddRow(client, "components", {{"ID", id}, {"MIX ID", mix}, {"COMP ID", comp}});
  }
  EXPECT_EQ(QueryRows(client,
                      "SELECT DISTINCTROW components.* FROM components WHERE ((components.ID=1)) "
                      "ORDER BY components.[MIX ID], components.[COMP ID];",
                      {"MIX ID", "COMP ID"}),
            (Rows{"1|1", "1|2", "2|1"}));
}

TEST_F(ClientQueries, ColumnWellsAreFoundByTheBeginningOfTheirName) {
  AddFitting(1, 1, "Access Hatch", 1);
  AddFitting(1, 2, "COLUMN WELL (24-in. Diam.)", 2);
  AddFitting(1, 3, "Column Well", 3);
  AddFitting(1, 4, "My Column Well", 4);
  AddFitting(2, 1, "Column Well", 5);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM fittings WHERE FIT_TYPE Like 'Column Well*' AND ID = 1", {"QUANTITY"}),
            (Rows{"2", "3"}));
}

TEST_F(ClientQueries, EmissionRowsWithTheTotalOfAMixtureFirst) {
  AddEmission(2, 1, "Crude", "Annual", true, 1);
  AddEmission(1, 2, "Mix", "Annual", true, 2);
  AddEmission(1, 1, "Benzene", "Annual", false, 3);
  AddEmission(1, 1, "Gasoline", "Annual", true, 4);
  AddEmission(1, 1, "Aniline", "Annual", false, 5);
  EXPECT_EQ(
      QueryRows(client, "SELECT emission.* FROM emission ORDER BY emission.ID, emission.[MIX ID], emission.PRIMARY;",
                {"ID", "MIX ID", "NAME"}),
      (Rows{"1|1|Gasoline", "1|1|Benzene", "1|1|Aniline", "1|2|Mix", "2|1|Crude"}))
      << "true sorts before false, and components that the order leaves equal stay in the order of the file";
  EXPECT_EQ(QueryRows(client, "SELECT * FROM Emission WHERE ID = 1 ORDER BY [MIX ID], PRIMARY, NAME", {"NAME"}),
            (Rows{"Gasoline", "Aniline", "Benzene", "Mix"}));
}

TEST_F(ClientQueries, MonthlyEmissionRowsComeInTheOrderOfTheCalendar) {
  for (const char* month : {"October", "April", "January", "December"}) {
    AddEmission(7, 1, "Benzene", month, false, 1);
    AddEmission(7, 1, "Total", month, true, 1);
  }
  AddEmission(8, 1, "Other", "May", true, 1);
  EXPECT_EQ(QueryRows(client,
                      "SELECT * FROM Emission WHERE ID = 7 ORDER BY cvdate(Month & ' 01, 1999'), [MIX ID], PRIMARY, "
                      "NAME",
                      {"MONTH", "NAME"}),
            (Rows{"January|Total", "January|Benzene", "April|Total", "April|Benzene", "October|Total",
                  "October|Benzene", "December|Total", "December|Benzene"}));
  EXPECT_EQ(QueryRows(client, "SELECT * FROM Emission WHERE ID = 7 and PRIMARY ORDER BY cvdate(Month & ' 01, 1999')",
                      {"MONTH", "NAME"}),
            (Rows{"January|Total", "April|Total", "October|Total", "December|Total"}));
}

TEST_F(ClientQueries, AMonthThatIsNoMonthCannotBeADate) {
  AddEmission(7, 1, "Benzene", "Annual", true, 1);
  EXPECT_RUN_TIME_ERROR(
      client.OpenQuery("SELECT * FROM Emission WHERE ID = 7 and PRIMARY ORDER BY cvdate(Month & ' 01, 1999')"),
      ErrorNumber::kTypeMismatch);
}

TEST_F(ClientQueries, ABareBooleanIsACondition) {
  AddEmission(3, 2, "b", "Annual", true, 1);
  AddEmission(3, 1, "a", "Annual", true, 1);
  AddEmission(3, 1, "x", "Annual", false, 1);
  EXPECT_EQ(QueryRows(client, "SELECT * FROM Emission WHERE ID = 3 and PRIMARY ORDER BY [MIX ID]", {"NAME"}),
            (Rows{"a", "b"}));
}

TEST_F(ClientQueries, AnEmptyEmissionTableGivesNoRowsAndNoFailure) {
  for (const char* sql :
       {"SELECT emission.* FROM emission ORDER BY emission.ID, emission.[MIX ID], emission.PRIMARY;",
        "SELECT * FROM Emission WHERE ID = 7 ORDER BY cvdate(Month & ' 01, 1999'), [MIX ID], PRIMARY, NAME"}) {
    auto rows = client.OpenQuery(sql);
    EXPECT_TRUE(rows.AtEnd());
    EXPECT_TRUE(rows.AtStart());
    EXPECT_EQ(rows.RecordCount(), 0);
  }
}

TEST_F(ClientQueries, MonthlyLossesAreSummedByTankMixtureAndName) {
  AddEmission(2, 1, "Mix", "January", true, 100);
  AddEmission(1, 1, "Benzene", "February", false, 2);
  AddEmission(1, 1, "Gasoline", "January", true, 10);
  AddEmission(1, 1, "Benzene", "January", false, 1);
  AddEmission(1, 1, "Gasoline", "February", true, 20);
  EXPECT_EQ(QueryRows(client,
                      "SELECT DISTINCTROW emission.ID, emission.[MIX ID], emission.PRIMARY, emission.NAME, "
                      "Sum(emission.S_LOSS) AS SumOfS_LOSS, Sum(emission.W_LOSS) AS SumOfW_LOSS, "
                      "Sum(emission.RIM_LOSS) AS SumOfRIM_LOSS, Sum(emission.WD_LOSS) AS SumOfWD_LOSS, "
                      "Sum(emission.DECKF_LOSS) AS SumOfDECKF_LOSS, Sum(emission.DECKS_LOSS) AS SumOfDECKS_LOSS "
                      "From Emission GROUP BY emission.ID, emission.[MIX ID], emission.PRIMARY, emission.NAME;",
                      {"ID", "MIX ID", "PRIMARY", "NAME", "SumOfS_LOSS", "SumOfW_LOSS", "SumOfRIM_LOSS", "SumOfWD_LOSS",
                       "SumOfDECKF_LOSS", "SumOfDECKS_LOSS"}),
            (Rows{"1|1|-1|Gasoline|30|300|-|-|-|-", "1|1|0|Benzene|3|30|-|-|-|-", "2|1|-1|Mix|100|1000|-|-|-|-"}))
      << "the groups come in their order; a sum of nothing but nulls is null";
}

TEST_F(ClientQueries, TankTotalsAreSummedOverPrimaryRowsOnly) {
  AddEmission(2, 1, "Mix", "January", true, 100, "second");
  AddEmission(1, 1, "Gasoline", "January", true, 10, "first");
  AddEmission(1, 2, "Crude", "January", true, 20, "first");
  AddEmission(1, 1, "Benzene", "January", false, 1, "first");
  EXPECT_EQ(QueryRows(client,
                      "SELECT DISTINCTROW emission.ID, emission.[USER ID], emission.TANK_TYPE, emission.CITY, "
                      "emission.STATE, emission.COMPANY, Sum(emission.S_LOSS) AS SumOfS_LOSS, "
                      "Sum(emission.W_LOSS) AS SumOfW_LOSS, Sum(emission.RIM_LOSS) AS SumOfRIM_LOSS, "
                      "Sum(emission.WD_LOSS) AS SumOfWD_LOSS, Sum(emission.DECKF_LOSS) AS SumOfDECKF_LOSS, "
                      "Sum(emission.DECKS_LOSS) AS SumOfDECKS_LOSS From Emission Where ((Emission.Primary = True)) "
                      "GROUP BY emission.ID, emission.[USER ID], emission.TANK_TYPE, emission.CITY, emission.STATE, "
                      "emission.COMPANY;",
                      {"ID", "USER ID", "TANK_TYPE", "CITY", "STATE", "SumOfS_LOSS", "SumOfW_LOSS"}),
            (Rows{"1|first|Vertical Fixed Roof Tank|Sampleton|-|30|300",
                  "2|second|Vertical Fixed Roof Tank|Sampleton|-|100|1000"}));
}

TEST_F(ClientQueries, DeletingTheEmissionRowsOfATankLeavesTheOthers) {
  AddEmission(1, 1, "a", "Annual", true, 1);
  AddEmission(1, 1, "b", "Annual", false, 1);
  AddEmission(12, 1, "c", "Annual", true, 1);
  EXPECT_EQ(client.Execute("DELETE * FROM Emission WHERE ID = 1"), 2);
  EXPECT_EQ(client.Execute("DELETE * FROM Emission WHERE ID = 1"), 0);
  EXPECT_EQ(QueryRows(client, "SELECT NAME FROM emission", {"NAME"}), (Rows{"c"}));
}

}  // namespace
}  // namespace orvex::store
