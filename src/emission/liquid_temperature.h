#pragma once

namespace orvex::emission {

/// Daily average liquid surface temperature T_LA {R} from the year's mean ambient temperature {R}, the period's mean
/// ambient temperature {R}, solar absorptance {-} and insolation {Btu/(ft2 day)}. Source: KV-58 Section 7.1.
double ALST(double annual_ambient_r, double period_ambient_r, double absorptance, double insolation);

/// Liquid bulk temperature T_B {R} from the mean ambient temperature {R} and solar absorptance {-}.
double BulkTemperature(double ambient_r, double absorptance);

/// Daily maximum and minimum liquid surface temperature {R} from T_LA {R}, the daily maximum and minimum ambient
/// temperature {R}, solar absorptance {-} and insolation {Btu/(ft2 day)}. Source: KV-58 Section 7.1.
double MaxLiquidTemp(double average_surface_r, double ambient_max_r, double ambient_min_r, double absorptance,
                     double insolation);
double MinLiquidTemp(double average_surface_r, double ambient_max_r, double ambient_min_r, double absorptance,
                     double insolation);

double FahrenheitToRankine(double fahrenheit);
double RankineToFahrenheit(double rankine);
double RankineToCelsius(double rankine);
double RankineToKelvin(double rankine);

}  // namespace orvex::emission
