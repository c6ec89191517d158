#pragma once

#include <string_view>

namespace orvex::shell {

// The tank types as `TANK_TYPE` holds them.
inline constexpr std::string_view kVerticalFixedRoof = "Vertical Fixed Roof Tank";                   // VFRT
inline constexpr std::string_view kHorizontal = "Horizontal Tank";                                   // HFRT
inline constexpr std::string_view kInternalFloatingRoof = "Internal Floating Roof Tank";             // IFRT
inline constexpr std::string_view kExternalFloatingRoof = "External Floating Roof Tank";             // EFRT
inline constexpr std::string_view kDomedExternalFloatingRoof = "Domed External Floating Roof Tank";  // DEFRT

/// Vertical and horizontal tanks; every other text counts as a floating roof.
constexpr bool IsFixedRoof(std::string_view tank_type) {
  return tank_type == kVerticalFixedRoof || tank_type == kHorizontal;
}

// The chemical categories as `C_CATEGORY` and `CATEGORY` hold them.
inline constexpr std::string_view kOrganicLiquids = "Organic Liquids";
inline constexpr std::string_view kCrudeOils = "Crude Oils";
inline constexpr std::string_view kPetroleumDistillates = "Petroleum Distillates";

// What a mixture's `COMPONENT` and `SPEC_OPT` hold.
inline constexpr std::string_view kSingle = "Single";
inline constexpr std::string_view kMultiple = "Multiple";
inline constexpr std::string_view kFullSpeciation = "Full Speciation";
inline constexpr std::string_view kPartialSpeciation = "Partial Speciation";
inline constexpr std::string_view kVaporWeightSpeciation = "Vapor Weight Speciation";
inline constexpr std::string_view kNoSpeciation = "None";

}  // namespace orvex::shell
