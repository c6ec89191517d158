#pragma once

#include <cstdint>

#include "support/test_databases.h"

/// Plausible tanks at random, for properties (to be called inside `rc::check`). All stand in the sample city and pass
/// the checks of `Validate`.
namespace orvex::test {

/// Adds the sample reference rows and a chemical of each vapor pressure form, unless they are there.
void AddRandomTankReference(store::Database& reference);

/// Gives every month and the year of the sample city a weather of its own.
void ChangeToRandomWeather(store::Database& reference);
/// Gives all months and the year of the sample city the same weather.
void ChangeToSteadyWeather(store::Database& reference);

/// How many mixtures a tank has, and when.
enum class Storage : std::uint8_t {
  kOneAllYear,   ///< one mixture in all months
  kAnyMixtures,  ///< one to three mixtures, of all or some of the months
};

/// Adds a tank of any type, paint and size with liquids of any kind, as the tank window leaves it. Gives its `ID`.
std::int32_t AddRandomTank(TestSession& test, Storage storage);

}  // namespace orvex::test
