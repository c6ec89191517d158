#include <gtest/gtest.h>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

/// The queries that lists, reports and exports run on a reference database, in their own words.
namespace orvex::store {
namespace {

using test::AddRow;
using test::QueryRows;
using test::Rows;

class ReferenceQueries : public testing::Test {
 protected:
  void AddChemical(const char* name, Value cas = {}, const char* category = "Organic Liquids") {
    AddRow(reference, "chemical", {{"NAME", name}, {"CAS", cas}, {"CATEGORY", category}});
  }
  void AddCity(const char* city, const char* state) {
    AddRow(reference, "met", {{"CTYST", std::string(city) + ", " + state}, {"CITY", city}, {"STATE", state}});
  }
  void AddSeal(const char* primary, const char* secondary, bool welded) {
    AddRow(reference, "rimseal",
           {{"PRIM_SEAL", primary}, {"SECND_SEAL", secondary}, {"WELDED", welded}, {"RIVETED", !welded}});
  }
  void AddProfile(const char* name, const char* type) {
    AddRow(reference, "profile names", {{"Profile Name", name}, {"TYPE", type}});
  }
  void AddProfileComponent(int profile, const char* name, double share) {
    AddRow(reference, "profile components", {{"SPEC ID", profile}, {"NAME", name}, {"WT_FRACT", share}});
  }
  test::TestSession test;
  Database& reference = test.reference();
};

TEST_F(ReferenceQueries, ChemicalNamesOfACategoryInOrder) {
  AddChemical("toluene");
  AddChemical("Benzene");
  AddChemical("Jet naphtha", {}, "Petroleum Distillates");
  AddChemical("Acetone");
  EXPECT_EQ(QueryRows(reference,
                      "SELECT DISTINCTROW CHEMICAL.Name AS chem From chemical WHERE "
                      "((CHEMICAL.CATEGORY='Organic Liquids'))ORDER BY chemical.NAME",
                      {"chem"}),
            (Rows{"Acetone", "Benzene", "toluene"}));
}

TEST_F(ReferenceQueries, CasNumbersOfACategoryWithoutNullsAndDuplicates) {
  AddChemical("b", "00071-43-2");
  AddChemical("c", "00071-43-2");
  AddChemical("a");
  AddChemical("d", "00067-64-1");
  AddChemical("e", "00000-00-0", "Crude Oils");
  const auto query = [](const std::string& category) {
    return "SELECT DISTINCTROW CHEMICAL.CAS From chemical Where ((chemical.CATEGORY = '" + category +
           "')) GROUP BY CHEMICAL.CAS HAVING ((CHEMICAL.CAS Is Not Null))ORDER BY chemical.CAS";
  };
  EXPECT_EQ(QueryRows(reference, query("Organic Liquids"), {"CAS"}), (Rows{"00067-64-1", "00071-43-2"}));
  EXPECT_EQ(QueryRows(reference, query("Crude Oils"), {"CAS"}), (Rows{"00000-00-0"}));
  EXPECT_EQ(QueryRows(reference, query("Petroleum Distillates"), {"CAS"}), Rows{});
}

TEST_F(ReferenceQueries, CitiesByNameAndByState) {
  AddCity("Toledo", "Ohio");
  AddCity("Akron", "Ohio");
  AddCity("Portland", "Oregon");
  AddCity("Portland", "Maine");
  EXPECT_EQ(QueryRows(reference, "SELECT DISTINCTROW met.* FROM met ORDER BY met.CITY;", {"CITY", "STATE"}),
            (Rows{"Akron|Ohio", "Portland|Oregon", "Portland|Maine", "Toledo|Ohio"}));
  EXPECT_EQ(QueryRows(reference, "SELECT DISTINCTROW met.* FROM met ORDER BY met.STATE, met.CITY;", {"CITY", "STATE"}),
            (Rows{"Portland|Maine", "Akron|Ohio", "Toledo|Ohio", "Portland|Oregon"}));
}

constexpr const char* kProfileList =
    "SELECT DISTINCTROW [profile components].[spec id], [profile components].NAME, [profile components].CAS, "
    "[profile components].WT_FRACT, [profile components].VP_FRACT, [profile components].WEIGHT, "
    "[profile components].MOLWT, [profile components].VP_MOLWT FROM [profile components] "
    "WHERE (([profile components].[spec id]= ";

TEST_F(ReferenceQueries, TheComponentsOfAProfile) {
  AddProfileComponent(6, "Hexane (-n)", 0.005);
  AddProfileComponent(5, "Other", 1);
  AddProfileComponent(6, "Benzene", 0.004);
  EXPECT_EQ(QueryRows(reference, kProfileList + std::string("6))"), {"spec id", "NAME", "WT_FRACT", "CAS"}),
            (Rows{"6|Hexane (-n)|0.005|-", "6|Benzene|0.004|-"}));
  EXPECT_EQ(QueryRows(reference, "Select * from [profile components] where [spec id] = 6", {"NAME"}),
            (Rows{"Hexane (-n)", "Benzene"}));
  // The parentheses have to be closed behind the key.
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery(kProfileList + std::string("6")), ErrorNumber::kQuerySyntax);
}

TEST_F(ReferenceQueries, TheBarePanelAndSheetListsOfDeckSeams) {
  for (const char* name : {"Sheet: 5 Ft Wide", "Panel: 5 x 7.5 Ft", "panel: 5 x 12 Ft"}) {
    AddRow(reference, "deckseam", {{"NAME", name}});
  }
  EXPECT_EQ(QueryRows(reference, "SELECT * FROM deckseam WHERE Name Like \"*Panel*\"", {"NAME"}),
            (Rows{"Panel: 5 x 7.5 Ft", "panel: 5 x 12 Ft"}));
  EXPECT_EQ(QueryRows(reference, "SELECT * FROM deckseam WHERE Name Like '*Sheet*'", {"NAME"}),
            (Rows{"Sheet: 5 Ft Wide"}));
}

// Chosen records of a reference report -----------------------------------------------------------------------------

TEST_F(ReferenceQueries, ChosenChemicals) {
  for (const char* name : {"Benzene", "Toluene", "Xylene"}) AddChemical(name);
  EXPECT_EQ(
      QueryRows(reference, "Select * from Chemical where ((Chemical.NAME= 'Xylene')) OR ((Chemical.NAME= 'benzene'))",
                {"NAME"}),
      (Rows{"Benzene", "Xylene"}));
}

TEST_F(ReferenceQueries, AChoiceOfThousandsOfChemicalsIsNotTooMuch) {
  AddChemical("Chemical 0");
  AddChemical("Chemical 4999");
  std::string query = "Select * from Chemical where ((Chemical.NAME= 'Chemical 0'))";
  for (int i = 1; i < 5000; ++i) query += " OR ((Chemical.NAME= 'Chemical " + std::to_string(i) + "'))";
  EXPECT_EQ(QueryRows(reference, query, {"NAME"}), (Rows{"Chemical 0", "Chemical 4999"}));
}

TEST_F(ReferenceQueries, AlternativesOfOneFieldAndOfSeveralMeanTheSame) {
  for (const char* name : {"Benzene", "Toluene", "Xylene", "5"}) AddChemical(name);
  const auto names = [&](const std::string& condition) {
    return QueryRows(reference, "Select * from Chemical where " + condition, {"NAME"});
  };
  EXPECT_EQ(names("NAME = 'XYLENE' OR [NAME] = 5 OR (NAME = 'none')"), (Rows{"Xylene", "5"}));
  EXPECT_EQ(names("NAME = 'Xylene' OR NAME = Null"), Rows{"Xylene"});
  EXPECT_EQ(names("NAME = 'Xylene' OR NAME = 'Toluene' AND NAME = '5'"), Rows{"Xylene"});
  EXPECT_EQ(names("NAME = 'Xylene' OR CAS = '1'"), Rows{"Xylene"});
  EXPECT_EQ(names("NOT (NAME = 'Xylene' OR NAME = 'Toluene')"), (Rows{"Benzene", "5"}));
  EXPECT_EQ(names("NAME = 'Xylene' OR chemical.NAME = 'Toluene'"), (Rows{"Toluene", "Xylene"}));
  EXPECT_EQ(names("NAME = 'Xylene' OR NAME <> 'Toluene' AND NAME <> '5'"), (Rows{"Benzene", "Xylene"}));
}

TEST_F(ReferenceQueries, AnApostropheInANameBreaksTheClause) {
  AddChemical("Stoddard's solvent");
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery("Select * from Chemical where ((Chemical.NAME= 'Stoddard's solvent'))"),
                        ErrorNumber::kQuerySyntax);
  EXPECT_RUN_TIME_ERROR(reference.OpenQuery("Select * from deckseam where ((deckseam.Name = '5' wide'))"),
                        ErrorNumber::kQuerySyntax);
  EXPECT_RUN_TIME_ERROR(
      reference.OpenQuery("Select * from [profile names] where (([Profile Names].[Profile Name] = 'Jet'A'))"),
      ErrorNumber::kQuerySyntax);
  EXPECT_RUN_TIME_ERROR(
      reference.OpenQuery("Select * from rimseal where ((rimseal.Prim_SEAL = 'Maker's shoe') AND "
                          "(rimseal.Secnd_SEAL ='None') AND (rimseal.WELDED = True) AND (rimseal.RIVETED = False))"),
      ErrorNumber::kQuerySyntax);
}

