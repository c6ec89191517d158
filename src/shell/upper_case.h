#pragma once

#include <string>
#include <string_view>

namespace orvex::shell {

/// A text with all its letters, those beyond A to Z too, in upper case. Bytes that are no character stay as they are.
std::string UpperCase(std::string_view text);

}  // namespace orvex::shell
