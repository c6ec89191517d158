#pragma once

#include <string_view>

#include "refdata/entry.h"

/// The entries of the meteorological editor. Those of a family of months stand under the family's heading.
namespace orvex::refdata {

inline constexpr std::string_view kCityAndState = "Meteorological";
inline constexpr std::string_view kMaximumTemperature = "Daily Maximum Ambient Temp. (F)";
inline constexpr std::string_view kMinimumTemperature = "Daily Minimum Ambient Temp. (F)";
inline constexpr std::string_view kInsolation = "Solar Insulation Factor";
inline constexpr std::string_view kWindSpeed = "Average Wind Speed (mph)";

#define ORVEX_PERIOD(prefix, period, month, heading, tip, unit) \
  { {"txt" prefix "_" period, month ":", tip ", " month " (" unit ")"}, EntryKind::kNumber, prefix "_" period, heading }
// One value a month, then that of the year.
#define ORVEX_MONTHS_AND_YEAR(prefix, heading, tip, unit)                                                              \
  ORVEX_PERIOD(prefix, "JAN", "January", heading, tip, unit),                                                          \
      ORVEX_PERIOD(prefix, "FEB", "February", heading, tip, unit),                                                     \
      ORVEX_PERIOD(prefix, "MAR", "March", heading, tip, unit),                                                        \
      ORVEX_PERIOD(prefix, "APR", "April", heading, tip, unit),                                                        \
      ORVEX_PERIOD(prefix, "MAY", "May", heading, tip, unit), ORVEX_PERIOD(prefix, "JUN", "June", heading, tip, unit), \
      ORVEX_PERIOD(prefix, "JUL", "July", heading, tip, unit),                                                         \
      ORVEX_PERIOD(prefix, "AUG", "August", heading, tip, unit),                                                       \
      ORVEX_PERIOD(prefix, "SEP", "September", heading, tip, unit),                                                    \
      ORVEX_PERIOD(prefix, "OCT", "October", heading, tip, unit),                                                      \
      ORVEX_PERIOD(prefix, "NOV", "November", heading, tip, unit),                                                     \
      ORVEX_PERIOD(prefix, "DEC", "December", heading, tip, unit),                                                     \
      ORVEX_PERIOD(prefix, "ANN", "Annual", heading, tip, unit)

inline constexpr EntryInfo kMetEntries[] = {
    {{"dbcboMetCTYST", "Cit&y:", "The city and its state; type a part of it to find it"},
     EntryKind::kFinder,
     "CTYST",
     ""},
    {{"txtCITY", "&City:", "Name of the city"}, EntryKind::kText, "CITY", kCityAndState},
    {{"dbcboState", "S&tate:", "The state in which the city lies, from the list or typed"},
     EntryKind::kTypedChoice,
     "STATE",
     kCityAndState},
    {{"txtA_TEMP_DAA",
      "Daily Average Ambient Te&mperature (F): ", "Average daily ambient temperature of the year, T_AA (F)"},
     EntryKind::kNumber,
     "A_TEMP_DAA",
     kCityAndState},
    {{"txtATMOS_PRS", "Atmospheric &Pressure (psia): ", "Average atmospheric pressure, P_A (psia)"},
     EntryKind::kNumber,
     "ATMOS_PRS",
     kCityAndState},
    ORVEX_MONTHS_AND_YEAR("TAX", kMaximumTemperature, "Average daily maximum ambient temperature", "F"),
    ORVEX_MONTHS_AND_YEAR("TAN", kMinimumTemperature, "Average daily minimum ambient temperature", "F"),
    ORVEX_MONTHS_AND_YEAR("INSOL", kInsolation, "Daily total solar insolation", "Btu/sq ft day"),
    ORVEX_MONTHS_AND_YEAR("WIND", kWindSpeed, "Average wind speed", "mph"),
};
#undef ORVEX_MONTHS_AND_YEAR
#undef ORVEX_PERIOD

}  // namespace orvex::refdata
