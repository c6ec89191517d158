#include "entry/entry_events.h"

#include <string>
#include <utility>

#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using EntryEventsTest = test::TankEntryTest;

TEST_F(EntryEventsTest, ANumberOfThePhysicalPageThatIsNoneBecomesZeroAndIsRemembered) {
  auto& form = OpenTank(shell::kInternalFloatingRoof);
  Type("txtSDIT", "a lot");
  EXPECT_EQ(Shown("txtSDIT"), "0");
  EXPECT_EQ(form.last_field, "txtSDIT");
}

TEST_F(EntryEventsTest, AListThatIsLeftIsNotRemembered) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtRoofHeightVT", "2");
  LeaveEntry(session_, form, "cboShellColorVT");
  EXPECT_EQ(form.last_field, "txtRoofHeightVT");
}

TEST_F(EntryEventsTest, ComingToAnotherPhysicalEntryStoresWhatWasTyped) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtRoofHeightVT", "2.5");
  EnterEntry(session_, form, "cboShellColorVT");
  EXPECT_EQ(session_.ClientDb->OpenAt("tank", "ID", {form.ID}).Double("RF_HEIGHT"), 2.5);
}

TEST_F(EntryEventsTest, ChangingThePageStoresWhatWasTypedAndKeepsTheNameRemembered) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtRoofHeightVT", "2.5");
  ChangePage(session_, form, Page::kSite);
  EXPECT_EQ(form.page, Page::kSite);
  EXPECT_EQ(form.last_field, "txtRoofHeightVT");
  EXPECT_EQ(session_.ClientDb->OpenAt("tank", "ID", {form.ID}).Double("RF_HEIGHT"), 2.5);
}

TEST_F(EntryEventsTest, ATextTooLongIsRefusedAndComeBackTo) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  host_.ExpectMessage("Please enter no more than 255 characters.");
  Type("txtDesc", std::string(256, 'x'));
  EXPECT_EQ(form.window.focus, "txtDesc");
  EXPECT_EQ(At(form, "txtDesc").refusal, "Please enter no more than 255 characters.");
  EXPECT_EQ(Shown("txtDesc"), std::string(256, 'x'));
  Type("txtDesc", "short");
  EXPECT_EQ(At(form, "txtDesc").refusal, "");
}

TEST_F(EntryEventsTest, ANumberOfAMixtureThatIsNoneIsRefusedAndSetToZero) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  form.form = Section::kPartial;
  host_.ExpectMessage("Please enter a number.");
  Type("txtVPPartial", "1,5");
  EXPECT_EQ(Shown("txtVPPartial"), "0");
  EXPECT_EQ(form.window.focus, "txtVPPartial");
}

TEST_F(EntryEventsTest, AnEmptiedNumberOfAMixtureIsNoNumberEither) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  form.form = Section::kPartial;
  host_.ExpectMessage("Please enter a number.");
  Type("txtVPPartial", "");
  EXPECT_EQ(Shown("txtVPPartial"), "0");
}

constexpr const char* kNoShellHeight = "Shell height must be between 5 and 65 feet.";

TEST_F(EntryEventsTest, ANumberJustRefusedIsNotRefusedAgainWhenItIsComeBackTo) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtShellHeightVT", "4");
  host_.ExpectMessage(kNoShellHeight);
  EnterEntry(session_, form, "cboShellColorVT");
  EXPECT_EQ(form.window.focus, "txtShellHeightVT");
  LeaveEntry(session_, form, "cboShellColorVT");
  EnterEntry(session_, form, "txtShellHeightVT");
  EXPECT_EQ(Shown("txtShellHeightVT"), "4");
  LeaveEntry(session_, form, "txtShellHeightVT");
  host_.ExpectMessage(kNoShellHeight);
  EnterEntry(session_, form, "cboShellColorVT");
}

TEST_F(EntryEventsTest, ANumberJustRefusedIsRefusedAgainOnceItWasLeft) {
  auto& form = OpenTank(shell::kHorizontal);
  Type("txtDiameterHT", "2");
  host_.ExpectMessage("Shell diameter must be between 3 and 20 feet.");
  EnterEntry(session_, form, "cboShellColorHT");
  // The person is back without a word from the view, and goes to a button and back.
  LeaveEntry(session_, form, "txtDiameterHT");
  host_.ExpectMessage("Shell diameter must be between 3 and 20 feet.");
  EnterEntry(session_, form, "txtDiameterHT");
}

TEST_F(EntryEventsTest, ComingToAnyOtherEntryThanTheOneJustRefusedChecksIt) {
  auto& form = OpenTank(shell::kHorizontal);
  Type("txtLengthHT", "80");
  for (const auto* other : {"cboShellColorHT", "txtVolumeHT"}) {
    host_.ExpectMessage("Shell length must be between 5 and 75 feet.");
    EnterEntry(session_, form, other);
  }
}

TEST_F(EntryEventsTest, ARefusalLeadsBackToThePageOfTheEntry) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  Type("txtShellHeightVT", "65.5");
  host_.ExpectMessage(kNoShellHeight);
  ChangePage(session_, form, Page::kMonthly);
  EXPECT_EQ(form.page, Page::kPhysical);
  EXPECT_EQ(form.window.focus, "txtShellHeightVT");
  Type("txtShellHeightVT", "65");
  ChangePage(session_, form, Page::kMonthly);
  EXPECT_EQ(form.page, Page::kMonthly);
}

TEST_F(EntryEventsTest, TheNumberThatWasLeftIsCheckedBeforeTheNextEntrysOwnRules) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  for (const auto& [control, text] : {std::pair{"cboRoofTypeVT", "Cone"}, {"txtRoofHeightVT", "2"}})
    At(form, control).box.text = text;
  At(form, "txtConeSlopeVT").box.text = "0.5";
  Type("txtDiameterVT", "30");
  // The answer to the first question leaves nothing for the slope's own one to ask. 2 / 15 * 100 = 13.33
  host_.ExpectMessage("The calculated cone roof slope value is 0.13(ft/ft). Use This Value?", shell::Answer::kYes);
  EnterEntry(session_, form, "txtConeSlopeVT");
  EXPECT_EQ(Shown("txtConeSlopeVT"), "0.13");
}

TEST_F(EntryEventsTest, TheCheckFormatsTheNumbersAlsoOfATankWhoseRowIsGone) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  session_.ClientDb->DeleteMatching("tank", "ID", {form.ID});
  At(form, "txtVolumeVT").box.text = "12345";
  form.months[0].txtThru.text = "1000";
  ChangePage(session_, form, Page::kMonthly);
  EXPECT_EQ(Shown("txtVolumeVT"), "12,345.00");
  EXPECT_EQ(form.months[0].txtThru.text, "1,000.00");
}

TEST_F(EntryEventsTest, ATextTooLongIsReportedByTheCheckOfThePageAndNothingIsStored) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  At(form, "txtDesc").box.text = std::string(256, 'x');
  At(form, "txtRoofHeightVT").box.text = "2.5";
  host_.ExpectError(3163, "frmTank.CheckLostFocus");
  ChangePage(session_, form, Page::kSite);
  EXPECT_TRUE(session_.ClientDb->OpenAt("tank", "ID", {form.ID}).IsNull("RF_HEIGHT"));
}

}  // namespace
}  // namespace orvex::entry
