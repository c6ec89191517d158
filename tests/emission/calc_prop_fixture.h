#pragma once

#include "emission/calc_prop.h"
#include "emission/mixture_fixture.h"

namespace orvex::emission {

using test::AddComponent;
using test::AddDomedTank;
using test::AddExternalTank;
using test::AddHorizontalTank;
using test::AddInternalTank;
using test::AddMixture;
using test::AddVerticalTank;
using test::ChangeMixture;
using test::ChangeTank;

inline constexpr double kExact = 1e-12;

// The liquid of the sample tanks over the sample city's year (55 deg F, 45 to 65 deg F, 1400 Btu/(ft2 day)), white and
// in good condition, alpha = 0.17:
//   T_B  = 514.67 + 6 x 0.17 - 1 = 514.69 R = 55.02 F
//   T_LA = 0.44 x 514.67 + 0.56 x 514.69 + 0.0079 x 0.17 x 1400 = 516.5614 R = 56.8914 F
//   T_LX, T_LN = T_LA +- 0.25 x (0.72 x 20 + 0.028 x 0.17 x 1400) = T_LA +- 5.266 = 62.1574 F, 51.6254 F
inline constexpr double kAverageR = 516.5614;
inline constexpr double kAverageF = 56.8914;
inline constexpr double kMaximumF = 62.1574;
inline constexpr double kMinimumF = 51.6254;
inline constexpr double kBulkF = 55.02;

// Light at these temperatures: 1 + (56.8914 - 40) / 10 = 2.68914, 3.21574, 2.16254 psia; stored with four decimals.
inline constexpr double kLight = 2.6891;
inline constexpr double kLightMaximum = 3.2157;
inline constexpr double kLightMinimum = 2.1625;

inline std::int32_t AddUnderground(test::TestSession& test, test::FieldValues changes) {
  const auto ID = AddHorizontalTank(test, changes);
  ChangeTank(test.client(), ID, {{"UNDER", true}});
  return ID;
}

/// A vertical tank that holds "Light", and its stored rows.
class CalcPropTest : public MixtureTest {
 protected:
  CalcPropTest() {
    ID = AddVerticalTank(test);
    SetMixture({{"MIX NAME", "Light"},
                {"ALS_TEMP", 1.0},
                {"MLS_TEMP", 2.0},
                {"XLS_TEMP", 3.0},
                {"BULK_TEMP", 4.0},
                {"VP", 5.0},
                {"VP_MIN", 6.0},
                {"VP_MAX", 7.0},
                {"MOLWT", 8.0},
                {"VP_MOLWT", 9.0},
                {"L_DENS", 10.0}});
  }

  void SetMixture(test::FieldValues fields) { ChangeMixture(client, ID, 1, fields); }
  void SetKind(std::string_view speciation) { SetMixture({{"COMPONENT", shell::kMultiple}, {"SPEC_OPT", speciation}}); }
  void SetCity(test::FieldValues fields) { test::ChangeRow(reference, "met", "CTYST", {test::kSampleCity}, fields); }
  void Calc() { CalcProp(test.session, ID); }

  double Mixture(std::string_view field, std::int32_t MixID = 1) {
    return client.OpenMatching("mixtures", "IDMIX", {ID, MixID}).Double(field);
  }
  store::Value Component(std::string_view field, std::int32_t CompID = 1, std::int32_t MixID = 1) {
    return client.OpenMatching("components", "IDMIX", {ID, MixID, CompID}).Get(field);
  }

  void ExpectTemperatures(double average, double minimum, double maximum, double bulk) {
    EXPECT_NEAR(Mixture("ALS_TEMP"), average, kExact);
    EXPECT_NEAR(Mixture("MLS_TEMP"), minimum, kExact);
    EXPECT_NEAR(Mixture("XLS_TEMP"), maximum, kExact);
    EXPECT_NEAR(Mixture("BULK_TEMP"), bulk, kExact);
  }
  void ExpectPressures(double average, double minimum, double maximum) {
    EXPECT_NEAR(Mixture("VP"), average, kExact);
    EXPECT_NEAR(Mixture("VP_MIN"), minimum, kExact);
    EXPECT_NEAR(Mixture("VP_MAX"), maximum, kExact);
  }
  void ExpectWeights(double liquid, double vapor, double density) {
    EXPECT_NEAR(Mixture("MOLWT"), liquid, 1e-9);
    EXPECT_NEAR(Mixture("VP_MOLWT"), vapor, 1e-9);
    EXPECT_NEAR(Mixture("L_DENS"), density, 1e-9);
  }
  /// The row as the fixture left it.
  void ExpectUntouched() {
    ExpectTemperatures(1, 2, 3, 4);
    ExpectPressures(5, 6, 7);
    ExpectWeights(8, 9, 10);
  }
  void ExpectFilledFromLight() {
    ExpectTemperatures(kAverageF, kMinimumF, kMaximumF, kBulkF);
    ExpectPressures(kLight, kLightMinimum, kLightMaximum);
    ExpectWeights(50, 50, 5);
  }
};

}  // namespace orvex::emission
