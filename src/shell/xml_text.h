#pragma once

#include <string>
#include <string_view>

namespace orvex::shell {

/// A text as it stands in an XML 1.0 file, between tags or between quotes, so that a parser gives back every character
/// of it. What XML cannot hold is replaced by a stand-in that can be seen: a control character by its picture (U+2400
/// and following), broken UTF-8 and the two noncharacters U+FFFE and U+FFFF by U+FFFD.
std::string EscapeXml(std::string_view text);

}  // namespace orvex::shell
