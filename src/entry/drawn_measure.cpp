#include "entry/drawn_measure.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "shell/entry_number.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

const Entry* FindEntry(const FrmTank& form, std::string_view field) {
  const auto section = PhysicalSection(form);
  const auto found = std::ranges::find_if(
      form.entries, [&](const Entry& entry) { return entry.info->section == section && entry.info->field == field; });
  return found == form.entries.end() ? nullptr : &*found;
}

constexpr std::pair<std::string_view, std::string_view> kPaints[] = {
    {"White/White", "#ffffff"}, {"Aluminum/Specular", "#dce3ea"}, {"Aluminum/Diffuse", "#b6bec6"},
    {"Gray/Light", "#cfcdc8"},  {"Gray/Medium", "#8d8f8e"},       {"Red/Primer", "#b0563f"},
};
constexpr std::string_view kNoPaint = "#e9e1cf";

/// Six digits; the whole number with its commas where it has more of them.
std::string ShortNumber(double value) {
  constexpr double kLong = 1e5, kTooLong = 1e12;
  return value >= kLong && value < kTooLong ? shell::FormatWhole(value) : fmt::format("{:.6g}", value);
}

}  // namespace

Measure Setting(const FrmTank& form, std::string_view field, Symbol symbol, std::string_view unit) {
  const auto* entry = FindEntry(form, field);
  return {symbol, unit, entry == nullptr ? std::nullopt : shell::ParseEntryNumber(entry->box.text)};
}

Measure Size(const FrmTank& form, std::string_view field, Symbol symbol, std::string_view unit) {
  auto measure = Setting(form, field, symbol, unit);
  if (measure.value && !(*measure.value > 0)) measure.value.reset();
  return measure;
}

Measure VacuumSetting(const FrmTank& form) { return Setting(form, "VENT_V", {"P", "BV"}, "psig"); }
Measure PressureSetting(const FrmTank& form) { return Setting(form, "VENT_P", {"P", "BP"}, "psig"); }

std::string ValueText(const Measure& measure) {
  if (!measure.value) return {};
  return fmt::format(" = {}{}{}", ShortNumber(*measure.value), measure.unit.empty() ? "" : " ", measure.unit);
}

std::string StoredPhysical(const FrmTank& form, std::string_view field) {
  const auto* entry = FindEntry(form, field);
  return entry == nullptr ? std::string() : StoredText(*entry);
}

bool IsYes(const FrmTank& form, std::string_view field) {
  const auto* entry = FindEntry(form, field);
  return entry != nullptr && entry->box.text == "Yes";
}

std::string_view PaintColor(std::string_view color_shade) {
  const auto* found = std::ranges::find(kPaints, color_shade, &std::pair<std::string_view, std::string_view>::first);
  return found == std::end(kPaints) ? kNoPaint : found->second;
}

}  // namespace orvex::entry
