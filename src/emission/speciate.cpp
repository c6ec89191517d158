#include "emission/speciate.h"

#include <array>

#include "emission/arithmetic.h"
#include "emission/emission_row.h"
#include "emission/field_reading.h"
#include "emission/mixture.h"
#include "emission/mixture_components.h"
#include "emission/vapor_pressure.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using shell::Session;
using std::int32_t;
using store::RecordSet;

constexpr std::array<std::string_view, 6> kLossFields = {"S_LOSS",  "W_LOSS",     "RIM_LOSS",
                                                         "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"};
constexpr std::size_t kWithdrawal = 3;  ///< the one loss that is liquid
using SixLosses = std::array<double, kLossFields.size()>;

// What a component's row repeats of the mixture's own, beside the tank's identity.
constexpr std::array<std::string_view, 13> kTexts = {
    "SHL COLSHD",     "SHL_COND", "PT_COND", "RF_COLSHD", "RF_COND",   "RF_TYPE",  "TANK_CONSTRUCT",
    "DECK_CONSTRUCT", "RIM_PRIM", "RIM_SEC", "FITTING",   "DECK_TYPE", "DECK_SEAM"};
constexpr std::array<std::string_view, 31> kNumbers = {
    "AMB_T",    "T_MIN",     "T_MAX",    "INSOL",    "P_A",      "L_DENS",           "ALPHA",    "ALPHA_2",
    "ALS_TEMP", "MLS_TEMP",  "XLS_TEMP", "BULK_T",   "DIAMETER", "EFF_DIAM",         "HEIGHT_S", "HEIGHT_R",
    "HEIGHT_L", "HEIGHT_AL", "VOLUME",   "Q_NET",    "TURNOVER", "T_RANGE",          "VT_RANGE", "M_KR",
    "VENT_P",   "VENT_V",    "C_SLOPE",  "D_RADIUS", "COL_NO",   "DECK_SEAM_LENGTH", "COL_DIAM"};
constexpr std::array<std::string_view, 3> kFlags = {"SELF_SUP", "UNDER", "HEATED"};
/// Terms of the calculation that a component's row does not repeat.
constexpr std::array<std::string_view, 22> kZeros = {
    "VP_RANGE", "RF_OUT", "VS_OUT", "VS_VOL", "V_DENS", "BV_RANGE", "K_E", "K_S",    "K_N",   "K_P",   "M_P",
    "M_KC",     "M_C",    "NC",     "FC",     "M_FF",   "SD",       "KD",  "N_FACT", "M_KRA", "M_KRB", "M_V"};

/// What the split takes from the mixture's own row.
struct Mixture {
  double vapor_weight, liquid_weight, vapor_psia;  ///< Mv, Ml, Pa
  double average_r, minimum_r, maximum_r;          ///< liquid surface temperatures
  bool fixed_roof;
  SixLosses losses;
};

Mixture ReadMixture(RecordSet& primary) {
  Mixture mixture{.vapor_weight = primary.DoubleOrZero("VP_MOLWT"),
                  .liquid_weight = primary.DoubleOrZero("MOLWT"),
                  .vapor_psia = primary.DoubleOrZero("A_VP"),
                  .average_r = primary.DoubleOrZero("ALS_TEMP"),
                  .minimum_r = primary.DoubleOrZero("MLS_TEMP"),
                  .maximum_r = primary.DoubleOrZero("XLS_TEMP"),
                  .fixed_roof = shell::IsFixedRoof(primary.TextOrEmpty("TANK_TYPE")),
                  .losses = {}};
  for (std::size_t i = 0; i < kLossFields.size(); ++i) mixture.losses[i] = primary.DoubleOrZero(kLossFields[i]);
  return mixture;
}

/// What the components add up to.
struct Totals {
  int count = 0;
  double liquid_percent = 0, vapor_percent = 0, weight = 0;  ///< sumWt, sumVp, sumW
};

Totals AddUp(Session& session, int32_t ID, int32_t MixID) {
  Totals totals;
  for (auto components = OpenComponents(session, ID, MixID); !components.AtEnd(); components.MoveNext()) {
    ++totals.count;
    totals.liquid_percent += components.DoubleOrZero("WT_FRACT");
    totals.vapor_percent += components.DoubleOrZero("VP_FRACT");
    totals.weight += WeightShare(components);
  }
  return totals;
}

/// One row to be written. Values stay from row to row where a row's kind does not set them.
struct Share {
  std::string name, cas;
  double weight_share = 0, vapor_percent = 0;  ///< w, f
  double liquid_weight = 0, vapor_weight = 0;  ///< M, m {lb/lb-mole}
  double moles = 0;
  double liquid_weight_fraction = 0, vapor_weight_fraction = 0;  ///< lw, v
  double liquid_mole_fraction = 0, vapor_mole_fraction = 0;      ///< x, y
  double average_psia = 0, minimum_psia = 0, maximum_psia = 0;   ///< P, Pn, Px
  SixLosses losses{};
};

