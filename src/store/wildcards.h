#pragma once

#include <cstdint>
#include <string_view>

namespace orvex::store {

enum class CaseRule : std::uint8_t { kRegard, kIgnore };

/// True when a text matches a pattern of the `Like` operator: `*` any text, `?` one character, `#` one digit, `[a-z]`
/// one character of a list, `[!a-z]` one outside it. Queries compare without regard to case, the program's own logic
/// with it.
bool MatchesWildcards(std::string_view text, std::string_view pattern, CaseRule case_rule);

}  // namespace orvex::store
