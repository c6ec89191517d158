#pragma once

#include <array>
#include <cstddef>

#include "shell/controls.h"
#include "shell/periods.h"

namespace orvex::reports {

/// `chkJAN` to `chkDEC`: the boxes that choose the months of a report, January first.
using MonthBoxes = std::array<shell::CheckBox, shell::kMonths.size()>;

/// In the order of `MonthBoxes`. No access key is one of `A`, `C`, `E`, `H`, `K`, `R` and `T`, which the windows'
/// other controls have.
inline constexpr std::array<shell::ControlText, shell::kMonths.size()> kMonthBoxTexts = {{
    {"chkJAN", "&January", "Report on January"},
    {"chkFEB", "&February", "Report on February"},
    {"chkMAR", "&March", "Report on March"},
    {"chkAPR", "A&pril", "Report on April"},
    {"chkMAY", "Ma&y", "Report on May"},
    {"chkJUN", "J&une", "Report on June"},
    {"chkJUL", "Ju&ly", "Report on July"},
    {"chkAUG", "Au&gust", "Report on August"},
    {"chkSEP", "&September", "Report on September"},
    {"chkOCT", "&October", "Report on October"},
    {"chkNOV", "&November", "Report on November"},
    {"chkDEC", "&December", "Report on December"},
}};

/// The month boxes and then a window's other controls.
template <std::size_t kCount>
constexpr std::array<shell::ControlText, shell::kMonths.size() + kCount> MonthBoxTextsAnd(
    const shell::ControlText (&others)[kCount]) {
  std::array<shell::ControlText, shell::kMonths.size() + kCount> texts{};
  for (std::size_t i = 0; i < texts.size(); ++i)
    texts[i] = i < kMonthBoxTexts.size() ? kMonthBoxTexts[i] : others[i - kMonthBoxTexts.size()];
  return texts;
}

[[nodiscard]] bool AnyTicked(const MonthBoxes& boxes);
void TickAll(MonthBoxes& boxes);

/// Each month's box as `MonthSelected` keeps it: true when ticked.
[[nodiscard]] std::array<bool, shell::kMonths.size()> Ticks(const MonthBoxes& boxes);

}  // namespace orvex::reports
