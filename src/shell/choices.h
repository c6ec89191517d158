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

}  // namespace orvex::shell
