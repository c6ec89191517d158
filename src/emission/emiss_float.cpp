#include "emission/emiss_float.h"

#include <array>
#include <cmath>

#include "emission/arithmetic.h"
#include "emission/constants.h"
#include "emission/emission_row.h"
#include "emission/error_rows.h"
#include "emission/field_reading.h"
#include "emission/fitting_counts.h"
#include "emission/fitting_factor.h"
#include "emission/floating_roof.h"
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

constexpr double kUnknownSeamFactor = 0.14;  ///< K_D of a deck seam that the reference table does not know

/// What the equations take from the tank's row; null reads as an empty text, 0 or false.
struct Tank {
  std::string user_id, type;
  Paint paint;
  std::string shell_condition, shell_construction, deck_construction, primary_seal, secondary_seal, deck_seam;
  double diameter, net_throughput, column_count, column_diameter, seam_factor, seam_length;
  bool self_supporting;

  [[nodiscard]] bool IsInternal() const { return type == shell::kInternalFloatingRoof; }
};

Tank ReadTank(RecordSet& tank) {
  return {.user_id = ReadTextOrEmpty(tank, "USER ID"),
          .type = ReadTextOrEmpty(tank, "TANK_TYPE"),
          .paint = ReadPaint(tank),
          .shell_condition = ReadTextOrEmpty(tank, "SHL_COND"),
          .shell_construction = ReadTextOrEmpty(tank, "TANK_CONSTRUCT"),
          .deck_construction = ReadTextOrEmpty(tank, "DECK_CONSTRUCT"),
          .primary_seal = ReadTextOrEmpty(tank, "RIM_PRIM"),
          .secondary_seal = ReadTextOrEmpty(tank, "RIM_SEC"),
          .deck_seam = ReadTextOrEmpty(tank, "DECK_SEAM"),
          .diameter = ReadNumberOrZero(tank, "DIAMETER"),
          .net_throughput = ReadNumberOrZero(tank, "Q_NET"),
          .column_count = ReadNumberOrZero(tank, "COL_NO"),
          .column_diameter = ReadNumberOrZero(tank, "COL_DIAM"),
          .seam_factor = ReadNumberOrZero(tank, "SD"),
          .seam_length = ReadNumberOrZero(tank, "DECK_SEAM_LENGTH"),
          .self_supporting = ReadFlagOrFalse(tank, "SELF_SUP")};
}

/// Liquid surface temperatures of a period, and the bulk's {R}.
struct Temperatures {
  double average, maximum, minimum, bulk;
};

Temperatures PeriodTemperatures(Session& session, const Tank& tank, const PeriodData& period, double annual_ambient_f) {
  const double absorptance = tank.paint.Absorptance();
  const double ambient = FahrenheitToRankine(annual_ambient_f);
  const double average = Routine(session, "modEmission.ALST", [&] {
    return ALST(ambient, FahrenheitToRankine(period.ambient_f), absorptance, period.insolation);
  });
  const double ambient_max = FahrenheitToRankine(period.ambient_max_f);
  const double ambient_min = FahrenheitToRankine(period.ambient_min_f);
  return {average, MaxLiquidTemp(average, ambient_max, ambient_min, absorptance, period.insolation),
          MinLiquidTemp(average, ambient_max, ambient_min, absorptance, period.insolation),
          BulkTemperature(ambient, absorptance)};
}

/// The stored liquid at the average surface temperature.
struct Liquid {
  double vapor_psia = 0;                       ///< P_VA
  double vapor_weight = 0, liquid_weight = 0;  ///< M_V, M_L {lb/lb-mole}
  double density = 0;                          ///< W_L {lb/gal}
};

Liquid ReadLiquid(Session& session, int32_t ID, int32_t MixID, RecordSet& mixture, const std::string& name,
                  double average_r) {
  Liquid liquid;
  const std::string component = ReadText(mixture, "COMPONENT");
  if (component != shell::kSingle && component != shell::kMultiple) return liquid;
  if (component == shell::kMultiple && ReadText(mixture, "SPEC_OPT") == shell::kFullSpeciation) {
    liquid.vapor_psia = MixturePVA(session, ID, MixID, average_r);
    liquid.vapor_weight = MixVaporMW(session, ID, MixID, average_r);
    liquid.liquid_weight = MixLiquidMW(session, ID, MixID);
    liquid.density = MixLiquidDensity(session, ID, MixID);
    return liquid;
  }
  const bool computed = component == shell::kSingle || IsChemical(session, name);
  liquid.vapor_psia = computed ? PVA(session, name, average_r) : ReadNumber(mixture, "VP");
  liquid.vapor_weight = ReadNumber(mixture, "VP_MOLWT");
  liquid.liquid_weight = ReadNumber(mixture, "MOLWT");
  liquid.density = ReadNumber(mixture, "L_DENS");
  return liquid;
}

