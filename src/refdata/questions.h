#pragma once

#include <string_view>

#include "shell/session.h"

/// What all reference editors ask and say alike.
namespace orvex::refdata {

inline constexpr std::string_view kNotUserDefined = "Record is not user defined.  It cannot be deleted.";
inline constexpr std::string_view kDeleteRecord = "Are you sure you want to delete this record?";
inline constexpr std::string_view kAddAnotherRecord = "Add Another Record?";
inline constexpr std::string_view kSaveChanges = "Save Changes?";

/// Under "Delete?": OK and Cancel.
[[nodiscard]] bool ConfirmsDeletion(shell::Session& session, std::string_view question);
/// Under "Add New?": Yes and No.
[[nodiscard]] bool WantsAnother(shell::Session& session, std::string_view question);
/// Under "Save?": Yes and No.
[[nodiscard]] bool WantsToSave(shell::Session& session, std::string_view question);

}  // namespace orvex::refdata
