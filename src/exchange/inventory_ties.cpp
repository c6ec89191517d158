#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "exchange/inventory.h"
#include "shell/tank_names.h"
#include "store/letter_case.h"

namespace orvex::exchange {
namespace {

using std::int32_t;
using std::size_t;

using LinesByName = std::unordered_map<std::string, size_t, store::NameHash, store::NameEqual>;

/// What the rows of `tanks` are called in the other files.
struct TankKeys {
  LinesByName by_user_id;
  std::unordered_map<int32_t, size_t> by_number;
};

TankKeys ReadTankKeys(const InventoryRows& tanks, Faults& faults) {
  TankKeys keys;
  const auto user_id = tanks.Place("USER ID"), number = tanks.Place("ID"), type = tanks.Place("TANK_TYPE");
  const auto add = [&](size_t row, std::string_view column, const std::string& reason) {
    faults.Add(tanks.File(), tanks.Line(row), column, reason);
  };
  for (size_t row = 0; row < tanks.Count(); ++row) {
    const auto name = tanks.Text(row, user_id);
    if (name.empty()) {
      add(row, "USER ID", "a tank needs its identification.");
    } else if (const auto [known, is_new] = keys.by_user_id.emplace(name, row); !is_new) {
      add(row, "USER ID", fmt::format("{} is the tank of line {}, too.", Shown(name), tanks.Line(known->second)));
    }
    if (const auto& value = tanks.At(row, number); !value.IsNull()) {
      const auto [known, is_new] = keys.by_number.emplace(value.AsLong(), row);
      if (!is_new)
        add(row, "ID", fmt::format("{} is the tank of line {}, too.", value.AsLong(), tanks.Line(known->second)));
    }
    if (tanks.Text(row, type).empty()) add(row, "TANK_TYPE", "a tank needs its type.");
  }
  return keys;
}

/// The rows of a file that belong to tanks.
class TiedRows {
 public:
  TiedRows(InventoryRows& rows, const InventoryRows& tanks, const TankKeys& keys, Faults& faults)
      : rows_(rows), tanks_(tanks), keys_(keys), faults_(faults) {
    for (size_t row = 0; row < rows.Count(); ++row) tanks_of_.push_back(TankOf(row));
  }

  [[nodiscard]] size_t Count() const { return rows_.Count(); }
  [[nodiscard]] const std::optional<size_t>& Tank(size_t row) const { return tanks_of_[row]; }
  [[nodiscard]] std::string TankName(size_t row) const {
    return Shown(tanks_.Text(*tanks_of_[row], tanks_.Place("USER ID")));
  }

  void Add(size_t row, std::string_view column, const std::string& reason) const {
    faults_.Add(rows_.File(), rows_.Line(row), column, reason);
  }

  /// Numbers the rows within what they belong to: a key for each row, nothing for a row at fault.
  void Number(std::string_view field, const std::vector<std::optional<std::uint64_t>>& owners) {
    const auto place = rows_.Place(field);
    std::map<std::pair<std::uint64_t, int32_t>, size_t> taken;
    std::unordered_map<std::uint64_t, int32_t> highest;
    for (size_t row = 0; row < Count(); ++row) {
      const auto& value = rows_.At(row, place);
      if (!owners[row] || value.IsNull()) continue;
      const auto number = value.AsLong();
      const auto [known, is_new] = taken.emplace(std::pair(*owners[row], number), row);
      if (!is_new) Add(row, field, fmt::format("{} is the number of line {}, too.", number, rows_.Line(known->second)));
      highest[*owners[row]] = std::max(highest[*owners[row]], number);
    }
    for (size_t row = 0; row < Count(); ++row)
      if (owners[row] && rows_.At(row, place).IsNull()) rows_.Set(row, place, ++highest[*owners[row]]);
  }

  /// Of every row; rows without a tank have been told of.
  [[nodiscard]] std::vector<size_t> Tanks() const {
    std::vector<size_t> tanks;
    for (const auto& tank : tanks_of_) tanks.push_back(tank.value_or(0));
    return tanks;
  }

 private:
  [[nodiscard]] std::optional<size_t> TankOf(size_t row) const {
    const auto name = rows_.Text(row, rows_.Place("USER ID"));
    const auto& number = rows_.At(row, rows_.Place("ID"));
    if (name.empty() && number.IsNull()) {
      Add(row, "USER ID", "the row names no tank.");
      return std::nullopt;
    }
    const auto numbered = number.IsNull() ? keys_.by_number.end() : keys_.by_number.find(number.AsLong());
    if (name.empty()) {
      if (numbered != keys_.by_number.end()) return numbered->second;
      Add(row, "ID", fmt::format("no tank of {} has the number {}.", tanks_.File().name, number.AsLong()));
      return std::nullopt;
    }
    const auto named = keys_.by_user_id.find(name);
    if (named == keys_.by_user_id.end()) {
      Add(row, "USER ID", fmt::format("there is no tank {} in {}.", Shown(name), tanks_.File().name));
      return std::nullopt;
    }
    if (!number.IsNull() && (numbered == keys_.by_number.end() || numbered->second != named->second)) {
      Add(row, "ID",
          fmt::format("{} is not the number of the tank {}. Mend it or leave it empty.", number.AsLong(), Shown(name)));
      return std::nullopt;
    }
    return named->second;
  }

