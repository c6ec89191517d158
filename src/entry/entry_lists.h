#pragma once

#include <string_view>

/// The items of the editor's lists. One that ends in "(D)" is the default.
namespace orvex::entry {

inline constexpr std::string_view kDefaultMark = " (D)";

inline constexpr std::string_view kColors[] = {"White/White (D)", "Aluminum/Specular", "Aluminum/Diffuse",
                                               "Gray/Light",      "Gray/Medium",       "Red/Primer"};
inline constexpr std::string_view kConditions[] = {"Good (D)", "Poor"};
inline constexpr std::string_view kShellInsides[] = {"Light Rust (D)", "Dense Rust", "Gunite Lining"};
inline constexpr std::string_view kFixedRoofTypes[] = {"Cone", "Dome"};
inline constexpr std::string_view kFloatingRoofTypes[] = {"Pontoon", "Double Deck"};
inline constexpr std::string_view kFittingCategories[] = {"Typical", "Detail"};
inline constexpr std::string_view kDeckTypes[] = {"Bolted", "Welded"};
inline constexpr std::string_view kColumnDiameters[] = {"9\" by 7\" Built-Up Column", "8\" Diameter Pipe", "Unknown"};
inline constexpr std::string_view kComponentKinds[] = {"Single", "Multiple"};

}  // namespace orvex::entry
