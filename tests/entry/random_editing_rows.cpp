#include "entry/random_editing_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "shell/periods.h"
#include "store/field_table.h"
#include "store/letter_case.h"
#include "store/utf8.h"

namespace orvex::test {
namespace {

using store::FieldInfo;
using store::Value;
using Row = std::vector<Value>;

struct TankTable {
  std::string_view name, number;
  entry::Rows RecordCopy::*rows;
};
constexpr TankTable kTables[] = {
    {"tank", "", &RecordCopy::TankCopy},
    {"mixtures", "MIX ID", &RecordCopy::MixtureCopy},
    {"fittings", "FIT ID", &RecordCopy::FittingCopy},
    {"components", "COMP ID", &RecordCopy::ComponentCopy},
};

void RequireStorable(const Value& value, const FieldInfo& field, std::string_view table) {
  const auto where = fmt::format("{} of {}", field.name, table);
  if (value.GetKind() == Value::Kind::kReal) Require(std::isfinite(value.RawReal()), where + " is not finite");
  if (value.GetKind() != Value::Kind::kText) return;
  const auto& text = value.RawText();
  const auto width = static_cast<std::size_t>(field.width);
  Require(field.type == store::FieldType::kText, where + " holds a text: " + text);
  Require(width == 0 || store::CharacterCount(text) <= width, where + " is longer than the field: " + text);
  const auto is_control = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
  Require(std::ranges::none_of(text, is_control), where + " has control characters");
}

void RequireFields(const TankTable& table, const entry::Rows& rows) {
  const auto fields = store::FindTable(table.name).fields;
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) RequireStorable(row[i], fields[i], table.name);
}

/// In the order of their numbers, which they are read in.
void RequireRunningNumbers(const entry::Rows& rows, std::string_view table, std::string_view field) {
  std::int32_t number = 0;
  for (const auto& row : rows) {
    const auto stored = FieldOf(row, table, field).AsLong();
    Require(stored == number + 1, fmt::format("the {} of {} goes to {} after {}", field, table, stored, number));
    number = stored;
  }
}

/// Components of a deleted mixture keep its number, and may meet those of the one that took it: only no two rows have
/// the same one.
void RequireDifferentComponents(const entry::Rows& rows) {
  std::set<std::pair<std::int32_t, std::int32_t>> numbers;
  for (const auto& row : rows) {
    const auto added =
        numbers.emplace(FieldOf(row, "components", "MIX ID").AsLong(), FieldOf(row, "components", "COMP ID").AsLong());
    Require(added.second, "two components have the same number");
  }
}

void RequireOneMixtureAMonth(const entry::Rows& mixtures) {
  for (const auto& month : shell::kMonths) {
    const auto held = std::ranges::count_if(
        mixtures, [&](const Row& row) { return FieldOf(row, "mixtures", month.name).BoolOrFalse(); });
    Require(held <= 1, fmt::format("{} has {} mixtures", month.name, held));
  }
}

}  // namespace

const Value& FieldOf(const Row& row, std::string_view table, std::string_view field) {
  const auto fields = store::FindTable(table).fields;
  const auto found =
      std::ranges::find_if(fields, [&](const FieldInfo& info) { return store::EqualNoCase(info.name, field); });
  return row.at(static_cast<std::size_t>(found - fields.begin()));
}

AllRows ReadAllRows(store::Database& client) {
  AllRows all;
  for (const auto& table : kTables) {
    auto set = client.OpenTable(table.name);
    for (auto& row : set.GetRows(1'000'000)) {
      const auto ID = row.front().AsLong();
      all[ID].ID = ID;
      (all[ID].*table.rows).push_back(std::move(row));
    }
  }
  return all;
}

bool SameRows(const RecordCopy& a, const RecordCopy& b) {
  return std::ranges::all_of(kTables, [&](const TankTable& table) { return a.*table.rows == b.*table.rows; });
}

void RequireSound(const RecordCopy& rows) {
  for (const auto& table : kTables) RequireFields(table, rows.*table.rows);
  if (rows.TankCopy.empty()) return;
  Require(!rows.MixtureCopy.empty(), "the tank has no mixture");
  RequireRunningNumbers(rows.MixtureCopy, "mixtures", "MIX ID");
  RequireRunningNumbers(rows.FittingCopy, "fittings", "FIT ID");
  RequireDifferentComponents(rows.ComponentCopy);
  RequireOneMixtureAMonth(rows.MixtureCopy);
}

void RequireNoOrphans(const AllRows& rows) {
  for (const auto& [ID, of_tank] : rows) Require(of_tank.TankCopy.size() == 1, fmt::format("orphans of tank {}", ID));
}

RecordCopy Undone(const RecordCopy& copy, const RecordCopy& before) {
  auto undone = copy;
  if (copy.FittingCopy.empty()) undone.FittingCopy = before.FittingCopy;
  if (copy.ComponentCopy.empty()) undone.ComponentCopy = before.ComponentCopy;
  return undone;
}

}  // namespace orvex::test
