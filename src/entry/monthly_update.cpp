#include "entry/monthly_update.h"

#include <algorithm>

#include "entry/month_page.h"
#include "entry/physical_rules.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/status.h"

namespace orvex::entry {
namespace {

using shell::Session;

bool IsTicked(const MonthEntry& month) { return month.chk.checked; }

double TickedSum(const FrmTank& form) {
  double sum = 0;
  for (const auto& month : form.months)
    if (IsTicked(month) && !month.txtThru.text.empty()) sum += shell::EntryNumber(month.txtThru.text);
  return shell::RoundSixDecimals(sum);
}

void TickAll(Session& session, FrmTank& form) {
  for (std::size_t month = 0; month < form.months.size(); ++month) TickMonth(session, form, month, true);
}

/// Gives each ticked month the same share; all twelve when none is ticked.
void Distribute(Session& session, FrmTank& form, double throughput_gal) {
  if (std::ranges::none_of(form.months, IsTicked)) TickAll(session, form);
  const auto share = throughput_gal / static_cast<double>(std::ranges::count_if(form.months, IsTicked));
  for (auto& month : form.months)
    if (IsTicked(month)) month.txtThru.text = shell::FormatTwoToSixDecimals(share);
}

}  // namespace

bool OutOfStep(double months_gal, double throughput_gal) {
  return months_gal < throughput_gal - throughput_gal * 0.001 || months_gal > throughput_gal * 1.001;
}

void MonthlyUpdate(Session& session, FrmTank& form) {
  const auto throughput_gal = Number(Physical(form, "Q_NET"));
  if (OutOfStep(TickedSum(form), throughput_gal) &&
      shell::Accepted(session.host, "Update monthly throughput information?", "Update?", shell::Icon::kQuestion))
    Distribute(session, form, throughput_gal);
  ShowMonthTotal(form);
}

}  // namespace orvex::entry
