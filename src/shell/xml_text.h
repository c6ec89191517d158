#pragma once

#include <string>
#include <string_view>

namespace orvex::shell {

/// A text as it stands in an XML 1.0 file, between tags or between quotes, so that a parser gives back every character
/// of it. What XML cannot hold is replaced by a stand-in that can be seen: a control character by its picture (U+2400
/// and following), broken UTF-8 and the two noncharacters U+FFFE and U+FFFF by U+FFFD.
std::string EscapeXml(std::string_view text);

/// A name for an element: the text with an underscore in the place of every character that no name of XML 1.0 may hold,
/// and before the first one if no name may begin with it. A colon would announce a namespace and is replaced, too.
std::string XmlName(std::string_view text);

}  // namespace orvex::shell
