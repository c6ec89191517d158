#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::test {
namespace {

using TutorialTankTest = TankEntryTest;

// The help leads a person through this tank, and tells the figures.
TEST_F(TutorialTankTest, FillsInVolumeThroughputAndSlopeAsTheHelpTells) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtShellHeightVT", "25");
  Type("txtDiameterVT", "30");
  Type("txtMaxLiquidHeightVT", "23");
  Type("txtAvgLiquidHeightVT", "12");

  // 15^2 * 3.14159 * 23 / 0.13368 = 121,616.7583034
  entry::EnterEntry(session_, form, "txtVolumeVT");
  EXPECT_EQ(Shown("txtVolumeVT"), "121,616.758303");
  entry::LeaveEntry(session_, form, "txtVolumeVT");
  Type("txtTurnoverVT", "10");
  entry::EnterEntry(session_, form, "txtThroughputVT");
  EXPECT_EQ(Shown("txtThroughputVT"), "1,216,167.58303");
  entry::LeaveEntry(session_, form, "txtThroughputVT");

  Choose("cboRoofTypeVT", "Cone");
  host_.ExpectMessage("The default value is 0.0625. Use This Value?", shell::Answer::kYes);
  entry::EnterEntry(session_, form, "txtConeSlopeVT");
  EXPECT_EQ(entry::Number(entry::At(form, "txtConeSlopeVT")), 0.0625);
}

}  // namespace
}  // namespace orvex::test
