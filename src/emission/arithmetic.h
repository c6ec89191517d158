#pragma once

#include <cstdint>

/// Arithmetic whose failures are run-time errors, so that no infinite or undefined number ever reaches a table. Each
/// function but `SquareOf` gives error 6 for an argument that is not finite: an overflow further up that a quotient or
/// a power of it would hide.
namespace orvex::emission {

/// Error 11 for a divisor of 0, 6 for a quotient that is not finite.
double Divide(double dividend, double divisor);
/// Error 5 where the power has no real value (negative base with a broken exponent, 0 to a negative one), 6 where it
/// overflows. 0 to the power 0 is 1.
double Power(double base, double exponent);
/// Natural logarithm; error 5 at or below 0.
double NaturalLog(double value);
/// e to the power `exponent`; error 6 where it overflows.
double Exponential(double exponent);
/// Error 5 below 0.
double SquareRoot(double value);
/// The value itself; error 6 unless it is finite.
double Finite(double value);
/// The nearest whole number, of two the even one; error 6 outside the range of a Long.
std::int32_t RoundToWhole(double value);

constexpr double SquareOf(double value) { return value * value; }

}  // namespace orvex::emission
