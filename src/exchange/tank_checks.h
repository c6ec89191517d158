#pragma once

#include "exchange/import_log.h"
#include "exchange/reference_lookups.h"
#include "exchange/tank_sources.h"
#include "store/record_set.h"

namespace orvex::exchange {

/// What a tank is compared with.
struct TankSurroundings {
  store::RecordSet& tanks;  ///< of the client database, by the index `USER ID`
  ReferenceLookups& reference;
};

/// Checks the current tank and everything that belongs to it, and logs each fault; true if there is none.
bool CheckTank(TankSources& sources, const TankName& name, const TankSurroundings& surroundings, ImportLog& log);

}  // namespace orvex::exchange
