#include "emission/emiss_float.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

// The sample tanks with a floating roof: 100 ft, which 6 columns would hold up. Without columns
// WD_LOSS = 0.943 x 285,714.2857 x 0.0015 x 7.365 / 100 = 29.7651214286.
constexpr double kBareWall = 29.7651214286;

class EmissFloatColumns : public LossTest {
 protected:
  void ExpectColumns(std::int32_t ID, double count, double diameter, double columns_that_cling) {
    EmissFloat(test.session, ID, 1, "Annual");
    auto row = Row(ID);
    for (const auto& field : {ExpectedField{"NC", count},
                              {"COL_NO", count},
                              {"FC", diameter},
                              {"COL_DIAM", diameter},
                              {"WD_LOSS", kBareWall * (1 + columns_that_cling * diameter / 100)}})
      ExpectField(row, field);
  }
};

TEST_F(EmissFloatColumns, WithoutDiameterHaveOneFootAndKeepTheirNumber) {
  ExpectColumns(AddInternalTank(test, {{"COL_NO", 4.0}, {"COL_DIAM", 0.0}}), 4, 1, 4);
}

TEST_F(EmissFloatColumns, WithoutNumberAreAsManyAsTheDiameterNeedsAndKeepTheirDiameter) {
  ExpectColumns(AddInternalTank(test, {{"COL_NO", 0.0}, {"COL_DIAM", 0.7}}), 6, 0.7, 6);
}

TEST_F(EmissFloatColumns, OfADomedRoofHoldNoLiquidAlthoughTheRowShowsTheirNumber) {
  ExpectColumns(AddDomedTank(test, {{"COL_NO", 4.0}, {"COL_DIAM", 2.0}}), 4, 0, 4);
}

TEST_F(EmissFloatColumns, OfASelfSupportingExternalRoofAreShownAsStored) {
  ExpectColumns(AddExternalTank(test, {{"SELF_SUP", true}, {"COL_NO", 0.0}, {"COL_DIAM", 2.0}}), 0, 0, 0);
}

}  // namespace
}  // namespace orvex::emission
