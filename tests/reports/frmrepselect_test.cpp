#include "reports/frmrepselect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "emission/run_report.h"
#include "reports/reference_report_fixture.h"
#include "support/sample_tanks.h"

namespace orvex::reports {
namespace {

using Strings = std::vector<std::string>;

class FrmrepselectTest : public test::ReferenceReportTest {
 protected:
  void AddChemicals(const Strings& names) {
    for (const auto& name : names) test::AddRow(Reference(), "chemical", {{"NAME", name}});
  }
  void AddFitting(const store::Value& type, const store::Value& status) {
    test::AddRow(Reference(), "fitting", {{"FIT_TYPE", type}, {"COVR_TYPE", status}});
  }
  void AddSeal(const store::Value& primary, const store::Value& secondary, bool welded) {
    test::AddRow(Reference(), "rimseal",
                 {{"PRIM_SEAL", primary}, {"SECND_SEAL", secondary}, {"WELDED", welded}, {"RIVETED", !welded}});
  }
  void AddNamed(std::string_view table, std::string_view field, const Strings& names) {
    for (const auto& name : names) test::AddRow(Reference(), table, {{field, name}});
  }

  /// What Print hands on when these items are chosen.
  struct HandedOn {
    std::string source, kind, filter;
    bool operator==(const HandedOn&) const = default;
  };
  HandedOn PrintOf(std::string_view word, const Strings& items) {
    auto form = Open(word);
    Choose(form, items);
    EXPECT_TRUE(form.cmdPrint.enabled);
    ClickPrint(session_, form);
    return {session_.ReportSource, session_.ReportSourceKind, session_.ReportFilter};
  }
};

// What the window shows -------------------------------------------------------------------------------------------

TEST_F(FrmrepselectTest, HasTheHeadingsOfItsTable) {
  struct Expected {
    const char *word, *table, *field, *chosen;
  };
  constexpr const char* kSeals = "Primary Seal/Secondary Seal/Welded or Riveted";
  constexpr Expected kExpected[] = {
      {"Chemical", "Chemical Report", "Chemcial Name", "Chemcal Name"},
      {"Met", "Meteorological Report", "City, State", "City, State"},
      {"Fit", "Fitting Report", "Fitting Type/Cover Type", "Fitting Type/Cover Type"},
      {"Rim", "Rim Seal Report", kSeals, kSeals},
      {"Deck", "Deck Seam Report", "Name", "Name"},
      {"Profile", "Speciation Profile Report", "Profile Name", "Profile Name"},
  };
  for (const auto& expected : kExpected) {
    const auto form = Open(expected.word);
    EXPECT_EQ(form.lblTable.text, expected.table);
    EXPECT_EQ(form.lblField.text, expected.field);
    EXPECT_EQ(form.lblFieldChosen.text, expected.chosen);
    EXPECT_TRUE(form.lstItems.items.empty());
    EXPECT_TRUE(form.lstSelectItems.items.empty());
    EXPECT_FALSE(form.cmdPrint.enabled);
  }
}

TEST_F(FrmrepselectTest, ListsNamesInTheOrderOfTheTableWithoutNulls) {
  AddChemicals({"Toluene", "Benzene"});
  test::AddRow(Reference(), "chemical", {{"CAS", "no name"}});
  AddChemicals({"", "Acetone"});
  EXPECT_EQ(Open("Chemical").lstItems.items, (Strings{"Toluene", "Benzene", "", "Acetone"}));

  test::AddRow(Reference(), "met", {{"CTYST", "Enid, Oklahoma"}, {"CITY", "Tulsa"}});
  test::AddRow(Reference(), "met", {{"CITY", "Nowhere"}});
  EXPECT_EQ(Open("Met").lstItems.items, Strings{"Enid, Oklahoma"});

  AddNamed("deckseam", "NAME", {"Sheet: 7 Ft Wide", "Sheet: 5 Ft Wide"});
  test::AddRow(Reference(), "deckseam", {{"CONSTRUC", "Sheet"}});
  EXPECT_EQ(Open("Deck").lstItems.items, (Strings{"Sheet: 7 Ft Wide", "Sheet: 5 Ft Wide"}));

  AddNamed("profile names", "Profile Name", {"Gasoline", "Crude Oil"});
  test::AddRow(Reference(), "profile names", {{"TYPE", "Full"}});
  EXPECT_EQ(Open("Profile").lstItems.items, (Strings{"Gasoline", "Crude Oil"}));
}

TEST_F(FrmrepselectTest, ListsFittingsByTypeAndStatus) {
  AddFitting("Roof Leg", "Adjustable");
  AddFitting("Ladder", store::Value());
  AddFitting("Vent", "");
  AddFitting(store::Value(), "no type");
  AddFitting(store::Value(), store::Value());
  EXPECT_EQ(Open("Fit").lstItems.items, (Strings{"Roof Leg/Adjustable", "Ladder", "Vent/"}));
}

TEST_F(FrmrepselectTest, ListsSealsByBothAndTheShell) {
  AddSeal("Mechanical Shoe", "None", true);
  AddSeal("Mechanical Shoe", "None", false);
  AddSeal("Vapor-mounted", store::Value(), true);
  AddSeal(store::Value(), "None", true);
  EXPECT_EQ(Open("Rim").lstItems.items,
            (Strings{"Mechanical Shoe/None/Welded", "Mechanical Shoe/None/Riveted", "Vapor-mounted//Welded"}));
}

TEST_F(FrmrepselectTest, HasNothingToChooseForOtherOutput) {
  AddChemicals({"Benzene"});
  auto form = Open("Report");
  EXPECT_TRUE(form.lstItems.items.empty());
  ClickSelectAll(session_, form);
  EXPECT_FALSE(form.cmdPrint.enabled);
}

TEST_F(FrmrepselectTest, AMissingTableIsReportedUnderTheWindowsName) {
  Reference().DeleteTable("met");
  test_.host.ExpectError(3011, "frmRepSelect.");
  const auto form = Open("Met");
  EXPECT_EQ(form.lblTable.text, "Meteorological Report");
  EXPECT_TRUE(form.lstItems.items.empty());
}

// Choosing ----------------------------------------------------------------------------------------------------------

TEST_F(FrmrepselectTest, SelectAddsTheSelectedRowsBehindTheChosenOnes) {
  AddChemicals({"A", "B", "C"});
  auto form = Open("Chemical");
  Choose(form, {"C"});
  Choose(form, {"A", "B"});
  EXPECT_EQ(form.lstSelectItems.items, (Strings{"C", "A", "B"}));
  EXPECT_EQ(form.lstItems.items, (Strings{"A", "B", "C"})) << "they stay in the list";
}

TEST_F(FrmrepselectTest, PickingTheSameItemTwiceLeavesOneRow) {
  AddChemicals({"A", "a", "A", "A "});
  auto form = Open("Chemical");
  Choose(form, {"A"});
  Choose(form, {"A", "a", "A "});
  EXPECT_EQ(form.lstSelectItems.items, (Strings{"A", "a", "A "})) << "other letters are another text";
}

TEST_F(FrmrepselectTest, SelectAllStartsAnewWithAllRows) {
  AddChemicals({"B", "A", "B"});
  auto form = Open("Chemical");
  Choose(form, {"A"});
  ClickSelectAll(session_, form);
  EXPECT_EQ(form.lstSelectItems.items, (Strings{"B", "A", "B"}));
}

TEST_F(FrmrepselectTest, RemoveTakesTheSelectedRowsOut) {
  AddChemicals({"A", "B", "C"});
  auto form = Open("Chemical");
  ClickSelectAll(session_, form);
  form.lstSelectItems.selected = {0, 2};
  ClickRemove(session_, form);
  EXPECT_EQ(form.lstSelectItems.items, Strings{"B"});
  EXPECT_TRUE(form.lstSelectItems.selected.empty());
  ClickSelectAll(session_, form);
  ClickRemoveAll(session_, form);
  EXPECT_TRUE(form.lstSelectItems.items.empty());
}

TEST_F(FrmrepselectTest, PrintIsEnabledExactlyWhileARowIsChosen) {
  AddChemicals({"A", "B"});
  auto form = Open("Chemical");
  ClickSelect(session_, form);
  EXPECT_FALSE(form.cmdPrint.enabled) << "nothing was selected";
  Choose(form, {"A"});
  EXPECT_TRUE(form.cmdPrint.enabled);
  form.lstSelectItems.selected = {0};
  ClickRemove(session_, form);
  EXPECT_FALSE(form.cmdPrint.enabled);
  ClickSelectAll(session_, form);
  EXPECT_TRUE(form.cmdPrint.enabled);
  ClickRemoveAll(session_, form);
  EXPECT_FALSE(form.cmdPrint.enabled);
  ClickPrint(session_, form);
  EXPECT_TRUE(test_.host.windows.empty());
}

// What is handed on -------------------------------------------------------------------------------------------------

TEST_F(FrmrepselectTest, AllItemsChosenMakeTheWholeTableTheSource) {
  AddChemicals({"A", "B"});
  test::AddRow(Reference(), "met", {{"CTYST", "Enid, Oklahoma"}});
  AddFitting("Ladder", store::Value());
  AddSeal("Mechanical Shoe", "None", true);
  AddNamed("deckseam", "NAME", {"Sheet"});
  AddNamed("profile names", "Profile Name", {"Gasoline"});
  const Strings tables = {"Chemical", "Met", "fitting", "rimseal", "deckseam", "Profile Names"};
  for (std::size_t i = 0; i < tables.size(); ++i) {
    session_.ReportFilter = "of the report before";
    auto form = Open(test::kWords[i]);
    ClickSelectAll(session_, form);
    ClickPrint(session_, form);
    EXPECT_EQ(session_.ReportSource, tables[i]);
    EXPECT_EQ(session_.ReportSourceKind, "dbOpenTable");
    EXPECT_EQ(session_.ReportFilter, "") << "no condition is built";
  }
  EXPECT_EQ(PrintOf("Chemical", {"A", "B"}), (HandedOn{"Chemical", "dbOpenTable", ""})) << "picked one by one";
}

TEST_F(FrmrepselectTest, SomeItemsChosenMakeAQueryTheSource) {
  AddChemicals({"Benzene", "Toluene", "Acetone"});
  EXPECT_EQ(PrintOf("Chemical", {"Benzene"}), (HandedOn{"Select * from Chemical where ((Chemical.NAME= 'Benzene'))",
                                                        "dbOpenDynaset", "(({Chemical.NAME} = 'Benzene'))"}));
  EXPECT_EQ(PrintOf("Chemical", {"Benzene", "Acetone"}),
            (HandedOn{"Select * from Chemical where ((Chemical.NAME= 'Benzene')) OR ((Chemical.NAME= 'Acetone'))",
                      "dbOpenDynaset", "(({Chemical.NAME} = 'Benzene')) OR (({Chemical.NAME} = 'Acetone'))"}));

  for (const auto* city : {"Enid, Oklahoma", "Tulsa, Oklahoma"}) test::AddRow(Reference(), "met", {{"CTYST", city}});
  EXPECT_EQ(PrintOf("Met", {"Enid, Oklahoma"}), (HandedOn{"Select * from Met where ((Met.CTYST= \"Enid, Oklahoma\"))",
                                                          "dbOpenDynaset", "(({Met.CTYST} = \"Enid, Oklahoma\"))"}));

  AddNamed("deckseam", "NAME", {"Sheet: 5 Ft Wide", "Sheet: 7 Ft Wide"});
  EXPECT_EQ(PrintOf("Deck", {"Sheet: 7 Ft Wide"}),
            (HandedOn{"Select * from deckseam where ((deckseam.Name = 'Sheet: 7 Ft Wide'))", "dbOpenDynaset",
                      "(({deckseam.Name} = 'Sheet: 7 Ft Wide'))"}));

  AddNamed("profile names", "Profile Name", {"Gasoline", "Crude Oil"});
  EXPECT_EQ(PrintOf("Profile", {"Gasoline"}),
            (HandedOn{"Select * from [profile names] where (([Profile Names].[Profile Name] = 'Gasoline'))",
                      "dbOpenDynaset", "(({Profile Names.Profile Name} = 'Gasoline'))"}));
}

TEST_F(FrmrepselectTest, TheConditionIsKeptForAnExport) {
  AddChemicals({"A", "B", "C"});
  (void)PrintOf("Chemical", {"A", "C"});
  EXPECT_EQ(session_.ReportCondition, "((Chemical.NAME= 'A')) OR ((Chemical.NAME= 'C'))");
  AddFitting("Ladder", store::Value());
  AddFitting("Vent", store::Value());
  (void)PrintOf("Fit", {"Vent"});
  EXPECT_EQ(session_.ReportCondition, "((fitting.Fit_TYPE= 'Vent'))");
  (void)PrintOf("Chemical", {"A", "B", "C"});
  EXPECT_EQ(session_.ReportCondition, "") << "of the whole table";
}

TEST_F(FrmrepselectTest, AFittingIsCutAtItsFirstSlash) {
  AddFitting("Roof Leg", "Adjustable/Pontoon");
  AddFitting("Ladder", store::Value());
  AddFitting("Vent", "");
  AddFitting("Rim Vent", "Gasketed");
  EXPECT_EQ(
      PrintOf("Fit", {"Roof Leg/Adjustable/Pontoon", "Ladder", "Vent/"}),
      (HandedOn{
          "Select * fitting where ((fitting.Fit_TYPE = 'Roof Leg' AND fitting.COVR_TYPE = 'Adjustable/Pontoon'))"
          " OR ((fitting.Fit_TYPE= 'Ladder')) OR ((fitting.Fit_TYPE = 'Vent' AND fitting.COVR_TYPE = ''))",
          "dbOpenDynaset",
          "(({fitting.Fit_TYPE} = 'Roof Leg' AND {fitting.COVR_TYPE} = 'Adjustable/Pontoon'))"
          " OR (({fitting.Fit_TYPE} = 'Ladder')) OR (({fitting.Fit_TYPE} = 'Vent' AND {fitting.COVR_TYPE} = ''))"}));
}

TEST_F(FrmrepselectTest, ASealsThirdPartNamesBothTruthValues) {
  AddSeal(" Mechanical Shoe ", " None ", true);
  AddSeal("Mechanical Shoe", "Rim-mounted", false);
  AddSeal("Liquid-mounted", "None", true);
  EXPECT_EQ(PrintOf("Rim", {" Mechanical Shoe / None /Welded"}),
            (HandedOn{"Select * from rimseal where ((rimseal.Prim_SEAL = 'Mechanical Shoe') AND (rimseal.Secnd_SEAL "
                      "='None') AND (rimseal.WELDED = True) AND (rimseal.RIVETED = False))",
                      "dbOpenDynaset",
                      "(({rimseal.Prim_SEAL} = 'Mechanical Shoe') AND ({rimseal.Secnd_SEAL} = 'None') AND "
                      "({rimseal.WELDED} = True) AND ({rimseal.RIVETED} = False))"}));
  EXPECT_EQ(PrintOf("Rim", {"Mechanical Shoe/Rim-mounted/Riveted"}).source,
            "Select * from rimseal where ((rimseal.Prim_SEAL = 'Mechanical Shoe') AND (rimseal.Secnd_SEAL "
            "='Rim-mounted') AND (rimseal.WELDED = False) AND (rimseal.RIVETED = True))");
}

TEST_F(FrmrepselectTest, RowsOfOneTextAreTheWholeTableOnlyWhenAllAreTaken) {
  AddFitting("Ladder", store::Value());
  AddFitting("Ladder", store::Value());
  EXPECT_EQ(PrintOf("Fit", {"Ladder"}).source, "Select * fitting where ((fitting.Fit_TYPE= 'Ladder'))")
      << "two rows selected leave one";
  auto form = Open("Fit");
  ClickSelectAll(session_, form);
  ClickPrint(session_, form);
  EXPECT_EQ(session_.ReportSource, "fitting");
}

TEST_F(FrmrepselectTest, ARunAfterwardsHasItsOwnFilter) {
  AddChemicals({"Acetone", "Xylene"});
  EXPECT_EQ(PrintOf("Chemical", {"Acetone"}).filter, "(({Chemical.NAME} = 'Acetone'))");
  test::AddVerticalTank(test_, {{"USER ID", "A"}});
  session_.TankList = {"A"};
  session_.ReportType = "Brief";
  session_.ReportTime = "Annual";
  emission::RunReport(session_);
  EXPECT_EQ(session_.PrintMode, "Report");
  EXPECT_EQ(session_.ReportFilter, "(emission.[ID] = 1)");
}

TEST_F(FrmrepselectTest, PrintStandsReadyAndOpensTheOutputInItsOwnPlace) {
  AddChemicals({"A"});
  auto form = Open("Chemical");
  ClickSelectAll(session_, form);
  bool hidden = false;
  test_.host.WhenShown("frmprintrep", [&] { hidden = form.window.closed; });
  ClickPrint(session_, form);
  EXPECT_TRUE(hidden);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(test_.host.steps, (Strings{"status Ready", "show frmprintrep"}));
}

TEST_F(FrmrepselectTest, AFailureOfTheOutputIsReportedUnderTheWindowsName) {
  AddChemicals({"A"});
  auto form = Open("Chemical");
  ClickSelectAll(session_, form);
  test_.host.WhenShown("frmprintrep",
                       [] { throw store::RunTimeError(store::ErrorNumber::kDiskFailure, "The disk is gone."); });
  test_.host.ExpectError(3043, "frmRepSelect.");
  ClickPrint(session_, form);
}

TEST_F(FrmrepselectTest, CloseUnloadsAndHelpShowsItsTopic) {
  auto form = Open("Deck");
  ClickHelp(session_, form);
  EXPECT_EQ(test_.host.help, Strings{"report_selection"});
  EXPECT_FALSE(form.window.closed);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_TRUE(test_.host.windows.empty());
}

}  // namespace
}  // namespace orvex::reports
