#include "refdata/vapor_pressure_options.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "emission/liquid_temperature.h"
#include "emission/vapor_pressure_forms.h"
#include "store/run_time_error.h"

namespace orvex::refdata {
namespace {

double Computed(const RecordEditor& form, const VaporPressureOption& option, double surface_r) {
  const auto number = [&](std::size_t i) { return HeldNumber(form, option.fields[i]); };
  switch (option.number) {
    case 1: {
      std::array<double, std::size(kTableFields)> table{};
      std::ranges::transform(kTableFields, table.begin(), [&](auto field) { return HeldNumber(form, field); });
      return emission::TabulatedVaporPressure(table, surface_r);
    }
    case 2:
      return emission::AntoineVaporPressure(number(0), number(1), number(2), surface_r);
    case 3:
      return emission::KelvinVaporPressure(number(0), number(1), surface_r);
    default:
      return option.category == shell::kCrudeOils ? emission::CrudeOilVaporPressure(number(0), surface_r)
                                                  : emission::DistillateVaporPressure(number(0), number(1), surface_r);
  }
}

}  // namespace

bool IsFilled(const RecordEditor& form, const VaporPressureOption& option) {
  return (option.category.empty() || option.category == HeldText(form, "CATEGORY")) && AreFilled(form, option.fields);
}

std::optional<double> VaporPressure(const RecordEditor& form, const VaporPressureOption& option, double fahrenheit) {
  try {
    const double psia = Computed(form, option, emission::FahrenheitToRankine(fahrenheit));
    return std::isfinite(psia) ? std::optional(psia) : std::nullopt;
  } catch (const store::RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace orvex::refdata
