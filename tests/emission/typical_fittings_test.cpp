#include "emission/typical_fittings.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/test_databases.h"

namespace orvex::emission {
namespace {

using test::AddRow;
using test::TestSession;

constexpr std::int32_t kTank = 7;

/// One row of `fittings` as the tests compare it.
struct Fitting {
  std::int32_t number;
  std::string type;
  std::string cover;
  double quantity;
  friend bool operator==(const Fitting&, const Fitting&) = default;
  friend void PrintTo(const Fitting& fitting, std::ostream* out) {
    *out << fitting.number << ": " << fitting.quantity << " x " << fitting.type << " / " << fitting.cover;
  }
};

std::vector<Fitting> FittingsOf(TestSession& test, std::int32_t ID) {
  std::vector<Fitting> found;
  for (auto rows = test.client().OpenMatching("fittings", "fitid", {ID}); !rows.AtEnd(); rows.MoveNext())
    found.push_back(
        {rows.Long("FIT ID"), rows.Text("FIT_TYPE"), rows.TextOrEmpty("COVR_TYPE"), rows.Double("QUANTITY")});
  return found;
}

/// A row of the typical set of internal roofs.
void AddInternal(TestSession& test, std::string_view type, bool weld_deck, bool self_sup, double quantity = 1) {
  AddRow(test.reference(), "fitting",
         {{"FIT_TYPE", type},
          {"COVR_TYPE", "Cover"},
          {"K_FA", 1.5},
          {"K_FB", 0.25},
          {"K_M", 1.25},
          {"QUANTITY", quantity},
          {"TYP_IFLT", true},
          {"WELD_DECK", weld_deck},
          {"SELF_SUP", self_sup}});
}

/// A row of the typical set of external roofs.
void AddExternal(TestSession& test, std::string_view type, std::string_view cover, bool d_roof, bool p_seal,
                 double quantity = 1) {
  AddRow(test.reference(), "fitting",
         {{"FIT_TYPE", type},
          {"COVR_TYPE", cover},
          {"K_FA", 1.5},
          {"K_FB", 0.25},
          {"K_M", 1.25},
          {"QUANTITY", quantity},
          {"TYP_EFLT", true},
          {"D_ROOF", d_roof},
          {"P_SEAL", p_seal}});
}

/// Four rows, one for each pair of the two internal flags.
void AddInternalChoice(TestSession& test) {
  AddInternal(test, "Plain", false, false);
  AddInternal(test, "Welded", true, false);
  AddInternal(test, "Self-supporting", false, true);
  AddInternal(test, "Both", true, true);
}

void AddExternalChoice(TestSession& test) {
  AddExternal(test, "Plain", "Cover", false, false);
  AddExternal(test, "Roof", "Cover", true, false);
  AddExternal(test, "Seal", "Cover", false, true);
  AddExternal(test, "Both", "Cover", true, true);
}

std::vector<std::string> TypesOf(TestSession& test) {
  std::vector<std::string> types;
  for (const Fitting& fitting : FittingsOf(test, kTank)) types.push_back(fitting.type);
  return types;
}

using Types = std::vector<std::string>;

TEST(TypicalFitIFRT, ABoltedDeckTakesAllTypicalRows) {
  TestSession test;
  AddInternalChoice(test);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(TypesOf(test), (Types{"Plain", "Welded", "Self-supporting", "Both"}));
}

TEST(TypicalFitIFRT, AnyOtherDeckTakesTheRowsOfWeldedDecks) {
  for (const std::string_view deck : {"Welded", "", "bolted"}) {
    TestSession test;
    AddInternalChoice(test);
    TypicalFitIFRT(test.session, kTank, deck, false, 90);
    EXPECT_EQ(TypesOf(test), (Types{"Welded", "Both"})) << deck;
  }
}

TEST(TypicalFitIFRT, ASelfSupportingRoofTakesTheRowsOfSuchRoofs) {
  TestSession test;
  AddInternalChoice(test);
  TypicalFitIFRT(test.session, kTank, "Bolted", true, 90);
  EXPECT_EQ(TypesOf(test), (Types{"Self-supporting", "Both"}));
  TypicalFitIFRT(test.session, kTank, "Welded", true, 90);
  EXPECT_EQ(TypesOf(test), (Types{"Both"}));
}

TEST(TypicalFitIFRT, LeavesOutRowsThatAreNotTypical) {
  TestSession test;
  AddRow(test.reference(), "fitting",
         {{"FIT_TYPE", "Rare"}, {"QUANTITY", 1.0}, {"WELD_DECK", true}, {"SELF_SUP", true}});
  AddExternal(test, "External", "Cover", true, true);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(TypesOf(test), Types{});
}

TEST(TypicalFitIFRT, CountsColumnsDrainsAndLegsByTheDiameter) {
  // At 90 ft: 6 columns; 90^2 / 125 + 0.49 = 65.29 drains; 14 + 8100 / 600 + 0.49 = 27.99 legs.
  TestSession test;
  AddInternal(test, "Column Well (24-in. Diam.)", true, true);
  AddInternal(test, "Stub Drain (1-in. Diameter)", true, true);
  AddInternal(test, "Roof Leg (3-in. Diameter)", true, true);
  AddInternal(test, "Vacuum Breaker (10-in. Diam.)", true, true, 3);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Column Well (24-in. Diam.)", "Cover", 6},
                                                           {2, "Stub Drain (1-in. Diameter)", "Cover", 65},
                                                           {3, "Roof Leg (3-in. Diameter)", "Cover", 28},
                                                           {4, "Vacuum Breaker (10-in. Diam.)", "Cover", 3}}));
}