struct RimSeal {
  double k_ra, k_rb, exponent;
};

/// The seal's factors for the tank's shell; all 0 for a combination that the reference table does not know.
RimSeal ReadRimSeal(Session& session, const Tank& tank) {
  const bool welded = tank.IsInternal() || tank.shell_construction == "Welded";
  auto seals =
      session.ReferenceDb->OpenAt("rimseal", "rimid", {tank.primary_seal, tank.secondary_seal, welded, !welded});
  return {ReadNumber(seals, "K_RA"), ReadNumber(seals, "K_RB"), ReadNumber(seals, "N_FACTOR")};
}

/// What the four losses share.
struct LossTerms {
  double pressure_function;  ///< P*
  double vapor_weight;       ///< M_V
  double product_factor;     ///< K_C
  bool monthly;

  /// A month has a twelfth of the year's loss, whatever its length.
  [[nodiscard]] double OfPeriod(double per_year) const {
    return Finite(monthly ? per_year / kMonthsPerYear : per_year);
  }
};

struct ColumnTerms {
  double count;               ///< as the row shows it
  double effective_count;     ///< N_C
  double effective_diameter;  ///< F_C {ft}
};

ColumnTerms ReadColumns(const Tank& tank) {
  double count = tank.column_count;
  double diameter = tank.column_diameter;
  if (!tank.self_supporting) {
    if (count == 0) count = Columns(tank.diameter);
    if (diameter == 0) diameter = 1;
  }
  if (!tank.IsInternal() || tank.self_supporting) return {count, 0, 0};
  return {count, count, diameter};
}

struct DeckSeam {
  double k_d = 0, s_d = 0, loss = 0;
};

DeckSeam ComputeDeckSeam(Session& session, const Tank& tank, const LossTerms& terms) {
  DeckSeam seam;
  if (!tank.IsInternal() || tank.deck_construction == "Welded") return seam;
  auto seams = session.ReferenceDb->OpenAt("deckseam", "name", {tank.deck_seam});
  seam.k_d = seams.NoMatch() ? kUnknownSeamFactor : seams.Double("KD");
  seam.s_d = tank.seam_factor;
  const double per_year = Routine(session, "modEmission.DeckSeamLoss", [&] {
    return DeckSeamLoss(tank.diameter, terms.pressure_function, terms.vapor_weight, terms.product_factor, seam.k_d,
                        seam.s_d, tank.seam_length);
  });
  seam.loss = terms.OfPeriod(per_year);
  return seam;
}

constexpr std::array<std::string_view, 12> kTankTexts = {"SHL COLSHD", "SHL_COND",       "PT_COND",        "RF_COLSHD",
                                                         "RF_COND",    "TANK_CONSTRUCT", "RIM_PRIM",       "RIM_SEC",
                                                         "FITTING",    "DECK_TYPE",      "DECK_CONSTRUCT", "DECK_SEAM"};
constexpr std::array<std::string_view, 4> kTankNumbers = {"DIAMETER", "VOLUME", "TURNOVER", "DECK_SEAM_LENGTH"};
constexpr std::array<std::string_view, 1> kTankFlags = {"SELF_SUP"};
constexpr std::array<std::string_view, 2> kFixedRoofOnly = {"S_LOSS", "W_LOSS"};

