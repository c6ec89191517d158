#include "emission/annual_temperatures.h"
#include "emission/liquid_temperature.h"
#include "emission/mixture.h"
#include "emission/vapor_pressure.h"
#include "entry/bound_record.h"
#include "entry/liquid_form.h"
#include "entry/mixture_page.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using emission::FahrenheitToRankine;
using emission::LiquidTemperatures;
using shell::Session;

constexpr const char* kNoForm = "Speciation Option must be selected before properties are calculated.";

constexpr double kLeastPercents = 99.9, kMostPercents = 100.1;

/// A paint that the tank's type does not ask for counts, too, if its row holds one.
std::string PaintText(Session& session, FrmTank& form, std::string_view field) {
  if (const auto* entry = FindPhysical(form, field)) return StoredText(*entry);
  auto tank = session.ClientDb->OpenAt("tank", "ID", {form.ID});
  return tank.NoMatch() ? std::string() : tank.TextOrEmpty(field);
}

emission::Paint PaintOf(Session& session, FrmTank& form) {
  return {.shell_colour = PaintText(session, form, "SHL COLSHD"),
          .shell_condition = PaintText(session, form, "PT_COND"),
          .roof_colour = PaintText(session, form, "RF_COLSHD"),
          .roof_condition = PaintText(session, form, "RF_COND")};
}

bool IsUnderground(FrmTank& form) {
  const auto* underground = FindPhysical(form, "UNDER");
  return underground != nullptr && IsYes(*underground);
}

emission::AnnualWeather WeatherOf(FrmTank& form) {
  return {.ambient_f = Number(At(form, "txtAvgTemp")),
          .ambient_max_f = Number(At(form, "txtMaxTemp")),
          .ambient_min_f = Number(At(form, "txtMinTemp")),
          .insolation = Number(At(form, "txtInsol"))};
}

Entry& Liquid(FrmTank& form, std::string_view field) { return *FindLiquid(form, field); }

void ShowTemperatures(FrmTank& form, const LiquidTemperatures& liquid) {
  const auto show = [&](std::string_view field, double rankine) {
    Put(Liquid(form, field), shell::FormatTwoToSixDecimals(emission::RankineToFahrenheit(rankine)));
  };
  show("ALS_TEMP", liquid.average);
  show("MLS_TEMP", liquid.minimum);
  show("XLS_TEMP", liquid.maximum);
  show("BULK_TEMP", liquid.bulk);
}

/// As they stand in the form {R}: computed, or entered for a heated tank.
LiquidTemperatures ReadTemperatures(FrmTank& form) {
  const auto rankine = [&](std::string_view field) { return FahrenheitToRankine(Number(Liquid(form, field))); };
  return {.average = rankine("ALS_TEMP"),
          .maximum = rankine("XLS_TEMP"),
          .minimum = rankine("MLS_TEMP"),
          .bulk = rankine("BULK_TEMP")};
}

void ShowPressure(FrmTank& form, std::string_view field, double pressure_psia) {
  auto text = shell::FormatFourDecimals(pressure_psia);
  if (shell::EntryNumber(text) == 0) text = shell::FormatScientific(pressure_psia);
  Put(Liquid(form, field), text);
}

void ShowProperty(FrmTank& form, std::string_view field, double value) {
  Put(Liquid(form, field), shell::FormatTwoToSixDecimals(value));
}

/// A sum at either bound counts here; the refresh of the stored rows leaves the bounds out.
bool HasAllVaporWeights(Session& session, FrmTank& form) {
  if (SpeciationOption(session, form) != shell::kVaporWeightSpeciation) return false;
  const double sum = emission::VaporPercents(session, form.ID, form.MixID);
  return Number(Liquid(form, "ALS_TEMP")) != 0 && sum >= kLeastPercents && sum <= kMostPercents;
}

void FillFromVaporWeights(Session& session, FrmTank& form, const LiquidTemperatures& liquid) {
  using namespace emission;
  const auto ID = form.ID, MixID = form.MixID;
  ShowPressure(form, "VP", VapMixPV(session, ID, MixID, liquid.average));
  ShowPressure(form, "VP_MAX", VapMixPVMinMax(session, ID, MixID, liquid.average, liquid.maximum));
  ShowPressure(form, "VP_MIN", VapMixPVMinMax(session, ID, MixID, liquid.average, liquid.minimum));
  ShowProperty(form, "MOLWT", VapMixLiquidMWf(session, ID, MixID, liquid.average));
  ShowProperty(form, "VP_MOLWT", VapMixVaporMW(session, ID, MixID));
  ShowProperty(form, "L_DENS", VapMIxLdens(session, ID, MixID, liquid.average));
}

void FillPartial(Session& session, FrmTank& form, const LiquidTemperatures& liquid) {
  if (HasAllVaporWeights(session, form)) {
    FillFromVaporWeights(session, form, liquid);
    return;
  }
  const auto name = MixtureName(form);
  if (!emission::IsChemical(session, name)) return;
  ShowPressure(form, "VP", emission::PVA(session, name, liquid.average));
  ShowPressure(form, "VP_MAX", emission::PVA(session, name, liquid.maximum));
  ShowPressure(form, "VP_MIN", emission::PVA(session, name, liquid.minimum));
}

void FillSingle(Session& session, FrmTank& form, const LiquidTemperatures& liquid) {
  ShowPressure(form, "VP", emission::PVA(session, MixtureName(form), liquid.average));
}

void FillFull(Session& session, FrmTank& form, const LiquidTemperatures& liquid) {
  using namespace emission;
  const auto ID = form.ID, MixID = form.MixID;
  ShowPressure(form, "VP", MixturePVA(session, ID, MixID, liquid.average));
  ShowProperty(form, "MOLWT", MixLiquidMW(session, ID, MixID));
  ShowProperty(form, "VP_MOLWT", MixVaporMW(session, ID, MixID, liquid.average));
  ShowProperty(form, "L_DENS", MixLiquidDensity(session, ID, MixID));
}

void Calculate(Session& session, FrmTank& form) {
  const auto paint = PaintOf(session, form);
  const bool underground = IsUnderground(form);
  if (At(form, "dbcboCity").box.text.empty() || !HasNeededPaint(form.tank_type, underground, paint)) return;
  const auto year = AnnualTemperatures(session, WeatherOf(form), paint, underground);
  if (!form.form) {
    shell::Tell(session.host, kNoForm, shell::Icon::kExclamation);
    return;
  }
  if (!IsHeated(form)) ShowTemperatures(form, year);
  const auto liquid = ReadTemperatures(form);
  if (form.form == Section::kPartial) FillPartial(session, form, liquid);
  if (form.form == Section::kSingle) FillSingle(session, form, liquid);
  if (form.form == Section::kFull) FillFull(session, form, liquid);
}

}  // namespace

void ClickCalcProp(Session& session, FrmTank& form) {
  const shell::BusyScope busy(session, "Processing");
  shell::Trapped(session, "frmTank.cmdCalcProp_Click", [&] {
    Calculate(session, form);
    CommitMixture(session, form);
  });
}

}  // namespace orvex::entry
