#include "reports/month_boxes.h"

#include <algorithm>

namespace orvex::reports {

bool AnyTicked(const MonthBoxes& boxes) {
  return std::any_of(boxes.begin(), boxes.end(), [](const auto& box) { return box.checked; });
}

void TickAll(MonthBoxes& boxes) {
  for (auto& box : boxes) box.checked = true;
}

std::array<bool, shell::kMonths.size()> Ticks(const MonthBoxes& boxes) {
  std::array<bool, shell::kMonths.size()> ticks{};
  for (std::size_t i = 0; i < boxes.size(); ++i) ticks[i] = boxes[i].checked;
  return ticks;
}

}  // namespace orvex::reports
