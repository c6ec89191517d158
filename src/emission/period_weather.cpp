#include "emission/period_weather.h"

#include <algorithm>
#include <vector>

#include "emission/arithmetic.h"
#include "emission/field_reading.h"
#include "shell/periods.h"

namespace orvex::emission {
namespace {

/// A column of the weather table: `prefix` with the suffix of a month, or of the year.
double ReadWeather(store::RecordSet& weather, std::string_view prefix, std::string_view suffix) {
  std::string field(prefix);
  field += suffix;
  return ReadNumber(weather, field);
}

PeriodData ReadMonth(store::RecordSet& weather, const shell::Month& month, Wind wind) {
  PeriodData data;
  data.ambient_min_f = ReadWeather(weather, "TAN_", month.suffix);
  data.ambient_max_f = ReadWeather(weather, "TAX_", month.suffix);
  data.ambient_f = (data.ambient_min_f + data.ambient_max_f) / 2;
  data.insolation = ReadWeather(weather, "INSOL_", month.suffix);
  if (wind == Wind::kWith) data.wind_mph = ReadWeather(weather, "WIND_", month.suffix);
  data.days = month.days;
  return data;
}

PeriodData ReadYear(store::RecordSet& weather, Wind wind) {
  PeriodData data;
  data.ambient_f = ReadNumber(weather, "A_TEMP_DAA");
  data.insolation = ReadNumber(weather, "INSOL_ANN");
  data.ambient_min_f = ReadNumber(weather, "TAN_ANN");
  data.ambient_max_f = ReadNumber(weather, "TAX_ANN");
  if (wind == Wind::kWith) data.wind_mph = ReadNumber(weather, "WIND_ANN");
  data.days = shell::kDaysPerYear;
  return data;
}

/// Plain means over months, not weighted by their days; the days are summed. Error 11 without a month.
PeriodData MeanOf(const std::vector<PeriodData>& months) {
  PeriodData mean;
  for (const auto& month : months) {
    mean.ambient_f += month.ambient_f;
    mean.insolation += month.insolation;
    mean.ambient_min_f += month.ambient_min_f;
    mean.ambient_max_f += month.ambient_max_f;
    mean.wind_mph += month.wind_mph;
    mean.days += month.days;
  }
  const auto count = static_cast<double>(months.size());
  mean.ambient_f = Divide(mean.ambient_f, count);
  mean.insolation = Divide(mean.insolation, count);
  mean.ambient_min_f = Divide(mean.ambient_min_f, count);
  mean.ambient_max_f = Divide(mean.ambient_max_f, count);
  mean.wind_mph = Divide(mean.wind_mph, count);
  return mean;
}

}  // namespace

PeriodData ReadPeriod(store::RecordSet& weather, store::RecordSet& mixture, const std::string& Month,
                      double annual_throughput_gal, Wind wind) {
  if (const auto index = shell::MonthIndex(Month)) {
    const auto& month = shell::kMonths[*index];
    PeriodData data = ReadMonth(weather, month, wind);
    data.throughput_gal = ReadNumber(mixture, month.throughput);
    return data;
  }
  std::vector<const shell::Month*> stored;
  for (const auto& month : shell::kMonths) {
    if (ReadFlag(mixture, month.name)) stored.push_back(&month);
  }
  PeriodData data;
  if (stored.size() == shell::kMonths.size()) {
    data = ReadYear(weather, wind);
  } else {
    std::vector<PeriodData> months;
    for (const auto* month : stored) {
      months.push_back(ReadMonth(weather, *month, wind));
      // The year keeps the tank's throughput, but a month that is stored must have one.
      static_cast<void>(ReadNumber(mixture, month->throughput));
    }
    data = MeanOf(months);
  }
  data.throughput_gal = annual_throughput_gal;
  return data;
}

}  // namespace orvex::emission