TEST(TypicalFitIFRT, KnowsFittingsByAPartOfTheirNameWithRegardToCase) {
  TestSession test;
  AddInternal(test, "Column and Stub Drain", true, true, 3);
  AddInternal(test, "Stub Drain of a Roof Leg", true, true, 3);
  AddInternal(test, "column well", true, true, 3);
  AddInternal(test, "Roof leg", true, true, 3);
  AddInternal(test, "Old Roof Leg", true, true, 3);
  AddInternal(test, "Roof Drain", true, true, 3);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Column and Stub Drain", "Cover", 6},
                                                           {2, "Stub Drain of a Roof Leg", "Cover", 65},
                                                           {3, "column well", "Cover", 3},
                                                           {4, "Roof leg", "Cover", 3},
                                                           {5, "Old Roof Leg", "Cover", 28},
                                                           {6, "Roof Drain", "Cover", 3}}));
}

TEST(TypicalFitIFRT, AWeldedDeckGetsNoStubDrainsAndItsNumbersHaveNoGap) {
  TestSession test;
  AddInternal(test, "Access Hatch", true, true);
  AddInternal(test, "Stub Drain (1-in. Diameter)", true, true);
  AddInternal(test, "Sample Well", true, true);
  TypicalFitIFRT(test.session, kTank, "Welded", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank),
            (std::vector<Fitting>{{1, "Access Hatch", "Cover", 1}, {2, "Sample Well", "Cover", 1}}));
}

TEST(TypicalFitIFRT, ARowWithoutQuantityIsLeftOut) {
  TestSession test;
  AddInternal(test, "None of it", true, true, 0);
  AddRow(test.reference(), "fitting", {{"FIT_TYPE", "Blank"}, {"TYP_IFLT", true}, {"WELD_DECK", true}});
  AddInternal(test, "Half of it", true, true, 0.5);
  TypicalFitIFRT(test.session, kTank, "Welded", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Half of it", "Cover", 0.5}}));
}

TEST(TypicalFitIFRT, CopiesTheFactorsAndABlankCover) {
  TestSession test;
  AddInternal(test, "Access Hatch", true, true);
  AddRow(test.reference(), "fitting",
         {{"FIT_TYPE", "Ladder"}, {"K_FA", 98.0}, {"K_FB", 0.0}, {"K_M", 0.5}, {"QUANTITY", 1.0}, {"TYP_IFLT", true}});
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  auto rows = test.client().OpenMatching("fittings", "fitid", {kTank});
  EXPECT_EQ(rows.Double("K_FA"), 1.5);
  EXPECT_EQ(rows.Double("K_FB"), 0.25);
  EXPECT_EQ(rows.Double("K_M"), 1.25);
  rows.MoveNext();
  EXPECT_TRUE(rows.IsNull("COVR_TYPE"));
  EXPECT_EQ(rows.Double("K_FA"), 98);
  EXPECT_EQ(rows.Double("K_FB"), 0);
  EXPECT_EQ(rows.Double("K_M"), 0.5);
}

TEST(TypicalFitIFRT, ReplacesHandEditsOfThatTankAlone) {
  TestSession test;
  AddInternal(test, "Access Hatch", true, true);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  TypicalFitIFRT(test.session, 8, "Bolted", false, 90);
  for (const std::int32_t ID : {kTank, std::int32_t{8}}) {
    test::ChangeRow(test.client(), "fittings", "fitid", {ID, std::int32_t{1}}, {{"QUANTITY", 44.0}});
    AddRow(test.client(), "fittings",
           {{"ID", ID}, {"FIT ID", std::int32_t{2}}, {"FIT_TYPE", "Own"}, {"QUANTITY", 5.0}});
  }
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Access Hatch", "Cover", 1}}));
  EXPECT_EQ(FittingsOf(test, 8), (std::vector<Fitting>{{1, "Access Hatch", "Cover", 44}, {2, "Own", "", 5}}));
}

TEST(TypicalFitIFRT, WithoutReferenceRowsTheTankIsLeftWithNone) {
  TestSession test;
  AddRow(test.client(), "fittings",
         {{"ID", kTank}, {"FIT ID", std::int32_t{1}}, {"FIT_TYPE", "Own"}, {"QUANTITY", 5.0}});
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), std::vector<Fitting>{});
}

