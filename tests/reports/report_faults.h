#pragma once

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

/// What the checks of the report files share: a list of faults, and how figures are read.
namespace orvex::test {

/// Faults of one file, one line each.
class Faults {
 public:
  void Expect(bool holds, std::string fault) {
    if (!holds) faults_.push_back(std::move(fault));
  }
  void ExpectEqual(std::string_view what, std::string_view found, std::string_view expected) {
    if (found == expected) return;
    faults_.push_back(std::string(what) + ": \"" + std::string(found) + "\" instead of \"" + std::string(expected) +
                      "\"");
  }
  /// A shown figure must be the sum of `parts` shown ones, all of them rounded to `decimals`.
  void ExpectSum(std::string_view what, double found, double sum, std::size_t parts, int decimals) {
    const double half_a_digit = 0.5 * std::pow(10.0, -decimals);
    if (std::abs(found - sum) <= half_a_digit * static_cast<double>(parts + 1) + 1e-12 * std::abs(sum) + 1e-9) return;
    faults_.push_back(fmt::format("{}: {} instead of about {}", what, found, sum));
  }

  [[nodiscard]] const std::vector<std::string>& All() const { return faults_; }

 private:
  std::vector<std::string> faults_;
};

/// "1,234.50" as a number; nothing for any other text.
inline std::optional<double> Figure(std::string_view text) {
  std::string digits;
  for (const char character : text)
    if (character != ',') digits += character;
  double value = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (end.ec != std::errc() || end.ptr != digits.data() + digits.size()) return std::nullopt;
  return value;
}

inline constexpr std::string_view kNoBreakSpace = "\u00A0";

inline bool IsIndented(std::string_view name) { return name.starts_with(kNoBreakSpace); }

inline std::string WithoutIndent(std::string_view name) {
  while (name.starts_with(kNoBreakSpace)) name.remove_prefix(kNoBreakSpace.size());
  return std::string(name);
}

inline std::string Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return std::string(text);
}

}  // namespace orvex::test
