#pragma once

#include <string>
#include <vector>

#include "store/database.h"

namespace orvex::shell {

/// The `USER ID` of every tank of a client database that has one, in the order of the table.
std::vector<std::string> TankNames(store::Database& client);

}  // namespace orvex::shell
