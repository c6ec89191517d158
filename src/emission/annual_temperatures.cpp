#include "emission/annual_temperatures.h"

#include "emission/liquid_temperature.h"
#include "emission/routine.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"

namespace orvex::emission {

bool HasNeededPaint(std::string_view tank_type, bool underground, const Paint& paint) {
  if (tank_type == shell::kHorizontal) return underground || paint.HasShell();
  if (tank_type == shell::kExternalFloatingRoof || tank_type == shell::kDomedExternalFloatingRoof) {
    return paint.HasShell();
  }
  if (tank_type == shell::kVerticalFixedRoof || tank_type == shell::kInternalFloatingRoof) {
    return paint.HasShell() && paint.HasRoof();
  }
  return true;
}

LiquidTemperatures AnnualTemperatures(shell::Session& session, const AnnualWeather& weather, const Paint& paint,
                                      bool underground) {
  const auto annual_r = [](double fahrenheit) { return shell::RoundSixDecimals(FahrenheitToRankine(fahrenheit)); };
  const double absorptance = underground ? 0 : paint.Absorptance();
  const double insolation = shell::RoundSixDecimals(weather.insolation);
  const double ambient = annual_r(weather.ambient_f);
  const double ambient_max = annual_r(weather.ambient_max_f);
  const double ambient_min = annual_r(weather.ambient_min_f);
  LiquidTemperatures liquid{};
  liquid.average =
      Routine(session, "modEmission.ALST", [&] { return ALST(ambient, ambient, absorptance, insolation); });
  liquid.maximum = MaxLiquidTemp(liquid.average, ambient_max, ambient_min, absorptance, insolation);
  liquid.minimum = MinLiquidTemp(liquid.average, ambient_max, ambient_min, absorptance, insolation);
  liquid.bulk = BulkTemperature(ambient, absorptance);
  if (underground) liquid.maximum = liquid.minimum = liquid.average;
  return liquid;
}

}  // namespace orvex::emission
