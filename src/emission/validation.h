#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/session.h"
#include "store/record_set.h"

/// The parts that `Validate` is made of. Each adds an error row for every rule that fails and goes on with the next.
namespace orvex::emission {

/// One call of `Validate` while it runs: the tank that it looks at, and its verdict so far.
struct Validation {
  /// Opens the tank and its mixtures. A tank that does not exist leaves `tank` without a current record.
  Validation(shell::Session& the_session, std::int32_t the_id);

  shell::Session& session;
  const std::int32_t ID;
  store::RecordSet tank;      ///< stands on the tank
  store::RecordSet mixtures;  ///< the tank's mixtures, in the order of the file
  std::string tank_type;
  std::string user_id;
  bool heated = false;
  double AtmosphericPressure = 0;  ///< of the nearest city {psia}
  double Insolation = 0;           ///< of the nearest city, whole year {Btu/(ft2 day)}
  double NetThroughput = 0;        ///< of the tank {gal/yr}
  bool HasError = false;
  bool TankUsable = true;  ///< what the checks of the mixtures need to know of the tank is there

  void Fail(std::string_view text);

  /// Walks the tank's mixtures from the first one on; `visit` tells whether to go on.
  template <typename Visit>
  void ForEachMixture(Visit visit) {
    if (mixtures.RecordCount() == 0) return;
    for (mixtures.MoveFirst(); !mixtures.AtEnd(); mixtures.MoveNext())
      if (!visit()) return;
  }
};

/// A stored number as the rules compare it. A null is NaN: every comparison with it is false, so no rule fires on it,
/// and what is computed from it is null in turn.
double Comparable(const store::Value& value);
/// False for a null too.
bool IsNotZero(double comparable);
/// A comparable number where the calculation itself takes it: a null is 0.
double ZeroIfNull(double comparable);

/// The type's rules on shape, paint, seals, deck and fittings; completes seals and columns.
void CheckPhysicalRules(Validation& validation);
/// Agreement of throughput, volume and turnovers with each other and with the tank's size.
void CheckVolumes(Validation& validation);
/// For a monthly report: mixtures that are no chemicals may be stored in one chosen month at most.
void CheckMonthlyMixtures(Validation& validation);
/// Throughput of the mixtures against that of the tank; distributes it over the months of a single mixture that has
/// none. False when the tank has no mixture to check further.
bool CheckThroughput(Validation& validation);
/// The rules on each mixture and its components.
void CheckMixtures(Validation& validation);

}  // namespace orvex::emission
