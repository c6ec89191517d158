#pragma once

#include <cstdint>

#include "shell/session.h"

/// Properties of a mixture from its `components` rows. Temperatures {R}, pressures {psia}, molecular weights
/// {lb/lb-mole}, densities {lb/gal}. A component's weight share is `WT_FRACT` where it is above 0, else `Weight`.
/// A division by zero is reported under the routine's label, and the routine gives 0.
namespace orvex::emission {

// From weight shares of the liquid.
double TotalMoles(shell::Session& session, std::int32_t ID, std::int32_t MixID);
double MixLiquidMW(shell::Session& session, std::int32_t ID, std::int32_t MixID);
double MixturePVA(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T);
double MixVaporMW(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T);
double MixLiquidDensity(shell::Session& session, std::int32_t ID, std::int32_t MixID);

// From weight percents of the vapor.
double VapMixPV(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T);
/// At `T2`, with the liquid composition that belongs to `T`.
double VapMixPVMinMax(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T, double T2);
double VapMixVaporMW(shell::Session& session, std::int32_t ID, std::int32_t MixID);
double VapMixLiquidMWf(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T);
double VapMIxLdens(shell::Session& session, std::int32_t ID, std::int32_t MixID, double T);

/// Sum of the mixture's vapor weight percents.
double VaporPercents(shell::Session& session, std::int32_t ID, std::int32_t MixID);
/// True when the mixture's vapor weight percents sum to 100 well enough to compute from: strictly between 99.9 and
/// 100.1.
bool VaporFractionsComplete(shell::Session& session, std::int32_t ID, std::int32_t MixID);

}  // namespace orvex::emission
