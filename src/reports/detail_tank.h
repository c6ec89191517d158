#pragma once

#include <cstdint>
#include <string>

#include "shell/periods.h"

namespace orvex::reports {

/// The tank whose part of a Detail or Summary report is being written.
struct DetailTank {
  std::int32_t id = 0;
  std::string unit;      ///< `ReportUnit`, the time basis on which it is shown: "Annual" or "Monthly"
  std::string name;      ///< `ReportTankName`
  std::string location;  ///< `ReportLocation`: "city, state", empty when one of them is not known

  [[nodiscard]] bool Monthly() const { return unit == shell::kMonthly; }
};

}  // namespace orvex::reports
