#pragma once

#include <string_view>

#include "refdata/frmprofile.h"

/// When a profile may be saved, and when a component may be left.
namespace orvex::refdata {

/// In error reports of what is no command's own.
inline constexpr std::string_view kFrmProfile = "frmProfile.";

/// Whether the profile differs from the one in the tables. One that was never saved does.
[[nodiscard]] bool IsChanged(const FrmProfile& form);

/// Whether the component on show has what it needs. The person is told and led to what is missing.
[[nodiscard]] bool MayLeaveComponent(shell::Session& session, FrmProfile& form);

/// Saves the person's own profile on show. False if it was refused, which the person has been told then.
[[nodiscard]] bool SaveProfile(shell::Session& session, FrmProfile& form);
/// The same if it was changed; true if there is nothing to save.
[[nodiscard]] bool SaveChanges(shell::Session& session, FrmProfile& form);

/// Fills the list of profiles with their names.
void FillProfileList(shell::Session& session, FrmProfile& form);

}  // namespace orvex::refdata
