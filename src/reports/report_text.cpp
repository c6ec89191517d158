#include "reports/report_text.h"

#include "shell/periods.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kNoBreakSpace = "\u00A0";

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string NoBreakSpaces(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += kNoBreakSpace;
  return text;
}

std::string ReportTankName(std::string_view user_id, std::string_view tank_type) {
  std::string name(Trim(user_id));
  name += "   -   ";
  name += Trim(tank_type);
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
