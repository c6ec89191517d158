#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "refdata/profile_record.h"

/// What the components of a profile carry, by its type.
namespace orvex::refdata {

/// A field of a component.
using ShareField = std::optional<double> ProfileComponent::*;

inline constexpr std::string_view kPartialType = "Partial", kVaporType = "Vapor", kFullType = "Full";
/// In the order in which they are offered.
inline constexpr std::string_view kProfileTypes[] = {kPartialType, kVaporType, kFullType};

/// The share of a type's components, and what is said of one that has none.
struct ShareInfo {
  std::string_view type;
  bool relative;
  ShareField share;
  std::string_view control;          ///< its entry
  std::string_view missing;          ///< when the component is left
  std::string_view missing_at_save;  ///< when the profile is saved
};

/// The share that the profile's components carry; null if its type is none.
[[nodiscard]] const ShareInfo* FindShare(const ProfileRecord& profile);

/// The sum of the components' shares in whatever they are entered; 0 if the type is none.
[[nodiscard]] double SumOfShares(const ProfileRecord& profile);

/// Sums {percent} with which a profile can be saved: at most the greatest, and for a full profile at least the least.
/// Relative weights may have any sum.
inline constexpr double kLeastFullSum = 99.9, kGreatestSum = 100.1;
[[nodiscard]] bool IsSumTooSmall(const ProfileRecord& profile);
[[nodiscard]] bool IsSumTooGreat(const ProfileRecord& profile);
/// Why the sum of the shares stands against saving; empty if it does not.
[[nodiscard]] std::string_view SumRefusal(const ProfileRecord& profile);

/// A component's part of the whole.
struct ProfileShare {
  std::string name;  ///< of the chemical
  double percent;    ///< of relative weights: of their sum
};
/// The shares of all components, in their order; none for a profile without a type.
[[nodiscard]] std::vector<ProfileShare> Shares(const ProfileRecord& profile);

/// Gives the profile another type: the shares of other kinds become 0 in all components.
void ChangeType(ProfileRecord& profile, std::string_view type);
/// Changes a full profile from percents to relative weights, or back: the side left becomes 0 in all components.
void SwitchSides(ProfileRecord& profile);

}  // namespace orvex::refdata
