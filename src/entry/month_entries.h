#pragma once

#include <array>

#include "shell/controls.h"
#include "shell/periods.h"

namespace orvex::entry {

/// A month of the monthly page.
struct MonthEntry {
  shell::CheckBox chk;                                    ///< the month is in use
  shell::TextBox txtThru{.text = "0", .enabled = false};  ///< {gal}, enabled while the month is in use
  shell::ComboBox cboMix{
      .items = {}, .text = "", .visible = false};  ///< the mixture that it holds, shown while it is in use
};
using MonthEntries = std::array<MonthEntry, shell::kMonths.size()>;

struct MonthText {
  shell::ControlText chk, txtThru, cboMix;
};

/// January first.
inline constexpr std::array<MonthText, shell::kMonths.size()> kMonthTexts = {{
    {{"chkJAN", "January", "Whether the tank is used in January"},
     {"txtThruJAN", "Throughput", "Liquid pumped in in January (gal)"},
     {"cboMixJAN", "Mixture", "The mixture that the tank holds in January"}},
    {{"chkFEB", "February", "Whether the tank is used in February"},
     {"txtThruFEB", "Throughput", "Liquid pumped in in February (gal)"},
     {"cboMixFEB", "Mixture", "The mixture that the tank holds in February"}},
    {{"chkMAR", "March", "Whether the tank is used in March"},
     {"txtThruMAR", "Throughput", "Liquid pumped in in March (gal)"},
     {"cboMixMAR", "Mixture", "The mixture that the tank holds in March"}},
    {{"chkAPR", "April", "Whether the tank is used in April"},
     {"txtThruAPR", "Throughput", "Liquid pumped in in April (gal)"},
     {"cboMixAPR", "Mixture", "The mixture that the tank holds in April"}},
    {{"chkMAY", "May", "Whether the tank is used in May"},
     {"txtThruMAY", "Throughput", "Liquid pumped in in May (gal)"},
     {"cboMixMAY", "Mixture", "The mixture that the tank holds in May"}},
    {{"chkJUN", "June", "Whether the tank is used in June"},
     {"txtThruJUN", "Throughput", "Liquid pumped in in June (gal)"},
     {"cboMixJUN", "Mixture", "The mixture that the tank holds in June"}},
    {{"chkJUL", "July", "Whether the tank is used in July"},
     {"txtThruJUL", "Throughput", "Liquid pumped in in July (gal)"},
     {"cboMixJUL", "Mixture", "The mixture that the tank holds in July"}},
    {{"chkAUG", "August", "Whether the tank is used in August"},
     {"txtThruAUG", "Throughput", "Liquid pumped in in August (gal)"},
     {"cboMixAUG", "Mixture", "The mixture that the tank holds in August"}},
    {{"chkSEP", "September", "Whether the tank is used in September"},
     {"txtThruSEP", "Throughput", "Liquid pumped in in September (gal)"},
     {"cboMixSEP", "Mixture", "The mixture that the tank holds in September"}},
    {{"chkOCT", "October", "Whether the tank is used in October"},
     {"txtThruOCT", "Throughput", "Liquid pumped in in October (gal)"},
     {"cboMixOCT", "Mixture", "The mixture that the tank holds in October"}},
    {{"chkNOV", "November", "Whether the tank is used in November"},
     {"txtThruNOV", "Throughput", "Liquid pumped in in November (gal)"},
     {"cboMixNOV", "Mixture", "The mixture that the tank holds in November"}},
    {{"chkDEC", "December", "Whether the tank is used in December"},
     {"txtThruDEC", "Throughput", "Liquid pumped in in December (gal)"},
     {"cboMixDEC", "Mixture", "The mixture that the tank holds in December"}},
}};

}  // namespace orvex::entry
