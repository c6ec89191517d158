#include "emission/emiss_fix.h"

#include <array>

#include "emission/arithmetic.h"
#include "emission/constants.h"
#include "emission/emission_row.h"
#include "emission/error_rows.h"
#include "emission/field_reading.h"
#include "emission/fixed_roof.h"
#include "emission/liquid_temperature.h"
#include "emission/mixture.h"
#include "emission/paint.h"
#include "emission/period_weather.h"
#include "emission/routine.h"
#include "emission/solar.h"
#include "emission/vapor_pressure.h"
#include "shell/periods.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using shell::Session;
using std::int32_t;
using store::RecordSet;

/// What the equations take from the tank's row; null reads as an empty text, 0 or false.
struct Tank {
  std::string user_id, type, roof_type;
  Paint paint;
  double diameter, shell_height, roof_height, average_liquid_height, cone_slope, dome_radius;
  double vent_pressure, vent_vacuum, turnovers, net_throughput;
  bool underground, heated;

  /// The ground keeps the liquid at one temperature, so the tank does not breathe.
  [[nodiscard]] bool AtGroundTemperature() const { return underground && !heated; }
  [[nodiscard]] RoofShape Shape() const {
    return {type, roof_type, cone_slope, shell_height, average_liquid_height, roof_height};
  }
};

Tank ReadTank(RecordSet& tank) {
  return {.user_id = ReadTextOrEmpty(tank, "USER ID"),
          .type = ReadTextOrEmpty(tank, "TANK_TYPE"),
          .roof_type = ReadTextOrEmpty(tank, "RF_TYPE"),
          .paint = ReadPaint(tank),
          .diameter = ReadNumberOrZero(tank, "DIAMETER"),
          .shell_height = ReadNumberOrZero(tank, "HEIGHT S"),
          .roof_height = ReadNumberOrZero(tank, "RF_HEIGHT"),
          .average_liquid_height = ReadNumberOrZero(tank, "HEIGHT AL"),
          .cone_slope = ReadNumberOrZero(tank, "C_SLOPE"),
          .dome_radius = ReadNumberOrZero(tank, "D_RADIUS"),
          .vent_pressure = ReadNumberOrZero(tank, "VENT_P"),
          .vent_vacuum = ReadNumberOrZero(tank, "VENT_V"),
          .turnovers = ReadNumberOrZero(tank, "TURNOVER"),
          .net_throughput = ReadNumberOrZero(tank, "Q_NET"),
          .underground = ReadFlagOrFalse(tank, "UNDER"),
          .heated = ReadFlagOrFalse(tank, "HEATED")};
}

/// Temperatures of a period {R}.
struct Temperatures {
  double average;            ///< T_LA: liquid surface
  double maximum;            ///< T_LX
  double minimum;            ///< T_LN
  double expansion_maximum;  ///< T_AX: the pair that drives the vapor space expansion
  double expansion_minimum;  ///< T_AN
  double bulk;               ///< T_B
};

Temperatures PeriodTemperatures(Session& session, const Tank& tank, RecordSet& mixture, const PeriodData& period,
                                double annual_ambient_f, double absorptance) {
  if (tank.heated) {
    const auto stored_r = [&](std::string_view field) { return FahrenheitToRankine(ReadNumber(mixture, field)); };
    const double maximum = stored_r("XLS_TEMP");
    const double minimum = stored_r("MLS_TEMP");
    return {stored_r("ALS_TEMP"), maximum, minimum, maximum, minimum, stored_r("BULK_TEMP")};
  }
  const double ambient = FahrenheitToRankine(annual_ambient_f);
  const double bulk = BulkTemperature(ambient, absorptance);
  const double average = Routine(session, "modEmission.ALST", [&] {
    return ALST(ambient, FahrenheitToRankine(period.ambient_f), absorptance, period.insolation);
  });
  if (tank.underground) return {average, average, average, ambient, ambient, bulk};
  const double ambient_max = FahrenheitToRankine(period.ambient_max_f);
  const double ambient_min = FahrenheitToRankine(period.ambient_min_f);
  return {average,
          MaxLiquidTemp(average, ambient_max, ambient_min, absorptance, period.insolation),
          MinLiquidTemp(average, ambient_max, ambient_min, absorptance, period.insolation),
          ambient_max,
          ambient_min,
          bulk};
}

