#include "exchange/reference_import_fixture.h"

namespace orvex::exchange {
namespace {

using test::AddRow;
using test::RimSeal;
using test::Rows;
using test::With;

class RimSealImport : public test::OneImportTest {
 protected:
  RimSealImport() : OneImportTest("rimseal") {}
  Rows Keys() { return Query("SELECT * FROM [import errors]", {"IDX_ID", "ID"}); }
};

TEST_F(RimSealImport, CopiesEveryFieldOfItsOwn) {
  Import({RimSeal("Liquid-mounted", "Weather Shield")}, 1);
  EXPECT_EQ(
      Query("SELECT * FROM rimseal", {"PRIM_SEAL", "SECND_SEAL", "K_RA", "K_RB", "N_FACTOR", "API_CERT", "USER_DEF"}),
      Rows{"Liquid-mounted|Weather Shield|5.8|0.3|2.1|-|-1"});
}

TEST_F(RimSealImport, CopiesEachFlagByItself) {
  const auto none = With(RimSeal("", {}), {{"EFLT", false}, {"WELDED", false}});
  std::vector<test::DbaseRow> rows;
  for (const auto* flag : {"EFLT", "DEFT", "IFLT", "WELDED", "RIVETED"})
    rows.push_back(With(none, {{"PRIM_SEAL", flag}, {flag, true}}));
  Import(rows, 5);
  EXPECT_EQ(Query("SELECT * FROM rimseal", {"PRIM_SEAL", "EFLT", "DEFT", "IFLT", "WELDED", "RIVETED"}),
            (Rows{"EFLT|-1|0|0|0|0", "DEFT|0|-1|0|0|0", "IFLT|0|0|-1|0|0", "WELDED|0|0|0|-1|0", "RIVETED|0|0|0|0|-1"}));
}

TEST_F(RimSealImport, LeavesNumbersNullAndFlagsFalseThatAreBlank) {
  Import({{{"PRIM_SEAL", "Vapor-mounted"}}}, 1);
  EXPECT_EQ(Query("SELECT * FROM rimseal", {"K_RA", "K_RB", "N_FACTOR", "EFLT", "DEFT", "IFLT", "WELDED", "RIVETED"}),
            Rows{"-|-|-|0|0|0|0|0"});
}

TEST_F(RimSealImport, ABlankSecondarySealBecomesNone) {
  Import({RimSeal("Vapor-mounted", {})}, 1);
  auto seals = reference().OpenAt("rimseal", "primsec", {"Vapor-mounted", "None"});
  EXPECT_FALSE(seals.NoMatch());
}

TEST_F(RimSealImport, TellsOfSealsThatAreThereInAnyCase) {
  AddRow(reference(), "rimseal", {{"PRIM_SEAL", "VAPOR-mounted"}, {"SECND_SEAL", "rim-MOUNTED"}});
  ExpectRefused(RimSeal("Vapor-mounted", "Rim-mounted"), {"Duplicate rim seal."});
}

TEST_F(RimSealImport, OneThatDiffersInTheShellOnlyIsADuplicate) {
  AddRow(reference(), "rimseal",
         {{"PRIM_SEAL", "Vapor-mounted"}, {"SECND_SEAL", "None"}, {"WELDED", false}, {"RIVETED", true}});
  ExpectRefused(RimSeal("Vapor-mounted", "None"), {"Duplicate rim seal."});
  EXPECT_EQ(Log(), Rows{"Vapor-mounted/None/Welded|Duplicate rim seal."});
}

TEST_F(RimSealImport, TakesAnEmptySecondarySealForABlankOne) {
  AddRow(reference(), "rimseal", {{"PRIM_SEAL", "Vapor-mounted"}, {"SECND_SEAL", ""}});
  ExpectRefused(RimSeal("Vapor-mounted", {}), {"Duplicate rim seal."});
}

TEST_F(RimSealImport, TakesANullSecondarySealForABlankOne) {
  AddRow(reference(), "rimseal", {{"PRIM_SEAL", "Vapor-mounted"}});
  ExpectRefused(RimSeal("Vapor-mounted", {}), {"Duplicate rim seal."});
}

TEST_F(RimSealImport, ABlankSecondarySealIsADuplicateOfTheWordNone) {
  AddRow(reference(), "rimseal", {{"PRIM_SEAL", "Vapor-mounted"}, {"SECND_SEAL", "None"}});
  ExpectRefused(RimSeal("Vapor-mounted", {}), {"Duplicate rim seal."});
  EXPECT_EQ(Log(), Rows{"Vapor-mounted//Welded|Duplicate rim seal."});
}

TEST_F(RimSealImport, OfTwoWithoutASecondarySealAddsTheFirst) {
  Import({RimSeal("Vapor-mounted", {}), RimSeal("Vapor-mounted", {})}, 1);
  EXPECT_EQ(Said(), (Rows{test::kImported, "Duplicate rim seal."}));
}

TEST_F(RimSealImport, ASecondTimeAddsNoneWithoutASecondarySeal) {
  Import({RimSeal("Vapor-mounted", {})}, 1);
  Import({RimSeal("Vapor-mounted", {})}, 0);
  EXPECT_EQ(Query("SELECT * FROM rimseal", {"PRIM_SEAL", "SECND_SEAL"}), Rows{"Vapor-mounted|None"});
}

TEST_F(RimSealImport, OfTwoOfOneKeyInTheFileAddsTheFirst) {
  Import({RimSeal("Vapor-mounted", "Rim-mounted"), RimSeal("Vapor-mounted", "Rim-mounted")}, 1);
  EXPECT_EQ(Said(), (Rows{test::kImported, "Duplicate rim seal."}));
}

TEST_F(RimSealImport, NeedsAPrimarySeal) {
  ExpectRefused(With(RimSeal("", "Rim-mounted"), {{"PRIM_SEAL", {}}}), {"Primary rim seal must be specified."});
}

TEST_F(RimSealImport, ShowsTheShellInTheLog) {
  const auto seal = RimSeal("A", "B");
  Import({seal, With(seal, {{"SECND_SEAL", "C"}, {"WELDED", false}, {"RIVETED", true}}),
          With(seal, {{"SECND_SEAL", "D"}, {"RIVETED", true}}), With(seal, {{"SECND_SEAL", "E"}, {"WELDED", false}}),
          With(seal, {{"SECND_SEAL", {}}})},
         5);
  EXPECT_EQ(Keys(), (Rows{"A/B/Welded|A/B/Welded", "A/C/Riveted|A/C/Riveted", "A/D/Welded/Riveted|A/D/Welded/Riveted",
                          "A/E|A/E", "A//Welded|A//Welded"}));
}

TEST_F(RimSealImport, CutsKeyAndNameInTheLogAtTheirWidths) {
  // 120 + 1 + 120 + 7 + 8 characters are one more than the key's field holds.
  const std::string primary(120, 'p'), secondary(120, 's');
  Import({With(RimSeal(primary, secondary), {{"RIVETED", true}})}, 1);
  EXPECT_EQ(Keys(), Rows{primary + "/" + secondary + "/Welded/Rivete|" + primary.substr(0, 100)});
}

}  // namespace
}  // namespace orvex::exchange
