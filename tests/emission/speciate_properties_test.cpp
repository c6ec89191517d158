#include <rapidcheck.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "emission/mixture.h"
#include "emission/speciate_fixture.h"

namespace orvex::emission {
namespace {

constexpr std::array<std::string_view, 6> kLosses = {"S_LOSS",  "W_LOSS",     "RIM_LOSS",
                                                     "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"};

/// A number between two bounds, in thousandths of the way; all of them equally likely in every case of a property.
double Between(double low, double high) {
  return low + (high - low) * *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 1001)) / 1000.0;
}

bool Near(double a, double b) { return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)}); }

class SpeciatePropertiesTest : public SpeciateTest {
 protected:
  /// One to eight components, of random chemicals and in random shares, of a mixture at 60 deg F.
  void AddRandomMixture(std::string_view speciation) {
    client.Execute("DELETE * FROM emission");
    client.Execute("DELETE * FROM components");
    reference.Execute("DELETE * FROM chemical");
    SetSpeciation(speciation);
    const int count = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(1, 9));
    for (int number = 1; number <= count; ++number) {
      const std::string name = "Chemical " + std::to_string(number);
      const double weight = Between(20, 300);
      AddTabulated(reference, name, Between(1, 5), Between(0, 2), {{"L_DENS", Between(5, 12)}});
      test::AddComponent(client, ID, 1, number,
                         {{"NAME", name},
                          {"CAS", ""},
                          {"WT_FRACT", Between(1, 12)},
                          {"MOLWT", weight},
                          {"VP_MOLWT", *rc::gen::arbitrary<bool>() ? weight : Between(20, 300)}});
    }
    AddPrimary({{"TANK_TYPE", *rc::gen::element(shell::kVerticalFixedRoof, shell::kExternalFloatingRoof)},
                {"MOLWT", MixLiquidMW(test.session, ID, 1)},
                {"VP_MOLWT", MixVaporMW(test.session, ID, 1, k60F)},
                {"A_VP", MixturePVA(test.session, ID, 1, k60F)}});
    for (const auto loss : kLosses) ChangePrimary({{loss, Between(0, 5000)}});
  }

  /// The sum of a field over the component rows, the remainder among them.
  double Sum(std::string_view field) {
    double sum = 0;
    for (const auto& name : Names()) sum += Number(name, field);
    return sum;
  }
  double Primary(std::string_view field) { return client.OpenMatching("emission", "COMPID", {ID, 1}).Double(field); }

 private:
  // Never committed: the files go with the test.
  store::Transaction client_work_{client};
  store::Transaction reference_work_{reference};
};

TEST_F(SpeciatePropertiesTest, TheLossesOfAFullySpeciatedMixtureSumToItsOwn) {
  EXPECT_TRUE(rc::check([this] {
    AddRandomMixture(shell::kFullSpeciation);
    Split();
    for (const auto loss : kLosses) RC_ASSERT(Near(Sum(loss), Primary(loss)));
    for (const auto* fraction : {"L_WT_FRACT", "V_WT_FRACT", "L_MO_FRACT", "V_MO_FRACT"})
      RC_ASSERT(Near(Sum(fraction), 1));
  }));
}

TEST_F(SpeciatePropertiesTest, TheRemainderOfAPartlySpeciatedMixtureMakesUpItsLosses) {
  EXPECT_TRUE(rc::check([this] {
    AddRandomMixture(shell::kPartialSpeciation);
    Split();
    RC_ASSERT(Names().back() == kRemainder);
    for (const auto loss : kLosses) RC_ASSERT(Near(Sum(loss), Primary(loss)));
    for (const auto* fraction : {"L_WT_FRACT", "V_WT_FRACT", "L_MO_FRACT", "V_MO_FRACT"})
      RC_ASSERT(Near(Sum(fraction), 1));
  }));
}

TEST_F(SpeciatePropertiesTest, ASecondSplitGivesTheSameRows) {
  EXPECT_TRUE(rc::check([this] {
    AddRandomMixture(shell::kFullSpeciation);
    Split();
    const auto rows = client.OpenTable("emission").GetRows(100);
    Split();
    RC_ASSERT(client.OpenTable("emission").GetRows(100) == rows);
  }));
}

}  // namespace
}  // namespace orvex::emission
