#include "emission/fitting_factor.h"

#include "emission/arithmetic.h"
#include "emission/floating_roof.h"
#include "emission/routine.h"

namespace orvex::emission {

double FittingFactor(shell::Session& session, std::int32_t ID, double wind_mph) {
  return Routine(session, "modEmission.FittingFactor", [&] {
    double total = 0;
    for (auto fittings = session.ClientDb->OpenMatching("fittings", "fitid", {ID}); !fittings.AtEnd();
         fittings.MoveNext()) {
      total = Finite(total + DeckFittingFactor(fittings.Double("QUANTITY"), fittings.Double("K_FA"),
                                               fittings.Double("K_FB"), fittings.Double("K_M"), wind_mph));
    }
    return total;
  });
}

}  // namespace orvex::emission
