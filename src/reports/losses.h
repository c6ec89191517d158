#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "store/database.h"
#include "store/value.h"

/// The losses that the last run left in `emission`, as the reports read them. A query is run once for all tanks of a
/// report, so that the cost grows with the rows and not with tanks times rows.
namespace orvex::reports {

/// The six kinds of loss {lb}. A null counts as 0.
struct Losses {
  double standing = 0;
  double working = 0;
  double rim_seal = 0;
  double withdrawal = 0;
  double deck_fitting = 0;
  double deck_seam = 0;

  /// Standing and working loss: what a fixed roof loses.
  [[nodiscard]] double FixedRoofTotal() const { return standing + working; }
  /// What a floating roof loses.
  [[nodiscard]] double FloatingRoofTotal() const { return rim_seal + withdrawal + deck_fitting + deck_seam; }
};

/// One line of a tank's emissions: a mixture (`primary`) or one of its components.
struct EmissionLine {
  bool primary = false;
  std::string name;
  Losses losses;
};

/// Lines by the tank's `ID`, a mixture's own line ahead of its components.
using EmissionLines = std::unordered_map<std::int32_t, std::vector<EmissionLine>>;

/// The stored rows of these tanks, one line each.
EmissionLines StoredLines(store::Database& client, const std::unordered_set<std::int32_t>& tanks);

/// The rows of these tanks summed over the months that are there, one line a mixture and name.
EmissionLines SummedLines(store::Database& client, const std::unordered_set<std::int32_t>& tanks);

/// The stored rows of one tank as lines, in the order of the file.
std::vector<EmissionLine> LinesInStoredOrder(store::Database& client, std::int32_t tank);

/// One tank's losses over all mixtures and periods; components are not counted beside their mixture.
struct TankLosses {
  std::int32_t id = 0;
  std::string user_id;
  std::string tank_type;
  store::Value city;
  std::string state;
  std::string company;
  Losses losses;
};

/// All tanks of `emission`, in the order of their `ID`.
std::vector<TankLosses> LossesByTank(store::Database& client);

/// The tank's loss in a roll-up: what counts for its kind of roof, 0 for a type that is neither.
double RollUpLoss(std::string_view tank_type, const Losses& losses);

}  // namespace orvex::reports
