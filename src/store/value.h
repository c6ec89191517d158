#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvex::store {

/// One field's content: null, a whole number (Long, Counter and Boolean, where true is -1), a Double or a text.
class Value {
 public:
  enum class Kind : std::uint8_t { kNull, kInteger, kReal, kText };

  Value() = default;
  Value(bool flag) : kind_(Kind::kInteger), integer_(flag ? -1 : 0) {}     // NOLINT: values stand for themselves
  Value(std::int32_t number) : kind_(Kind::kInteger), integer_(number) {}  // NOLINT
  Value(std::int64_t number) : kind_(Kind::kInteger), integer_(number) {}  // NOLINT
  Value(double number) : kind_(Kind::kReal), real_(number) {}              // NOLINT
  Value(std::string_view text) : kind_(Kind::kText), text_(text) {}        // NOLINT
  Value(const std::string& text) : kind_(Kind::kText), text_(text) {}      // NOLINT
  Value(const char* text) : kind_(Kind::kText), text_(text) {}             // NOLINT

  [[nodiscard]] Kind GetKind() const { return kind_; }
  [[nodiscard]] bool IsNull() const { return kind_ == Kind::kNull; }

  /// As a number; error 94 when null, 13 for a text that is no number, 6 when not finite.
  [[nodiscard]] double AsDouble() const { return IsFiniteReal() ? real_ : ToDouble(); }
  /// As a 32-bit number, rounded to the nearest (ties to even); error 94 when null, 13, and 6 when out of range.
  [[nodiscard]] std::int32_t AsLong() const;
  /// Anything but zero is true; error 94 when null.
  [[nodiscard]] bool AsBool() const;
  /// As text, numbers in plain decimal notation; error 94 when null, 6 when not finite.
  [[nodiscard]] std::string AsText() const;

  /// Null reads as 0, false or an empty text here.
  [[nodiscard]] double DoubleOrZero() const { return IsNull() ? 0.0 : AsDouble(); }
  [[nodiscard]] std::int32_t LongOrZero() const { return IsNull() ? 0 : AsLong(); }
  [[nodiscard]] bool BoolOrFalse() const { return !IsNull() && AsBool(); }
  [[nodiscard]] std::string TextOrEmpty() const { return IsNull() ? std::string() : AsText(); }

  /// The stored parts, for the code that moves values in and out of the file.
  [[nodiscard]] std::int64_t RawInteger() const { return integer_; }
  [[nodiscard]] double RawReal() const { return real_; }
  [[nodiscard]] const std::string& RawText() const { return text_; }

  /// Replace the content in place; a text keeps its buffer.
  void SetNull() { kind_ = Kind::kNull; }
  void SetInteger(std::int64_t number) { kind_ = Kind::kInteger, integer_ = number; }
  void SetReal(double number) { kind_ = Kind::kReal, real_ = number; }
  void SetText(std::string_view text) { kind_ = Kind::kText, text_.assign(text); }

  /// Equal as stored: same kind, same content; texts with regard to case.
  friend bool operator==(const Value& a, const Value& b);

 private:
  [[nodiscard]] bool IsFiniteReal() const { return kind_ == Kind::kReal && std::isfinite(real_); }
  [[nodiscard]] double ToDouble() const;

  Kind kind_ = Kind::kNull;
  union {
    std::int64_t integer_ = 0;
    double real_;
  };
  std::string text_;
};

}  // namespace orvex::store
