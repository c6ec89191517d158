#pragma once

#include <string_view>

namespace orvex::emission {

/// Solar absorptance {-} of a shell paint, from colour/shade ("Gray/Medium") and condition ("Good", "Poor"), compared
/// with regard to case; 0 for any other text. Source: KV-58 Section 7.1.
double ShellSolar(std::string_view colour, std::string_view condition);

/// The same for a roof paint.
double RoofSolar(std::string_view colour, std::string_view condition);

/// Solar absorptance {-} of the tank: the mean of shell and roof, or the shell's alone where the roof has none.
double Solar(std::string_view shell_colour, std::string_view shell_condition, std::string_view roof_colour,
             std::string_view roof_condition);

}  // namespace orvex::emission
