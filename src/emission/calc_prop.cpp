#include "emission/calc_prop.h"

#include <algorithm>

#include "emission/annual_temperatures.h"
#include "emission/field_reading.h"
#include "emission/liquid_temperature.h"
#include "emission/mixture.h"
#include "emission/vapor_pressure.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using shell::RoundFourDecimals;
using shell::RoundScientific;
using shell::RoundSixDecimals;
using shell::Session;
using std::int32_t;
using store::RecordSet;

struct Tank {
  std::string type, city;
  Paint paint;
  bool underground, heated;
};

Tank ReadTank(RecordSet& tank) {
  return {.type = ReadTextOrEmpty(tank, "TANK_TYPE"),
          .city = ReadTextOrEmpty(tank, "MET CTYST"),
          .paint = ReadPaint(tank),
          .underground = ReadFlagOrFalse(tank, "UNDER"),
          .heated = ReadFlagOrFalse(tank, "HEATED")};
}

/// Whether the city and the paints that the tank's type needs are given.
bool IsComplete(const Tank& tank) {
  return !tank.city.empty() && HasNeededPaint(tank.type, tank.underground, tank.paint);
}

constexpr std::string_view kTemperatures[] = {"ALS_TEMP", "XLS_TEMP", "MLS_TEMP", "BULK_TEMP"};

/// Whether a person has entered what a heated tank cannot have computed: a mixture just added has nothing yet.
bool HasTemperatures(const Tank& tank, RecordSet& mixture) {
  return !tank.heated || std::ranges::none_of(kTemperatures, [&](auto field) { return mixture.IsNull(field); });
}

/// The temperatures that a person entered for the mixture of a heated tank {R}.
LiquidTemperatures EnteredTemperatures(const Tank& tank, RecordSet& mixture) {
  const auto stored_r = [&](std::string_view field) { return FahrenheitToRankine(mixture.Double(field)); };
  LiquidTemperatures liquid = {.average = stored_r("ALS_TEMP"),
                               .maximum = stored_r("XLS_TEMP"),
                               .minimum = stored_r("MLS_TEMP"),
                               .bulk = stored_r("BULK_TEMP")};
  if (tank.underground) liquid.maximum = liquid.minimum = liquid.average;
  return liquid;
}

LiquidTemperatures TemperaturesOf(Session& session, const Tank& tank, RecordSet& weather, RecordSet& mixture) {
  const AnnualWeather year = {.ambient_f = weather.Double("A_TEMP_DAA"),
                              .ambient_max_f = weather.Double("TAX_ANN"),
                              .ambient_min_f = weather.Double("TAN_ANN"),
                              .insolation = weather.Double("INSOL_ANN")};
  if (tank.heated) return EnteredTemperatures(tank, mixture);
  return AnnualTemperatures(session, year, tank.paint, tank.underground);
}

void SetTemperatures(RecordSet& mixture, const LiquidTemperatures& liquid) {
  const auto set = [&](std::string_view field, double rankine) {
    mixture.Set(field, RoundSixDecimals(RankineToFahrenheit(rankine)));
  };
  set("ALS_TEMP", liquid.average);
  set("MLS_TEMP", liquid.minimum);
  set("XLS_TEMP", liquid.maximum);
  set("BULK_TEMP", liquid.bulk);
}

/// Stores a vapor pressure with four decimals, or with three significant digits where four decimals show nothing of it.
void SetPressure(RecordSet& mixture, std::string_view field, double pressure_psia) {
  const double rounded = RoundFourDecimals(pressure_psia);
  mixture.Set(field, rounded == 0 ? RoundScientific(pressure_psia) : rounded);
}

/// The properties of a mixture that stands in the reference table under its own name.
void FillFromChemical(Session& session, const Tank& tank, RecordSet& mixture, const LiquidTemperatures& liquid) {
  auto chemical = session.ReferenceDb->OpenAt("chemical", "chemname", {mixture.Get("MIX NAME")});
  // The person's own figures stay where the name is no chemical.
  if (chemical.NoMatch()) return;
  for (const auto* field : {"MOLWT", "VP_MOLWT", "L_DENS"}) mixture.Set(field, chemical.Get(field));
  if (!tank.heated) SetTemperatures(mixture, liquid);
  const std::string name = mixture.Text("MIX NAME");
  SetPressure(mixture, "VP", PVA(session, name, liquid.average));
  SetPressure(mixture, "VP_MAX", PVA(session, name, liquid.maximum));
  SetPressure(mixture, "VP_MIN", PVA(session, name, liquid.minimum));
}

