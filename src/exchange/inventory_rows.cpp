#include "exchange/inventory_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <string>
#include <system_error>

#include "exchange/inventory_cell.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::exchange {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using store::RunTimeError;

/// The fittings of 100,000 floating roofs take a third of this.
constexpr std::uintmax_t kMostBytes = 256 << 20;

constexpr std::array<std::string_view, 3> kKeys = {"USER ID", "ID", "MIX ID"};

bool IsKey(std::string_view field) { return std::ranges::find(kKeys, field) != kKeys.end(); }

store::CsvTable ReadTable(const fs::path& path) {
  std::error_code error;
  if (fs::exists(path, error) && !fs::is_regular_file(path, error))
    throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("'{}' is not a file that can be read.", path.string()));
  if (const auto size = fs::file_size(path, error); !error && size > kMostBytes)
    throw RunTimeError(ErrorNumber::kDiskFailure,
                       fmt::format("The file '{}' has more than {} MB: it is too large to be an inventory.",
                                   path.string(), kMostBytes >> 20));
  return store::CsvTable::Read(path);
}

/// A blank and an underscore, which are easily confused, count as one.
char Compared(char c) { return c == '_' ? ' ' : store::Folded(c); }

/// How far a name is from what was written: by the letters that must be put in, left out or replaced. People write
/// parts of a name ("NAME" for "MIX NAME"), so those that are missing weigh least.
std::size_t Distance(std::string_view written, std::string_view name) {
  constexpr std::size_t kMissing = 1, kTooMuch = 2, kWrong = 2;
  std::vector<std::size_t> costs(name.size() + 1);
  std::iota(costs.begin(), costs.end(), std::size_t{0});
  for (const char letter : written) {
    std::size_t diagonal = costs[0];
    costs[0] += kTooMuch;
    for (std::size_t j = 0; j < name.size(); ++j) {
      const std::size_t replaced = diagonal + (Compared(letter) == Compared(name[j]) ? 0 : kWrong);
      diagonal = costs[j + 1];
      costs[j + 1] = std::min({replaced, costs[j] + kMissing, diagonal + kTooMuch});
    }
  }
  return costs.back();
}

std::string_view Nearest(const std::vector<store::FieldInfo>& columns, std::string_view name) {
  // The longest name of a field has 16 letters.
  const auto head = name.substr(0, 40);
  return std::ranges::min_element(columns, {},
                                  [&](const store::FieldInfo& field) { return Distance(head, field.name); })
      ->name;
}

store::Value AsInNewRecord(const store::FieldInfo& field) {
  if (field.type == store::FieldType::kBoolean) return false;
  return {};
}

}  // namespace

InventoryRows::InventoryRows(const InventoryFile& file, const fs::path& folder, Faults& faults)
    : file_(&file), columns_(ColumnsOf(file)) {
  try {
    const auto table = ReadTable(folder / file.name);
    CheckHeader(table, faults);
    ReadRows(table, faults);
  } catch (const RunTimeError& error) {
    if (error.Number() != ErrorNumber::kDataConversion) throw;
    faults.AddUnread(file, error.Description());
    keys_read_ = false;
  }
}

std::size_t InventoryRows::Place(std::string_view field) const {
  return static_cast<std::size_t>(std::ranges::find(columns_, field, &store::FieldInfo::name) - columns_.begin());
}

std::string_view InventoryRows::Text(std::size_t row, std::size_t place) const {
  const auto& value = At(row, place);
  return value.IsNull() ? std::string_view() : std::string_view(value.RawText());
}

void InventoryRows::CheckHeader(const store::CsvTable& table, Faults& faults) {
  for (const auto& column : table.Columns()) {
    if (std::ranges::any_of(columns_, [&](const auto& field) { return store::EqualNoCase(field.name, column); }))
      continue;
    faults.Add(*file_, 1, "",
               fmt::format("there is no field {}. Did you mean '{}'?", Shown(column), Nearest(columns_, column)));
    keys_read_ = false;
  }
  const auto require = [&](std::string_view field) {
    if (table.FindColumn(field)) return;
    faults.Add(*file_, 1, "", fmt::format("the column '{}' is missing.", field));
    keys_read_ = false;
  };
  if (!file_->names_its_tank) {
    require("USER ID");
    require("TANK_TYPE");
  } else if (!table.FindColumn("ID")) {
    require("USER ID");
  }
}

void InventoryRows::ReadRows(const store::CsvTable& table, Faults& faults) {
  std::vector<std::optional<std::size_t>> places;
  for (const auto& field : columns_) places.push_back(table.FindColumn(field.name));
  const auto cell_of = [&](std::size_t row, std::size_t column) -> const store::CsvCell* {
    return places[column] ? &table.CellAt(row, *places[column]) : nullptr;
  };
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    bool filled = false;
    for (std::size_t i = 0; i < table.Columns().size() && !filled; ++i) filled = table.CellAt(row, i).has_value();
    if (!filled) continue;
    auto& read = rows_.emplace_back(Row{table.Line(row), {}});
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const auto* cell = cell_of(row, i);
      if (cell == nullptr || !*cell) {
        read.values.push_back(cell == nullptr ? AsInNewRecord(columns_[i]) : store::Value());
        continue;
      }
      auto result = ReadInventoryCell(*file_, columns_[i], **cell);
      if (!result.fault.empty()) {
        faults.Add(*file_, read.line, columns_[i].name, result.fault);
        keys_read_ = keys_read_ && !IsKey(columns_[i].name);
      }
      read.values.push_back(std::move(result.value));
    }
  }
}

}  // namespace orvex::exchange