TEST(TypicalFitIFRT, AFailureIsReportedAndLeavesTheOldFittings) {
  TestSession test;
  AddInternal(test, "Access Hatch", true, true);
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  test.reference().DeleteTable("fitting");
  test.host.ExpectError(3011, "modEmission.TypicalFitIFRT");
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 90);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Access Hatch", "Cover", 1}}));
}

TEST(TypicalFitIFRT, ACountThatFailsIsReportedByItsOwnRoutineAndLeavesThatRowOut) {
  // A thousand million feet squared call for more drains and legs than a Long can count.
  TestSession test;
  AddInternal(test, "Access Hatch", true, true);
  AddInternal(test, "Stub Drain", true, true);
  AddInternal(test, "Roof Leg", true, true);
  AddInternal(test, "Column Well", true, true);
  test.host.ExpectError(6, "modEmission.StubDrains");
  test.host.ExpectError(6, "modEmission.LegsIFRT");
  TypicalFitIFRT(test.session, kTank, "Bolted", false, 1e9);
  EXPECT_EQ(FittingsOf(test, kTank),
            (std::vector<Fitting>{{1, "Access Hatch", "Cover", 1}, {2, "Column Well", "Cover", 81}}));
}

TEST(TypicalFitEFRT, ADoubleDeckWithAMechanicalShoeTakesAllTypicalRows) {
  TestSession test;
  AddExternalChoice(test);
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 90);
  EXPECT_EQ(TypesOf(test), (Types{"Plain", "Roof", "Seal", "Both"}));
}

TEST(TypicalFitEFRT, AnyOtherDeckTakesTheRowsMarkedForIt) {
  for (const std::string_view deck : {"Pontoon", "", "double deck"}) {
    TestSession test;
    AddExternalChoice(test);
    TypicalFitEFRT(test.session, kTank, deck, "Mechanical Shoe", 90);
    EXPECT_EQ(TypesOf(test), (Types{"Roof", "Both"})) << deck;
  }
}

TEST(TypicalFitEFRT, AnyOtherSealTakesTheRowsMarkedForIt) {
  for (const std::string_view seal : {"Liquid-mounted", "", "mechanical shoe"}) {
    TestSession test;
    AddExternalChoice(test);
    TypicalFitEFRT(test.session, kTank, "Double Deck", seal, 90);
    EXPECT_EQ(TypesOf(test), (Types{"Seal", "Both"})) << seal;
    TypicalFitEFRT(test.session, kTank, "Pontoon", seal, 90);
    EXPECT_EQ(TypesOf(test), (Types{"Both"})) << seal;
  }
}

TEST(TypicalFitEFRT, LeavesOutRowsThatAreNotTypical) {
  TestSession test;
  AddRow(test.reference(), "fitting", {{"FIT_TYPE", "Rare"}, {"QUANTITY", 1.0}, {"D_ROOF", true}, {"P_SEAL", true}});
  AddInternal(test, "Internal", true, true);
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 90);
  EXPECT_EQ(TypesOf(test), Types{});
}

void AddCountedExternal(TestSession& test) {
  AddExternal(test, "Vacuum Breaker (10-in. Diam.)", "Gasketed", true, true);
  AddExternal(test, "Roof Drain (3-in. Diameter)", "Open", true, true);
  AddExternal(test, "Roof Leg (3-in. Diameter)", "Adjustable, Pontoon Area", true, true);
  AddExternal(test, "Roof Leg (3-in. Diameter)", "Adjustable, Center Area", true, true);
  AddExternal(test, "Roof Leg (3-in. Diameter)", "Adjustable, Double-Deck Roofs", true, true);
  AddExternal(test, "Roof Leg (3-in. Diameter)", "Fixed", true, true, 4);
  AddExternal(test, "Rim Vent (6-in. Diameter)", "Gasketed", true, true, 2);
}

