#pragma once

#include <string_view>

/// What `ReportSourceKind` says of `ReportSource`.
namespace orvex::reports {

inline constexpr std::string_view kOpenTable = "dbOpenTable";      ///< the name of a table
inline constexpr std::string_view kOpenDynaset = "dbOpenDynaset";  ///< a query

}  // namespace orvex::reports