void FillFromVaporWeights(Session& session, int32_t ID, int32_t MixID, RecordSet& mixture,
                          const LiquidTemperatures& liquid) {
  if (!VaporFractionsComplete(session, ID, MixID) || mixture.DoubleOrZero("ALS_TEMP") == 0) return;
  SetPressure(mixture, "VP", VapMixPV(session, ID, MixID, liquid.average));
  SetPressure(mixture, "VP_MAX", VapMixPVMinMax(session, ID, MixID, liquid.average, liquid.maximum));
  SetPressure(mixture, "VP_MIN", VapMixPVMinMax(session, ID, MixID, liquid.average, liquid.minimum));
  mixture.Set("MOLWT", RoundSixDecimals(VapMixLiquidMWf(session, ID, MixID, liquid.average)));
  mixture.Set("VP_MOLWT", RoundSixDecimals(VapMixVaporMW(session, ID, MixID)));
  mixture.Set("L_DENS", RoundSixDecimals(VapMIxLdens(session, ID, MixID, liquid.average)));
}

void FillFromComponents(Session& session, int32_t ID, int32_t MixID, const Tank& tank, RecordSet& mixture,
                        const LiquidTemperatures& liquid) {
  if (!tank.heated) SetTemperatures(mixture, liquid);
  mixture.Set("MOLWT", MixLiquidMW(session, ID, MixID));
  mixture.Set("VP_MOLWT", MixVaporMW(session, ID, MixID, liquid.average));
  mixture.Set("L_DENS", MixLiquidDensity(session, ID, MixID));
  mixture.Set("VP", MixturePVA(session, ID, MixID, liquid.average));
  // The range is that of a single chemical of the mixture's name, so it is 0 for most mixtures.
  const std::string name = mixture.TextOrEmpty("MIX NAME");
  mixture.Set("VP_MAX", PVA(session, name, liquid.maximum));
  mixture.Set("VP_MIN", PVA(session, name, liquid.minimum));
}

/// False for a mixture of no known kind.
bool FillMixture(Session& session, int32_t ID, const Tank& tank, RecordSet& mixture, const LiquidTemperatures& liquid) {
  const int32_t MixID = mixture.Long("MIX ID");
  const std::string component = mixture.TextOrEmpty("COMPONENT");
  const std::string speciation = mixture.TextOrEmpty("SPEC_OPT");
  if (component == shell::kSingle) {
    FillFromChemical(session, tank, mixture, liquid);
    return true;
  }
  if (component != shell::kMultiple) return false;
  if (speciation == shell::kFullSpeciation) {
    FillFromComponents(session, ID, MixID, tank, mixture, liquid);
    return true;
  }
  const bool vapor_weights = speciation == shell::kVaporWeightSpeciation;
  if (!vapor_weights && speciation != shell::kPartialSpeciation && speciation != shell::kNoSpeciation) return false;
  FillFromChemical(session, tank, mixture, liquid);
  if (vapor_weights) FillFromVaporWeights(session, ID, MixID, mixture, liquid);
  return true;
}

/// Refreshes all components of the tank, whatever their mixture.
void FillComponents(Session& session, int32_t ID, double average_r) {
  auto chemical = session.ReferenceDb->OpenTable("chemical");
  chemical.SetIndex("chemname");
  auto components = session.ClientDb->OpenMatching("components", "IDMIX", {ID});
  for (; !components.AtEnd(); components.MoveNext()) {
    chemical.Seek({components.Get("NAME")});
    if (chemical.NoMatch()) continue;
    components.Edit();
    components.Set("CAS", chemical.TextOrEmpty("CAS"));
    for (const auto* field : {"MOLWT", "L_DENS", "VP_MOLWT"}) components.Set(field, chemical.Get(field));
    components.Set("ALS_TEMP", average_r);
    if (average_r > 0) components.Set("VP", PVA(session, components.Text("NAME"), average_r));
    components.Update();
  }
}

}  // namespace

void CalcProp(Session& session, int32_t ID) {
  const shell::BusyScope busy(session, "Processing");
  shell::TrappedWriting(session, *session.ClientDb, "modEmission.CalcProp", [&] {
    auto tanks = session.ClientDb->OpenMatching("tank", "ID", {ID});
    auto mixtures = session.ClientDb->OpenMatching("mixtures", "IDMIX", {ID});
    const Tank tank = ReadTank(tanks);
    auto weather = session.ReferenceDb->OpenTable("met");
    weather.SetIndex("CTYST");
    for (; !mixtures.AtEnd(); mixtures.MoveNext()) {
      if (!IsComplete(tank)) break;
      weather.Seek({tank.city});
      if (weather.NoMatch() || !HasTemperatures(tank, mixtures)) break;
      mixtures.Edit();
      const LiquidTemperatures liquid = TemperaturesOf(session, tank, weather, mixtures);
      if (!FillMixture(session, ID, tank, mixtures, liquid)) break;
      mixtures.Update();
      FillComponents(session, ID, liquid.average);
    }
  });
}

}  // namespace orvex::emission
