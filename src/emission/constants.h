#pragma once

/// Constants that several equations share, with their units. Source: KV-58 Section 7.1.
namespace orvex::emission {

inline constexpr double kGallonsPerBarrel = 42;
inline constexpr double kMonthsPerYear = 12;

/// The ideal gas constant R {psia ft3/(lb-mole R)}.
inline constexpr double kGasConstant = 10.731;

}  // namespace orvex::emission
