#include "shell/list_picking.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "shell/trap.h"

namespace orvex::shell {

void AddSelected(const ListBox& from, ListBox& to) {
  std::unordered_set<std::string> texts(to.items.begin(), to.items.end());
  for (const std::size_t row : from.selected) {
    const auto& text = from.items.at(row);
    if (texts.insert(text).second) to.items.push_back(text);
  }
}

void RemoveSelected(ListBox& list) {
  std::vector<std::string> kept;
  auto removed = list.selected.begin();
  for (std::size_t row = 0; row < list.items.size(); ++row) {
    if (removed != list.selected.end() && *removed == row) {
      ++removed;
    } else {
      kept.push_back(std::move(list.items[row]));
    }
  }
  list.items = std::move(kept);
  list.selected.clear();
}

void RemoveAll(ListBox& list) {
  list.items.clear();
  list.selected.clear();
}

void ShowFields(store::RecordSet& row, std::initializer_list<ShownField> shown) {
  for (const auto& entry : shown) {
    entry.box.text.clear();
    Statement([&] { entry.box.text = row.TextOrEmpty(entry.field); });
  }
}

}  // namespace orvex::shell