TEST_F(ReferenceQueries, ACityWithAnApostropheIsFoundBetweenDoubleQuotes) {
  AddCity("Coeur d'Alene", "Idaho");
  AddCity("Akron", "Ohio");
  EXPECT_EQ(QueryRows(reference, "Select * from Met where ((Met.CTYST= \"Coeur d'Alene, Idaho\"))", {"CITY"}),
            (Rows{"Coeur d'Alene"}));
}

TEST_F(ReferenceQueries, ChosenFittingsFailForTheMissingFrom) {
  AddRow(reference, "fitting", {{"FIT_TYPE", "a"}, {"COVR_TYPE", "b"}});
  for (const char* sql : {"Select * fitting where ((fitting.Fit_TYPE = 'a' AND fitting.COVR_TYPE = 'b'))",
                          "Select * fitting where ((fitting.Fit_TYPE= 'a'))"}) {
    EXPECT_RUN_TIME_ERROR(reference.OpenQuery(sql), ErrorNumber::kQuerySyntax);
  }
}

TEST_F(ReferenceQueries, ChosenRimSeals) {
  AddSeal("Shoe", "None", true);
  AddSeal("Shoe", "None", false);
  AddSeal("Shoe", "Rim-mounted", true);
  const std::string clause =
      "((rimseal.Prim_SEAL = 'Shoe') AND (rimseal.Secnd_SEAL ='None') AND (rimseal.WELDED = True) AND "
      "(rimseal.RIVETED = False))";
  const std::string other =
      "((rimseal.Prim_SEAL = 'Shoe') AND (rimseal.Secnd_SEAL ='Rim-mounted') AND (rimseal.WELDED = -1) AND "
      "(rimseal.RIVETED = 0))";
  EXPECT_EQ(QueryRows(reference, "Select * from rimseal where " + clause, {"Counter"}), (Rows{"1"}));
  EXPECT_EQ(QueryRows(reference, "Select * from rimseal where " + clause + " OR " + other, {"Counter"}),
            (Rows{"1", "3"}));
}

