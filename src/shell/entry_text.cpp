#include "shell/entry_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "store/utf8.h"

namespace orvex::shell {

std::string TextRefusal(std::string_view text, int width) {
  if (std::ranges::any_of(text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }))
    return "Please enter a text without control characters.";
  if (width > 0 && store::CharacterCount(text) > static_cast<std::size_t>(width))
    return fmt::format("Please enter no more than {} characters.", width);
  return {};
}

}  // namespace orvex::shell