void Compute(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {ID, MixID});
  const bool monthly = Month != shell::kAnnual;
  if (monthly && !ReadFlag(mixture, Month)) return;

  auto tank_row = session.ClientDb->OpenAt("tank", "ID", {ID});
  const Tank tank = ReadTank(tank_row);
  auto weather = session.ReferenceDb->OpenAt("met", "CTYST", {ReadTextOrEmpty(tank_row, "MET CTYST")});
  const double annual_ambient_f = ReadNumber(weather, "A_TEMP_DAA");
  const double atmospheric_psia = ReadNumber(weather, "ATMOS_PRS");
  const PeriodData period = ReadPeriod(weather, mixture, Month, tank.net_throughput, Wind::kWith);

  const Temperatures t = PeriodTemperatures(session, tank, period, annual_ambient_f);
  const std::string name = ReadText(mixture, "MIX NAME");
  const std::string cas = ReadTextOrEmpty(mixture, "CAS");
  const Liquid liquid = ReadLiquid(session, ID, MixID, mixture, name, t.average);
  if (liquid.vapor_psia > atmospheric_psia) {
    AddErrorRow(session, ID, tank.user_id, "The vapor pressure for " + name + " exceeds atmospheric pressure.");
    session.ValidationFailed = true;
    return;
  }

  const std::string category = ReadText(mixture, "C_CATEGORY");
  const LossTerms terms{
      .pressure_function = Routine(session, "modEmission.P", [&] { return P(liquid.vapor_psia, atmospheric_psia); }),
      .vapor_weight = liquid.vapor_weight,
      .product_factor = KC(category),
      .monthly = monthly};
  // The roof over an internal or domed floating roof keeps the wind out.
  const double wind_mph = tank.type == shell::kExternalFloatingRoof ? period.wind_mph : 0;

  const RimSeal seal = ReadRimSeal(session, tank);
  const double rim_factor = RimSealFactor(seal.k_ra, seal.k_rb, seal.exponent, wind_mph);
  const double rim_loss =
      terms.OfPeriod(rim_factor * tank.diameter * terms.pressure_function * terms.vapor_weight * terms.product_factor);
  const double clingage = Clingage(category, tank.shell_condition);
  const ColumnTerms columns = ReadColumns(tank);
  const double withdrawal_loss = Routine(session, "modEmission.WithDrawalLoss", [&] {
    return WithDrawalLoss(period.throughput_gal / kGallonsPerBarrel, liquid.density, tank.diameter, clingage,
                          columns.effective_count, columns.effective_diameter);
  });
  const double fitting_factor = FittingFactor(session, ID, wind_mph);
  const double fitting_loss =
      terms.OfPeriod(fitting_factor * terms.pressure_function * terms.vapor_weight * terms.product_factor);
  const DeckSeam seam = ComputeDeckSeam(session, tank, terms);

  auto row = OpenEmissionRow(session, ID, MixID, name, Month, true);
  SetCas(row, cas);
  CopyTexts(tank_row, row, kTankIdentity);
  CopyTexts(tank_row, row, kTankTexts);
  CopyNumbers(tank_row, row, kTankNumbers);
  CopyFlags(tank_row, row, kTankFlags);
  SetZero(row, kFixedRoofOnly);
  SetZero(row, kComponentShares);
  const std::pair<std::string_view, double> numbers[] = {
      {"AMB_T", period.ambient_f},
      {"T_MIN", period.ambient_min_f},
      {"T_MAX", period.ambient_max_f},
      {"INSOL", period.insolation},
      {"P_A", atmospheric_psia},
      {"RIM_LOSS", rim_loss},
      {"WD_LOSS", withdrawal_loss},
      {"DECKF_LOSS", fitting_loss},
      {"DECKS_LOSS", seam.loss},
      {"MOLWT", liquid.liquid_weight},
      {"VP_MOLWT", liquid.vapor_weight},
      {"L_DENS", liquid.density},
      {"ALPHA", ShellSolar(tank.paint.shell_colour, tank.paint.shell_condition)},
      {"ALPHA_2", RoofSolar(tank.paint.roof_colour, tank.paint.roof_condition)},
      {"ALS_TEMP", t.average},
      {"MLS_TEMP", t.minimum},
      {"XLS_TEMP", t.maximum},
      {"BULK_T", t.bulk},
      {"A_VP", liquid.vapor_psia},
      {"Q_NET", period.throughput_gal},
      {"M_KR", rim_factor},
      {"M_P", terms.pressure_function},
      {"M_KC", terms.product_factor},
      {"M_C", clingage},
      {"NC", columns.count},
      {"FC", columns.effective_diameter},
      {"M_FF", fitting_factor},
      {"SD", seam.s_d},
      {"KD", seam.k_d},
      {"N_FACT", seal.exponent},
      {"M_KRA", seal.k_ra},
      {"M_KRB", seal.k_rb},
      {"M_V", wind_mph},
      {"COL_NO", columns.count},
      {"COL_DIAM", columns.effective_diameter},
  };
  for (const auto& [field, value] : numbers) row.Set(field, value);
  row.Update();
}

}  // namespace

void EmissFloat(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  shell::Trapped(session, "modEmission.EmissFloat", [&] { Compute(session, ID, MixID, Month); });
}

}  // namespace orvex::emission
