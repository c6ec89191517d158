#pragma once

#include <string_view>

#include "shell/tank_types.h"

/// The items of lists that several windows have.
namespace orvex::shell {

inline constexpr std::string_view kCategories[] = {kOrganicLiquids, kPetroleumDistillates, kCrudeOils};
inline constexpr std::string_view kWelded = "Welded", kRiveted = "Riveted";
inline constexpr std::string_view kConstructions[] = {kWelded, kRiveted};
inline constexpr std::string_view kSheet = "Sheet", kPanel = "Panel";
inline constexpr std::string_view kDeckConstructions[] = {kSheet, kPanel};
inline constexpr std::string_view kYesOrNo[] = {"Yes", "No"};
inline constexpr std::string_view kTankTypes[] = {kVerticalFixedRoof, kHorizontal, kInternalFloatingRoof,
                                                  kExternalFloatingRoof, kDomedExternalFloatingRoof};
inline constexpr std::string_view kColors[] = {"White/White", "Aluminum/Specular", "Aluminum/Diffuse",
                                               "Gray/Light",  "Gray/Medium",       "Red/Primer"};
inline constexpr std::string_view kPaintConditions[] = {"Good", "Poor"};
inline constexpr std::string_view kShellConditions[] = {"Light Rust", "Dense Rust", "Gunite Lining"};
inline constexpr std::string_view kRoofTypes[] = {"Cone", "Dome", "Pontoon", "Double Deck"};
inline constexpr std::string_view kFittingCategories[] = {"Typical", "Detail"};
inline constexpr std::string_view kDeckTypes[] = {"Bolted", "Welded"};
inline constexpr std::string_view kComponentKinds[] = {kSingle, kMultiple};
inline constexpr std::string_view kSpeciations[] = {kFullSpeciation, kPartialSpeciation, kVaporWeightSpeciation,
                                                    kNoSpeciation};

}  // namespace orvex::shell
