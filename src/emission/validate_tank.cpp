#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "emission/arithmetic.h"
#include "emission/fitting_counts.h"
#include "emission/validation.h"
#include "shell/choices.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using std::string_view;

constexpr auto kFixedRoofTypes = std::to_array<string_view>({"Dome", "Cone"});
constexpr auto kFloatingRoofTypes = std::to_array<string_view>({"Pontoon", "Double Deck"});

constexpr string_view kNoSecondarySeal = "None";

// Tests: true when the rule fails for the field. A list test fails on a null, a comparison of numbers never does.

double Number(Validation& validation, string_view field) { return Comparable(validation.tank.Get(field)); }

bool IsZero(Validation& validation, string_view field) { return Number(validation, field) == 0; }

bool IsNotPositive(Validation& validation, string_view field) { return Number(validation, field) <= 0; }

bool IsBlank(Validation& validation, string_view field) { return validation.tank.TextOrEmpty(field).empty(); }

template <const auto& kList>
bool IsNotIn(Validation& validation, string_view field) {
  return std::ranges::find(kList, validation.tank.TextOrEmpty(field)) == std::ranges::end(kList);
}

template <const auto& kList>
bool IsAboveGroundAndNotIn(Validation& validation, string_view field) {
  return !validation.tank.BoolOrFalse("UNDER") && IsNotIn<kList>(validation, field);
}

bool ExceedsMaximumLiquidHeight(Validation& validation, string_view field) {
  return Number(validation, field) > Number(validation, "HEIGHT ML");
}

bool IsBelowMaximumLiquidHeight(Validation& validation, string_view field) {
  const double height = Number(validation, field);
  const double liquid_height = Number(validation, "HEIGHT ML");
  return height < liquid_height && IsNotZero(height) && IsNotZero(liquid_height);
}

bool HasBoltedDeck(Validation& validation) { return validation.tank.TextOrEmpty("DECK_TYPE") == "Bolted"; }

bool LacksDeckConstruction(Validation& validation, string_view field) {
  return HasBoltedDeck(validation) && IsNotIn<shell::kDeckConstructions>(validation, field);
}

bool LacksDeckSeam(Validation& validation, string_view field) {
  return HasBoltedDeck(validation) && IsBlank(validation, field) && IsZero(validation, "DECK_SEAM_LENGTH");
}

bool HasNoFittings(Validation& validation, string_view) {
  return validation.session.ClientDb->OpenAt("fittings", "fitid", {validation.ID}).NoMatch();
}

/// Completes the record: a field of the tank, stored at once.
template <typename Content>
void Complete(Validation& validation, string_view field, Content content) {
  validation.tank.Edit();
  validation.tank.Set(field, content);
  validation.tank.Update();
}

/// A missing secondary seal becomes "None" where the primary one may stand alone.
bool LacksSecondarySeal(Validation& validation, string_view field) {
  if (!IsBlank(validation, field)) return false;
  auto seals =
      validation.session.ReferenceDb->OpenAt("rimseal", "primsec", {validation.tank.Get("RIM_PRIM"), kNoSecondarySeal});
  if (seals.NoMatch()) return true;
  Complete(validation, field, kNoSecondarySeal);
  return false;
}

/// A roof on columns gets their usual number and diameter where these are 0; never fails.
bool CompleteColumns(Validation& validation, string_view) {
  if (validation.tank.BoolOrFalse("SELF_SUP")) return false;
  if (IsZero(validation, "COL_NO"))
    Complete(validation, "COL_NO", static_cast<double>(Columns(validation.tank.DoubleOrZero("DIAMETER"))));
  if (IsZero(validation, "COL_DIAM")) Complete(validation, "COL_DIAM", 1.0);
  return false;
}

/// One rule: the test, the field it looks at, what the person reads when it fails, and whether the solar and pressure
/// checks of the mixtures can't be made then.
struct Rule {
  bool (*fails)(Validation& validation, string_view field);
  string_view field;
  string_view message;
  bool clears_usable = false;
};

constexpr bool kClearsUsable = true;

// The rules of each type, in the order in which their rows are written. Words and capitals differ by type, and some
// rules speak in the words of another one: all as people know them.

constexpr Rule kHorizontalRules[] = {
    {IsZero, "DIAMETER", "Tank Diameter cannot be zero."},
    {IsZero, "HEIGHT S", "Shell length cannot be zero."},
    {IsNotPositive, "VOLUME", "Working volume must be specified."},
    {IsAboveGroundAndNotIn<shell::kColors>, "SHL COLSHD", "Shell color must be specified.", kClearsUsable},
    {IsAboveGroundAndNotIn<shell::kPaintConditions>, "PT_COND", "Paint condition must be specified.", kClearsUsable},
};

constexpr Rule kVerticalRules[] = {
    {IsZero, "DIAMETER", "Tank diameter cannot be zero."},
    {IsZero, "HEIGHT S", "Shell height cannot be zero."},
    {IsZero, "HEIGHT ML", "Maximum liquid height cannot be zero."},
    {IsZero, "HEIGHT AL", "Average liquid height cannot be zero."},
    {ExceedsMaximumLiquidHeight, "HEIGHT AL", "Average liquid height cannot exceed maximum liquid height."},
    {IsBelowMaximumLiquidHeight, "HEIGHT S", "Maximum liquid height cannot exceed shell height."},
    {IsZero, "VOLUME", "Tank volume cannot be zero."},
    {IsNotIn<shell::kColors>, "SHL COLSHD", "Shell color must be specified.", kClearsUsable},
    {IsNotIn<shell::kPaintConditions>, "PT_COND", "Paint condition must be specified.", kClearsUsable},
    {IsNotIn<shell::kColors>, "RF_COLSHD", "Shell color must be specified.", kClearsUsable},
    {IsNotIn<shell::kPaintConditions>, "RF_COND", "Roof condition must be specified.", kClearsUsable},
    {IsNotIn<kFixedRoofTypes>, "RF_TYPE", "Roof type must be specified."},
};

