#include "shell/xml_text.h"

#include <algorithm>
#include <iterator>

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

struct CharacterRange {
  char32_t first, last;
};

/// Characters with which a name may begin.
constexpr CharacterRange kNameStarts[] = {
    {U'A', U'Z'},     {U'_', U'_'},     {U'a', U'z'},     {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
/// Those that may stand behind the first one only.
constexpr CharacterRange kNameRest[] = {
    {U'-', U'.'}, {U'0', U'9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t kCount>
bool IsAmong(const CharacterRange (&ranges)[kCount], char32_t character) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [&](const CharacterRange& range) { return character >= range.first && character <= range.last; });
}

}  // namespace

std::string XmlName(std::string_view text) {
  constexpr char32_t kSubstitute = U'_';
  std::string name;
  while (!text.empty()) {
    const char32_t character = store::TakeCharacter(text).value_or(kSubstitute);
    const bool starts = IsAmong(kNameStarts, character);
    const bool continues = IsAmong(kNameRest, character);
    if (name.empty() && continues) store::AppendCharacter(name, kSubstitute);
    store::AppendCharacter(name, starts || continues ? character : kSubstitute);
  }
  return name.empty() ? "_" : name;
}

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
