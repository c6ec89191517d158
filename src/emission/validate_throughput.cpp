#include <array>
#include <cmath>
#include <string>

#include "emission/constants.h"
#include "emission/validation.h"
#include "shell/periods.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::emission {
namespace {

using shell::kMonths;
using shell::Statement;

/// What the tank's mixtures say together.
struct MixtureTotals {
  int MixtureCount = 0;
  double ThroughputSum = 0;  ///< {gal/yr}
  bool any_month = false;    ///< some mixture is stored in some month
};

MixtureTotals SumMixtures(Validation& validation) {
  MixtureTotals totals;
  validation.ForEachMixture([&] {
    ++totals.MixtureCount;
    for (const shell::Month& month : kMonths) {
      totals.ThroughputSum += validation.mixtures.DoubleOrZero(month.throughput);
      totals.any_month = totals.any_month || validation.mixtures.BoolOrFalse(month.name);
    }
    return true;
  });
  return totals;
}

/// Gives the first mixture all twelve months, and each of them its share of the tank's throughput.
void DistributeThroughput(Validation& validation) {
  auto mixture = validation.session.ClientDb->OpenAt("mixtures", "IDMIX", {validation.ID, 1});
  mixture.Edit();
  for (const shell::Month& month : kMonths) {
    mixture.Set(month.name, true);
    mixture.Set(month.throughput, validation.NetThroughput / kMonthsPerYear);
  }
  mixture.Update();
}

struct ThroughputRule {
  bool (*fails)(const MixtureTotals& totals, double net);
  std::string_view message;
};

// Zero passes the two rules on the sign although their words say otherwise, and the first of them looks at the tank.
constexpr ThroughputRule kThroughputRules[] = {
    {[](const MixtureTotals& totals, double) { return totals.MixtureCount > 1 && !totals.any_month; },
     "You have not selected a mixture for any of the months."},
    {[](const MixtureTotals&, double net) { return net < 0; },
     "The sum of the mixture throughputs must be greater than zero."},
    {[](const MixtureTotals& totals, double) { return totals.ThroughputSum < 0; },
     "The sum of the mixture throughputs must be greater than zero."},
    {[](const MixtureTotals& totals, double net) { return totals.ThroughputSum > 0 && net == 0; },
     "The total throughput is inconsistent with the sum of the mixture thruputs."},
    {[](const MixtureTotals& totals, double net) {
       return totals.ThroughputSum > 0 && net > 0 && std::abs(totals.ThroughputSum / net - 1) > 0.01;
     },
     "The total throughput is inconsistent with the sum of the mixture thruputs."},
};

double VaporPercentSum(Validation& validation, std::int32_t MixID) {
  double sum = 0;
  auto components = validation.session.ClientDb->OpenMatching("components", "IDMIX", {validation.ID, MixID});
  for (; !components.AtEnd(); components.MoveNext()) sum += components.DoubleOrZero("VP_FRACT");
  return sum;
}

/// True where a mixture's months can't be told apart: its vapor pressure is known at one temperature only.
bool NeedsChemicalRecord(Validation& validation) {
  const std::string speciation = validation.mixtures.TextOrEmpty("SPEC_OPT");
  if (speciation == shell::kPartialSpeciation || speciation == shell::kNoSpeciation) return true;
  if (speciation != shell::kVaporWeightSpeciation) return false;
  const double sum = VaporPercentSum(validation, validation.mixtures.LongOrZero("MIX ID"));
  return sum < 99.9 || sum > 100.1;
}

}  // namespace

void CheckMonthlyMixtures(Validation& validation) {
  auto& mixtures = validation.mixtures;
  auto chemicals = validation.session.ReferenceDb->OpenTable("chemical");
  chemicals.SetIndex("chemname");
  int MonthCount = 0;  // runs on from mixture to mixture
  validation.ForEachMixture([&] {
    for (std::size_t i = 0; i < kMonths.size(); ++i)
      if (mixtures.BoolOrFalse(kMonths[i].name) && validation.session.MonthSelected[i]) ++MonthCount;
    if (MonthCount == 1) return true;
    chemicals.Seek({mixtures.Get("MIX NAME")});
    if (chemicals.NoMatch() && NeedsChemicalRecord(validation)) {
      validation.Fail("Mixture: " + mixtures.TextOrEmpty("MIX NAME") +
                      " You may not run a monthly report for more than one month for a mixture not part of the "
                      "chemical database.  Add this chemical to the chemical database if you want to run monthly "
                      "reports for this chemical.");
    }
    return true;
  });
}

bool CheckThroughput(Validation& validation) {
  MixtureTotals totals = SumMixtures(validation);
  if (totals.MixtureCount == 0) {
    validation.Fail("There is no mixture information for this tank!");
    return false;
  }
  if (totals.ThroughputSum == 0 && totals.MixtureCount == 1) {
    Statement([&] { DistributeThroughput(validation); });
    totals.ThroughputSum = validation.NetThroughput;
  }
  for (const ThroughputRule& rule : kThroughputRules)
    if (rule.fails(totals, validation.NetThroughput)) validation.Fail(rule.message);
  return true;
}

}  // namespace orvex::emission