constexpr Rule kInternalRules[] = {
    {IsZero, "VOLUME", "Tank volume cannot be zero."},
    {IsZero, "DIAMETER", "Tank diameter cannot be zero."},
    {IsNotIn<shell::kColors>, "SHL COLSHD", "Shell color must be specified.", kClearsUsable},
    {IsNotIn<shell::kPaintConditions>, "PT_COND", "Paint condition must be specified.", kClearsUsable},
    {IsNotIn<shell::kShellConditions>, "SHL_COND", "Shell condition must be specified."},
    {IsNotIn<shell::kColors>, "RF_COLSHD", "Shell color must be specified.", kClearsUsable},
    {IsNotIn<shell::kPaintConditions>, "RF_COND", "Roof condition must be specified.", kClearsUsable},
    {IsBlank, "RIM_PRIM", "Primary seal type must be specified."},
    {LacksSecondarySeal, "RIM_SEC", "Secondary seal type must be specified."},
    {IsNotIn<shell::kFittingCategories>, "FITTING", "Roof fitting category must be specified."},
    {CompleteColumns, "COL_NO", ""},
    {IsNotIn<shell::kDeckTypes>, "DECK_TYPE", "Tank volume cannot be zero."},
    {LacksDeckConstruction, "DECK_CONSTRUCT", "Deck construction must be specified."},
    {LacksDeckSeam, "DECK_SEAM", "Deck seam type or deck seam length must be specified."},
    {HasNoFittings, "ID", "The tank must have fittings."},
};

constexpr Rule kExternalRules[] = {
    {IsZero, "VOLUME", "Tank volume cannot be zero."},
    {IsZero, "DIAMETER", "Tank diameter cannot be zero."},
    {IsNotIn<shell::kColors>, "SHL COLSHD", "Shell Color must be specified.", kClearsUsable},
    {IsNotIn<shell::kPaintConditions>, "PT_COND", "Paint Condition must be specified.", kClearsUsable},
    {IsNotIn<shell::kShellConditions>, "SHL_COND", "Shell Condition must be specified."},
    {IsNotIn<shell::kConstructions>, "TANK_CONSTRUCT", "Tank construction must be specified."},
    {IsBlank, "RIM_PRIM", "Primary seal type must be specified."},
    {LacksSecondarySeal, "RIM_SEC", "Secondary seal type must be specified."},
    {IsNotIn<shell::kFittingCategories>, "FITTING", "Roof fitting category must be specified."},
    {IsNotIn<kFloatingRoofTypes>, "RF_TYPE", "Roof Type must be specified."},
    {HasNoFittings, "ID", "The tank must have fittings."},
};

/// The rules of a type. Domed external floating roofs have none.
std::span<const Rule> RulesOf(string_view tank_type) {
  if (tank_type == shell::kHorizontal) return kHorizontalRules;
  if (tank_type == shell::kVerticalFixedRoof) return kVerticalRules;
  if (tank_type == shell::kInternalFloatingRoof) return kInternalRules;
  if (tank_type == shell::kExternalFloatingRoof) return kExternalRules;
  return {};
}

/// A computed volume {gal} as it is compared; a null stays one.
double Rounded(double volume) { return std::isnan(volume) ? volume : shell::RoundSixDecimals(volume); }

/// Volume {gal} of a cylinder {ft}.
double CylinderVolume(double diameter, double length) {
  return Rounded(3.14159 * ((diameter / 2) * (diameter / 2)) * length / 0.13368);
}

bool DiffersByMoreThanTenPercent(double volume, double computed) {
  return volume < Rounded(computed - computed * 0.1) || volume > Rounded(computed * 1.1);
}

}  // namespace

void CheckPhysicalRules(Validation& validation) {
  for (const Rule& rule : RulesOf(validation.tank_type)) {
    if (!rule.fails(validation, rule.field)) continue;
    validation.Fail(rule.message);
    if (rule.clears_usable) validation.TankUsable = false;
  }
}

void CheckVolumes(Validation& validation) {
  const double volume = Number(validation, "VOLUME");
  const double turnovers = Number(validation, "TURNOVER");
  const double net_throughput = Number(validation, "Q_NET");
  if (IsNotZero(turnovers) && !std::isnan(net_throughput) &&
      DiffersByMoreThanTenPercent(volume, Rounded(Divide(net_throughput, turnovers))))
    validation.Fail("The throughput, volume and turnovers must agree within 10%.");

  const double diameter = Number(validation, "DIAMETER");
  if (validation.tank_type == shell::kVerticalFixedRoof &&
      DiffersByMoreThanTenPercent(volume, CylinderVolume(diameter, Number(validation, "HEIGHT ML"))))
    validation.Fail("The volume, maximum shell height and diameter must agree within 10%.");
  // A working volume may be any part of a horizontal tank's capacity.
  if (validation.tank_type == shell::kHorizontal &&
      volume > Rounded(CylinderVolume(diameter, Number(validation, "HEIGHT S")) * 1.1))
    validation.Fail("The volume does not agree with the shell length and diameter.");
}

}  // namespace orvex::emission
