#include "shell/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "store/number_text.h"
#include "store/run_time_error.h"

namespace orvex::shell {
namespace {

constexpr int kSignificantDigits = 15;

/// A finite number as its decimal digits: 0.digits x 10^point, trailing zeros kept.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

[[noreturn]] void ThrowOverflow() {
  throw store::RunTimeError(store::ErrorNumber::kOverflow, "Overflow: a number is too large.");
}

/// Error 6 for a number that is not finite.
Decimal ToDecimal(double value) {
  if (!std::isfinite(value)) ThrowOverflow();
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific,
                                 kSignificantDigits - 1);
  const std::string_view all(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
  const auto e = all.find('e');
  Decimal result;
  result.negative = std::signbit(value);
  result.digits = all[0];
  result.digits += all.substr(2, e - 2);
  int exponent = 0;
  const auto exponent_text = all.substr(all[e + 1] == '+' ? e + 2 : e + 1);
  std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
  result.point = exponent + 1;
  return result;
}

/// Keeps `count` digits, halves away from zero; a negative count leaves nothing.
void RoundDigits(Decimal& number, int count) {
  if (count >= static_cast<int>(number.digits.size())) return;
  const bool up = count >= 0 && number.digits[static_cast<std::size_t>(count)] >= '5';
  number.digits.resize(static_cast<std::size_t>(std::max(count, 0)));
  if (!up) return;
  for (auto i = number.digits.size(); i-- > 0;) {
    if (number.digits[i] != '9') {
      ++number.digits[i];
      return;
    }
    number.digits[i] = '0';
  }
  number.digits.insert(number.digits.begin(), '1');
  ++number.point;
}

/// Fixed notation with `decimals` decimals.
std::string Fixed(double value, int decimals, bool thousands) {
  Decimal number = ToDecimal(value);
  RoundDigits(number, number.point + decimals);
  const auto digit = [&](int place) {  // place 0 is the first digit behind the decimal point
    const int i = number.point + place;
    return i >= 0 && i < static_cast<int>(number.digits.size()) ? number.digits[static_cast<std::size_t>(i)] : '0';
  };
  std::string text;
  bool zero = true;
  const int whole_digits = std::max(number.point, 1);
  for (int left = whole_digits; left > 0; --left) {
    text += digit(-left);
    zero = zero && text.back() == '0';
    if (thousands && left > 1 && left % 3 == 1) text += ',';
  }
  if (decimals > 0) text += '.';
  for (int place = 0; place < decimals; ++place) {
    text += digit(place);
    zero = zero && text.back() == '0';
  }
  return number.negative && !zero ? "-" + text : text;
}

/// Error 6 for a text that was rounded up beyond the range of a number.
double Parse(std::string_view text) {
  if (const auto number = store::ParseNumber(text)) return *number;
  ThrowOverflow();
}

}  // namespace

std::string FormatWhole(double value) { return Fixed(value, 0, true); }
std::string FormatFixed(double value) { return Fixed(value, 2, false); }
std::string FormatTwoDecimals(double value) { return Fixed(value, 2, true); }
std::string FormatFourDecimals(double value) { return Fixed(value, 4, true); }

std::string FormatTwoToSixDecimals(double value) {
  std::string text = Fixed(value, 6, true);
  for (int optional = 0; optional < 4 && text.back() == '0'; ++optional) text.pop_back();
  return text;
}

std::string FormatScientific(double value) {
  Decimal number = ToDecimal(value);
  RoundDigits(number, 3);
  const int exponent = value == 0 ? 0 : number.point - 1;
  std::string text = number.negative && value != 0 ? "-" : "";
  text += number.digits[0];
  text += '.';
  text += number.digits.substr(1, 2);
  text += exponent < 0 ? "E-" : "E+";
  const std::string digits = std::to_string(std::abs(exponent));
  if (digits.size() < 2) text += '0';
  return text + digits;
}

double RoundTwoDecimals(double value) { return Parse(Fixed(value, 2, false)); }
double RoundFourDecimals(double value) { return Parse(Fixed(value, 4, false)); }
double RoundSixDecimals(double value) { return Parse(Fixed(value, 6, false)); }
double RoundScientific(double value) { return Parse(FormatScientific(value)); }

std::string PlainDecimal(double value) {
  std::string text = Fixed(value, kSignificantDigits - std::min(ToDecimal(value).point, kSignificantDigits), false);
  if (text.find('.') == std::string::npos) return text;
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace orvex::shell
