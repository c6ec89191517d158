#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <cstddef>
#include <functional>

#include "reports/month_boxes.h"

namespace orvex::windows {

/// The twelve boxes in three columns, downwards.
inline void PlaceMonths(QGridLayout& grid, const std::function<QCheckBox*(std::size_t month)>& make_box) {
  constexpr std::size_t kRows = 4;
  for (std::size_t month = 0; month < reports::kMonthBoxTexts.size(); ++month)
    grid.addWidget(make_box(month), static_cast<int>(month % kRows), static_cast<int>(month / kRows));
}

}  // namespace orvex::windows
