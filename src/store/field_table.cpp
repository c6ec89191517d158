#include "store/field_table.h"

#include <fmt/core.h>

#include <algorithm>

#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::store {
const TableInfo& FindTable(std::string_view name) {
  for (const auto tables : {ClientTables(), ReferenceTables()}) {
    const auto found =
        std::ranges::find_if(tables, [&](const TableInfo& table) { return EqualNoCase(table.name, name); });
    if (found != tables.end()) return *found;
  }
  throw RunTimeError(ErrorNumber::kObjectNotFound, fmt::format("There is no table '{}'.", name));
}

const FieldInfo& FindField(const TableInfo& table, std::string_view name) {
  const auto found =
      std::ranges::find_if(table.fields, [&](const FieldInfo& field) { return EqualNoCase(field.name, name); });
  if (found != table.fields.end()) return *found;
  throw RunTimeError(ErrorNumber::kItemNotFound, fmt::format("The table '{}' has no field '{}'.", table.name, name));
}

}  // namespace orvex::store