/// The stored liquid at the period's temperatures.
struct Liquid {
  double average_psia = 0, maximum_psia = 0, minimum_psia = 0;  ///< P_VA, P_VX, P_VN
  double vapor_weight = 0, liquid_weight = 0;                   ///< M_V, M_L {lb/lb-mole}
};

Liquid ReadLiquid(Session& session, int32_t ID, int32_t MixID, RecordSet& mixture, const std::string& name,
                  const Temperatures& t) {
  Liquid liquid;
  const std::string component = ReadText(mixture, "COMPONENT");
  if (component != shell::kSingle && component != shell::kMultiple) return liquid;
  const std::string speciation = component == shell::kSingle ? "" : ReadText(mixture, "SPEC_OPT");
  if (speciation == shell::kFullSpeciation) {
    liquid.average_psia = MixturePVA(session, ID, MixID, t.average);
    liquid.minimum_psia = MixturePVA(session, ID, MixID, t.minimum);
    liquid.maximum_psia = MixturePVA(session, ID, MixID, t.maximum);
    liquid.vapor_weight = MixVaporMW(session, ID, MixID, t.average);
    liquid.liquid_weight = MixLiquidMW(session, ID, MixID);
    return liquid;
  }
  liquid.vapor_weight = ReadNumber(mixture, "VP_MOLWT");
  liquid.liquid_weight = ReadNumber(mixture, "MOLWT");
  if (component == shell::kSingle || IsChemical(session, name)) {
    liquid.average_psia = PVA(session, name, t.average);
    liquid.maximum_psia = PVA(session, name, t.maximum);
    liquid.minimum_psia = PVA(session, name, t.minimum);
  } else {
    liquid.average_psia = ReadNumber(mixture, "VP");
    liquid.maximum_psia = ReadNumber(mixture, "VP_MAX");
    liquid.minimum_psia = ReadNumber(mixture, "VP_MIN");
  }
  if (speciation == shell::kVaporWeightSpeciation && VaporFractionsComplete(session, ID, MixID)) {
    liquid.average_psia = VapMixPV(session, ID, MixID, t.average);
    liquid.maximum_psia = VapMixPVMinMax(session, ID, MixID, t.average, t.maximum);
    liquid.minimum_psia = VapMixPVMinMax(session, ID, MixID, t.average, t.minimum);
    liquid.liquid_weight = VapMixLiquidMWf(session, ID, MixID, t.average);
    liquid.vapor_weight = VapMixVaporMW(session, ID, MixID);
  }
  return liquid;
}

/// Everything computed on the way to the two losses.
struct Losses {
  double effective_diameter, roof_outage = 0, vapor_outage = 0, vapor_volume = 0, vapor_density = 0;
  double k_e = 0, k_s = 0, k_n = 0, k_p = 0, standing = 0, working = 0;
  double dome_radius;  ///< as the outage routines leave it
};

