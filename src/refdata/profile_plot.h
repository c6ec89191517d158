#pragma once

#include <string>

#include "refdata/profile_record.h"

/// What the editor of speciation profiles shows of a profile.
namespace orvex::refdata {

/// The running sum of the shares as an SVG text: a bar for each component, which begins where the one before it ends, a
/// line at 100 percent, and for a full profile the range in which the sum must be. Relative weights are drawn as
/// percents of their sum. Of many components the last ones share a bar.
std::string ProfilePlot(const ProfileRecord& profile);

/// The sum, and whether the profile can be saved with it.
std::string ProfileSummary(const ProfileRecord& profile);

}  // namespace orvex::refdata
