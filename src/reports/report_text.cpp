#include "reports/report_text.h"

#include "shell/periods.h"
#include "store/blanks.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kNoBreakSpace = "\u00A0";

}  // namespace

std::string NoBreakSpaces(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += kNoBreakSpace;
  return text;
}

std::string ReportTankName(std::string_view user_id, std::string_view tank_type) {
  std::string name(store::WithoutBlanks(user_id));
  name += "   -   ";
  name += store::WithoutBlanks(tank_type);
  return name;
}

std::string PeriodText(const shell::Session& session) {
  if (session.ReportTime != shell::kMonthly) return std::string(shell::kAnnual);
  std::string text;
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
    if (!session.MonthSelected[i]) continue;
    if (!text.empty()) text += ", ";
    text += shell::kMonths[i].name;
  }
  return text;
}

}  // namespace orvex::reports