TEST_F(ReferenceQueries, ChosenDeckSeamsAndProfiles) {
  for (const char* name : {"Sheet: 5 Ft Wide", "Panel: 5 x 7.5 Ft"}) AddRow(reference, "deckseam", {{"NAME", name}});
  for (const char* name : {"Gasoline", "Jet Kerosene"}) AddProfile(name, "Full");
  EXPECT_EQ(QueryRows(reference, "Select * from deckseam where ((deckseam.Name = 'Panel: 5 x 7.5 Ft'))", {"Counter"}),
            (Rows{"2"}));
  EXPECT_EQ(
      QueryRows(reference, "Select * from [profile names] where (([Profile Names].[Profile Name] = 'Jet Kerosene'))",
                {"SPEC ID", "TYPE"}),
      (Rows{"2|Full"}));
}

// Exports ------------------------------------------------------------------------------------------------------------

TEST_F(ReferenceQueries, AWholeTableIsExportedWithItsFieldsAndWidths) {
  AddRow(reference, "met", {{"CTYST", "Akron, Ohio"}, {"CITY", "Akron"}, {"TAX_JAN", 33.5}, {"USER DEF", true}});
  AddRow(reference, "met", {{"CTYST", "Toledo, Ohio"}});
  const auto path = test.folder.Path() / "export.mdb";
  Database::Create(path, {});
  EXPECT_EQ(reference.Execute("SELECT * INTO [;database=" + path.string() + "].[cities] FROM [met]"), 2);
  const auto target = Database::Open(path);
  const auto fields = target->Fields("cities");
  const auto source = reference.Fields("met");
  ASSERT_EQ(fields.size(), source.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_EQ(fields[i].name, source[i].name);
    EXPECT_EQ(fields[i].width, source[i].width) << fields[i].name;
    const auto type = source[i].type == FieldType::kCounter ? FieldType::kLong : source[i].type;
    EXPECT_EQ(fields[i].type, type) << fields[i].name;
  }
  EXPECT_EQ(QueryRows(*target, "SELECT * FROM cities", {"Counter", "CTYST", "TAX_JAN", "USER DEF", "STATE"}),
            (Rows{"1|Akron, Ohio|33.5|-1|-", "2|Toledo, Ohio|-|0|-"}));
}

