#pragma once

#include <optional>
#include <string_view>

namespace orvex::shell {

/// The finite number that a person typed, whatever the locale: blanks around it, a sign, digits with commas between
/// groups of three in front of the decimal point, an exponent. Nothing for any other text: an empty one, a comma
/// elsewhere ("1,5" is not one and a half), words, control characters, a number out of range.
std::optional<double> ParseEntryNumber(std::string_view text);

/// The same as a value; error 13 for a text that is no number.
double EntryNumber(std::string_view text);

}  // namespace orvex::shell