Losses ComputeLosses(Session& session, const Tank& tank, const PeriodData& period, const Temperatures& t,
                     const Liquid& liquid, const ExpansionInputs& expansion, const std::string& category) {
  Losses losses{};
  losses.dome_radius = tank.dome_radius;
  const RoofShape shape = tank.Shape();
  losses.effective_diameter =
      Routine(session, "modEmission.EffDiam", [&] { return EffDiam(tank.diameter, tank.shell_height, tank.type); });
  const double d_e = losses.effective_diameter;
  if (!tank.AtGroundTemperature()) {
    losses.roof_outage = Routine(session, "modEmission.HRO", [&] { return HRO(shape, d_e, losses.dome_radius); });
  }
  losses.vapor_outage =
      Routine(session, "modEmission.HVO", [&] { return HVO(shape, d_e, losses.dome_radius, tank.diameter); });
  losses.vapor_volume =
      Routine(session, "modEmission.VaporVolume", [&] { return VaporVolume(losses.vapor_outage, d_e); });
  if (!tank.AtGroundTemperature()) {
    losses.vapor_density = Divide(liquid.vapor_weight * liquid.average_psia, kGasConstant * t.average);
    losses.k_s = Routine(session, "modEmission.VaporSaturation",
                         [&] { return VaporSaturation(liquid.average_psia, losses.vapor_outage); });
    losses.k_e = Routine(session, "modEmission.VaporExpansion", [&] { return VaporExpansion(expansion); });
    losses.standing = Finite(period.days * losses.vapor_volume * losses.vapor_density * losses.k_e * losses.k_s);
  }
  losses.k_p = KP(category);
  losses.k_n = Routine(session, "modEmission.TurnoverFactor", [&] { return TurnoverFactor(tank.turnovers); });
  losses.working = Routine(session, "modEmission.WorkingLoss", [&] {
    return WorkingLoss(liquid.vapor_weight, liquid.average_psia, period.throughput_gal, losses.k_n, losses.k_p);
  });
  return losses;
}

constexpr std::array<std::string_view, 5> kPaintFields = {"SHL COLSHD", "PT_COND", "RF_COLSHD", "RF_COND", "RF_TYPE"};
constexpr std::array<std::string_view, 6> kTankNumbers = {"DIAMETER", "VOLUME", "TURNOVER",
                                                          "VENT_P",   "VENT_V", "C_SLOPE"};
constexpr std::array<std::string_view, 2> kTankFlags = {"UNDER", "HEATED"};
constexpr std::array<std::string_view, 5> kFloatingRoofOnly = {"RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS",
                                                               "N_FACT"};

struct NamedNumber {
  std::string_view field;
  double value;
};

void WriteRow(RecordSet& row, RecordSet& tank_row, const Tank& tank, const PeriodData& period, const Temperatures& t,
              const Liquid& liquid, const ExpansionInputs& expansion, const Losses& losses) {
  CopyTexts(tank_row, row, kTankIdentity);
  CopyTexts(tank_row, row, kPaintFields);
  CopyNumbers(tank_row, row, kTankNumbers);
  CopyFlags(tank_row, row, kTankFlags);
  SetZero(row, kComponentShares);
  SetZero(row, kFloatingRoofOnly);
  const bool horizontal = tank.type == shell::kHorizontal;
  const NamedNumber numbers[] = {
      {"AMB_T", period.ambient_f},
      {"T_MIN", period.ambient_min_f},
      {"T_MAX", period.ambient_max_f},
      {"INSOL", period.insolation},
      {"P_A", expansion.atmospheric_psia},
      {"S_LOSS", losses.standing},
      {"W_LOSS", losses.working},
      {"MOLWT", liquid.liquid_weight},
      {"VP_MOLWT", liquid.vapor_weight},
      {"ALPHA", ShellSolar(tank.paint.shell_colour, tank.paint.shell_condition)},
      {"ALPHA_2", RoofSolar(tank.paint.roof_colour, tank.paint.roof_condition)},
      {"ALS_TEMP", t.average},
      {"MLS_TEMP", t.minimum},
      {"XLS_TEMP", t.maximum},
      {"BULK_T", t.bulk},
      {"A_VP", liquid.average_psia},
      {"M_VP", liquid.minimum_psia},
      {"X_VP", liquid.maximum_psia},
      {"EFF_DIAM", horizontal ? losses.effective_diameter : tank.diameter},
      {"HEIGHT_S", tank.shell_height},
      {"HEIGHT_R", tank.roof_height},
      {"HEIGHT_L", ReadNumberOrZero(tank_row, "HEIGHT ML")},
      {"HEIGHT_AL", tank.average_liquid_height},
      {"Q_NET", period.throughput_gal},
      {"VP_RANGE", liquid.maximum_psia - liquid.minimum_psia},
      {"T_RANGE", period.ambient_max_f - period.ambient_min_f},
      {"VT_RANGE", VaporTemperatureRange(expansion)},
      {"RF_OUT", losses.roof_outage},
      {"VS_OUT", losses.vapor_outage},
      {"VS_VOL", losses.vapor_volume},
      {"V_DENS", losses.vapor_density},
      {"BV_RANGE", tank.vent_pressure - tank.vent_vacuum},
      {"K_E", losses.k_e},
      {"K_S", losses.k_s},
      {"K_N", losses.k_n},
      {"K_P", losses.k_p},
      {"D_RADIUS", losses.dome_radius},
  };
  for (const auto& [field, value] : numbers) row.Set(field, value);
}

