#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "shell/tank_types.h"
#include "support/sample_tanks.h"

/// Liquids whose figures can be worked with in the head. Their vapor pressures run straight from 40 to 100 deg F:
///
///              50 F   60 F   70 F  {psia}   MOLWT  VP_MOLWT  L_DENS
///   Light      2      3      4              50     50        5
///   Heavy      0.5    0.75   1              100    80        8
///   Solid      -      -      -              200    200       10       no vapor pressure at all
namespace orvex::emission {

inline constexpr double k50F = 509.67;  ///< {R}
inline constexpr double k60F = 519.67;
inline constexpr double k70F = 529.67;

inline const store::Value kNull{};

/// An organic liquid with a tabulated vapor pressure that begins at 40 deg F and rises by a step every 10 deg F.
inline void AddTabulated(store::Database& reference, std::string_view name, double at_40, double step,
                         test::FieldValues fields = {}) {
  auto chemical = reference.OpenTable("chemical");
  chemical.AddNew();
  chemical.Set("NAME", name);
  chemical.Set("CATEGORY", shell::kOrganicLiquids);
  for (int i = 0; i < 7; ++i) chemical.Set("VP_" + std::to_string(40 + 10 * i), at_40 + step * i);
  for (const auto& [field, value] : fields) chemical.Set(field, value);
  chemical.Update();
}

/// A session with these liquids in the reference database.
class MixtureTest : public ::testing::Test {
 protected:
  MixtureTest() {
    AddTabulated(reference, "Light", 1, 1, {{"CAS", "111-11-1"}, {"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"L_DENS", 5.0}});
    AddTabulated(reference, "Heavy", 0.25, 0.25,
                 {{"CAS", "222-22-2"}, {"MOLWT", 100.0}, {"VP_MOLWT", 80.0}, {"L_DENS", 8.0}});
    AddTabulated(reference, "Solid", 0, 0, {{"MOLWT", 200.0}, {"VP_MOLWT", 200.0}, {"L_DENS", 10.0}});
  }

  void AddLight(std::int32_t CompID, test::FieldValues shares) {
    test::AddComponent(client, ID, 1, CompID,
                       {{"NAME", "Light"}, {"CAS", "111-11-1"}, {"MOLWT", 50.0}, {"VP_MOLWT", 50.0}});
    ChangeComponent(CompID, shares);
  }
  void AddHeavy(std::int32_t CompID, test::FieldValues shares) {
    test::AddComponent(client, ID, 1, CompID,
                       {{"NAME", "Heavy"}, {"CAS", "222-22-2"}, {"MOLWT", 100.0}, {"VP_MOLWT", 80.0}});
    ChangeComponent(CompID, shares);
  }
  void ChangeComponent(std::int32_t CompID, test::FieldValues fields) {
    test::ChangeRow(client, "components", "IDMIX", {ID, 1, CompID}, fields);
  }
  void ChangeChemical(std::string_view name, test::FieldValues fields) {
    test::ChangeRow(reference, "chemical", "chemname", {name}, fields);
  }

  std::int32_t ID = 1;
  test::TestSession test;
  store::Database& client = test.client();
  store::Database& reference = test.reference();
};

}  // namespace orvex::emission
