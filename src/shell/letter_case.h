#pragma once

#include <string>
#include <string_view>

namespace orvex::shell {

/// The text with the letters A to Z in lower case, whatever the locale.
std::string LowerCase(std::string_view text);

}  // namespace orvex::shell
