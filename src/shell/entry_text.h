#pragma once

#include <string>
#include <string_view>

namespace orvex::shell {

/// What a person reads who typed no number where one belongs.
inline constexpr std::string_view kNoNumber = "Please enter a number.";

/// Why a field of this width {characters; 0: any} cannot hold a typed text: control characters, too long. Empty if it
/// can.
[[nodiscard]] std::string TextRefusal(std::string_view text, int width);

}  // namespace orvex::shell
