#include "entry/tank_names.h"

namespace orvex::entry {

bool HasOtherTank(store::Database& client, std::string_view user_id, std::int32_t ID) {
  for (auto tanks = client.OpenMatching("tank", "USER ID", {user_id}); !tanks.AtEnd(); tanks.MoveNext())
    if (tanks.Long("ID") != ID) return true;
  return false;
}

}  // namespace orvex::entry
