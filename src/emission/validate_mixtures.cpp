#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "emission/arithmetic.h"
#include "emission/fixed_roof.h"
#include "emission/liquid_temperature.h"
#include "emission/mixture.h"
#include "emission/solar.h"
#include "emission/validation.h"
#include "emission/vapor_pressure.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::emission {
namespace {

using std::string_view;

/// One row of `mixtures`; numbers as `Comparable` gives them.
struct Mixture {
  std::int32_t MixID;
  std::string name, category, component, speciation;
  double average_f, minimum_f, maximum_f;
  double liquid_weight, vapor_weight, liquid_density;
  double average_psia, minimum_psia, maximum_psia;
};

/// One row of `components`; numbers as `Comparable` gives them.
struct Component {
  std::string name;
  double weight_percent, relative_weight, vapor_percent;
  double liquid_weight, vapor_weight;
};

Mixture ReadMixture(store::RecordSet& rows) {
  const auto number = [&](string_view field) { return Comparable(rows.Get(field)); };
  return {.MixID = rows.LongOrZero("MIX ID"),
          .name = rows.TextOrEmpty("MIX NAME"),
          .category = rows.TextOrEmpty("C_CATEGORY"),
          .component = rows.TextOrEmpty("COMPONENT"),
          .speciation = rows.TextOrEmpty("SPEC_OPT"),
          .average_f = number("ALS_TEMP"),
          .minimum_f = number("MLS_TEMP"),
          .maximum_f = number("XLS_TEMP"),
          .liquid_weight = number("MOLWT"),
          .vapor_weight = number("VP_MOLWT"),
          .liquid_density = number("L_DENS"),
          .average_psia = number("VP"),
          .minimum_psia = number("VP_MIN"),
          .maximum_psia = number("VP_MAX")};
}

std::vector<Component> ReadComponents(Validation& validation, std::int32_t MixID) {
  std::vector<Component> components;
  auto rows = validation.session.ClientDb->OpenMatching("components", "IDMIX", {validation.ID, MixID});
  const auto number = [&](string_view field) { return Comparable(rows.Get(field)); };
  for (; !rows.AtEnd(); rows.MoveNext()) {
    components.push_back({.name = rows.TextOrEmpty("NAME"),
                          .weight_percent = number("WT_FRACT"),
                          .relative_weight = number("WEIGHT"),
                          .vapor_percent = number("VP_FRACT"),
                          .liquid_weight = number("MOLWT"),
                          .vapor_weight = number("VP_MOLWT")});
  }
  return components;
}

// Rules on a mixture's own row ---------------------------------------------------------------------------------------

constexpr auto kCategories =
    std::to_array<string_view>({shell::kOrganicLiquids, shell::kPetroleumDistillates, shell::kCrudeOils});

// No tank bears the last name: internal floating roofs are exempt from these rules on purpose.
constexpr auto kTypesWithLiquidRules = std::to_array<string_view>(
    {shell::kDomedExternalFloatingRoof, shell::kExternalFloatingRoof, "Internal Floating Roof recTank"});

template <typename List>
bool IsOneOf(string_view text, const List& list) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

/// True when the stored liquid data count: they are neither computed from components nor a chemical's.
bool HasOwnLiquidData(const Mixture& mixture) {
  return mixture.speciation != shell::kFullSpeciation && mixture.component != shell::kSingle;
}

bool NeedsFloatingRoofData(const Mixture& mixture, const Validation& validation) {
  return HasOwnLiquidData(mixture) && IsOneOf(validation.tank_type, kTypesWithLiquidRules);
}

struct MixtureRule {
  bool (*fails)(const Mixture& mixture, const Validation& validation);
  string_view text;                  ///< behind the mixture's name
  string_view behind_pressure = {};  ///< if set, the atmospheric pressure and this follow the text
};

constexpr MixtureRule kMixtureRules[] = {
    {[](const Mixture& m, const Validation&) { return !IsOneOf(m.category, kCategories); },
     "  Chemical Category must be specified."},
    {[](const Mixture& m, const Validation&) { return m.average_f < 0 || m.minimum_f < 0 || m.maximum_f < 0; },
     "  Liquid Temperatures cannot be less than zero."},
    {[](const Mixture& m, const Validation&) { return m.average_f > m.maximum_f && IsNotZero(m.maximum_f); },
     "  Average liquid surface temperature is greater than the maximum liquid surface temperature."},
    {[](const Mixture& m, const Validation&) { return m.average_f < m.minimum_f && IsNotZero(m.maximum_f); },
     "  Average liquid surface temperature is less than the minimum liquid surface temperature."},
    {[](const Mixture& m, const Validation&) { return m.speciation != shell::kNoSpeciation && m.liquid_weight <= 0; },
     "  Liquid molecular weight must be specified."},
    {[](const Mixture& m, const Validation&) { return m.vapor_weight <= 0; },
     "  Vapor molecular weight must be specified."},
    {[](const Mixture& m, const Validation& v) {
       return m.average_psia >= v.AtmosphericPressure || m.minimum_psia >= v.AtmosphericPressure ||
              m.maximum_psia >= v.AtmosphericPressure;
     },
     "  Vapor pressures must not be greater than ", " psia. (The atmospheric pressure of the nearest city.)"},
    {[](const Mixture& m, const Validation& v) {
       return shell::IsFixedRoof(v.tank_type) && HasOwnLiquidData(m) &&
              (m.average_psia <= 0 || m.minimum_psia <= 0 || m.maximum_psia <= 0);
     },
     "  Vapor pressures must be greater than zero."},
    {[](const Mixture& m, const Validation& v) { return NeedsFloatingRoofData(m, v) && m.average_psia <= 0; },
     "  Vapor pressure must be greater than zero."},
    {[](const Mixture& m, const Validation& v) { return NeedsFloatingRoofData(m, v) && m.liquid_density <= 0; },
     "  Liquid Density must be greater than zero."},
};

void FailMixture(Validation& validation, const Mixture& mixture, string_view text) {
  validation.Fail("Mixture: " + mixture.name + std::string(text));
}

void CheckMixtureRow(Validation& validation, const Mixture& mixture) {
  for (const MixtureRule& rule : kMixtureRules) {
    if (!rule.fails(mixture, validation)) continue;
    std::string text(rule.text);
    if (!rule.behind_pressure.empty())
      text.append(shell::PlainDecimal(validation.AtmosphericPressure)).append(rule.behind_pressure);
    FailMixture(validation, mixture, text);
  }
}

// Rules on the components --------------------------------------------------------------------------------------------

void CheckLiquidPercents(Validation& validation, const Mixture& mixture, const std::vector<Component>& components) {
  double sum = 0;
  for (const Component& component : components) {
    if (component.weight_percent > 0) {
      sum += component.weight_percent;
    } else {
      sum = 100;  // relative weights need no certain sum
    }
  }
  if (sum < 99.9 || sum > 100.1) FailMixture(validation, mixture, "  Liquid weight percents do not add up to 100.");
}

double WeightSum(const std::vector<Component>& components) {
  double sum = 0;
  for (const Component& component : components) {
    if (component.weight_percent > 0) {
      sum += component.weight_percent;
    } else if (component.relative_weight > 0) {
      sum += component.relative_weight;
    }
  }
  return sum;
}

bool HasNoShare(const Mixture& mixture, const Component& component) {
  if (mixture.speciation == shell::kFullSpeciation)
    return component.relative_weight == 0 && component.weight_percent == 0;
  if (mixture.speciation == shell::kPartialSpeciation) return component.weight_percent == 0;
  return mixture.speciation == shell::kVaporWeightSpeciation && component.vapor_percent == 0;
}

/// Mole fraction of a component in the liquid; `weight_sum` is that of all components.
double LiquidMoleFraction(const Mixture& mixture, const Component& component, double weight_sum) {
  const double share = component.weight_percent > 0 ? component.weight_percent / 100
                                                    : Divide(ZeroIfNull(component.relative_weight), weight_sum);
  return Divide(share * mixture.liquid_weight, ZeroIfNull(component.liquid_weight));
}

/// The components must not give more vapor than the whole mixture at its vapor pressure {psia}.
void CheckVaporFractions(Validation& validation, const Mixture& mixture, const std::vector<Component>& components,
                         double average_r, double vapor_pressure) {
  const double weight_sum = WeightSum(components);
  if (weight_sum > 100 && mixture.speciation != shell::kFullSpeciation)
    FailMixture(validation, mixture, "  Liquid weight percents add up to greater than 100.");
  double mole_sum = 0;
  double weight_fraction_sum = 0;
  for (const Component& component : components) {
    if (HasNoShare(mixture, component)) {
      validation.Fail("One or more components have weight fractions of zero.");
      break;
    }
    if (mixture.speciation == shell::kVaporWeightSpeciation) {
      weight_fraction_sum += ZeroIfNull(component.vapor_percent) / 100;
      continue;
    }
    const double partial_pressure =
        LiquidMoleFraction(mixture, component, weight_sum) * PVA(validation.session, component.name, average_r);
    const double mole_fraction = partial_pressure / vapor_pressure;
    weight_fraction_sum += mole_fraction * ZeroIfNull(component.vapor_weight) / mixture.vapor_weight;
    mole_sum += mole_fraction;
  }
  if (weight_fraction_sum > 1.01 || mole_sum > 1.01) {
    FailMixture(validation, mixture,
                "  The vapor mole fractions or vapor weight percents for the component information you entered add up "
                "to more than one.  Therefore, the component information is inconsistent with the information "
                "specified for the mixture. ");
  }
}

// Breather vents -----------------------------------------------------------------------------------------------------

/// Surface temperatures of a mixture {R}.
struct SurfaceTemperatures {
  double average, minimum, maximum;
};

/// False when the factor can't be computed, which ends the validation.
bool CheckVents(Validation& validation, const Mixture& mixture, const SurfaceTemperatures& surface) {
  auto& tank = validation.tank;
  const ExpansionInputs inputs = {.ambient_max_r = surface.maximum,
                                  .ambient_min_r = surface.minimum,
                                  .absorptance = Solar(tank.TextOrEmpty("SHL COLSHD"), tank.TextOrEmpty("PT_COND"),
                                                       tank.TextOrEmpty("RF_COLSHD"), tank.TextOrEmpty("RF_COND")),
                                  .insolation = validation.Insolation,
                                  .average_surface_r = surface.average,
                                  .atmospheric_psia = validation.AtmosphericPressure,
                                  .vent_pressure_psig = tank.DoubleOrZero("VENT_P"),
                                  .vent_vacuum_psig = tank.DoubleOrZero("VENT_V"),
                                  .average_psia = ZeroIfNull(mixture.average_psia),
                                  .maximum_psia = ZeroIfNull(mixture.maximum_psia),
                                  .minimum_psia = ZeroIfNull(mixture.minimum_psia),
                                  .heated = validation.heated};
  if (inputs.average_surface_r == 0 || inputs.atmospheric_psia - inputs.average_psia == 0) return false;
  const double factor =
      shell::Trapped(validation.session, "modEmission.VaporExpansion", 0.0, [&] { return VaporExpansion(inputs); });
  if (factor < 0) {
    FailMixture(validation, mixture,
                "Based on the vapor pressure range and the breather vent pressure settings for the tank, the "
                "calculated value for the expansion factor is negative.  Please check the breather vent pressure "
                "settings and the vapor pressure values.  For heated tanks at constant temperature, the breather "
                "vents must be set to zero.");
  }
  return true;
}

/// False when what follows can't be computed: the validation then ends, and later mixtures wait until this one is
/// mended.
bool CheckMixture(Validation& validation, const Mixture& mixture) {
  CheckMixtureRow(validation, mixture);
  const bool full = mixture.speciation == shell::kFullSpeciation;
  const std::vector<Component> components = ReadComponents(validation, mixture.MixID);
  if (full) CheckLiquidPercents(validation, mixture, components);

  const SurfaceTemperatures surface = {.average = FahrenheitToRankine(ZeroIfNull(mixture.average_f)),
                                       .minimum = FahrenheitToRankine(ZeroIfNull(mixture.minimum_f)),
                                       .maximum = FahrenheitToRankine(ZeroIfNull(mixture.maximum_f))};
  const double vapor_pressure = full ? MixturePVA(validation.session, validation.ID, mixture.MixID, surface.average)
                                     : ZeroIfNull(mixture.average_psia);
  if (ZeroIfNull(mixture.vapor_weight) <= 0 || ZeroIfNull(mixture.liquid_weight) <= 0 || vapor_pressure <= 0)
    return false;

  CheckVaporFractions(validation, mixture, components, surface.average, vapor_pressure);
  return !shell::IsFixedRoof(validation.tank_type) || CheckVents(validation, mixture, surface);
}

}  // namespace

void CheckMixtures(Validation& validation) {
  validation.ForEachMixture([&] { return CheckMixture(validation, ReadMixture(validation.mixtures)); });
}

}  // namespace orvex::emission
