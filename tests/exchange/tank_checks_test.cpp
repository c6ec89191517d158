#include "exchange/tank_import_fixture.h"

namespace orvex::exchange {
namespace {

using store::Value;
using test::kImportedMessage;
using test::Rows;

class TankChecksTest : public test::TankImportTest {
 protected:
  /// The tank is not imported, and the log says this of it.
  void ExpectRefused(const Rows& faults) {
    Import();
    EXPECT_EQ(Told(), faults);
    for (const auto* table : {"tank", "mixtures", "fittings", "components"}) EXPECT_EQ(Count(table), 0) << table;
  }
  void ExpectImported() {
    Import();
    EXPECT_EQ(Told(), Rows{kImportedMessage});
    EXPECT_EQ(Count("tank"), 1);
  }
};

TEST_F(TankChecksTest, AGoodTankIsImportedAndLoggedWithItsKeyAndName) {
  files_.AddTank("17", "T-1");
  ExpectImported();
  EXPECT_EQ(Log(), Rows{"17|T-1|Record was successfully imported."});
  EXPECT_EQ(test_.host.windows, std::vector<std::string>{"frmprintrep"});
  EXPECT_EQ(test_.session.PrintMode, "Import");
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(TankChecksTest, ATankWithoutAnIdIsLoggedByItsKeyAndGivesNoRecord) {
  files_.AddTank("17", "");
  ExpectRefused({"ID field must not be blank."});
  EXPECT_EQ(Log(), Rows{"17|No ID 17|ID field must not be blank."});
}

TEST_F(TankChecksTest, ATankWhoseIdIsBlanksOnlyHasNone) {
  files_.AddTank("17", "   ");
  ExpectRefused({"ID field must not be blank."});
}

TEST_F(TankChecksTest, ATankWithoutAKeyHasNoMixturesEither) {
  files_.AddTank("", "T-1");
  ExpectRefused({"ID field must not be blank.", "The tank must have at least one mixture."});
  EXPECT_EQ(Log().front(), "-|No ID |ID field must not be blank.");
}

TEST_F(TankChecksTest, WithoutAnIdTheOtherChecksGoOnUnderTheSubstitute) {
  test::AddRow(test_.client(), "tank", {{"USER ID", ""}});
  files_.AddTank("17", "", {{"CITY", "Atlantis"}});
  Import();
  EXPECT_EQ(Log(), (Rows{"17|No ID 17|ID field must not be blank.",
                         "17|No ID 17|Atlantis, Ohiowas not found in the current tank database.  You must enter "
                         "information for this city before you can import this record."}));
}

TEST_F(TankChecksTest, ATankWhoseIdIsInTheDatabaseIsADuplicateWhateverItsCaseAndBlanks) {
  test::AddRow(test_.client(), "tank", {{"USER ID", "Tank A"}});
  files_.AddTank("1", "  TANK a");
  Import();
  EXPECT_EQ(Log(), Rows{"1|TANK a|Duplicate tank (ID) in this client database."});
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TankChecksTest, TheSecondTankOfOneIdInTheFilesIsADuplicate) {
  files_.AddTank("1", "T-1");
  files_.AddTank("2", "T-1");
  Import();
  EXPECT_EQ(Told(), (Rows{kImportedMessage, "Duplicate tank (ID) in this client database."}));
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TankChecksTest, ASecondImportOfTheSameFilesLogsEveryTankAsADuplicate) {
  files_.AddTank("1", "  T-1");
  files_.AddTank("2", "T-2");
  Import();
  EXPECT_EQ(Told(), (Rows{kImportedMessage, kImportedMessage}));
  Import();
  EXPECT_EQ(Told(), Rows(2, "Duplicate tank (ID) in this client database.")) << "the log of the first one is gone";
  EXPECT_EQ(Count("tank"), 2);
}

TEST_F(TankChecksTest, AnUnknownCityIsToldWithoutABlankBehindIt) {
  files_.AddTank("1", "T-1", {{"CITY", "Atlantis"}, {"STATE", "Greece"}});
  ExpectRefused(
      {"Atlantis, Greecewas not found in the current tank database.  You must enter information for this city before "
       "you can import this record."});
}

TEST_F(TankChecksTest, ATankWithoutACityOrStateNeedsNone) {
  files_.AddTank("1", "No city", {{"CITY", Value()}});
  files_.AddTank("2", "No state", {{"STATE", Value()}});
  Import();
  EXPECT_EQ(Told(), (Rows{kImportedMessage, kImportedMessage}));
}

TEST_F(TankChecksTest, AFloatingRoofWhoseSealsAreUnknownIsRefused) {
  for (const auto* type :
       {"Internal Floating Roof", "External Floating Roof", "Domed External Floating Roof",
        "Internal Floating Roof Tank", "External Floating Roof Tank", "Domed External Floating Roof Tank"}) {
    SCOPED_TRACE(type);
    files_ = {};
    files_.AddTank("1", "T-1", {{"TANK_TYPE", type}, {"RIM_PRIM", "Mechanical Shoe"}, {"RIM_SEC", "Velvet"}});
    ExpectRefused(
        {"The rim seal Mechanical Shoe/Velvet was not found in the current tank database.  You must enter information "
         "for this rim seal before you can import this record."});
  }
}

TEST_F(TankChecksTest, AFixedRoofNeedsNoKnownSeals) {
  files_.AddTank("1", "T-1", {{"RIM_PRIM", "Mechanical Shoe"}, {"RIM_SEC", "Velvet"}});
  ExpectImported();
}

TEST_F(TankChecksTest, SealsThatAreKnownPass) {
  files_.AddTank("1", "T-1",
                 {{"TANK_TYPE", "External Floating Roof"}, {"RIM_PRIM", "Mechanical Shoe"}, {"RIM_SEC", "None"}});
  ExpectImported();
}

TEST_F(TankChecksTest, AnEmptySecondaryOrPrimarySealKeepsNobodyOut) {
  files_.AddTank("1", "a", {{"TANK_TYPE", "External Floating Roof"}, {"RIM_PRIM", "Velvet"}});
  files_.AddTank("2", "b", {{"TANK_TYPE", "External Floating Roof"}, {"RIM_SEC", "Velvet"}});
  Import();
  EXPECT_EQ(Told(), (Rows{kImportedMessage, kImportedMessage}));
}

TEST_F(TankChecksTest, AMixtureNeedsAName) {
  files_.AddTank("1", "T-1");
  files_.AddMixture("1", "7", {{"NAME", Value()}, {"COMPONENT", "Multiple"}});
  ExpectRefused({"The mixture name for mixture 7 must be filled in."});
}

TEST_F(TankChecksTest, ASingleChemicalMustBeKnown) {
  files_.AddTank("1", "T-1");
  files_.AddMixture("1", "2", {{"NAME", "Phlogiston"}});
  ExpectRefused(
      {"The chemical 'Phlogiston' was not found in the current tank database.  You must enter information for this "
       "chemical before you can import this record."});
}

TEST_F(TankChecksTest, ASingleMixtureWithoutANameFailsBothChecks) {
  files_.AddTank("1", "T-1");
  files_.AddMixture("1", "2", {{"NAME", Value()}});
  ExpectRefused({"The mixture name for mixture 2 must be filled in.",
                 "The chemical '' was not found in the current tank database.  You must enter information for this "
                 "chemical before you can import this record."});
}

TEST_F(TankChecksTest, AMixtureOfMultipleComponentsNeedsNoChemicalOfItsName) {
  files_.AddTank("1", "T-1");
  files_.mixtures.clear();
  files_.AddMixture("1", "1", {{"NAME", "House blend"}, {"COMPONENT", "Multiple"}});
  ExpectImported();
}

TEST_F(TankChecksTest, ATankNeedsAMixture) {
  files_.AddTank("1", "T-1");
  files_.mixtures.clear();
  files_.AddMixture("2", "1");
  ExpectRefused({"The tank must have at least one mixture."});
}

TEST_F(TankChecksTest, AnUnknownFittingIsToldByItsType) {
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"FIT_TYPE", "Cat Flap"}});
  ExpectRefused(
      {"The fitting 'Cat Flap' was not found in the current tank database.  You must enter information for this "
       "fitting before you can import this record."});
}

