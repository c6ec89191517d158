#include "refdata/profile_types.h"

#include <algorithm>
#include <cmath>

namespace orvex::refdata {
namespace {

constexpr std::string_view kNoLiquid = "Liquid weight must not be zero.",
                           kNoLiquidAtSave = "Liquid weight must not be zero for this component.";

constexpr ShareInfo kShares[] = {
    {kPartialType, false, &ProfileComponent::WT_FRACT, "txtWT_FRACT", kNoLiquid, kNoLiquidAtSave},
    {kFullType, false, &ProfileComponent::WT_FRACT, "txtWT_FRACT", kNoLiquid, kNoLiquidAtSave},
    {kVaporType, false, &ProfileComponent::VP_FRACT, "txtVP_FRACT", "Vapor weight must not be zero.",
     "Vapor weight must not be zero for this component."},
    {kFullType, true, &ProfileComponent::WEIGHT, "txtWEIGHT", "Relative weight must not be zero.",
     "Relative weight must not be zero for this component."},
};

constexpr ShareField kClearedForLiquid[] = {&ProfileComponent::VP_FRACT, &ProfileComponent::WEIGHT};
constexpr ShareField kClearedForVapor[] = {&ProfileComponent::WT_FRACT, &ProfileComponent::WEIGHT};

/// The bounds of a sum {percent} are meant for the decimal numbers that the person entered: adding these up as binary
/// numbers strays by far less.
constexpr double kNoise = 1e-9;

void Clear(ProfileRecord& profile, ShareField share) {
  for (auto& component : profile.components) component.*share = 0;
}

}  // namespace

const ShareInfo* FindShare(const ProfileRecord& profile) {
  const auto* found = std::ranges::find_if(
      kShares, [&](const ShareInfo& info) { return info.type == profile.Type && info.relative == profile.relative; });
  return found == std::end(kShares) ? nullptr : found;
}

double SumOfShares(const ProfileRecord& profile) {
  const auto* info = FindShare(profile);
  if (info == nullptr) return 0;
  double sum = 0;
  for (const auto& component : profile.components) sum += (component.*info->share).value_or(0);
  return sum;
}

bool IsSumTooSmall(const ProfileRecord& profile) {
  return profile.Type == kFullType && !profile.relative && !(SumOfShares(profile) >= kLeastFullSum - kNoise);
}

bool IsSumTooGreat(const ProfileRecord& profile) {
  return !profile.relative && SumOfShares(profile) > kGreatestSum + kNoise;
}

std::string_view SumRefusal(const ProfileRecord& profile) {
  if (!IsSumTooSmall(profile) && !IsSumTooGreat(profile)) return {};
  return profile.Type == kFullType ? "The sum of the component percents for a full profile must equal 100%."
                                   : "Sum of component percent is over 100%.";
}

std::vector<ProfileShare> Shares(const ProfileRecord& profile) {
  std::vector<ProfileShare> shares;
  const auto* info = FindShare(profile);
  if (info == nullptr) return shares;
  const double sum = SumOfShares(profile);
  const double whole = profile.relative && sum != 0 ? sum / 100 : 1;
  for (const auto& component : profile.components) {
    // Weights beside which their sum is next to nothing have no percents.
    const double percent = (component.*info->share).value_or(0) / whole;
    shares.push_back({component.NAME, std::isfinite(percent) ? percent : 0});
  }
  return shares;
}

void ChangeType(ProfileRecord& profile, std::string_view type) {
  profile.Type = type;
  profile.relative = false;
  for (const auto share : type == kVaporType ? std::span(kClearedForVapor) : std::span(kClearedForLiquid))
    Clear(profile, share);
}

void SwitchSides(ProfileRecord& profile) {
  Clear(profile, FindShare(profile)->share);
  profile.relative = !profile.relative;
}

}  // namespace orvex::refdata
