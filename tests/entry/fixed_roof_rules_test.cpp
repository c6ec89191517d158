#include <algorithm>

#include "entry/physical_page_test.h"
#include "entry/physical_rules.h"

namespace orvex::entry {
namespace {

using shell::Answer;

constexpr const char* kNoVacuum = "Please enter a number bewteen -1 and 0.";
constexpr const char* kNoPressure = "Please enter a value between 0 and 1.";
constexpr const char* kHeatedVents =
    "The breather vent setting for a heated tank must be zero.  Do you want to set these values to zero now?";

/// Opens a fixed roof tank of the type that its parameter, the ending of its entries, stands for.
class BreatherVentTest : public test::PhysicalPageTest, public testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override { OpenTank(GetParam() == "VT" ? shell::kVerticalFixedRoof : shell::kHorizontal); }
  [[nodiscard]] static std::string Vacuum() { return "txtVacuum" + GetParam(); }
  [[nodiscard]] static std::string Pressure() { return "txtPressure" + GetParam(); }
  [[nodiscard]] static std::string Heated() { return "cboHeated" + GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(Tanks, BreatherVentTest, testing::Values("VT", "HT"),
                         [](const auto& ending) { return ending.param; });

TEST_P(BreatherVentTest, AVacuumGetsItsSign) {
  Leave(Vacuum(), "0.5");
  EXPECT_EQ(Shown(Vacuum()), "-0.50");
  EXPECT_EQ(Stored("VENT_V").AsDouble(), -0.5);
}

TEST_P(BreatherVentTest, AVacuumFromMinusOneToZeroPasses) {
  for (const auto* text : {"-1", "-0.03", "0", "-0.9999999999999999"}) {
    Leave(Vacuum(), text);
    EXPECT_EQ(Shown(Vacuum()), text);
  }
  for (const auto* text : {"1", "1.0000004"}) {  // the second shows as the first
    Leave(Vacuum(), text);
    EXPECT_EQ(Shown(Vacuum()), "-1.00");
  }
}

TEST_P(BreatherVentTest, AVacuumBelowMinusOneIsRefusedAndReset) {
  for (const auto* text : {"1.5", "-1.5", "-1.0000000000000002", "1.000001"}) {
    auto& form = Editor(session_);
    form.window.focus = {};
    host_.ExpectMessage(kNoVacuum);
    Leave(Vacuum(), text);
    EXPECT_EQ(Shown(Vacuum()), "0") << text;
    EXPECT_EQ(form.window.focus, Vacuum());
    EXPECT_EQ(At(form, Vacuum()).refusal, kNoVacuum);
    EXPECT_EQ(Stored("VENT_V").DoubleOrZero(), 0);
  }
}

TEST_P(BreatherVentTest, APressureFromZeroToOnePasses) {
  for (const auto* text : {"0", "0.03", "1", "0.9999999999999999"}) {
    Leave(Pressure(), text);
    ChangePage(session_, Editor(session_), Page::kSite);
    EXPECT_EQ(Shown(Pressure()), text);
  }
}

using VerticalVentTest = test::PhysicalPageTest;

TEST_F(VerticalVentTest, APressureOutsideIsRefusedAndResetAtOnce) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  for (const auto* text : {"1.5", "1.0000000000000002", "-0.1", "-4.9406564584124654e-324"}) {
    form.window.focus = {};
    host_.ExpectMessage(kNoPressure);
    Leave("txtPressureVT", text);
    EXPECT_EQ(Shown("txtPressureVT"), "0") << text;
    EXPECT_EQ(form.window.focus, "txtPressureVT");
    EXPECT_EQ(Stored("VENT_P").DoubleOrZero(), 0);
  }
}

using HorizontalVentTest = test::PhysicalPageTest;

TEST_F(HorizontalVentTest, APressureJustTypedIsTestedOnlyOnceItIsStored) {
  auto& form = OpenTank(shell::kHorizontal);
  Leave("txtPressureHT", "1.5");
  EXPECT_EQ(Shown("txtPressureHT"), "1.5");
  EXPECT_EQ(Stored("VENT_P").AsDouble(), 1.5);
  EXPECT_EQ(form.window.focus, "");
  host_.ExpectMessage(kNoPressure);
  Enter("cboShellColorHT");
  EXPECT_EQ(Shown("txtPressureHT"), "0");
  EXPECT_EQ(form.window.focus, "txtPressureHT");
  EXPECT_EQ(Stored("VENT_P").AsDouble(), 0);
  Enter("cboShellColorHT");
}

TEST_F(HorizontalVentTest, AGoodPressureAfterABadOneIsReset) {
  OpenTank(shell::kHorizontal);
  Leave("txtPressureHT", "1.5");
  // What was stored last, 1.5, is what is tested.
  host_.ExpectMessage(kNoPressure);
  Leave("txtPressureHT", "0.5");
  EXPECT_EQ(Shown("txtPressureHT"), "0");
}

// Heated

TEST_P(BreatherVentTest, HeatingATankOffersToSetItsVentsToZero) {
  Given({{Vacuum(), "-0.03"}, {Pressure(), "0.03"}});
  host_.ExpectMessage(kHeatedVents, "ORVEX", shell::Buttons::kYesNo, shell::Icon::kNone, Answer::kYes);
  Choose(Heated(), "Yes");
  EXPECT_EQ(Shown(Vacuum()), "0");
  EXPECT_EQ(Shown(Pressure()), "0");
  ChangePage(session_, Editor(session_), Page::kSite);
  EXPECT_TRUE(Stored("HEATED").AsBool());
  EXPECT_EQ(Stored("VENT_V").AsDouble(), 0);
}

TEST_P(BreatherVentTest, HeatingATankLeavesItsVentsOnNo) {
  Given({{Pressure(), "0.03"}});
  host_.ExpectMessage(kHeatedVents, Answer::kNo);
  Choose(Heated(), "Yes");
  EXPECT_EQ(Shown(Pressure()), "0.03");
  Given({{Vacuum(), "-0.03"}, {Pressure(), "0"}});
  host_.ExpectMessage(kHeatedVents, Answer::kNo);
  Choose(Heated(), "Yes");
  EXPECT_EQ(Shown(Vacuum()), "-0.03");
}

TEST_P(BreatherVentTest, NothingIsOfferedWithoutVentsOrHeating) {
  Choose(Heated(), "Yes");
  Given({{Vacuum(), "-0.03"}, {Pressure(), "0.03"}});
  Choose(Heated(), "No");
  ChangePage(session_, Editor(session_), Page::kSite);
  EXPECT_FALSE(Stored("HEATED").AsBool());
}

TEST_P(BreatherVentTest, AHeatedTankBeingLoadedWithVentsSetDoesNotAsk) {
  Given({{Vacuum(), "-0.03"}, {Pressure(), "0.03"}, {Heated(), "Yes"}});
  auto& form = Editor(session_);
  form.visible = false;
  ShowFixedRoofEntries(session_, form);
  ChooseItem(session_, form, Heated());
  EXPECT_EQ(Shown(Vacuum()), "-0.03");
  EXPECT_EQ(Shown(Pressure()), "0.03");
}

// Underground

class UndergroundTest : public test::PhysicalPageTest {
 protected:
  bool ShellIsShown() {
    auto& form = Editor(session_);
    EXPECT_EQ(At(form, "cboShellColorHT").box.visible, At(form, "cboShellCondHT").box.visible);
    return At(form, "cboShellColorHT").box.visible;
  }
};

TEST_F(UndergroundTest, ATankUndergroundHasNoPaint) {
  OpenTank(shell::kHorizontal);
  EXPECT_TRUE(ShellIsShown());
  Choose("cboUndergroundHT", "Yes");
  EXPECT_FALSE(ShellIsShown());
  ChangePage(session_, Editor(session_), Page::kSite);
  EXPECT_TRUE(Stored("UNDER").AsBool());
  Choose("cboUndergroundHT", "No");
  EXPECT_TRUE(ShellIsShown());
  ChangePage(session_, Editor(session_), Page::kSite);
  EXPECT_FALSE(Stored("UNDER").AsBool());
}

// Loading

TEST_F(UndergroundTest, ALoadedTankShowsWhatItsRowCallsFor) {
  auto& form = OpenTank(shell::kHorizontal);
  Given({{"cboUndergroundHT", "Yes"}});
  ShowFixedRoofEntries(session_, form);
  EXPECT_FALSE(ShellIsShown());
  Given({{"cboUndergroundHT", "No"}});
  ShowFixedRoofEntries(session_, form);
  EXPECT_TRUE(ShellIsShown());
}

using LoadedVerticalTest = test::PhysicalPageTest;

TEST_F(LoadedVerticalTest, ShowsTheEntriesOfItsRoofAlone) {
  auto& form = OpenTank(shell::kVerticalFixedRoof);
  const auto shown = [&](const char* control) { return At(form, control).box.visible; };
  Given({{"cboRoofTypeVT", "Dome"}});
  ShowFixedRoofEntries(session_, form);
  EXPECT_FALSE(shown("txtConeSlopeVT"));
  EXPECT_TRUE(shown("txtDomeRadiusVT"));
  Given({{"cboRoofTypeVT", "Cone"}});
  ShowFixedRoofEntries(session_, form);
  EXPECT_TRUE(shown("txtConeSlopeVT"));
  EXPECT_FALSE(shown("txtDomeRadiusVT"));
  Given({{"cboRoofTypeVT", ""}});
  ShowFixedRoofEntries(session_, form);
  EXPECT_TRUE(shown("txtConeSlopeVT"));
  EXPECT_TRUE(shown("txtDomeRadiusVT"));
}

TEST_F(LoadedVerticalTest, LeavesFloatingRoofsAlone) {
  for (const auto tank_type : {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof}) {
    auto& form = OpenTank(tank_type);
    ShowFixedRoofEntries(session_, form);
    EXPECT_TRUE(
        std::ranges::all_of(EntriesOf(form, PhysicalSection(form)), [](auto& entry) { return entry.box.visible; }));
  }
}

}  // namespace
}  // namespace orvex::entry