TEST_F(TankChecksTest, AFittingIsLookedUpWithItsStatus) {
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"COVR_TYPE", "Ajar"}});
  ExpectRefused(
      {"The fitting 'Access Hatch (24-in. Diam.)' was not found in the current tank database.  You must enter "
       "information for this fitting before you can import this record."});
}

TEST_F(TankChecksTest, AFittingWithoutATypeIsTold) {
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"FIT_TYPE", Value()}});
  ExpectRefused({"The fitting type cannot be blank."});
}

TEST_F(TankChecksTest, AFittingWithoutAStatusFindsARowWithoutOne) {
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Stub Drain"}});
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Unslotted Pole"}, {"COVR_TYPE", ""}});
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"FIT_TYPE", "Stub Drain"}, {"COVR_TYPE", Value()}});
  files_.AddFitting("1", {{"FIT_TYPE", "Unslotted Pole"}, {"COVR_TYPE", Value()}});
  ExpectImported();
}

TEST_F(TankChecksTest, TwoFittingsAreLookedUpUnderTheirNewNames) {
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Ladder Well (36-in. Diam.)"}, {"COVR_TYPE", "Open"}});
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Column Well (24-in. Diam.)"}, {"COVR_TYPE", "Open"}});
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"FIT_TYPE", "Ladder Well (36-in Diam.)"}, {"COVR_TYPE", "Open"}});
  files_.AddFitting("1", {{"FIT_TYPE", "Column Well (24-in. Diameter)"}, {"COVR_TYPE", "Open"}});
  ExpectImported();
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM fittings", {"FIT ID", "FIT_TYPE"}),
            (Rows{"1|Ladder Well (36-in. Diam.)", "2|Column Well (24-in. Diam.)"}));
}

