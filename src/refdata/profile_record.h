#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "shell/session.h"
#include "store/value.h"

/// A speciation profile with its components, as its two tables hold it.
namespace orvex::refdata {

/// A chemical of a profile. A number without a value is null in the table.
struct ProfileComponent {
  std::string NAME, CAS;
  std::optional<double> WT_FRACT = 0;             ///< {percent of the liquid}
  std::optional<double> VP_FRACT = 0;             ///< {percent of the vapor}
  std::optional<double> WEIGHT = 0;               ///< {lb}, in relation to those of the other components
  std::optional<double> MOLWT = 0, VP_MOLWT = 0;  ///< {lb/lb-mole}

  friend bool operator==(const ProfileComponent&, const ProfileComponent&) = default;
};

struct ProfileRecord {
  std::string Name;
  std::string Type;       ///< "Partial", "Full" or "Vapor"; a foreign file may hold another text
  bool relative = false;  ///< of a full profile: its components carry relative weights instead of percents
  std::vector<ProfileComponent> components = {{}};  ///< in the order of the table; never without one

  friend bool operator==(const ProfileRecord&, const ProfileRecord&) = default;
};

/// A stored number as a component holds it.
[[nodiscard]] std::optional<double> NumberOrNull(const store::Value& value);

/// The profile with this key; error 3021 if it is not there any more. One without components gets an empty one.
[[nodiscard]] ProfileRecord ReadProfile(shell::Session& session, std::int32_t spec_id);

/// Writes the profile in the place of the one with this key, whole or not at all; its key. If the key is 0, or somebody
/// else has removed that profile, it becomes a new one of the person's own.
std::int32_t WriteProfile(shell::Session& session, std::int32_t spec_id, const ProfileRecord& profile);

/// Removes the profile and its components, all or none.
void DeleteProfile(shell::Session& session, std::int32_t spec_id);

}  // namespace orvex::refdata
