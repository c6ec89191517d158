#include "databases/sample_rows.h"

#include <gmock/gmock.h>

#include "tools/made_rows.h"

namespace orvex::databases {
namespace {

using test::Cells;
using test::MakeRows;
using test::RefusalOf;
using test::With;
using ::testing::HasSubstr;

/// One tank with one mixture of one component and one fitting, to be changed.
struct Samples {
  std::vector<Cells> tank = {{{"ID", "1"},
                              {"USER ID", "T-1"},
                              {"TANK_TYPE", "External Floating Roof Tank"},
                              {"MET CTYST", "Enid, Oklahoma"},
                              {"RIM_PRIM", "Mechanical Shoe"},
                              {"RIM_SEC", "None"}}};
  std::vector<Cells> mixtures = {{{"ID", "1"},
                                  {"MIX ID", "1"},
                                  {"MIX NAME", "Cut"},
                                  {"C_CATEGORY", "Organic Liquids"},
                                  {"COMPONENT", "Multiple"},
                                  {"SPEC_OPT", "Full Speciation"}}};
  std::vector<Cells> components = {{{"ID", "1"}, {"MIX ID", "1"}, {"COMP ID", "1"}, {"NAME", "Benzene"}}};
  std::vector<Cells> fittings = {{{"ID", "1"},
                                  {"FIT ID", "1"},
                                  {"FIT_TYPE", "Roof Drain"},
                                  {"COVR_TYPE", "Open"},
                                  {"K_FA", "1.5"},
                                  {"K_FB", "0.21"},
                                  {"K_M", "1.7"},
                                  {"QUANTITY", "2"}}};

  void Check() const {
    CheckSampleRows(
        {.tank = MakeRows("tank", tank),
         .mixtures = MakeRows("mixtures", mixtures),
         .components = MakeRows("components", components),
         .fittings = MakeRows("fittings", fittings)},
        {.chemical = MakeRows("chemical", {{{"NAME", "Benzene"}}}),
         .deckseam = MakeRows("deckseam", {{{"NAME", "Sheet: 5 Ft Wide"}}}),
         .fitting = MakeRows(
             "fitting",
             {{{"FIT_TYPE", "Roof Drain"}, {"COVR_TYPE", "Open"}, {"K_FA", "1.5"}, {"K_FB", "0.21"}, {"K_M", "1.7"}}}),
         .met = MakeRows("met", {{{"CTYST", "Enid, Oklahoma"}}}),
         .profile_names = MakeRows("profile names", {}),
         .profile_components = MakeRows("profile components", {}),
         .rimseal = MakeRows("rimseal", {{{"PRIM_SEAL", "Mechanical Shoe"}, {"SECND_SEAL", "None"}}})});
  }
  [[nodiscard]] std::string Refusal() const {
    return RefusalOf([&] { Check(); });
  }
};

TEST(SampleRules, AWholeTankPasses) { EXPECT_NO_THROW(Samples().Check()); }

TEST(SampleRules, WhatATankPointsAtMustExist) {
  struct {
    const char* field;
    const char* text;
    const char* named;
  } const faults[] = {{"MET CTYST", "Atlantis, Ocean", "MET CTYST: there is no such city."},
                      {"RIM_PRIM", "Wool", "RIM_PRIM, RIM_SEC: there is no such rim seal."},
                      {"RIM_SEC", "Rim-mounted", "RIM_PRIM, RIM_SEC: there is no such rim seal."},
                      {"DECK_SEAM", "Sheet: 9 Ft Wide", "DECK_SEAM: there is no such deck seam."}};
  for (const auto& [field, text, named] : faults) {
    Samples samples;
    samples.tank[0][field] = text;
    EXPECT_THAT(samples.Refusal(), HasSubstr(std::string("made.csv, line 2, ") + named));
  }
}

TEST(SampleRules, AWordThatTheFieldDoesNotKnowIsRefused) {
  for (const char* field : {"TANK_TYPE", "SHL COLSHD", "RF_COLSHD", "PT_COND", "RF_COND", "SHL_COND", "RF_TYPE",
                            "FITTING", "DECK_TYPE", "DECK_CONSTRUCT", "TANK_CONSTRUCT"}) {
    Samples samples;
    samples.tank[0][field] = "Purple";
    EXPECT_THAT(samples.Refusal(), HasSubstr(std::string("line 2, ") + field));
  }
  for (const char* field : {"C_CATEGORY", "COMPONENT", "SPEC_OPT"}) {
    Samples samples;
    samples.mixtures[0][field] = "Purple";
    EXPECT_THAT(samples.Refusal(), HasSubstr(std::string("line 2, ") + field));
  }
}

TEST(SampleRules, TanksAreNumberedInOrderUnderDifferentIdentifications) {
  Samples gap;
  gap.tank.push_back(With(gap.tank[0], {{"ID", "3"}, {"USER ID", "T-2"}}));
  EXPECT_THAT(gap.Refusal(), HasSubstr("line 3, ID: the number must be 2"));
  Samples twins;
  twins.tank.push_back(With(twins.tank[0], {{"ID", "2"}}));
  EXPECT_THAT(twins.Refusal(), HasSubstr("line 3, USER ID: an earlier row has the same."));
}

TEST(SampleRules, AMixtureBelongsToATankAndIsNumberedWithinIt) {
  Samples stray;
  stray.mixtures[0]["ID"] = "2";
  EXPECT_THAT(stray.Refusal(), HasSubstr("line 2, ID: there is no such tank."));
  Samples gap;
  gap.mixtures.push_back(With(gap.mixtures[0], {{"MIX ID", "3"}}));
  EXPECT_THAT(gap.Refusal(), HasSubstr("line 3, MIX ID: the number must be 2"));
}

TEST(SampleRules, AComponentBelongsToAMixtureAndNamesAChemical) {
  Samples stray;
  stray.components[0]["MIX ID"] = "2";
  EXPECT_THAT(stray.Refusal(), HasSubstr("line 2, ID, MIX ID: there is no such mixture."));
  Samples unknown;
  unknown.components[0]["NAME"] = "Unobtainium";
  EXPECT_THAT(unknown.Refusal(), HasSubstr("line 2, NAME: there is no such chemical."));
  Samples gap;
  gap.components[0]["COMP ID"] = "2";
  EXPECT_THAT(gap.Refusal(), HasSubstr("line 2, COMP ID: the number must be 1"));
}

TEST(SampleRules, AFittingBelongsToATankAndHasTheFactorsOfItsType) {
  struct {
    const char* field;
    const char* text;
    const char* named;
  } const faults[] = {{"ID", "2", "ID: there is no such tank."},
                      {"FIT ID", "2", "FIT ID: the number must be 1"},
                      {"FIT_TYPE", "Roof Garden", "there is no such fitting."},
                      {"COVR_TYPE", "", "there is no such fitting."},
                      {"K_FA", "1.6", "there is no such fitting."},
                      {"QUANTITY", "0", "QUANTITY: the number must be above zero."}};
  for (const auto& [field, text, named] : faults) {
    Samples samples;
    samples.fittings[0][field] = text;
    EXPECT_THAT(samples.Refusal(), HasSubstr(named)) << field;
  }
}

}  // namespace
}  // namespace orvex::databases
