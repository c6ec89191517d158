#include "exchange/tank_checks.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>

#include "exchange/tank_mapping.h"
#include "shell/trap.h"

namespace orvex::exchange {
namespace {

/// What is logged; nothing where nothing is wrong.
using Fault = std::optional<std::string>;

struct CheckedTank {
  const store::DbaseTable& record;
  const TankName& name;
  const TankSurroundings& surroundings;
};

Fault IncompleteName(const CheckedTank& tank) {
  if (tank.name.complete) return std::nullopt;
  return "ID field must not be blank.";
}

Fault NameTaken(const CheckedTank& tank) {
  if (!tank.name.complete) return std::nullopt;
  tank.surroundings.tanks.Seek({tank.name.ID});
  if (tank.surroundings.tanks.NoMatch()) return std::nullopt;
  return "Duplicate tank (ID) in this client database.";
}

Fault UnknownCity(const CheckedTank& tank) {
  const auto city = tank.record.TextOrEmpty("CITY");
  const auto state = tank.record.TextOrEmpty("STATE");
  if (city.empty() || state.empty() || tank.surroundings.reference.FindCity(city, state)) return std::nullopt;
  return fmt::format(
      "{}, {}was not found in the current tank database.  You must enter information for this city before you can "
      "import this record.",
      city, state);
}

/// A file can hold either version's name of the type.
bool HasRimSeal(std::string_view type) {
  return std::ranges::any_of(kImportedTypes, [&](const ImportedType& imported) {
    return imported.has_rim_seal && (imported.source == type || imported.target == type);
  });
}

Fault UnknownRimSeal(const CheckedTank& tank) {
  if (!HasRimSeal(tank.record.TextOrEmpty("TANK_TYPE"))) return std::nullopt;
  const auto primary = tank.record.TextOrEmpty("RIM_PRIM");
  const auto secondary = tank.record.TextOrEmpty("RIM_SEC");
  if (primary.empty() || secondary.empty() || tank.surroundings.reference.FindRimSeal(primary, secondary))
    return std::nullopt;
  return fmt::format(
      "The rim seal {}/{} was not found in the current tank database.  You must enter information for this rim seal "
      "before you can import this record.",
      primary, secondary);
}

constexpr Fault (*kTankChecks[])(const CheckedTank&) = {IncompleteName, NameTaken, UnknownCity, UnknownRimSeal};

Fault UnknownChemicalName(std::string_view name, ReferenceLookups& reference) {
  if (reference.FindChemical(name)) return std::nullopt;
  return fmt::format(
      "The chemical '{}' was not found in the current tank database.  You must enter information for this chemical "
      "before you can import this record.",
      name);
}

Fault UnnamedMixture(const store::DbaseTable& mixture, ReferenceLookups& /*reference*/) {
  if (!mixture.IsNull("NAME")) return std::nullopt;
  return fmt::format("The mixture name for mixture {} must be filled in.", mixture.TextOrEmpty("MIX_ID"));
}

Fault UnknownSingleChemical(const store::DbaseTable& mixture, ReferenceLookups& reference) {
  if (mixture.TextOrEmpty("COMPONENT") != shell::kSingle) return std::nullopt;
  return UnknownChemicalName(mixture.TextOrEmpty("NAME"), reference);
}

Fault UnknownFitting(const store::DbaseTable& fitting, ReferenceLookups& reference) {
  const auto type = fitting.TextOrEmpty("FIT_TYPE");
  if (type.empty()) return "The fitting type cannot be blank.";
  if (reference.FindFitting(FittingType(type), fitting.Get("COVR_TYPE"))) return std::nullopt;
  return fmt::format(
      "The fitting '{}' was not found in the current tank database.  You must enter information for this fitting "
      "before you can import this record.",
      type);
}

Fault UnknownComponent(const store::DbaseTable& component, ReferenceLookups& reference) {
  const auto name = component.TextOrEmpty("NAME");
  if (name.empty()) return "The chemical name for components must not be blank.";
  return UnknownChemicalName(name, reference);
}

using RowCheck = Fault (*)(const store::DbaseTable& row, ReferenceLookups& reference);
constexpr RowCheck kMixtureChecks[] = {UnnamedMixture, UnknownSingleChemical};
constexpr RowCheck kFittingChecks[] = {UnknownFitting};
constexpr RowCheck kComponentChecks[] = {UnknownComponent};

/// The checks of what belongs to a tank.
struct FileChecks {
  KeyedTable TankSources::*file;
  std::span<const RowCheck> checks;
  std::string_view none;  ///< what is logged of a tank that has no such row; empty where it needs none
};
constexpr FileChecks kFileChecks[] = {
    {&TankSources::mixtures, kMixtureChecks, "The tank must have at least one mixture."},
    {&TankSources::fittings, kFittingChecks, ""},
    {&TankSources::components, kComponentChecks, ""},
};

}  // namespace

bool CheckTank(TankSources& sources, const TankName& name, const TankSurroundings& surroundings, ImportLog& log) {
  bool good = true;
  const auto tell = [&](std::string_view fault) {
    log.Add(name.IDX_ID, name.logged, fault);
    good = false;
  };
  const auto check = [&](auto find) {
    shell::Statement([&] {
      if (const Fault fault = find()) tell(*fault);
    });
  };
  const CheckedTank tank{sources.tanks, name, surroundings};
  for (const auto find : kTankChecks) check([&] { return find(tank); });
  for (const auto& file : kFileChecks) {
    const auto rows = (sources.*file.file).ForEach(name.IDX_ID, [&](const store::DbaseTable& row) {
      for (const auto find : file.checks) check([&] { return find(row, surroundings.reference); });
    });
    if (rows == 0 && !file.none.empty()) tell(file.none);
  }
  return good;
}

}  // namespace orvex::exchange
