#include "emission/validate.h"

#include <cmath>
#include <limits>

#include "emission/error_rows.h"
#include "emission/validation.h"
#include "shell/periods.h"
#include "shell/trap.h"

namespace orvex::emission {

using shell::Statement;

Validation::Validation(shell::Session& the_session, std::int32_t the_id)
    : session(the_session),
      ID(the_id),
      tank(the_session.ClientDb->OpenTable("tank")),
      mixtures(the_session.ClientDb->OpenMatching("mixtures", "IDMIX", {the_id})) {
  tank.SetIndex("ID");
  tank.Seek({ID});
}

void Validation::Fail(std::string_view text) {
  AddErrorRow(session, ID, user_id, text);
  HasError = true;
}

double Comparable(const store::Value& value) {
  return value.IsNull() ? std::numeric_limits<double>::quiet_NaN() : value.AsDouble();
}

bool IsNotZero(double comparable) { return comparable < 0 || comparable > 0; }

double ZeroIfNull(double comparable) { return std::isnan(comparable) ? 0.0 : comparable; }

namespace {

void ReadCity(Validation& validation) {
  auto cities = validation.session.ReferenceDb->OpenTable("met");
  cities.SetIndex("CTYST");
  Statement([&] { cities.Seek({validation.tank.Get("MET CTYST")}); });
  if (cities.NoMatch()) {
    validation.Fail("Nearest major city must be specified.");
    validation.TankUsable = false;
    return;
  }
  Statement([&] { validation.AtmosphericPressure = cities.DoubleOrZero("ATMOS_PRS"); });
  Statement([&] { validation.Insolation = cities.DoubleOrZero("INSOL_ANN"); });
}

void CheckAll(Validation& validation) {
  auto& tank = validation.tank;
  Statement([&] { validation.tank_type = tank.TextOrEmpty("TANK_TYPE"); });
  Statement([&] { validation.user_id = tank.TextOrEmpty("USER ID"); });
  Statement([&] { validation.heated = tank.BoolOrFalse("HEATED"); });
  ReadCity(validation);
  CheckPhysicalRules(validation);
  Statement([&] { CheckVolumes(validation); });
  if (validation.session.ReportTime == shell::kMonthly) CheckMonthlyMixtures(validation);
  Statement([&] { validation.NetThroughput = tank.DoubleOrZero("Q_NET"); });
  if (!validation.TankUsable) {
    validation.Fail("Tank errors must be fixed before mixture information can be checked.");
    return;
  }
  if (CheckThroughput(validation)) CheckMixtures(validation);
}

}  // namespace

void Validate(shell::Session& session, std::int32_t ID) {
  shell::Trapped(session, "modEmission.Validate", [&] {
    Validation validation(session, ID);
    CheckAll(validation);
    // The flag tells about this tank alone: the run asks it once, behind the last tank.
    session.ValidationFailed = validation.HasError;
  });
}

}  // namespace orvex::emission
