#include <fmt/format.h>

#include <cstdint>
#include <memory>
#include <string>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "exchange/inventory_csv.h"
#include "exchange/inventory_files.h"
#include "store/csv_cell.h"
#include "store/file_replacement.h"
#include "store/run_time_error.h"

namespace orvex::exchange {
namespace {

namespace fs = std::filesystem;
using std::int32_t;

/// What the tanks are called.
class Owners {
 public:
  explicit Owners(store::Database& client) {
    auto tanks = client.OpenQuery("SELECT ID, [USER ID] FROM tank");
    for (; !tanks.AtEnd(); tanks.MoveNext()) user_ids_.emplace(tanks.Long("ID"), tanks.Get("USER ID"));
  }

  /// Of the tank that a row belongs to; null if there is none.
  [[nodiscard]] const store::Value* UserId(store::RecordSet& row) const {
    const auto found = user_ids_.find(row.LongOrZero("ID"));
    return found == user_ids_.end() ? nullptr : &found->second;
  }

 private:
  std::unordered_map<int32_t, store::Value> user_ids_;
};

/// A Boolean as a person reads it, everything else as it is stored.
store::CsvCell CellOf(const store::FieldInfo& field, const store::Value& value) {
  if (field.type != store::FieldType::kBoolean || value.IsNull()) return store::ToCell(value);
  return value.AsBool() ? "Yes" : "No";
}

struct WrittenRows {
  std::int64_t written = 0, left_out = 0;
};

WrittenRows WriteRows(store::FileReplacement& out, const InventoryFile& file, const Owners& owners,
                      store::Database& client) {
  const auto columns = ColumnsOf(file);
  std::vector<store::CsvCell> cells;
  for (const auto& column : columns) cells.emplace_back(column.name);
  out.Write(store::CsvLine(cells));
  WrittenRows count;
  for (auto rows = client.OpenTable(file.table); !rows.AtEnd(); rows.MoveNext()) {
    const auto* const user_id = owners.UserId(rows);
    if (user_id == nullptr) {
      ++count.left_out;
      continue;
    }
    for (std::size_t i = 0; i < columns.size(); ++i)
      cells[i] =
          i == 0 && file.names_its_tank ? store::ToCell(*user_id) : CellOf(columns[i], rows.Get(columns[i].name));
    out.Write(store::CsvLine(cells));
    ++count.written;
  }
  return count;
}

void MakeFolder(const fs::path& folder) {
  std::error_code error, not_there;
  fs::create_directories(folder, error);
  if (!fs::is_directory(folder, not_there))
    throw store::RunTimeError(store::ErrorNumber::kInvalidPath,
                              fmt::format("The folder '{}' cannot be made: {}.", folder.string(),
                                          error ? error.message() : "a file has this name"));
}

}  // namespace

InventoryCounts ExportInventory(store::Database& client, const fs::path& folder) {
  MakeFolder(folder);
  store::Transaction view(client, store::Transaction::Purpose::kRead);
  const Owners owners(client);
  InventoryCounts counts;
  std::vector<std::unique_ptr<store::FileReplacement>> files;
  const auto write = [&](const InventoryFile& file) {
    files.push_back(std::make_unique<store::FileReplacement>(folder / file.name));
    const auto rows = WriteRows(*files.back(), file, owners, client);
    counts.left_out += rows.left_out;
    return rows.written;
  };
  counts.tanks = write(kTanksFile);
  counts.mixtures = write(kMixturesFile);
  counts.components = write(kComponentsFile);
  counts.fittings = write(kFittingsFile);
  view.Commit();
  for (const auto& file : files) file->Complete();
  for (const auto& file : files) file->Commit();
  return counts;
}

}  // namespace orvex::exchange
