#include "refdata/deck_seam_sizes.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>

#include "emission/arithmetic.h"
#include "shell/choices.h"
#include "shell/entry_number.h"
#include "store/value.h"

namespace orvex::refdata {
namespace {

std::string Plain(double number) { return store::Value(number).AsText(); }

std::string Named(std::string_view construction, const std::string& size, const std::string& certificate) {
  auto name = fmt::format("{}: {}", construction, size);
  if (!certificate.empty()) name += fmt::format(" ({})", certificate);
  return name;
}

/// The text of a number as it is joined: as it was typed, but without commas, blanks and exponents.
std::string Joinable(std::string_view text) {
  if (text.find_first_not_of("-.0123456789") == std::string_view::npos) return std::string(text);
  return Plain(shell::EntryNumber(text));
}

/// The longest number that a text begins with; infinite for one out of range.
double LeadingNumber(const std::string& text) {
  double number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return end.ec == std::errc::result_out_of_range ? std::numeric_limits<double>::infinity() : number;
}

}  // namespace

std::string PanelSeamName(double length_ft, double width_ft, const std::string& certificate) {
  return Named(shell::kPanel, fmt::format("{} x {} ft", Plain(length_ft), Plain(width_ft)), certificate);
}

std::string SheetSeamName(double width_ft, const std::string& certificate) {
  return Named(shell::kSheet, fmt::format("{} ft Wide", Plain(width_ft)), certificate);
}

double PanelSeamFactor(std::string_view length, std::string_view width) {
  const double area_ft2 = shell::EntryNumber(length) * shell::EntryNumber(width);
  return emission::Divide(LeadingNumber(Joinable(length) + Joinable(width)), area_ft2);
}

double SheetSeamFactor(double width_ft) { return emission::Divide(1, width_ft); }

}  // namespace orvex::refdata