  InventoryRows& rows_;
  const InventoryRows& tanks_;
  const TankKeys& keys_;
  Faults& faults_;
  std::vector<std::optional<size_t>> tanks_of_;
};

std::vector<std::optional<std::uint64_t>> TanksAsOwners(const TiedRows& rows) {
  std::vector<std::optional<std::uint64_t>> owners;
  for (size_t row = 0; row < rows.Count(); ++row) owners.emplace_back(rows.Tank(row));
  return owners;
}

std::uint64_t MixtureKey(size_t tank, int32_t number) {
  return static_cast<std::uint64_t>(tank) << 32U | static_cast<std::uint32_t>(number);
}

/// The numbers of each tank's mixtures.
using MixtureNumbers = std::vector<std::vector<int32_t>>;

void CheckMixturesOfTanks(const InventoryRows& tanks, const MixtureNumbers& numbers, Faults& faults) {
  for (size_t row = 0; row < tanks.Count(); ++row) {
    if (numbers[row].empty())
      faults.Add(tanks.File(), tanks.Line(row), "", fmt::format("the tank has no mixture in {}.", kMixturesFile.name));
  }
}

/// Whether a component has all the numbers of a stored row. By hand nobody needs to write them, so that one without is
/// rather mistaken about its mixture than left over from one that was deleted.
bool IsAsStored(const InventoryRows& rows, size_t row) {
  return !rows.At(row, rows.Place("ID")).IsNull() && !rows.At(row, rows.Place("COMP ID")).IsNull();
}

/// The mixture that a component names, or the only one of its tank.
std::optional<int32_t> MixtureOf(const TiedRows& components, size_t row, const store::Value& named,
                                 const std::vector<int32_t>& numbers) {
  if (named.IsNull()) {
    if (numbers.size() == 1) return numbers.front();
    // A tank without any has been told of.
    if (numbers.size() > 1)
      components.Add(
          row, "MIX ID",
          fmt::format("the tank {} has {} mixtures: tell which one.", components.TankName(row), numbers.size()));
    return std::nullopt;
  }
  if (std::ranges::find(numbers, named.AsLong()) != numbers.end()) return named.AsLong();
  components.Add(row, "MIX ID",
                 fmt::format("the tank {} has no mixture {} in {}.", components.TankName(row), named.AsLong(),
                             kMixturesFile.name));
  return std::nullopt;
}

/// The number of components whose mixture is gone.
std::int64_t TieComponents(InventoryRows& rows, TiedRows& components, const MixtureNumbers& numbers) {
  const auto place = rows.Place("MIX ID");
  std::int64_t without_mixture = 0;
  std::vector<std::optional<std::uint64_t>> owners(components.Count());
  for (size_t row = 0; row < components.Count(); ++row) {
    const auto tank = components.Tank(row);
    if (!tank) continue;
    const auto& named = rows.At(row, place);
    const bool left_over =
        !named.IsNull() && IsAsStored(rows, row) && std::ranges::count(numbers[*tank], named.AsLong()) == 0;
    const auto number = left_over ? std::optional(named.AsLong()) : MixtureOf(components, row, named, numbers[*tank]);
    if (!number) continue;
    if (left_over) ++without_mixture;
    rows.Set(row, place, *number);
    owners[row] = MixtureKey(*tank, *number);
  }
  components.Number("COMP ID", owners);
  return without_mixture;
}

}  // namespace

Inventory::Inventory(const std::filesystem::path& folder, Faults& faults)
    : tanks(kTanksFile, folder, faults),
      mixtures(kMixturesFile, folder, faults),
      components(kComponentsFile, folder, faults),
      fittings(kFittingsFile, folder, faults) {}

void TieRows(Inventory& inventory, Faults& faults) {
  auto& [tanks, mixtures, components, fittings, of_mixture, of_component, of_fitting, without_mixture] = inventory;
  const auto keys = ReadTankKeys(tanks, faults);

  TiedRows tied_mixtures(mixtures, tanks, keys, faults);
  tied_mixtures.Number("MIX ID", TanksAsOwners(tied_mixtures));
  MixtureNumbers numbers(tanks.Count());
  for (size_t row = 0; row < mixtures.Count(); ++row)
    if (const auto tank = tied_mixtures.Tank(row))
      numbers[*tank].push_back(mixtures.At(row, mixtures.Place("MIX ID")).AsLong());
  CheckMixturesOfTanks(tanks, numbers, faults);

  TiedRows tied_components(components, tanks, keys, faults);
  without_mixture = TieComponents(components, tied_components, numbers);

  TiedRows tied_fittings(fittings, tanks, keys, faults);
  tied_fittings.Number("FIT ID", TanksAsOwners(tied_fittings));

  of_mixture = tied_mixtures.Tanks();
  of_component = tied_components.Tanks();
  of_fitting = tied_fittings.Tanks();
}

void CheckIdentifications(const Inventory& inventory, store::Database& client, Faults& faults) {
  LinesByName names;
  for (auto& name : shell::TankNames(client)) names.emplace(std::move(name), 0);
  const auto& tanks = inventory.tanks;
  const auto user_id = tanks.Place("USER ID");
  for (size_t row = 0; row < tanks.Count(); ++row) {
    const auto name = tanks.Text(row, user_id);
    if (!name.empty() && names.contains(name))
      faults.Add(tanks.File(), tanks.Line(row), "USER ID",
                 fmt::format("the client database holds a tank {} already.", Shown(name)));
  }
}

}  // namespace orvex::exchange
