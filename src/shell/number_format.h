#pragma once

#include <string>

namespace orvex::shell {

// Display formats of numbers. They round the value's 15 significant digits, halves away from zero, and always use a
// point for decimals and a comma for thousands, whatever the locale. Nothing that shows as zero has a sign. Every
// function gives error 6 for a number that is not finite.

/// "#,##0": thousands commas, no decimals. "1,235"
std::string FormatWhole(double value);
/// "#,##0.00": "1,234.50"
std::string FormatTwoDecimals(double value);
/// "Fixed": two decimals, no commas. "1234.50"
std::string FormatFixed(double value);
/// "#,##0.0000" (and "#,###0.0000", which gives the same text): "1,234.5000"
std::string FormatFourDecimals(double value);
/// "#,##0.00####": two to six decimals. "1,234.50", "0.123457"
std::string FormatTwoToSixDecimals(double value);
/// "Scientific": a mantissa with two decimals and an exponent of at least two digits. "1.23E-05"
std::string FormatScientific(double value);

// A value taken through a display format and back: the rounding that stored and compared values get. Error 6 for a
// number so great that it is rounded beyond the range.
double RoundTwoDecimals(double value);
double RoundFourDecimals(double value);
double RoundSixDecimals(double value);
double RoundScientific(double value);

/// A number as plain decimal text, at most 15 significant digits, no trailing zeros: "14.7", "0.5", "100".
std::string PlainDecimal(double value);

}  // namespace orvex::shell
