#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <string_view>

#include "entry/tank_choice.h"

namespace orvex::windows {

/// A reading of a tank, with its caption.
struct DetailRow {
  QLabel* caption;
  QLineEdit* reading;
};

/// Who the picked tank is, in two columns.
inline QGridLayout* PlaceDetails(
    entry::TankDetails& details,
    const std::function<DetailRow(std::string_view name, shell::TextBox& record)>& make_row) {
  struct Place {
    const char* name;
    shell::TextBox entry::TankDetails::*record;
  };
  static constexpr Place kPlaces[] = {
      {"txtUserID", &entry::TankDetails::txtUserID},   {"txtTankType", &entry::TankDetails::txtTankType},
      {"txtCity", &entry::TankDetails::txtCity},       {"txtState", &entry::TankDetails::txtState},
      {"txtCompany", &entry::TankDetails::txtCompany}, {"txtID", &entry::TankDetails::txtID},
  };
  auto* grid = new QGridLayout;
  int at = 0;
  for (const auto& [name, record] : kPlaces) {
    const auto [caption, reading] = make_row(name, details.*record);
    grid->addWidget(caption, at / 2, at % 2 * 2);
    grid->addWidget(reading, at / 2, at % 2 * 2 + 1);
    ++at;
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  return grid;
}

}  // namespace orvex::windows