TEST_F(TankChecksTest, AnUnknownFittingIsToldByItsOldName) {
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"FIT_TYPE", "Ladder Well (36-in Diam.)"}});
  ExpectRefused(
      {"The fitting 'Ladder Well (36-in Diam.)' was not found in the current tank database.  You must enter "
       "information for this fitting before you can import this record."});
}

TEST_F(TankChecksTest, AComponentMustBeKnown) {
  files_.AddTank("1", "T-1");
  files_.AddComponent("1", "1", {{"NAME", "Phlogiston"}});
  ExpectRefused(
      {"The chemical 'Phlogiston' was not found in the current tank database.  You must enter information for this "
       "chemical before you can import this record."});
}

TEST_F(TankChecksTest, AComponentNeedsAName) {
  files_.AddTank("1", "T-1");
  files_.AddComponent("1", "1", {{"NAME", Value()}});
  ExpectRefused({"The chemical name for components must not be blank."});
}

TEST_F(TankChecksTest, AllFaultsOfATankAreLoggedInOrderAndTheNextTankIsImported) {
  test::AddRow(test_.client(), "tank", {{"USER ID", "Bad"}});
  files_.AddTank("1", "Bad",
                 {{"CITY", "Atlantis"},
                  {"TANK_TYPE", "Domed External Floating Roof"},
                  {"RIM_PRIM", "Silk"},
                  {"RIM_SEC", "Velvet"}});
  files_.mixtures.clear();
  files_.AddMixture("1", "1", {{"NAME", Value()}, {"COMPONENT", "Multiple"}});
  files_.AddMixture("1", "2", {{"NAME", "Phlogiston"}});
  files_.AddFitting("1", {{"FIT_TYPE", "Cat Flap"}});
  files_.AddComponent("1", "1", {{"NAME", "Aether"}});
  files_.AddTank("2", "Good");
  Import();
  const Rows told = Told();
  ASSERT_EQ(told.size(), 8U);
  EXPECT_EQ(told[0], "Duplicate tank (ID) in this client database.");
  EXPECT_TRUE(told[1].starts_with("Atlantis, Ohiowas not found"));
  EXPECT_TRUE(told[2].starts_with("The rim seal Silk/Velvet was not found"));
  EXPECT_EQ(told[3], "The mixture name for mixture 1 must be filled in.");
  EXPECT_TRUE(told[4].starts_with("The chemical 'Phlogiston' was not found"));
  EXPECT_TRUE(told[5].starts_with("The fitting 'Cat Flap' was not found"));
  EXPECT_TRUE(told[6].starts_with("The chemical 'Aether' was not found"));
  EXPECT_EQ(told[7], kImportedMessage);
  EXPECT_EQ(Log().back(), "2|Good|Record was successfully imported.");
  EXPECT_EQ(Count("tank"), 2);
}

TEST_F(TankChecksTest, AMessageThatIsWiderThanTheLogIsCut) {
  const std::string name(90, 'n');
  files_.AddTank("1", "T-1",
                 {{"TANK_TYPE", "External Floating Roof"}, {"RIM_PRIM", name}, {"RIM_SEC", std::string(90, 's')}});
  Import();
  ASSERT_EQ(Told().size(), 1U);
  EXPECT_EQ(Told()[0].size(), 255U);
  EXPECT_TRUE(Told()[0].starts_with("The rim seal " + name + "/s"));
}

TEST_F(TankChecksTest, RecordsThatAreDeletedInTheFilesAreNotThere) {
  files_.AddTank("1", "T-1");
  files_.Write(test_.folder.Path());
  {
    test::DbaseWriter file(File(0), test::TankColumns());
    file.Add({{"IDX_ID", "1"}, {"ID", "T-1"}});
    file.Add({{"IDX_ID", "2"}, {"ID", "Deleted"}});
    file.DeleteLast();
  }
  {
    test::DbaseWriter file(File(2), test::TankFittingColumns());
    file.Add({{"IDX_ID", "1"}, {"FIT_TYPE", "Cat Flap"}});
    file.DeleteLast();
  }
  TypePaths();
  ClickOK(test_.session, form_);
  EXPECT_EQ(Log(), Rows{"1|T-1|Record was successfully imported."});
}

}  // namespace
}  // namespace orvex::exchange
