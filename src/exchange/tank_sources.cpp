#include "exchange/tank_sources.h"

#include "exchange/tank_mapping.h"
#include "store/blanks.h"

namespace orvex::exchange {
namespace {

/// The fields of a file that are going to be read.
void Require(const store::DbaseTable& table, const std::filesystem::path& path, std::span<const FieldCopy> copied,
             std::span<const std::string_view> others) {
  RequireFields(table, path, others);
  for (const auto& field : copied) RequireFields(table, path, std::span(&field.source, 1));
}

constexpr std::string_view kKey = "IDX_ID";

}  // namespace

TankSources::TankSources(const TankPaths& paths, const std::function<void()>& tick)
    : tanks(paths.tanks),
      mixtures(paths.mixtures, kKey, tick),
      fittings(paths.fittings, kKey, tick),
      components(paths.components, kKey, tick) {
  Require(tanks, paths.tanks, kTankFields, kTankSources);
  Require(mixtures.Table(), paths.mixtures, kMixtureFields, kMixtureSources);
  Require(fittings.Table(), paths.fittings, kFittingFields, kFittingSources);
  Require(components.Table(), paths.components, kComponentFields, kComponentSources);
  for (auto* const table : {&mixtures, &fittings, &components}) table->Index();
}

TankName TankName::Read(const store::DbaseTable& tanks) {
  TankName name;
  name.IDX_ID = tanks.TextOrEmpty(kKey);
  name.ID = store::WithoutBlanks(tanks.TextOrEmpty("ID"));
  name.complete = !name.ID.empty() && !name.IDX_ID.empty();
  name.logged = name.complete ? name.ID : "No ID " + name.IDX_ID;
  return name;
}

}  // namespace orvex::exchange