TEST_F(ReferenceQueries, ChosenRowsAreExported) {
  for (const char* name : {"Benzene", "Toluene"}) AddChemical(name, "0");
  const auto path = test.folder.Path() / "export.mdb";
  Database::Create(path, {});
  EXPECT_EQ(reference.Execute("select * into [;database=" + path.string() +
                              "].[chemical] from chemical where ((Chemical.NAME= 'Toluene'))"),
            1);
  EXPECT_EQ(QueryRows(*Database::Open(path), "SELECT NAME FROM chemical", {"NAME"}), (Rows{"Toluene"}));
}

TEST_F(ReferenceQueries, ProfilesAreExportedJoinedWithTheirComponents) {
  AddProfile("Gasoline", "Full");
  AddProfile("Jet Kerosene", "Partial");
  AddProfileComponent(2, "Hexane", 0.5);
  AddProfileComponent(1, "Benzene", 2);
  AddProfileComponent(9, "Stray", 1);
  AddProfileComponent(2, "Benzene", 1);
  const auto statement = [](const std::string& clause) {
    return "SELECT DISTINCTROW [profile names].[Profile Name], [profile names].TYPE,"
           " [profile components].NAME, [profile components].CAS, [profile components].WT_FRACT,"
           " [profile components].VP_FRACT, [profile components].WEIGHT, [profile components].MOLWT,"
           " [profile components].VP_MOLWT INTO [joined] FROM [profile components] INNER JOIN [profile names]"
           " ON [profile components].[spec id] = [profile names].[SPEC ID] where " +
           clause;
  };
  const std::initializer_list<std::string_view> fields = {"Profile Name", "TYPE", "NAME", "WT_FRACT"};
  EXPECT_EQ(reference.Execute(statement("(([Profile Names].[Profile Name] = 'Jet Kerosene'))")), 2);
  EXPECT_EQ(QueryRows(reference, "SELECT * FROM joined", fields),
            (Rows{"Jet Kerosene|Partial|Hexane|0.5", "Jet Kerosene|Partial|Benzene|1"}));
  const auto stored = reference.Fields("joined");
  ASSERT_EQ(stored.size(), 9U);
  EXPECT_EQ(stored[0].name, "Profile Name");
  EXPECT_EQ(stored[0].width, 50);
  EXPECT_EQ(stored[8].name, "VP_MOLWT");
  EXPECT_EQ(stored[8].type, FieldType::kDouble);

  EXPECT_RUN_TIME_ERROR(reference.Execute(statement("(([Profile Names].[Profile Name] = 'Gasoline'))")),
                        ErrorNumber::kAlreadyExists);
  reference.DeleteTable("joined");
  EXPECT_EQ(reference.Execute(statement("(([Profile Names].[Profile Name] = 'Gasoline')) OR (([Profile Names]."
                                        "[Profile Name] = 'Jet Kerosene'))")),
            3);
  EXPECT_EQ(QueryRows(reference, "SELECT * FROM joined", fields),
            (Rows{"Jet Kerosene|Partial|Hexane|0.5", "Gasoline|Full|Benzene|2", "Jet Kerosene|Partial|Benzene|1"}))
      << "in the order of the components' file";
}

}  // namespace
}  // namespace orvex::store
