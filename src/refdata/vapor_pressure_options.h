#pragma once

#include <span>
#include <string_view>

#include "refdata/record_editor.h"
#include "shell/choices.h"

/// The ways in which a chemical's vapor pressure can be given.
namespace orvex::refdata {

inline constexpr std::string_view kTableFields[] = {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"};
inline constexpr std::string_view kAntoineFields[] = {"VP_COEF_A", "VP_COEF_B", "VP_COEF_C"};
inline constexpr std::string_view kKelvinFields[] = {"VP_2_A", "VP_2_B"};
inline constexpr std::string_view kReidField[] = {"REID"};
inline constexpr std::string_view kReidAndSlopeFields[] = {"REID", "ASTM_SLOPE"};

/// Fields that together give the vapor pressure.
struct VaporPressureOption {
  int number;  ///< of its heading
  std::span<const std::string_view> fields;
  std::string_view category = {};  ///< of the only chemicals for which they do; empty: for all
};
inline constexpr VaporPressureOption kVaporPressureOptions[] = {
    {1, kTableFields},
    {2, kAntoineFields},
    {3, kKelvinFields},
    {4, kReidField, shell::kCrudeOils},
    {4, kReidAndSlopeFields, shell::kPetroleumDistillates},
};

/// Whether the record fills the option completely.
[[nodiscard]] bool IsFilled(const RecordEditor& form, const VaporPressureOption& option);

/// The vapor pressure {psia} by a filled option at a temperature {F}; nothing where the option gives none there.
[[nodiscard]] std::optional<double> VaporPressure(const RecordEditor& form, const VaporPressureOption& option,
                                                  double fahrenheit);

}  // namespace orvex::refdata
