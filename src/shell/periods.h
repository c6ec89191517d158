#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace orvex::shell {

/// One calendar month as the tables and reports know it.
struct Month {
  std::string_view name;        ///< "January": the period text, and the flag field of `mixtures`
  std::string_view suffix;      ///< "JAN": end of the field names of `met`, head of the throughput field
  std::string_view throughput;  ///< "JAN_THRU"
  int days;                     ///< February has 28 in every year
};

inline constexpr std::array<Month, 12> kMonths = {{
    {"January", "JAN", "JAN_THRU", 31},
    {"February", "FEB", "FEB_THRU", 28},
    {"March", "MAR", "MAR_THRU", 31},
    {"April", "APR", "APR_THRU", 30},
    {"May", "MAY", "MAY_THRU", 31},
    {"June", "JUN", "JUN_THRU", 30},
    {"July", "JUL", "JUL_THRU", 31},
    {"August", "AUG", "AUG_THRU", 31},
    {"September", "SEP", "SEP_THRU", 30},
    {"October", "OCT", "OCT_THRU", 31},
    {"November", "NOV", "NOV_THRU", 30},
    {"December", "DEC", "DEC_THRU", 31},
}};

/// The period text of a whole year.
inline constexpr std::string_view kAnnual = "Annual";
inline constexpr std::string_view kMonthly = "Monthly";
inline constexpr int kDaysPerYear = 365;

/// Place of a month's full name in `kMonths`; nothing for any other text ("Annual" among them).
std::optional<std::size_t> MonthIndex(std::string_view name);

}  // namespace orvex::shell
