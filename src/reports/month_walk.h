#pragma once

#include "shell/periods.h"
#include "store/record_set.h"

namespace orvex::reports {

/// Goes through the year along the primary rows of a tank that is shown by months, which are in the order of the
/// calendar: `on_month(i, present)` is called for each month from January (0) on, standing on its row where there is
/// one. Behind the last row it ends, so that later months are not called. Each month takes one row, so that a second
/// one for the same month (of another mixture) holds up the walk: no later month finds a row. Ends on the first row.
template <typename OnMonth>
void WalkMonths(store::RecordSet& rows, OnMonth on_month) {
  if (rows.AtEnd()) return;
  rows.MoveFirst();
  for (std::size_t i = 0; i < shell::kMonths.size() && !rows.AtEnd(); ++i) {
    const bool present = rows.TextOrEmpty("MONTH") == shell::kMonths[i].name;
    on_month(i, present);
    if (present) rows.MoveNext();
  }
  rows.MoveFirst();
}

}  // namespace orvex::reports
