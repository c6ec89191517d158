#include "store/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orvex::store {

std::optional<double> ParseNumber(std::string_view text) {
  double number = 0.0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::string ShortestNumber(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

}  // namespace orvex::store
