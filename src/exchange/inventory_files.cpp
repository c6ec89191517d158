#include "exchange/inventory_files.h"

#include "shell/choices.h"

namespace orvex::exchange {
namespace {

constexpr FieldChoices kTankChoices[] = {
    {"TANK_TYPE", shell::kTankTypes},
    {"SHL COLSHD", shell::kColors},
    {"SHL_COND", shell::kShellConditions},
    {"PT_COND", shell::kPaintConditions},
    {"RF_COLSHD", shell::kColors},
    {"RF_COND", shell::kPaintConditions},
    {"RF_TYPE", shell::kRoofTypes},
    {"FITTING", shell::kFittingCategories},
    {"DECK_TYPE", shell::kDeckTypes},
    {"DECK_CONSTRUCT", shell::kDeckConstructions},
    {"TANK_CONSTRUCT", shell::kConstructions},
};

constexpr FieldChoices kMixtureChoices[] = {
    {"C_CATEGORY", shell::kCategories},
    {"COMPONENT", shell::kComponentKinds},
    {"SPEC_OPT", shell::kSpeciations},
};

}  // namespace

constexpr InventoryFile kTanksFile = {"tanks.csv", "tank", kTankChoices, false};
constexpr InventoryFile kMixturesFile = {"mixtures.csv", "mixtures", kMixtureChoices, true};
constexpr InventoryFile kComponentsFile = {"components.csv", "components", {}, true};
constexpr InventoryFile kFittingsFile = {"fittings.csv", "fittings", {}, true};

std::span<const InventoryFile* const> InventoryFiles() {
  static constexpr const InventoryFile* kFiles[] = {&kTanksFile, &kMixturesFile, &kComponentsFile, &kFittingsFile};
  return kFiles;
}

std::vector<store::FieldInfo> ColumnsOf(const InventoryFile& file) {
  std::vector<store::FieldInfo> columns;
  if (file.names_its_tank) columns.push_back(store::FindField(store::FindTable("tank"), "USER ID"));
  const auto fields = store::FindTable(file.table).fields;
  columns.insert(columns.end(), fields.begin(), fields.end());
  return columns;
}

}  // namespace orvex::exchange
