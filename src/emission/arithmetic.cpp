#include "emission/arithmetic.h"

#include <cmath>
#include <limits>

#include "store/run_time_error.h"

namespace orvex::emission {

using store::ErrorNumber;
using store::RunTimeError;

double Finite(double value) {
  if (!std::isfinite(value)) throw RunTimeError(ErrorNumber::kOverflow, "Overflow: a number is too large.");
  return value;
}

double Divide(double dividend, double divisor) {
  if (divisor == 0.0) throw RunTimeError(ErrorNumber::kDivisionByZero, "Division by zero.");
  return Finite(Finite(dividend) / Finite(divisor));
}

double Power(double base, double exponent) {
  Finite(base);
  Finite(exponent);
  if (base < 0.0 && exponent != std::trunc(exponent))
    throw RunTimeError(ErrorNumber::kInvalidProcedureCall, "A broken power of a negative number has no value.");
  if (base == 0.0 && exponent < 0.0)
    throw RunTimeError(ErrorNumber::kInvalidProcedureCall, "A negative power of zero has no value.");
  return Finite(std::pow(base, exponent));
}

double NaturalLog(double value) {
  if (Finite(value) <= 0.0)
    throw RunTimeError(ErrorNumber::kInvalidProcedureCall, "Only numbers above zero have a logarithm.");
  return std::log(value);
}

double Exponential(double exponent) { return Finite(std::exp(Finite(exponent))); }

double SquareRoot(double value) {
  if (Finite(value) < 0.0)
    throw RunTimeError(ErrorNumber::kInvalidProcedureCall, "A number below zero has no square root.");
  return std::sqrt(value);
}

std::int32_t RoundToWhole(double value) {
  // In the rounding mode that every program starts with, ties go to the even number.
  const double whole = std::nearbyint(Finite(value));
  if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max())
    throw RunTimeError(ErrorNumber::kOverflow, "Overflow: a count is too large.");
  return static_cast<std::int32_t>(whole);
}

}  // namespace orvex::emission
