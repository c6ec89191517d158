#include "entry/entry_lists.h"

#include <string>
#include <vector>

#include "entry/tank_entry_fixture.h"
#include "entry/update_tank.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using Texts = std::vector<std::string>;

const Texts kColorItems = {"White/White (D)", "Aluminum/Specular", "Aluminum/Diffuse",
                           "Gray/Light",      "Gray/Medium",       "Red/Primer"};
const Texts kColorsStored = {"White/White", "Aluminum/Specular", "Aluminum/Diffuse",
                             "Gray/Light",  "Gray/Medium",       "Red/Primer"};
const Texts kConditionItems = {"Good (D)", "Poor"}, kConditionsStored = {"Good", "Poor"};
const Texts kInsideItems = {"Light Rust (D)", "Dense Rust", "Gunite Lining"};
const Texts kInsidesStored = {"Light Rust", "Dense Rust", "Gunite Lining"};
const Texts kYesNoItems = {"Yes", "No"};
const Texts kFittingItems = {"Typical", "Detail"};

struct List {
  std::string_view tank_type;
  std::string control, field;
  Texts items, stored;
};

const List kLists[] = {
    {shell::kVerticalFixedRoof, "cboShellColorVT", "SHL COLSHD", kColorItems, kColorsStored},
    {shell::kVerticalFixedRoof, "cboRoofColorVT", "RF_COLSHD", kColorItems, kColorsStored},
    {shell::kVerticalFixedRoof, "cboShellCondVT", "PT_COND", kConditionItems, kConditionsStored},
    {shell::kVerticalFixedRoof, "cboRoofCondVT", "RF_COND", kConditionItems, kConditionsStored},
    {shell::kVerticalFixedRoof, "cboRoofTypeVT", "RF_TYPE", {"Cone", "Dome"}, {"Cone", "Dome"}},
    {shell::kVerticalFixedRoof, "cboHeatedVT", "HEATED", kYesNoItems, {"-1", "0"}},
    {shell::kHorizontal, "cboShellColorHT", "SHL COLSHD", kColorItems, kColorsStored},
    {shell::kHorizontal, "cboShellCondHT", "PT_COND", kConditionItems, kConditionsStored},
    {shell::kHorizontal, "cboHeatedHT", "HEATED", kYesNoItems, {"-1", "0"}},
    {shell::kHorizontal, "cboUndergroundHT", "UNDER", kYesNoItems, {"-1", "0"}},
    {shell::kInternalFloatingRoof, "cboShellColorIT", "SHL COLSHD", kColorItems, kColorsStored},
    {shell::kInternalFloatingRoof, "cboRoofColorIT", "RF_COLSHD", kColorItems, kColorsStored},
    {shell::kInternalFloatingRoof, "cboShellCondIT", "PT_COND", kConditionItems, kConditionsStored},
    {shell::kInternalFloatingRoof, "cboRoofCondIT", "RF_COND", kConditionItems, kConditionsStored},
    {shell::kInternalFloatingRoof, "cboInternalCondIT", "SHL_COND", kInsideItems, kInsidesStored},
    {shell::kInternalFloatingRoof, "cboFittingIT", "FITTING", kFittingItems, kFittingItems},
    {shell::kInternalFloatingRoof, "cboSelfSupIT", "SELF_SUP", kYesNoItems, {"-1", "0"}},
    {shell::kInternalFloatingRoof, "cboDeckTypeIT", "DECK_TYPE", {"Bolted", "Welded"}, {"Bolted", "Welded"}},
    {shell::kInternalFloatingRoof, "cboDeckConstructIT", "DECK_CONSTRUCT", {"Sheet", "Panel"}, {"Sheet", "Panel"}},
    {shell::kInternalFloatingRoof,
     "cboColumnDiamIT",
     "COL_DIAM",
     {"9\" by 7\" Built-Up Column", "8\" Diameter Pipe", "Unknown"},
     {"1.1", "0.7", "1"}},
    {shell::kExternalFloatingRoof, "cboShellColorET", "SHL COLSHD", kColorItems, kColorsStored},
    {shell::kExternalFloatingRoof, "cboShellCondET", "PT_COND", kConditionItems, kConditionsStored},
    {shell::kExternalFloatingRoof, "cboInternalCondET", "SHL_COND", kInsideItems, kInsidesStored},
    {shell::kExternalFloatingRoof, "cboFittingET", "FITTING", kFittingItems, kFittingItems},
    {shell::kExternalFloatingRoof, "cboRoofTypeET", "RF_TYPE", {"Pontoon", "Double Deck"}, {"Pontoon", "Double Deck"}},
    {shell::kDomedExternalFloatingRoof,
     "cboConstructET",
     "TANK_CONSTRUCT",
     {"Welded", "Riveted"},
     {"Welded", "Riveted"}},
};

class EntryListsTest : public test::TankEntryTest, public testing::WithParamInterface<List> {
 protected:
  std::string Stored() {
    return session_.ClientDb->OpenAt("tank", "ID", {Editor(session_).ID}).Get(GetParam().field).AsText();
  }
};

TEST_P(EntryListsTest, ShowTheirItemsAndStoreWhatEachStandsFor) {
  const auto& list = GetParam();
  auto& form = OpenTank(list.tank_type);
  EXPECT_EQ(At(form, list.control).box.items, list.items);
  for (std::size_t item = 0; item < list.items.size(); ++item) {
    Choose(list.control, list.items.at(item));
    UpdateTank(session_, form);
    EXPECT_EQ(Stored(), list.stored.at(item)) << list.items.at(item);
    const auto shown = Shown(list.control);
    ShowTank(session_, form);
    EXPECT_EQ(Shown(list.control), shown) << "when it is loaded";
  }
}

INSTANTIATE_TEST_SUITE_P(Lists, EntryListsTest, testing::ValuesIn(kLists),
                         [](const auto& list) { return list.param.control; });

}  // namespace
}  // namespace orvex::entry
