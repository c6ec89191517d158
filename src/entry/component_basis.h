#pragma once

#include <string_view>

#include "shell/tank_types.h"

/// What the share of a component in its mixture is entered as.
namespace orvex::entry {

inline constexpr std::string_view kPercentMode = "Percent", kWeightMode = "Weight";

struct ComponentBasis {
  std::string_view option;          ///< the mixture's `SPEC_OPT`
  std::string_view mode;            ///< of the fully speciated liquid, which has two
  std::string_view field;           ///< of `components`, which the entry is bound to
  std::string_view caption;         ///< of the entry
  std::string_view sum_label;       ///< in front of the sum over the mixture
  std::string_view switch_caption;  ///< of the command that goes over to the other mode; empty without one
};

inline constexpr ComponentBasis kComponentBases[] = {
    {shell::kFullSpeciation, kPercentMode, "WT_FRACT", "Percent of Total Liquid Weight",
     "Percent Specified:", "Use Relative Weight"},
    {shell::kFullSpeciation, kWeightMode, "WEIGHT", "Weight (lbs)", "Pounds Specified:", "Use Percent of Weight"},
    {shell::kPartialSpeciation, kPercentMode, "WT_FRACT", "Percent of Total Liquid Weight", "Percent Specified:", ""},
    {shell::kVaporWeightSpeciation, kPercentMode, "VP_FRACT", "Percent of Total Vapor Weight",
     "Percent Specified:", ""},
};

/// An option that has no components is a mistake in the program, `std::out_of_range`.
const ComponentBasis& FindBasis(std::string_view option, std::string_view mode);

}  // namespace orvex::entry
