#include "orvex-report/terminal_text.h"

#include <fmt/format.h>

#include "store/utf8.h"

namespace orvex::report_app {
namespace {

struct Range {
  char32_t first, last;
};

/// Control characters, line and paragraph separators, and the marks that turn the writing direction.
constexpr Range kUnsafe[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C},
                             {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

bool IsUnsafe(char32_t character) {
  for (const auto& range : kUnsafe)
    if (character >= range.first && character <= range.last) return true;
  return false;
}

}  // namespace

std::string TerminalText(std::string_view text) {
  std::string safe;
  while (!text.empty()) {
    const auto before = text;
    const auto character = store::TakeCharacter(text);
    const auto bytes = before.substr(0, before.size() - text.size());
    if (!character || (*character < 0x80 && IsUnsafe(*character))) {
      for (const char byte : bytes) safe += fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
    } else if (IsUnsafe(*character)) {
      safe += fmt::format("\\u{{{:04X}}}", static_cast<unsigned>(*character));
    } else {
      safe += bytes;
    }
  }
  return safe;
}

}  // namespace orvex::report_app
