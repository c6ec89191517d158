#pragma once

#include <string>

#include "store/value.h"

namespace orvex::store {

/// What stands for a text in a field; null for an empty one.
inline Value TextOrNull(const std::string& text) { return text.empty() ? Value() : Value(text); }

}  // namespace orvex::store
