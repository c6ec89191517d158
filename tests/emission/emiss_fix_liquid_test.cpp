#include "emission/emiss_fix.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

// The vertical sample tank: T_LA = 516.5614, T_LX = 521.8274, T_LN = 511.2954, where
//   benzene has  1.07071851847, 1.23949882022, 0.921508001921 psia (78.11 lb/lb-mole)
//   toluene has 0.299464187638, 0.352961682982, 0.253016763798 psia (92.13 lb/lb-mole)
class EmissFixLiquid : public LossTest {
 protected:
  void Run(std::int32_t ID) { EmissFix(test.session, ID, 1, "Annual"); }

  /// A mixture of 1 lb/lb-mole by its own row, of benzene and toluene by its components.
  std::int32_t AddBlend(std::string_view speciation, std::string_view share, double benzene, double toluene) {
    const auto ID = AddVerticalTank(test);
    TypeInMixture(ID, 9, 9, 9);
    ChangeMixture(client, ID, 1, {{"SPEC_OPT", speciation}, {"MOLWT", 1.0}, {"VP_MOLWT", 1.0}});
    AddComponent(client, ID, 1, 1, {{share, benzene}});
    AddComponent(client, ID, 1, 2, {{"NAME", "Toluene"}, {share, toluene}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}});
    return ID;
  }

  void ExpectRow(std::int32_t ID, const std::vector<ExpectedField>& expected, std::string_view name = kTypedName) {
    auto row = Row(ID, "Annual", name);
    ASSERT_FALSE(row.NoMatch());
    for (const auto& field : expected) ExpectField(row, field);
  }
};

TEST_F(EmissFixLiquid, PressureRangeOfAFullySpeciatedMixtureComesFromItsComponentsToo) {
  const auto ID = AddBlend(shell::kFullSpeciation, "WT_FRACT", 40, 60);
  Run(ID);
  // Mole shares 0.440192073389 and 0.559807926611: 0.440192073389 x 1.23949882022 + 0.559807926611 x 0.352961682982,
  // and the same at the minimum
  ExpectRow(
      ID, {{"A_VP", 0.638964230637}, {"X_VP", 0.743208303558}, {"M_VP", 0.547281307950}, {"VP_RANGE", 0.195926995608}});
}

TEST_F(EmissFixLiquid, VaporWeightsGiveBothMolecularWeights) {
  const auto ID = AddBlend(shell::kVaporWeightSpeciation, "VP_FRACT", 60, 40);
  Run(ID);
  // S = 60 / 78.11 + 40 / 92.13 = 1.20231659318; y = 0.638889530986, 0.361110469014
  // P_VA = 1 / (y1 / 1.07071851847 + y2 / 0.299464187638) = 0.554770369394; x = y P_VA / p = 0.331027226, 0.668972774
  // M_V = y1 x 78.11 + y2 x 92.13; M_L = x1 x 78.11 + x2 x 92.13; P_VX and P_VN = x1 p1 + x2 p2 at T_LX and T_LN
  ExpectRow(ID, {{"A_VP", 0.554770369394},
                 {"X_VP", 0.646429612359},
                 {"M_VP", 0.474305564029},
                 {"VP_MOLWT", 83.1727687756},
                 {"MOLWT", 87.4889982900}});
}

TEST_F(EmissFixLiquid, VaporWeightsThatDoNotAddUpKeepTheRowsFigures) {
  const auto ID = AddBlend(shell::kVaporWeightSpeciation, "VP_FRACT", 60, 30);
  Run(ID);
  ExpectRow(ID, {{"A_VP", 9.0}, {"X_VP", 9.0}, {"M_VP", 9.0}, {"VP_MOLWT", 1.0}, {"MOLWT", 1.0}});
}

TEST_F(EmissFixLiquid, VaporWeightsGoBeforeTheChemicalOfTheMixturesName) {
  const auto ID = AddBlend(shell::kVaporWeightSpeciation, "VP_FRACT", 60, 40);
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Benzene"}});
  Run(ID);
  ExpectRow(ID, {{"A_VP", 0.554770369394}, {"MOLWT", 87.4889982900}}, "Benzene");
}

TEST_F(EmissFixLiquid, OtherSpeciationsOfAChemicalsNameGoByTheChemicalEvenWithVaporWeights) {
  const auto ID = AddBlend(shell::kPartialSpeciation, "VP_FRACT", 60, 40);
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Benzene"}});
  Run(ID);
  ExpectRow(ID, {{"A_VP", 1.07071851847}, {"X_VP", 1.23949882022}, {"M_VP", 0.921508001921}, {"MOLWT", 1.0}},
            "Benzene");
}

TEST_F(EmissFixLiquid, BuriedVerticalDomeShowsTheDiameterAsItsRadiusButNoRoofOutage) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", "Dome"}, {"UNDER", true}});
  Run(ID);
  // H = 20 - (400 - 100)^0.5 = 2.67949192431; VS_OUT = 20 - 10 + H x (1/2 + (H / 10)^2 / 6)
  ExpectRow(ID, {{"D_RADIUS", 20.0}, {"RF_OUT", 0.0}, {"VS_OUT", 11.3718091063}, {"S_LOSS", 0.0}}, "Benzene");
}

}  // namespace
}  // namespace orvex::emission
