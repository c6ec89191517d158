#pragma once

#include <optional>

#include "store/value.h"

/// What types the fields of the previous version's files have is not said anywhere, so a value is taken for what it is
/// needed as: "7.3" in a field of texts is a number, and "Y" there is a flag.
namespace orvex::exchange {

/// Null is 0; nothing for a text that is no number.
[[nodiscard]] std::optional<double> NumberIn(const store::Value& value);

/// Null is false; nothing for a text that is neither yes nor no.
[[nodiscard]] std::optional<bool> FlagIn(const store::Value& value);

}  // namespace orvex::exchange
