#pragma once

#include <string>

#include "refdata/record_editor.h"

/// What the editor of cities shows of a city's weather.
namespace orvex::refdata {

/// Temperatures, insolation and wind over the months as an SVG text, the annual values as dashed lines. Months whose
/// minimum temperature is above their maximum are shaded. What is not given is left out.
std::string WeatherPlot(const RecordEditor& form);

/// What is to be seen there, in words.
std::string WeatherSummary(const RecordEditor& form);

}  // namespace orvex::refdata
