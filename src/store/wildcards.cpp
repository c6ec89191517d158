#include "store/wildcards.h"

#include <optional>

#include "store/letter_case.h"
#include "store/utf8.h"

namespace orvex::store {
namespace {

/// Number of bytes of the character that a text begins with, or of the bytes there that are none.
std::size_t CharacterLength(std::string_view text) {
  std::string_view rest = text;
  static_cast<void>(TakeCharacter(rest));
  return text.size() - rest.size();
}

char WithCase(char c, CaseRule case_rule) { return case_rule == CaseRule::kIgnore ? Folded(c) : c; }

/// Whether a character is in a list such as "a-z_" (what stands between the brackets).
bool InList(std::string_view character, std::string_view list, CaseRule case_rule) {
  if (character.size() > 1) return list.find(character) != std::string_view::npos;
  const char c = WithCase(character.front(), case_rule);
  for (std::size_t i = 0; i < list.size(); ++i) {
    const char low = WithCase(list[i], case_rule);
    if (i + 2 < list.size() && list[i + 1] == '-') {
      if (low <= c && c <= WithCase(list[i + 2], case_rule)) return true;
      i += 2;
    } else if (low == c) {
      return true;
    }
  }
  return false;
}

/// What one element of a pattern (not `*`) takes from the text, and how long the element is.
struct Step {
  std::size_t text_length;
  std::size_t pattern_length;
};

std::optional<Step> MatchOne(std::string_view text, std::string_view pattern, CaseRule case_rule) {
  if (text.empty()) return std::nullopt;
  const std::size_t length = CharacterLength(text);
  switch (pattern.front()) {
    case '?':
      return Step{length, 1};
    case '#':
      if (text.front() < '0' || text.front() > '9') return std::nullopt;
      return Step{1, 1};
    case '[': {
      const auto close = pattern.find(']', 1);
      if (close == std::string_view::npos) return std::nullopt;
      const bool negated = pattern[1] == '!';
      const auto list = pattern.substr(negated ? 2 : 1, close - (negated ? 2 : 1));
      if (InList(text.substr(0, length), list, case_rule) == negated) return std::nullopt;
      return Step{length, close + 1};
    }
    default:
      if (WithCase(text.front(), case_rule) != WithCase(pattern.front(), case_rule)) return std::nullopt;
      return Step{1, 1};
  }
}

}  // namespace

bool MatchesWildcards(std::string_view text, std::string_view pattern, CaseRule case_rule) {
  // Where to go on after a mismatch: behind the last star, one character further in the text.
  std::optional<std::string_view> star_pattern;
  std::string_view star_text;
  while (true) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      star_pattern = pattern;
      star_text = text;
      continue;
    }
    if (pattern.empty() && text.empty()) return true;
    const auto step = pattern.empty() ? std::nullopt : MatchOne(text, pattern, case_rule);
    if (step) {
      text.remove_prefix(step->text_length);
      pattern.remove_prefix(step->pattern_length);
      continue;
    }
    if (!star_pattern || star_text.empty()) return false;
    star_text.remove_prefix(CharacterLength(star_text));
    text = star_text;
    pattern = *star_pattern;
  }
}

}  // namespace orvex::store
