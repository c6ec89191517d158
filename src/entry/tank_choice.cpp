#include "entry/tank_choice.h"

#include <fmt/format.h>

#include <optional>

#include "shell/list_picking.h"

namespace orvex::entry {

std::vector<std::string> NamesInOrder(store::Database& client) {
  std::vector<std::string> names;
  auto tanks = client.OpenQuery("SELECT [USER ID] FROM tank WHERE [USER ID] IS NOT NULL ORDER BY [USER ID], ID");
  for (; !tanks.AtEnd(); tanks.MoveNext()) names.push_back(tanks.Get(0).AsText());
  return names;
}

store::RecordSet FindTank(store::Database& client, const std::string& user_id, const Accept& accept) {
  auto tanks = client.OpenMatching("tank", "USER ID", {user_id});
  std::optional<store::Bookmark> found;
  for (bool exact = false; !exact && !tanks.AtEnd(); tanks.MoveNext()) {
    if (!accept(tanks)) continue;
    exact = tanks.Text("USER ID") == user_id;
    if (exact || !found) found = tanks.CurrentBookmark();
  }
  if (found) tanks.Move(*found);
  return tanks;
}

void ShowDetails(store::RecordSet tank, TankDetails& details) {
  shell::ShowFields(tank, {{"USER ID", details.txtUserID},
                           {"CITY", details.txtCity},
                           {"STATE", details.txtState},
                           {"COMPANY", details.txtCompany},
                           {"TANK_TYPE", details.txtTankType},
                           {"ID", details.txtID}});
}

store::RunTimeError TankIsGone(const std::string& user_id) {
  return {store::ErrorNumber::kRecordDeleted, fmt::format("The tank \"{}\" is not there any more.", user_id)};
}

}  // namespace orvex::entry
