#include "reports/report_unit.h"

#include <algorithm>

#include "shell/periods.h"

namespace orvex::reports {
namespace {

bool MonthsAreEqual(store::RecordSet& mixture) {
  const bool first = mixture.BoolOrFalse(shell::kMonths.front().name);
  return std::ranges::all_of(shell::kMonths,
                             [&](const shell::Month& month) { return mixture.BoolOrFalse(month.name) == first; });
}

}  // namespace

store::RecordSet OpenMixtures(shell::Session& session) {
  auto mixtures = session.ClientDb->OpenTable("mixtures");
  mixtures.SetIndex("IDMIX");
  return mixtures;
}

std::string ReportUnit(const shell::Session& session, store::RecordSet& mixtures, std::int32_t ID) {
  int count = 0;
  bool same_all_year = true;
  mixtures.Seek({ID});
  if (!mixtures.NoMatch()) {
    for (; !mixtures.AtEnd() && mixtures.LongOrZero("ID") == ID; mixtures.MoveNext()) {
      ++count;
      same_all_year = same_all_year && MonthsAreEqual(mixtures);
    }
  }
  if (session.ReportTime == shell::kAnnual && (count > 1 || !same_all_year)) return std::string(shell::kMonthly);
  return session.ReportTime;
}

}  // namespace orvex::reports
