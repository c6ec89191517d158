#pragma once

#include <string_view>

#include "emission/paint.h"
#include "shell/session.h"

/// The liquid of an unheated tank over a whole year: what the stored properties of mixtures are computed from.
namespace orvex::emission {

/// A city's year: temperatures of the air {deg F} and insolation {Btu/(ft2 day)}.
struct AnnualWeather {
  double ambient_f, ambient_max_f, ambient_min_f, insolation;
};

/// Liquid temperatures of a mixture over the year {R}.
struct LiquidTemperatures {
  double average, maximum, minimum, bulk;
};

/// Whether the paints that the sun's part in the temperatures needs are given: none underground, shell and roof of
/// vertical and internal floating roof tanks, otherwise the shell.
bool HasNeededPaint(std::string_view tank_type, bool underground, const Paint& paint);

/// The temperatures of the liquid; underground there is no sun, and no day that is warmer than another. The weather is
/// taken with six decimals. Source: KV-58 Section 7.1.
LiquidTemperatures AnnualTemperatures(shell::Session& session, const AnnualWeather& weather, const Paint& paint,
                                      bool underground);

}  // namespace orvex::emission