/// Sums over the identified components so far, from which the remainder follows.
struct RunningSums {
  double vapor_weights = 0, liquid_weights = 0;  ///< sumYm, sumXM
  double liquid_weight_fractions = 0, vapor_weight_fractions = 0, liquid_mole_fractions = 0, vapor_mole_fractions = 0;
  double average_pressures = 0, minimum_pressures = 0, maximum_pressures = 0;  ///< sumXP, sumXPn, sumXPx
  SixLosses losses{};
};

/// All losses go by the vapor weight, but the withdrawal loss by the liquid weight.
void SplitLosses(const Mixture& mixture, Share& share) {
  for (std::size_t i = 0; i < share.losses.size(); ++i) {
    share.losses[i] =
        mixture.losses[i] * (i == kWithdrawal ? share.liquid_weight_fraction : share.vapor_weight_fraction);
  }
}

/// A component whose share of the liquid is known.
void SplitByLiquid(Session& session, int32_t ID, int32_t MixID, const Mixture& mixture, const Totals& totals, bool full,
                   Share& share) {
  share.moles = Divide(share.weight_share, share.liquid_weight);
  if (full) {
    share.liquid_weight_fraction = Divide(share.weight_share, totals.weight);
    share.liquid_mole_fraction =
        Divide(Divide(share.weight_share, share.liquid_weight), TotalMoles(session, ID, MixID));
  } else {
    share.liquid_weight_fraction = share.weight_share / 100;
    share.liquid_mole_fraction = Divide((share.weight_share / 100) * mixture.liquid_weight, share.liquid_weight);
  }
  share.vapor_mole_fraction = Divide(share.average_psia * share.liquid_mole_fraction, mixture.vapor_psia);
  share.vapor_weight_fraction = Divide(share.vapor_mole_fraction * share.vapor_weight, mixture.vapor_weight);
  SplitLosses(mixture, share);
}

/// A component whose share of the vapor is known. The losses are split before its share of the liquid is formed, so
/// that the withdrawal loss goes by the liquid share of the row before.
void SplitByVapor(const Mixture& mixture, const Totals& totals, Share& share) {
  share.vapor_weight_fraction = share.vapor_percent / 100;
  share.vapor_mole_fraction = Divide((share.vapor_percent / 100) * mixture.vapor_weight, share.vapor_weight);
  SplitLosses(mixture, share);
  share.liquid_mole_fraction = Divide(share.vapor_mole_fraction * mixture.vapor_psia, share.average_psia);
  const double liquid_percent = Divide((share.liquid_mole_fraction * 100) * share.liquid_weight, mixture.liquid_weight);
  share.liquid_weight_fraction = Divide(liquid_percent, totals.vapor_percent);
  share.moles = Divide(liquid_percent / 100, share.liquid_weight);
}

/// What is left of the mixture when the identified components are taken out.
void SplitRemainder(const Mixture& mixture, const RunningSums& sums, Share& share) {
  share.name = "Unidentified Components";
  share.liquid_weight_fraction = 1 - sums.liquid_weight_fractions;
  share.vapor_weight_fraction = 1 - sums.vapor_weight_fractions;
  share.liquid_mole_fraction = 1 - sums.liquid_mole_fractions;
  share.vapor_mole_fraction = 1 - sums.vapor_mole_fractions;
  share.liquid_weight = Divide(mixture.liquid_weight - sums.liquid_weights, share.liquid_mole_fraction);
  share.vapor_weight = Divide(mixture.vapor_weight - sums.vapor_weights, share.vapor_mole_fraction);
  share.moles = Divide(share.liquid_weight_fraction, share.liquid_weight);
  share.average_psia = Divide(mixture.vapor_psia - sums.average_pressures, share.liquid_mole_fraction);
  share.minimum_psia = share.maximum_psia = 0;
  if (mixture.fixed_roof) {
    // The mixture's own range is taken at its average here.
    share.minimum_psia = Divide(mixture.vapor_psia - sums.minimum_pressures, share.liquid_mole_fraction);
    share.maximum_psia = Divide(mixture.vapor_psia - sums.maximum_pressures, share.liquid_mole_fraction);
  }
  for (std::size_t i = 0; i < share.losses.size(); ++i) share.losses[i] = mixture.losses[i] - sums.losses[i];
}

void Add(const Share& share, RunningSums& sums) {
  sums.vapor_weights += share.vapor_weight * share.vapor_mole_fraction;
  sums.liquid_weights += share.liquid_weight * share.liquid_mole_fraction;
  sums.liquid_weight_fractions += share.liquid_weight_fraction;
  sums.vapor_weight_fractions += share.vapor_weight_fraction;
  sums.average_pressures += share.average_psia * share.liquid_mole_fraction;
  sums.maximum_pressures += share.maximum_psia * share.liquid_mole_fraction;
  sums.liquid_mole_fractions += share.liquid_mole_fraction;
  sums.vapor_mole_fractions += share.vapor_mole_fraction;
  for (std::size_t i = 0; i < share.losses.size(); ++i) sums.losses[i] += share.losses[i];
  // The sum of the minimum pressures stands on that of the maximum pressures, not on itself.
  sums.minimum_pressures = share.minimum_psia * share.liquid_mole_fraction + sums.maximum_pressures;
}

