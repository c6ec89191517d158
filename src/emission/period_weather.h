#pragma once

#include <cstdint>
#include <string>

#include "store/record_set.h"

namespace orvex::emission {

/// The weather and the throughput of one period.
struct PeriodData {
  double ambient_f = 0;      ///< TAA: mean ambient temperature {F}
  double insolation = 0;     ///< I {Btu/(ft2 day)}
  double ambient_min_f = 0;  ///< TAN: mean daily minimum {F}
  double ambient_max_f = 0;  ///< TAX: mean daily maximum {F}
  double wind_mph = 0;       ///< V: mean wind speed; 0 where it was not asked for
  double days = 0;
  double throughput_gal = 0;  ///< Q
};

enum class Wind : std::uint8_t { kWithout, kWith };

/// The data of a period ("January" ... "December", "Annual") for a mixture. A year in which the mixture is stored only
/// in some months has the plain means of those months. The throughput of a year is the tank's, that of a month the
/// mixture's. A null in what is read is error 94.
PeriodData ReadPeriod(store::RecordSet& weather, store::RecordSet& mixture, const std::string& Month,
                      double annual_throughput_gal, Wind wind);

}  // namespace orvex::emission
