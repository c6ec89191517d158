#include "shell/xml_text.h"

#include "store/utf8.h"

namespace orvex::shell {
namespace {

constexpr char32_t kControlPictures = 0x2400;

/// What stands for a character that cannot stand for itself; empty for all others. Line ends and tabs are escaped
/// because a parser turns them into line feeds in a text and into blanks in an attribute.
std::string_view Reference(char32_t character) {
  switch (character) {
    case U'&':
      return "&amp;";
    case U'<':
      return "&lt;";
    case U'>':
      return "&gt;";
    case U'"':
      return "&quot;";
    case U'\t':
      return "&#9;";
    case U'\n':
      return "&#10;";
    case U'\r':
      return "&#13;";
    default:
      return {};
  }
}

char32_t Representable(char32_t character) {
  if (character < 0x20) return kControlPictures + character;
  if (character == 0xFFFE || character == 0xFFFF) return store::kReplacementCharacter;
  return character;
}

}  // namespace

std::string EscapeXml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = store::TakeCharacter(text).value_or(store::kReplacementCharacter);
    const auto reference = Reference(character);
    if (reference.empty()) {
      store::AppendCharacter(escaped, Representable(character));
    } else {
      escaped += reference;
    }
  }
  return escaped;
}

}  // namespace orvex::shell
