#include "databases/reference_rows.h"

#include <gmock/gmock.h>

#include "tools/made_rows.h"

namespace orvex::databases {
namespace {

using test::Cells;
using test::MakeRows;
using test::RefusalOf;
using test::With;
using ::testing::HasSubstr;

// Chemicals
// ------------------------------------------------------------------------------------------------------------

const Cells kBenzene = {{"NAME", "Benzene"},   {"CATEGORY", "Organic Liquids"},
                        {"MOLWT", "78.114"},   {"VP_MOLWT", "78.114"},
                        {"L_DENS", "7.373"},   {"VP_COEF_A", "6.9"},
                        {"VP_COEF_B", "1211"}, {"VP_COEF_C", "220.8"}};
const Cells kNoPressure = {{"VP_COEF_A", ""}, {"VP_COEF_B", ""}, {"VP_COEF_C", ""}};
const Cells kTable = {{"VP_40", "0.6"}, {"VP_50", "0.9"}, {"VP_60", "1.2"}, {"VP_70", "1.5"},
                      {"VP_80", "2"},   {"VP_90", "2.6"}, {"VP_100", "3.2"}};

std::string ChemicalRefusal(const std::vector<Cells>& rows) {
  return RefusalOf([&] { CheckChemicals(MakeRows("chemical", rows)); });
}

TEST(ChemicalRules, WholeRowsOfEveryCategoryPass) {
  const Cells bare = With(kBenzene, kNoPressure);
  EXPECT_NO_THROW(CheckChemicals(MakeRows(
      "chemical",
      {kBenzene, With(With(bare, kTable), {{"NAME", "b"}}),
       With(bare, {{"NAME", "c"}, {"VP_2_A", "40000"}, {"VP_2_B", "8"}}),
       With(bare, {{"NAME", "d"}, {"CATEGORY", "Crude Oils"}, {"REID", "5"}}),
       With(bare, {{"NAME", "e"}, {"CATEGORY", "Petroleum Distillates"}, {"REID", "9"}, {"ASTM_SLOPE", "3"}})})));
}

TEST(ChemicalRules, TwoRowsOfOneNameAreRefusedWhateverTheCase) {
  EXPECT_THAT(ChemicalRefusal({kBenzene, With(kBenzene, {{"NAME", "BENZENE"}})}),
              HasSubstr("made.csv, line 3, NAME: an earlier row has the same."));
}

TEST(ChemicalRules, ARowWithoutANameIsRefused) {
  EXPECT_THAT(ChemicalRefusal({With(kBenzene, {{"NAME", ""}})}), HasSubstr("line 2, NAME: the field must be filled."));
}

TEST(ChemicalRules, OnlyTheThreeCategoryWordsAreKnown) {
  for (const char* word : {"Solvents", "organic liquids", "Organic Liquids ", ""}) {
    EXPECT_THAT(ChemicalRefusal({With(kBenzene, {{"CATEGORY", word}})}), HasSubstr("made.csv, line 2, CATEGORY"));
  }
}

TEST(ChemicalRules, WeightsAndDensityMustBeAboveZero) {
  for (const char* field : {"MOLWT", "VP_MOLWT", "L_DENS"}) {
    for (const char* text : {"", "0", "-1"}) {
      EXPECT_THAT(ChemicalRefusal({With(kBenzene, {{field, text}})}),
                  HasSubstr(std::string("line 2, ") + field + ": the number must be above zero."));
    }
  }
}

TEST(ChemicalRules, AnOrganicLiquidNeedsATableOrCoefficients) {
  const Cells bare = With(kBenzene, kNoPressure);
  const Cells faults[] = {
      {},
      {{"VP_COEF_A", "6.9"}, {"VP_COEF_B", "1211"}},
      {{"VP_COEF_A", "6.9"}, {"VP_COEF_B", "0"}, {"VP_COEF_C", "220"}},
      {{"VP_2_A", "40000"}},
      With(kTable, {{"VP_70", ""}}),
      {{"REID", "9"}},
      {{"REID", "9"}, {"ASTM_SLOPE", "3"}},
  };
  for (const Cells& fault : faults) {
    EXPECT_THAT(ChemicalRefusal({With(bare, fault)}), HasSubstr("no vapor pressure option of the category is filled"));
  }
}

TEST(ChemicalRules, APetroleumLiquidNeedsItsReidVaporPressure) {
  const Cells crude = With(kBenzene, {{"CATEGORY", "Crude Oils"}});
  EXPECT_THAT(ChemicalRefusal({crude}), HasSubstr("no vapor pressure option"));
  const Cells distillate = With(kBenzene, {{"CATEGORY", "Petroleum Distillates"}, {"REID", "9"}});
  EXPECT_THAT(ChemicalRefusal({distillate}), HasSubstr("no vapor pressure option"));
}

// Cities
// ---------------------------------------------------------------------------------------------------------------

Cells City() {
  Cells city;
  for (const store::FieldInfo& field : store::FindTable("met").fields) {
    if (field.type == store::FieldType::kDouble) city[std::string(field.name)] = "12.5";
  }
  return With(city, {{"CTYST", "Enid, Oklahoma"}, {"CITY", "Enid"}, {"STATE", "Oklahoma"}});
}

std::string CityRefusal(const std::vector<Cells>& rows) {
  return RefusalOf([&] { CheckCities(MakeRows("met", rows)); });
}

TEST(CityRules, AWholeCityPasses) { EXPECT_NO_THROW(CheckCities(MakeRows("met", {City()}))); }

TEST(CityRules, TheKeyIsCityCommaBlankState) {
  for (const char* key : {"Enid,Oklahoma", "Enid,  Oklahoma", "ENID, Oklahoma", "Enid, Ohio", "Enid"}) {
    EXPECT_THAT(CityRefusal({With(City(), {{"CTYST", key}})}), HasSubstr("made.csv, line 2, CTYST"));
  }
}

TEST(CityRules, ACityStandsOnce) {
  const Cells shouted = With(City(), {{"CTYST", "ENID, OKLAHOMA"}, {"CITY", "ENID"}, {"STATE", "OKLAHOMA"}});
  EXPECT_THAT(CityRefusal({City(), shouted}), HasSubstr("line 3, CTYST: an earlier row has the same."));
}

TEST(CityRules, CityAndStateAreNeeded) {
  EXPECT_THAT(CityRefusal({With(City(), {{"CITY", ""}})}), HasSubstr("line 2, CITY"));
  EXPECT_THAT(CityRefusal({With(City(), {{"STATE", ""}})}), HasSubstr("line 2, STATE"));
}

TEST(CityRules, EveryValueOfEveryMonthIsNeeded) {
  int values = 0;
  for (const auto& [field, text] : City()) {
    if (text != "12.5") continue;
    ++values;
    for (const char* missing : {"", "0"}) {
      EXPECT_THAT(CityRefusal({With(City(), {{field, missing}})}),
                  HasSubstr("line 2, " + field + ": the value is missing."));
    }
  }
  EXPECT_EQ(values, 54);  // four kinds of thirteen values, the year's mean temperature and the pressure
}

// Fittings
// -------------------------------------------------------------------------------------------------------------

const Cells kFactors = {{"K_FA", "1"}, {"K_FB", "0"}, {"K_M", "0"}, {"QUANTITY", "1"}};

std::vector<Cells> Fittings() {
  std::vector<Cells> rows;
  for (const char* type : {"Stub Drain (1-in.)", "Column Well (24-in.)", "Vacuum Breaker"}) {
    rows.push_back(With(kFactors, {{"FIT_TYPE", type}}));
  }
  for (const char* status : {"Adjustable, Pontoon Area", "Adjustable, Center Area", "Adjustable, Double-Deck"}) {
    rows.push_back(With(kFactors, {{"FIT_TYPE", "Roof Leg"}, {"COVR_TYPE", status}}));
  }
  return rows;
}

std::string FittingRefusal(const std::vector<Cells>& rows) {
  return RefusalOf([&] { CheckFittings(MakeRows("fitting", rows)); });
}

TEST(FittingRules, AWholeSetPassesWithAnEmptyStatus) {
  EXPECT_NO_THROW(CheckFittings(MakeRows("fitting", Fittings())));
}

TEST(FittingRules, ATypeAndStatusStandOnce) {
  auto rows = Fittings();
  rows.push_back(With(rows[3], {{"FIT_TYPE", "ROOF LEG"}}));
  EXPECT_THAT(FittingRefusal(rows), HasSubstr("made.csv, line 8, FIT_TYPE, COVR_TYPE: an earlier row has the same."));
  rows = Fittings();
  rows.push_back(rows[0]);
  EXPECT_THAT(FittingRefusal(rows), HasSubstr("line 8, FIT_TYPE, COVR_TYPE"));
}

TEST(FittingRules, TypeAndFactorsAreNeeded) {
  for (const char* field : {"FIT_TYPE", "K_FA", "K_FB", "K_M"}) {
    auto rows = Fittings();
    rows[1][field] = "";
    EXPECT_THAT(FittingRefusal(rows), HasSubstr(std::string("line 3, ") + field));
  }
}

TEST(FittingRules, AQuantityIsAboveZero) {
  auto rows = Fittings();
  rows[2]["QUANTITY"] = "0";
  EXPECT_THAT(FittingRefusal(rows), HasSubstr("line 4, QUANTITY"));
}

TEST(FittingRules, TheWordsThatTheTypicalFittingsLookForMustBeThere) {
  const std::pair<std::size_t, std::string> words[] = {{0, "Stub Drain"}, {1, "Column Well"}, {2, "Vacuum"},
                                                       {3, "Pontoon"},    {4, "Center"},      {5, "Double"}};
  for (const auto& [row, word] : words) {
    auto rows = Fittings();
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
    EXPECT_THAT(FittingRefusal(rows), HasSubstr("has the word '" + word + "'"));
  }
}

// Rim seals
// ------------------------------------------------------------------------------------------------------------

const Cells kShoe = {{"PRIM_SEAL", "Mechanical Shoe"},
                     {"SECND_SEAL", "None"},
                     {"WELDED", "-1"},
                     {"K_RA", "5.8"},
                     {"K_RB", "0.3"},
                     {"N_FACTOR", "2.1"}};

std::string SealRefusal(const std::vector<Cells>& rows) {
  return RefusalOf([&] { CheckRimSeals(MakeRows("rimseal", rows)); });
}

TEST(RimSealRules, WeldedAndRivetedRowsOfOnePairPass) {
  EXPECT_NO_THROW(CheckRimSeals(MakeRows("rimseal", {kShoe, With(kShoe, {{"WELDED", "0"}, {"RIVETED", "-1"}}),
                                                     With(kShoe, {{"SECND_SEAL", "Rim-mounted"}})})));
}

TEST(RimSealRules, ExactlyOneShellIsMeant) {
  EXPECT_THAT(SealRefusal({With(kShoe, {{"WELDED", "0"}})}), HasSubstr("made.csv, line 2, WELDED, RIVETED"));
  EXPECT_THAT(SealRefusal({With(kShoe, {{"RIVETED", "-1"}})}), HasSubstr("made.csv, line 2, WELDED, RIVETED"));
}

TEST(RimSealRules, TheSecondarySealIsNeverEmpty) {
  EXPECT_THAT(SealRefusal({kShoe, With(kShoe, {{"SECND_SEAL", ""}})}),
              HasSubstr("made.csv, line 3, SECND_SEAL: the field must be filled."));
}

TEST(RimSealRules, EveryPrimarySealHasARowWithoutASecondaryOne) {
  const Cells lone = With(kShoe, {{"PRIM_SEAL", "Liquid-mounted"}, {"SECND_SEAL", "Rim-mounted"}});
  EXPECT_THAT(SealRefusal({kShoe, lone}), HasSubstr("made.csv, line 3, PRIM_SEAL"));
}

TEST(RimSealRules, ACombinationStandsOnce) {
  EXPECT_THAT(SealRefusal({kShoe, kShoe}), HasSubstr("line 3, PRIM_SEAL, SECND_SEAL, WELDED, RIVETED"));
}

// Deck seams
// -----------------------------------------------------------------------------------------------------------

const Cells kSheet = {
    {"NAME", "Sheet: 5 Ft Wide"}, {"CONSTRUC", "Sheet"}, {"SWIDTH", "5"}, {"SD", "0.2"}, {"KD", "0.14"}};
const Cells kPanel = {{"NAME", "Panel: 5 x 12 Ft"},
                      {"CONSTRUC", "Panel"},
                      {"PWIDTH", "12"},
                      {"PLENGTH", "5"},
                      {"SD", "0.28"},
                      {"KD", "0.14"}};

std::string SeamRefusal(const std::vector<Cells>& rows) {
  return RefusalOf([&] { CheckDeckSeams(MakeRows("deckseam", rows)); });
}

TEST(DeckSeamRules, SheetsAndPanelsPass) { EXPECT_NO_THROW(CheckDeckSeams(MakeRows("deckseam", {kSheet, kPanel}))); }

TEST(DeckSeamRules, AnyOtherConstructionIsRefused) {
  for (const char* word : {"Foam", "sheet", ""}) {
    EXPECT_THAT(SeamRefusal({With(kSheet, {{"CONSTRUC", word}})}), HasSubstr("made.csv, line 2, CONSTRUC"));
  }
}

TEST(DeckSeamRules, AConstructionHasItsSizesAndFactors) {
  for (const char* field : {"NAME", "SWIDTH", "SD", "KD"}) {
    EXPECT_THAT(SeamRefusal({With(kSheet, {{field, ""}})}), HasSubstr(std::string("line 2, ") + field));
  }
  for (const char* field : {"PWIDTH", "PLENGTH"}) {
    EXPECT_THAT(SeamRefusal({With(kPanel, {{field, "0"}})}), HasSubstr(std::string("line 2, ") + field));
  }
}

TEST(DeckSeamRules, ANameStandsOnce) { EXPECT_THAT(SeamRefusal({kSheet, kSheet}), HasSubstr("line 3, NAME")); }

// Profiles
// -------------------------------------------------------------------------------------------------------------

const Cells kProfile = {{"SPEC ID", "1"}, {"Profile Name", "Gasoline"}, {"TYPE", "Partial"}};
const Cells kPart = {{"SPEC ID", "1"}, {"NAME", "Benzene"}, {"WT_FRACT", "2"}, {"MOLWT", "78"}, {"VP_MOLWT", "78"}};

std::string ProfileRefusal(const std::vector<Cells>& names, const std::vector<Cells>& components) {
  return RefusalOf([&] {
    CheckProfiles(MakeRows("profile names", names), MakeRows("profile components", components),
                  MakeRows("chemical", {kBenzene}));
  });
}

TEST(ProfileRules, WholeProfilesPass) {
  EXPECT_NO_THROW(
      CheckProfiles(MakeRows("profile names", {kProfile, {{"SPEC ID", "2"}, {"Profile Name", "x"}, {"TYPE", "Vapor"}}}),
                    MakeRows("profile components", {kPart, With(kPart, {{"SPEC ID", "2"}, {"NAME", "BENZENE"}})}),
                    MakeRows("chemical", {kBenzene})));
}

TEST(ProfileRules, NumbersRunFromOneWithoutGaps) {
  EXPECT_THAT(ProfileRefusal({kProfile, With(kProfile, {{"SPEC ID", "3"}, {"Profile Name", "x"}})}, {}),
              HasSubstr("made.csv, line 3, SPEC ID: the number must be 2"));
  EXPECT_THAT(ProfileRefusal({With(kProfile, {{"SPEC ID", "0"}})}, {}), HasSubstr("line 2, SPEC ID"));
}

TEST(ProfileRules, OnlyTheThreeTypesAreKnown) {
  EXPECT_THAT(ProfileRefusal({With(kProfile, {{"TYPE", "Liquid"}})}, {}), HasSubstr("made.csv, line 2, TYPE"));
}

TEST(ProfileRules, ANameIsNeededAndStandsOnce) {
  EXPECT_THAT(ProfileRefusal({With(kProfile, {{"Profile Name", ""}})}, {}), HasSubstr("line 2, Profile Name"));
  EXPECT_THAT(ProfileRefusal({kProfile, With(kProfile, {{"SPEC ID", "2"}, {"Profile Name", "GASOLINE"}})}, {}),
              HasSubstr("line 3, Profile Name"));
}

TEST(ProfileRules, AComponentBelongsToAProfileAndNamesAChemical) {
  EXPECT_THAT(ProfileRefusal({kProfile}, {kPart, With(kPart, {{"SPEC ID", "2"}})}),
              HasSubstr("made.csv, line 3, SPEC ID: there is no such profile."));
  EXPECT_THAT(ProfileRefusal({kProfile}, {With(kPart, {{"SPEC ID", ""}})}), HasSubstr("line 2, SPEC ID"));
  EXPECT_THAT(ProfileRefusal({kProfile}, {With(kPart, {{"NAME", "Unobtainium"}})}),
              HasSubstr("made.csv, line 2, NAME: there is no such chemical."));
}

TEST(ProfileRules, AChemicalStandsOnceInAProfile) {
  EXPECT_THAT(ProfileRefusal({kProfile}, {kPart, kPart}), HasSubstr("line 3, SPEC ID, NAME"));
}

}  // namespace
}  // namespace orvex::databases
