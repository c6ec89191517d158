#include <algorithm>
#include <string>
#include <unordered_set>

#include "exchange/inventory.h"
#include "exchange/inventory_csv.h"

namespace orvex::exchange {
namespace {

using std::int32_t;
using std::size_t;

/// Tells now and then how far the writing is.
class ProgressReport {
 public:
  ProgressReport(const InventoryProgress& progress, size_t total)
      : progress_(progress), total_(static_cast<std::int64_t>(total)) {}

  void Step() {
    constexpr std::int64_t kOften = 100;
    if (++done_ % kOften == 0 && progress_) progress_(done_, total_);
  }

 private:
  const InventoryProgress& progress_;
  std::int64_t done_ = 0, total_;
};

/// Numbers under which the database has rows of any kind, of tanks that are there and that are gone.
std::unordered_set<int32_t> NumbersInUse(store::Database& client) {
  std::unordered_set<int32_t> numbers;
  for (const auto* table : {"tank", "mixtures", "components", "fittings", "emission"}) {
    auto rows = client.OpenQuery(std::string("SELECT ID FROM ") + table + " GROUP BY ID");
    for (; !rows.AtEnd(); rows.MoveNext()) numbers.insert(rows.Get(0).LongOrZero());
  }
  return numbers;
}

/// Adds a row; its field `ID` is set to the number, or by the store where that is null.
void AddRow(store::RecordSet& table, const InventoryRows& rows, size_t row, const store::Value& number) {
  const auto& columns = rows.Columns();
  table.AddNew();
  for (size_t i = rows.File().names_its_tank ? 1 : 0; i < columns.size(); ++i) {
    if (columns[i].name != "ID") table.Set(columns[i].name, rows.At(row, i));
  }
  table.Set("ID", number);
  table.Update();
}

/// Adds the tanks; the number that each has got. One keeps its own where that is free. Those come first, so that the
/// store gives none of their numbers to the others.
std::vector<int32_t> AddTanks(store::Database& client, const InventoryRows& tanks, ProgressReport& progress) {
  const auto in_use = NumbersInUse(client);
  const auto place = tanks.Place("ID");
  const auto keeps = [&](size_t row) {
    const auto& number = tanks.At(row, place);
    return !number.IsNull() && !in_use.contains(number.AsLong());
  };
  std::vector<int32_t> numbers(tanks.Count());
  auto table = client.OpenTable("tank");
  for (const bool keeping : {true, false}) {
    for (size_t row = 0; row < tanks.Count(); ++row) {
      if (keeps(row) != keeping) continue;
      AddRow(table, tanks, row, keeping ? tanks.At(row, place) : store::Value());
      table.Move(table.LastModified());
      numbers[row] = table.Long("ID");
      progress.Step();
    }
  }
  return numbers;
}

void AddRowsOf(store::Database& client, const InventoryRows& rows, const std::vector<size_t>& tanks,
               const std::vector<int32_t>& numbers, ProgressReport& progress) {
  auto table = client.OpenTable(rows.File().table);
  for (size_t row = 0; row < rows.Count(); ++row) {
    AddRow(table, rows, row, numbers[tanks[row]]);
    progress.Step();
  }
}

std::int64_t CountOf(const InventoryRows& rows) { return static_cast<std::int64_t>(rows.Count()); }

}  // namespace

InventoryCounts ImportInventory(store::Database& client, store::Database& reference,
                                const std::filesystem::path& folder, const InventoryProgress& progress) {
  Faults faults;
  Inventory inventory(folder, faults);
  const auto& [tanks, mixtures, components, fittings, of_mixture, of_component, of_fitting, without_mixture] =
      inventory;
  if (tanks.KeysRead() && mixtures.KeysRead() && components.KeysRead() && fittings.KeysRead())
    TieRows(inventory, faults);
  CheckReferences(inventory, reference, faults);
  store::Transaction transaction(client);
  CheckIdentifications(inventory, client, faults);
  faults.ThrowIfAny();

  ProgressReport report(progress, tanks.Count() + mixtures.Count() + components.Count() + fittings.Count());
  const auto numbers = AddTanks(client, tanks, report);
  AddRowsOf(client, mixtures, of_mixture, numbers, report);
  AddRowsOf(client, components, of_component, numbers, report);
  AddRowsOf(client, fittings, of_fitting, numbers, report);
  transaction.Commit();
  return {.tanks = CountOf(tanks),
          .mixtures = CountOf(mixtures),
          .components = CountOf(components),
          .fittings = CountOf(fittings),
          .without_mixture = without_mixture};
}

}  // namespace orvex::exchange