void ReadComponent(RecordSet& component, Share& share) {
  share.liquid_weight = component.DoubleOrZero("MOLWT");
  share.vapor_weight = component.DoubleOrZero("VP_MOLWT");
  share.name = component.Text("NAME");
  share.cas = component.Text("CAS");
  share.weight_share = WeightShare(component);
  share.vapor_percent = component.DoubleOrZero("VP_FRACT");
}

void WriteRow(Session& session, int32_t ID, int32_t MixID, const std::string& Month, RecordSet& primary,
              const Share& share) {
  auto row = OpenEmissionRow(session, ID, MixID, share.name, Month, false);
  if (!share.cas.empty()) row.Set("CAS", share.cas);
  CopyTexts(primary, row, kTankIdentity);
  CopyTexts(primary, row, kTexts);
  CopyNumbers(primary, row, kNumbers);
  CopyFlags(primary, row, kFlags);
  SetZero(row, kZeros);
  for (std::size_t i = 0; i < kLossFields.size(); ++i) row.Set(kLossFields[i], share.losses[i]);
  row.Set("MOLES", share.moles);
  row.Set("L_WT_FRACT", share.liquid_weight_fraction);
  row.Set("V_WT_FRACT", share.vapor_weight_fraction);
  row.Set("L_MO_FRACT", share.liquid_mole_fraction);
  row.Set("V_MO_FRACT", share.vapor_mole_fraction);
  row.Set("MOLWT", share.liquid_weight);
  row.Set("VP_MOLWT", share.vapor_weight);
  row.Set("A_VP", share.average_psia);
  row.Set("M_VP", share.minimum_psia);
  row.Set("X_VP", share.maximum_psia);
  row.Update();
}

/// Drops the component rows of a mixture, in all periods.
void DeleteComponentRows(Session& session, int32_t ID, int32_t MixID) {
  auto rows = session.ClientDb->OpenMatching("emission", "COMPID", {ID, MixID});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    if (!rows.BoolOrFalse("PRIMARY")) rows.Delete();
  }
}

/// Whether the rows end with the unidentified remainder. The sums are compared exactly.
bool HasRemainder(const std::string& speciation, const Totals& totals) {
  if (speciation == shell::kPartialSpeciation) return totals.liquid_percent != 100.0;
  if (speciation == shell::kVaporWeightSpeciation) return totals.vapor_percent != 100.0;
  return false;
}

void Split(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  auto mixtures = session.ClientDb->OpenAt("mixtures", "IDMIX", {ID, MixID});
  auto primary =
      session.ClientDb->OpenAt("emission", "COMPID", {ID, MixID, ReadTextOrEmpty(mixtures, "MIX NAME"), Month, true});
  if (primary.NoMatch()) return;
  const Mixture mixture = ReadMixture(primary);
  const Totals totals = AddUp(session, ID, MixID);
  if (totals.count == 0) {
    // The mixture may have had components before.
    DeleteComponentRows(session, ID, MixID);
    return;
  }
  const std::string speciation = ReadTextOrEmpty(mixtures, "SPEC_OPT");
  const bool remainder = HasRemainder(speciation, totals);
  auto components = session.ClientDb->OpenTable("components");
  components.SetIndex("IDMIX");
  Share share;
  RunningSums sums;
  for (int number = 1; number <= totals.count; ++number) {
    components.Seek({ID, MixID, number});
    shell::Statement([&] { ReadComponent(components, share); });
    const bool full = speciation == shell::kFullSpeciation;
    const bool vapor = speciation == shell::kVaporWeightSpeciation;
    if (full || vapor || speciation == shell::kPartialSpeciation) {
      share.average_psia = PVA(session, share.name, mixture.average_r);
      share.minimum_psia = mixture.fixed_roof ? PVA(session, share.name, mixture.minimum_r) : 0;
      share.maximum_psia = mixture.fixed_roof ? PVA(session, share.name, mixture.maximum_r) : 0;
      if (vapor) {
        SplitByVapor(mixture, totals, share);
      } else {
        SplitByLiquid(session, ID, MixID, mixture, totals, full, share);
      }
    }
    Add(share, sums);
    WriteRow(session, ID, MixID, Month, primary, share);
  }
  if (remainder) {
    SplitRemainder(mixture, sums, share);
    WriteRow(session, ID, MixID, Month, primary, share);
  }
}

}  // namespace

void Speciate(Session& session, int32_t ID, int32_t MixID, const std::string& Month) {
  shell::Trapped(session, "modEmission.Speciate", [&] { Split(session, ID, MixID, Month); });
}

}  // namespace orvex::emission