void Compute(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {ID, MixID});
  if (Month != shell::kAnnual && !ReadFlag(mixture, Month)) return;

  auto tank_row = session.ClientDb->OpenAt("tank", "ID", {ID});
  const Tank tank = ReadTank(tank_row);
  auto weather = session.ReferenceDb->OpenAt("met", "CTYST", {ReadTextOrEmpty(tank_row, "MET CTYST")});
  const double annual_ambient_f = ReadNumber(weather, "A_TEMP_DAA");
  const double atmospheric_psia = ReadNumber(weather, "ATMOS_PRS");
  const std::string category = ReadTextOrEmpty(mixture, "C_CATEGORY");
  const PeriodData period = ReadPeriod(weather, mixture, Month, tank.net_throughput, Wind::kWithout);

  const double absorptance = tank.underground ? 0 : tank.paint.Absorptance();
  const Temperatures t = PeriodTemperatures(session, tank, mixture, period, annual_ambient_f, absorptance);
  const std::string name = ReadText(mixture, "MIX NAME");
  const std::string cas = ReadTextOrEmpty(mixture, "CAS");
  Liquid liquid = ReadLiquid(session, ID, MixID, mixture, name, t);
  if (tank.AtGroundTemperature()) liquid.maximum_psia = liquid.minimum_psia = liquid.average_psia;
  if (liquid.average_psia > atmospheric_psia || liquid.maximum_psia > atmospheric_psia ||
      liquid.minimum_psia > atmospheric_psia) {
    AddErrorRow(session, ID, tank.user_id, "Vapor pressure(s) for " + name + " exceed atmospheric pressure.");
    session.ValidationFailed = true;
    return;
  }
  const ExpansionInputs expansion{.ambient_max_r = t.expansion_maximum,
                                  .ambient_min_r = t.expansion_minimum,
                                  .absorptance = absorptance,
                                  .insolation = period.insolation,
                                  .average_surface_r = t.average,
                                  .atmospheric_psia = atmospheric_psia,
                                  .vent_pressure_psig = tank.vent_pressure,
                                  .vent_vacuum_psig = tank.vent_vacuum,
                                  .average_psia = liquid.average_psia,
                                  .maximum_psia = liquid.maximum_psia,
                                  .minimum_psia = liquid.minimum_psia,
                                  .heated = tank.heated};
  const Losses losses = ComputeLosses(session, tank, period, t, liquid, expansion, category);
  auto row = OpenEmissionRow(session, ID, MixID, name, Month, true);
  SetCas(row, cas);
  WriteRow(row, tank_row, tank, period, t, liquid, expansion, losses);
  row.Update();
}

}  // namespace

void EmissFix(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  shell::Trapped(session, "modEmission.EmissFix", [&] { Compute(session, ID, MixID, Month); });
}

}  // namespace orvex::emission
