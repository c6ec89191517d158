#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvex::store {

/// The finite number that the whole text stands for, with a decimal point whatever the locale: an optional minus,
/// digits, an optional exponent. Nothing for an empty text, blanks, a plus sign, "inf", "nan" or a number out of range.
std::optional<double> ParseNumber(std::string_view text);

/// The shortest text that `ParseNumber` reads back as the same number, plain or with an exponent.
std::string ShortestNumber(double number);

}  // namespace orvex::store
