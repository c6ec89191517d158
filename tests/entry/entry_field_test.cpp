#include "entry/entry_field.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>
#include <string>

#include "entry/frmtank.h"
#include "entry/frmtank_text.h"
#include "shell/tank_types.h"
#include "store/field_table.h"
#include "support/expect_error.h"

namespace orvex::entry {
namespace {

class EntryFieldTest : public testing::Test {
 protected:
  Entry& Of(std::string_view control) { return At(form_, control); }

  FrmTank form_ = MakeFrmTank(shell::kVerticalFixedRoof);
};

std::set<std::string> FieldsOf(Section section) {
  std::set<std::string> fields;
  for (const auto& info : EntryInfos())
    if (info.section == section) fields.emplace(info.field);
  return fields;
}

TEST(EntryInfos, GiveEachControlOneName) {
  std::map<std::string_view, int> seen;
  for (const auto& text : kFrmTankControls) ++seen[text.name];
  for (const auto& [name, times] : seen) EXPECT_EQ(times, 1) << name;
}

TEST(EntryInfos, SayOfEveryEntryWhatItIs) {
  for (const auto& info : EntryInfos()) {
    EXPECT_FALSE(info.text.caption.empty()) << info.text.name;
    EXPECT_FALSE(info.text.tip.empty()) << info.text.name;
    EXPECT_FALSE(info.group.empty()) << info.text.name;
  }
}

TEST(EntryInfos, NameStoredFieldsAlone) {
  for (const auto& info : EntryInfos()) {
    const bool of_mixture = info.section >= Section::kMixture;
    const bool weather = info.section == Section::kSite && info.kind == EntryKind::kShown;
    const auto* table = of_mixture ? "mixtures" : weather ? "met" : "tank";
    EXPECT_NO_THROW(store::FindField(store::FindTable(table), info.field)) << info.text.name;
  }
}

TEST(EntryInfos, TellTheUnitOfEveryMeasuredNumber) {
  const std::set<std::string_view> in_words = {"per year", "lb/lb-mole", "deg F"};
  for (const auto& info : EntryInfos()) {
    if (info.kind != EntryKind::kNumber) continue;
    const auto* table = info.section >= Section::kMixture ? "mixtures" : "tank";
    const auto unit = store::FindField(store::FindTable(table), info.field).unit;
    if (unit.empty() || in_words.contains(unit)) continue;
    EXPECT_NE(info.text.caption.find("(" + std::string(unit) + ")"), std::string_view::npos) << info.text.name;
    EXPECT_NE(info.text.tip.find(unit), std::string_view::npos) << info.text.name;
  }
}

TEST(EntryInfos, GiveEachTankTypeItsOwnEntries) {
  const std::set<std::string> common = {"DIAMETER", "VOLUME", "TURNOVER", "Q_NET", "SHL COLSHD", "PT_COND"};
  const std::map<Section, std::set<std::string>> own = {
      {Section::kVertical,
       {"HEIGHT S", "HEIGHT ML", "HEIGHT AL", "HEATED", "RF_TYPE", "RF_HEIGHT", "C_SLOPE", "D_RADIUS", "RF_COLSHD",
        "RF_COND", "VENT_V", "VENT_P"}},
      {Section::kHorizontal, {"HEIGHT S", "HEATED", "UNDER", "VENT_V", "VENT_P"}},
      {Section::kInternal,
       {"SHL_COND", "RF_COLSHD", "RF_COND", "RIM_PRIM", "RIM_SEC", "FITTING", "SELF_SUP", "COL_NO", "COL_DIAM",
        "DECK_TYPE", "DECK_CONSTRUCT", "DECK_SEAM", "DECK_SEAM_LENGTH", "SD"}},
      {Section::kExternal, {"SHL_COND", "RF_TYPE", "TANK_CONSTRUCT", "RIM_PRIM", "RIM_SEC", "FITTING"}},
  };
  for (auto [section, fields] : own) {
    fields.insert(common.begin(), common.end());
    EXPECT_EQ(FieldsOf(section), fields);
  }
}

TEST_F(EntryFieldTest, StoresYesAndNoAsNumbers) {
  auto& heated = Of("cboHeatedVT");
  heated.box.text = "Yes";
  EXPECT_EQ(StoredText(heated), "-1");
  heated.box.text = "No";
  EXPECT_EQ(StoredText(heated), "0");
  ShowStored(heated, "-1");
  EXPECT_EQ(heated.box.text, "Yes");
  ShowStored(heated, "0");
  EXPECT_EQ(heated.box.text, "No");
}

TEST_F(EntryFieldTest, StoresADefaultItemWithoutItsMark) {
  auto& color = Of("cboShellColorVT");
  color.box.text = "White/White (D)";
  EXPECT_EQ(StoredText(color), "White/White");
  ShowStored(color, "White/White");
  EXPECT_EQ(color.box.text, "White/White (D)");
  ShowStored(color, "Gray/Light");
  EXPECT_EQ(color.box.text, "Gray/Light");
}

TEST_F(EntryFieldTest, ChoosesNoItemForAStoredTextThatIsNone) {
  auto& color = Of("cboShellColorVT");
  ShowStored(color, "Mauve");
  EXPECT_EQ(color.box.text, "");
}

TEST_F(EntryFieldTest, ReadsAnEmptyNumberAsZeroAndRefusesWords) {
  auto& diameter = Of("txtDiameterVT");
  EXPECT_EQ(Number(diameter), 0);
  diameter.box.text = "1,234.5";
  EXPECT_EQ(Number(diameter), 1234.5);
  diameter.box.text = "wide";
  EXPECT_RUN_TIME_ERROR(Number(diameter), store::ErrorNumber::kTypeMismatch);
}

TEST_F(EntryFieldTest, ShowsNumbersWithTwoToSixDecimals) {
  auto& volume = Of("txtVolumeVT");
  ShowNumber(volume, 123456.7891234);
  EXPECT_EQ(volume.box.text, "123,456.789123");
}

TEST_F(EntryFieldTest, TakesANumberThatIsWrittenOtherwiseForUnchanged) {
  auto& throughput = Of("txtThroughputVT");
  throughput.committed = "1000";
  for (const auto* same : {"1000", "1,000.00", "1e3"}) {
    throughput.box.text = same;
    EXPECT_FALSE(IsChanged(throughput)) << same;
  }
  for (const auto* other : {"1000.000001", "0", "", "many"}) {
    throughput.box.text = other;
    EXPECT_TRUE(IsChanged(throughput)) << other;
  }
  auto& name = Of("txtUserID");
  name.committed = "1000";
  name.box.text = "1,000.00";
  EXPECT_TRUE(IsChanged(name));
}

TEST_F(EntryFieldTest, RefusesTextsThatARowCannotHold) {
  auto& description = Of("txtDesc");
  description.box.text = std::string(255, 'x');
  EXPECT_EQ(Refusal(description), "");
  description.box.text += "x";
  EXPECT_EQ(Refusal(description), "Please enter no more than 255 characters.");
  description.box.text = "two\nlines";
  EXPECT_EQ(Refusal(description), "Please enter a text without control characters.");
  auto& diameter = Of("txtDiameterVT");
  diameter.box.text = "1,5";
  EXPECT_EQ(Refusal(diameter), "Please enter a number.");
}

TEST_F(EntryFieldTest, CountsCharactersAndNotBytes) {
  auto& description = Of("txtDesc");
  std::string text;
  for (int i = 0; i < 255; ++i) text += "ü";
  description.box.text = text;
  EXPECT_EQ(Refusal(description), "");
}

TEST_F(EntryFieldTest, HidesEntriesThatTheTankTypeLacks) {
  EXPECT_TRUE(Of("txtBulkSingle").box.visible);
  EXPECT_FALSE(Of("txtLDensSingle").box.visible);
  auto floating = MakeFrmTank(shell::kInternalFloatingRoof);
  EXPECT_FALSE(At(floating, "txtBulkSingle").box.visible);
  EXPECT_TRUE(At(floating, "txtLDensSingle").box.visible);
}

TEST(FrmTank, ShowsTheExternalSectionToDomedTanks) {
  EXPECT_EQ(PhysicalSection(MakeFrmTank(shell::kDomedExternalFloatingRoof)), Section::kExternal);
  EXPECT_EQ(PhysicalSection(MakeFrmTank(shell::kExternalFloatingRoof)), Section::kExternal);
  EXPECT_EQ(PhysicalSection(MakeFrmTank(shell::kInternalFloatingRoof)), Section::kInternal);
  EXPECT_EQ(PhysicalSection(MakeFrmTank(shell::kHorizontal)), Section::kHorizontal);
  EXPECT_EQ(PhysicalSection(MakeFrmTank(shell::kVerticalFixedRoof)), Section::kVertical);
}

TEST(FrmTank, FindsTheLiquidEntriesOfTheFormShown) {
  auto form = MakeFrmTank(shell::kVerticalFixedRoof);
  EXPECT_EQ(FindLiquid(form, "VP"), nullptr);
  EXPECT_EQ(FindLiquid(form, "C_CATEGORY"), &At(form, "cboChemCat"));
  form.form = Section::kPartial;
  EXPECT_EQ(FindLiquid(form, "VP"), &At(form, "txtVPPartial"));
  EXPECT_TRUE(IsShown(form, Section::kPartial));
  EXPECT_FALSE(IsShown(form, Section::kFull));
}

}  // namespace
}  // namespace orvex::entry
