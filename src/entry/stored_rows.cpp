#include "entry/stored_rows.h"

#include <fmt/format.h>

#include <limits>

namespace orvex::entry {
namespace {

Rows AllRows(store::Database& client, const std::string& sql) {
  return client.OpenQuery(sql).GetRows(std::numeric_limits<std::int64_t>::max());
}

/// Fills the record being edited from the field at `first` on.
void SetFields(store::RecordSet& set, const std::vector<store::Value>& row, int first) {
  for (int i = first; i < set.FieldCount(); ++i) set.Set(set.FieldName(i), row.at(static_cast<std::size_t>(i)));
}

}  // namespace

RecordCopy ReadRows(store::Database& client, std::int32_t ID) {
  return {.ID = ID,
          .TankCopy = AllRows(client, fmt::format("SELECT DISTINCTROW tank.* FROM tank WHERE ((tank.ID={}));", ID)),
          .MixtureCopy = AllRows(client, fmt::format("SELECT DISTINCTROW mixtures.* FROM mixtures WHERE "
                                                     "((mixtures.ID={})) ORDER BY mixtures.[MIX ID];",
                                                     ID)),
          .FittingCopy = AllRows(client, fmt::format("SELECT DISTINCTROW fittings.* FROM fittings WHERE "
                                                     "((fittings.ID={})) ORDER BY fittings.[FIT ID];",
                                                     ID)),
          .ComponentCopy = AllRows(client, fmt::format("SELECT DISTINCTROW components.* FROM components WHERE "
                                                       "((components.ID={})) ORDER BY components.[MIX ID], "
                                                       "components.[COMP ID];",
                                                       ID))};
}

void OverwriteTank(store::Database& client, std::int32_t ID, const Rows& tank_copy, int first) {
  auto tank = client.OpenAt("tank", "ID", {ID});
  tank.Edit();
  SetFields(tank, tank_copy.at(0), first);
  tank.Update();
}

void ReplaceRows(store::Database& client, std::string_view table, std::string_view index, std::int32_t ID,
                 const Rows& rows) {
  client.DeleteMatching(table, index, {ID});
  auto set = client.OpenTable(table);
  for (const auto& row : rows) {
    set.AddNew();
    set.Set(set.FieldName(0), ID);
    SetFields(set, row, 1);
    set.Update();
  }
}

}  // namespace orvex::entry
