#include <fmt/format.h>

#include <initializer_list>
#include <string>
#include <unordered_set>

#include "exchange/inventory.h"
#include "shell/tank_types.h"
#include "store/letter_case.h"

namespace orvex::exchange {
namespace {

using std::size_t;
using Fields = std::initializer_list<std::string_view>;

constexpr std::string_view kNotFound = "is not in the reference database";

/// The texts of some fields of a table, found without regard to case; a null counts as an empty one.
class KnownTexts {
 public:
  KnownTexts(store::Database& reference, std::string_view table, Fields fields) {
    for (auto rows = reference.OpenTable(table); !rows.AtEnd(); rows.MoveNext()) {
      std::string key;
      for (const auto field : fields) Append(key, rows.TextOrEmpty(field));
      keys_.insert(std::move(key));
    }
  }

  [[nodiscard]] bool Has(Fields texts) const {
    std::string key;
    for (const auto text : texts) Append(key, text);
    return keys_.contains(key);
  }

 private:
  /// No text of a file holds a NUL.
  static void Append(std::string& key, std::string_view text) {
    key += text;
    key += '\0';
  }

  std::unordered_set<std::string, store::NameHash, store::NameEqual> keys_;
};

void CheckTanks(const InventoryRows& tanks, store::Database& reference, Faults& faults) {
  const KnownTexts cities(reference, "met", {"CTYST"}), seals(reference, "rimseal", {"PRIM_SEAL", "SECND_SEAL"});
  const auto city = tanks.Place("MET CTYST"), type = tanks.Place("TANK_TYPE"), primary = tanks.Place("RIM_PRIM"),
             secondary = tanks.Place("RIM_SEC");
  for (size_t row = 0; row < tanks.Count(); ++row) {
    if (const auto name = tanks.Text(row, city); !name.empty() && !cities.Has({name}))
      faults.Add(tanks.File(), tanks.Line(row), "MET CTYST",
                 fmt::format("the city {} {}. It is written as there: City, State.", Shown(name), kNotFound));
    const auto first = tanks.Text(row, primary), second = tanks.Text(row, secondary);
    if (shell::IsFixedRoof(tanks.Text(row, type)) || first.empty() || second.empty() || seals.Has({first, second}))
      continue;
    faults.Add(tanks.File(), tanks.Line(row), "RIM_PRIM",
               fmt::format("the rim seal {} with {} {}.", Shown(first), Shown(second), kNotFound));
  }
}

void CheckChemical(const InventoryRows& rows, size_t row, std::string_view field, const KnownTexts& chemicals,
                   Faults& faults) {
  const auto name = rows.Text(row, rows.Place(field));
  if (!name.empty() && !chemicals.Has({name}))
    faults.Add(rows.File(), rows.Line(row), field, fmt::format("the chemical {} {}.", Shown(name), kNotFound));
}

/// Only a mixture of a single chemical has to be one that is known.
void CheckMixtures(const InventoryRows& mixtures, const KnownTexts& chemicals, Faults& faults) {
  const auto kind = mixtures.Place("COMPONENT");
  for (size_t row = 0; row < mixtures.Count(); ++row)
    if (mixtures.Text(row, kind) == shell::kSingle) CheckChemical(mixtures, row, "MIX NAME", chemicals, faults);
}

void CheckFittings(const InventoryRows& fittings, store::Database& reference, Faults& faults) {
  const KnownTexts known(reference, "fitting", {"FIT_TYPE", "COVR_TYPE"});
  const auto type = fittings.Place("FIT_TYPE"), status = fittings.Place("COVR_TYPE");
  for (size_t row = 0; row < fittings.Count(); ++row) {
    const auto name = fittings.Text(row, type), cover = fittings.Text(row, status);
    if (name.empty() || known.Has({name, cover})) continue;
    const auto with_cover = cover.empty() ? std::string("without a status") : fmt::format("with {}", Shown(cover));
    faults.Add(fittings.File(), fittings.Line(row), "FIT_TYPE",
               fmt::format("the fitting {} {} {}.", Shown(name), with_cover, kNotFound));
  }
}

}  // namespace

void CheckReferences(const Inventory& inventory, store::Database& reference, Faults& faults) {
  store::Transaction view(reference, store::Transaction::Purpose::kRead);
  CheckTanks(inventory.tanks, reference, faults);
  const KnownTexts chemicals(reference, "chemical", {"NAME"});
  CheckMixtures(inventory.mixtures, chemicals, faults);
  for (size_t row = 0; row < inventory.components.Count(); ++row)
    CheckChemical(inventory.components, row, "NAME", chemicals, faults);
  CheckFittings(inventory.fittings, reference, faults);
  view.Commit();
}

}  // namespace orvex::exchange
