#include "store/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "store/number_text.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

[[noreturn]] void ThrowNull() { throw RunTimeError(ErrorNumber::kInvalidUseOfNull, "Invalid use of Null."); }

double ParseText(const std::string& text) {
  if (const auto number = ParseNumber(text)) return *number;
  throw RunTimeError(ErrorNumber::kTypeMismatch, "Type mismatch: \"" + text + "\" is not a number.");
}

double Finite(double number) {
  if (!std::isfinite(number)) throw RunTimeError(ErrorNumber::kOverflow, "Overflow: the number is not finite.");
  return number;
}

}  // namespace

double Value::ToDouble() const {
  switch (kind_) {
    case Kind::kNull:
      ThrowNull();
    case Kind::kInteger:
      return static_cast<double>(integer_);
    case Kind::kReal:
      return Finite(real_);
    case Kind::kText:
      return ParseText(text_);
  }
  ThrowNull();
}

std::int32_t Value::AsLong() const {
  const double value = std::nearbyint(AsDouble());
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    throw RunTimeError(ErrorNumber::kOverflow, "Overflow: the number is outside the range of a whole number.");
  }
  return static_cast<std::int32_t>(value);
}

bool Value::AsBool() const { return AsDouble() != 0; }

std::string Value::AsText() const {
  switch (kind_) {
    case Kind::kNull:
      ThrowNull();
    case Kind::kInteger:
      return std::to_string(integer_);
    case Kind::kReal: {
      std::array<char, 400> text{};  // holds any double in fixed notation
      const auto end = std::to_chars(text.data(), text.data() + text.size(), Finite(real_), std::chars_format::fixed);
      return {text.data(), end.ptr};
    }
    case Kind::kText:
      return text_;
  }
  ThrowNull();
}

bool operator==(const Value& a, const Value& b) {
  if (a.kind_ != b.kind_) return false;
  switch (a.kind_) {
    case Value::Kind::kNull:
      return true;
    case Value::Kind::kInteger:
      return a.integer_ == b.integer_;
    case Value::Kind::kReal:
      return a.real_ == b.real_;
    case Value::Kind::kText:
      return a.text_ == b.text_;
  }
  return false;
}

}  // namespace orvex::store
