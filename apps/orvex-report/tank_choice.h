#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "store/database.h"

namespace orvex::report_app {

struct ChosenTank {
  std::int32_t id;
  std::string user_id;  ///< as it is stored
  std::string tank_type;
};

/// The tanks that the values of `--tanks` ask for, in that order, none twice; without a value, all tanks that have a
/// `USER ID`, in table order. Of several tanks with the same `USER ID` only the first can be chosen; the others are
/// told on `warnings`. Throws `Failure` for an unknown tank or a list file that cannot be read.
std::vector<ChosenTank> ChooseTanks(store::Database& client, const std::vector<std::string>& requests,
                                    std::ostream& warnings);

}  // namespace orvex::report_app