TEST(TypicalFitEFRT, CountsOfAPontoonRoof) {
  // At 200 ft: 3 breakers, no drains, 30 legs of the pontoons, 69 of the center, 90 of a double deck.
  TestSession test;
  AddCountedExternal(test);
  TypicalFitEFRT(test.session, kTank, "Pontoon", "Mechanical Shoe", 200);
  EXPECT_EQ(FittingsOf(test, kTank),
            (std::vector<Fitting>{{1, "Vacuum Breaker (10-in. Diam.)", "Gasketed", 3},
                                  {2, "Roof Leg (3-in. Diameter)", "Adjustable, Pontoon Area", 30},
                                  {3, "Roof Leg (3-in. Diameter)", "Adjustable, Center Area", 69},
                                  {4, "Roof Leg (3-in. Diameter)", "Adjustable, Double-Deck Roofs", 90},
                                  {5, "Rim Vent (6-in. Diameter)", "Gasketed", 2}}));
}

TEST(TypicalFitEFRT, CountsOfADoubleDeckRoof) {
  // At 200 ft: 2 breakers, 3 drains, 90 legs; legs of pontoons and centers are another roof's.
  TestSession test;
  AddCountedExternal(test);
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 200);
  EXPECT_EQ(FittingsOf(test, kTank),
            (std::vector<Fitting>{{1, "Vacuum Breaker (10-in. Diam.)", "Gasketed", 2},
                                  {2, "Roof Drain (3-in. Diameter)", "Open", 3},
                                  {3, "Roof Leg (3-in. Diameter)", "Adjustable, Double-Deck Roofs", 90},
                                  {4, "Rim Vent (6-in. Diameter)", "Gasketed", 2}}));
}

TEST(TypicalFitEFRT, KnowsFittingsAndCoversByAPartOfTheirNameWithRegardToCase) {
  TestSession test;
  AddExternal(test, "Vacuum Drain", "x", true, true, 5);
  AddExternal(test, "Drain of a Roof Leg", "x", true, true, 5);
  AddExternal(test, "vacuum breaker", "x", true, true, 5);
  AddExternal(test, "Roof Leg", "Pontoon Center", true, true, 5);
  AddExternal(test, "Roof Leg", "Center Double", true, true, 5);
  AddExternal(test, "Roof Leg", "double", true, true, 5);
  AddExternal(test, "Roof Leg", "Over Double Deck", true, true, 5);
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 200);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Vacuum Drain", "x", 2},
                                                           {2, "Drain of a Roof Leg", "x", 3},
                                                           {3, "vacuum breaker", "x", 5},
                                                           {4, "Roof Leg", "Over Double Deck", 90}}));
}

TEST(TypicalFitEFRT, ARoofLegWithoutCoverIsLeftOut) {
  TestSession test;
  AddRow(test.reference(), "fitting", {{"FIT_TYPE", "Roof Leg"}, {"QUANTITY", 4.0}, {"TYP_EFLT", true}});
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 200);
  EXPECT_EQ(TypesOf(test), Types{});
}

TEST(TypicalFitEFRT, ReplacesHandEdits) {
  TestSession test;
  AddCountedExternal(test);
  TypicalFitEFRT(test.session, kTank, "Pontoon", "Mechanical Shoe", 200);
  test::ChangeRow(test.client(), "fittings", "fitid", {kTank, std::int32_t{2}}, {{"QUANTITY", 44.0}});
  TypicalFitEFRT(test.session, kTank, "Double Deck", "Mechanical Shoe", 100);
  EXPECT_EQ(FittingsOf(test, kTank),
            (std::vector<Fitting>{{1, "Vacuum Breaker (10-in. Diam.)", "Gasketed", 1},
                                  {2, "Roof Drain (3-in. Diameter)", "Open", 1},
                                  {3, "Roof Leg (3-in. Diameter)", "Adjustable, Double-Deck Roofs", 25},
                                  {4, "Rim Vent (6-in. Diameter)", "Gasketed", 2}}));
}

TEST(TypicalFitEFRT, AFailureIsReportedAndLeavesTheOldFittings) {
  TestSession test;
  AddExternal(test, "Rim Vent", "Gasketed", true, true);
  TypicalFitEFRT(test.session, kTank, "Pontoon", "Mechanical Shoe", 200);
  test.reference().DeleteTable("fitting");
  test.host.ExpectError(3011, "modEmission.TypicalFitEFRT");
  TypicalFitEFRT(test.session, kTank, "Pontoon", "Mechanical Shoe", 200);
  EXPECT_EQ(FittingsOf(test, kTank), (std::vector<Fitting>{{1, "Rim Vent", "Gasketed", 1}}));
}

}  // namespace
}  // namespace orvex::emission
