#include "entry/tank_rows.h"

namespace orvex::entry {

void DeleteEditedRows(store::Database& client, std::int32_t ID) {
  store::Transaction transaction(client);
  for (const auto& [table, index] : kEditedTables) client.DeleteMatching(table, index, {ID});
  transaction.Commit();
}

}  // namespace orvex::entry
