#include "shell/entry_number.h"

#include <string>

#include "store/blanks.h"
#include "store/number_text.h"
#include "store/run_time_error.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kGroup = 3;

/// The digits in front of the decimal point without their commas; nothing when a comma does not part groups of three.
std::optional<std::string> WholePart(std::string_view text) {
  auto comma = text.find(',');
  if (comma == std::string_view::npos) return std::string(text);
  if (comma == 0 || comma > kGroup) return std::nullopt;
  std::string digits(text.substr(0, comma));
  while (comma != std::string_view::npos) {
    const auto next = text.find(',', comma + 1);
    const auto group = text.substr(comma + 1, next == std::string_view::npos ? next : next - comma - 1);
    if (group.size() != kGroup) return std::nullopt;
    digits += group;
    comma = next;
  }
  return digits;
}

}  // namespace

std::optional<double> ParseEntryNumber(std::string_view text) {
  text = store::WithoutBlanks(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // A second sign would be taken for the number's own below.
  if (text.starts_with('-')) return std::nullopt;
  const auto whole_end = std::min(text.find_first_not_of("0123456789,"), text.size());
  const auto whole = WholePart(text.substr(0, whole_end));
  if (!whole || whole->find_first_not_of(kDigits) != std::string::npos) return std::nullopt;
  return store::ParseNumber((negative ? "-" : "") + *whole + std::string(text.substr(whole_end)));
}

double EntryNumber(std::string_view text) {
  const auto number = ParseEntryNumber(text);
  if (!number) {
    throw store::RunTimeError(store::ErrorNumber::kTypeMismatch,
                              "Type mismatch: \"" + std::string(text) + "\" is not a number.");
  }
  return *number;
}

}  // namespace orvex::shell
