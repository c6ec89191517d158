#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "measurement.h"

namespace orvex::bench {

/// What a person waits for in the editors of chemicals and cities.
enum class RefdataStep : std::uint8_t {
  kOpen,  ///< until the first record is shown
  kFind,  ///< an item picked from the list of names
  kSave,  ///< a changed record of the person's own, with the look for another one of its name and the lists made anew
  kAdd,   ///< Add New
};

enum class RefdataTable : std::uint8_t { kChemicals, kCities };

struct RefdataCase {
  std::string_view key;
  std::string_view description;
  RefdataTable table;
  RefdataStep step;
};

std::span<const RefdataCase> RefdataCases();

/// Times a step of an editor in a reference database with 5,000 rows of the person's own beside the delivered ones.
Measurement Measure(const RefdataCase& refdata_case, const Settings& settings);

}  // namespace orvex::bench
