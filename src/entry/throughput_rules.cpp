#include "entry/throughput_rules.h"

#include "entry/entry_events.h"
#include "entry/physical_rules.h"
#include "entry/tank_geometry.h"
#include "entry/update_tank.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/status.h"

/// Volume, turnovers and net throughput: the first two drive the third, and the third drives the turnovers. Nothing
/// here stands in the way of a 0, which means that the quantity is not given yet.
namespace orvex::entry {
namespace {

using shell::Session;

/// Volume {gal}, turnovers {per year} and net throughput {gal/yr} as they stand in the entries of the tank's type.
struct Quantities {
  Entry& volume_entry;
  Entry& turnovers_entry;
  Entry& throughput_entry;
  double volume_gal = Number(volume_entry);
  double turnovers = Number(turnovers_entry);
  double throughput_gal = Number(throughput_entry);
};

Quantities QuantitiesOf(FrmTank& form) {
  return {Physical(form, "VOLUME"), Physical(form, "TURNOVER"), Physical(form, "Q_NET")};
}

void LeaveVolume(Session& session, FrmTank& form, Entry&) {
  if (FitThroughputToVolume(form)) MonthlyUpdate(session, form);
}

void LeaveTurnovers(Session& session, FrmTank& form, Entry&) {
  const auto now = QuantitiesOf(form);
  if (now.volume_gal == 0 || now.throughput_gal == 0) return;
  if (!OutsideTenPercent(now.turnovers, Turnovers(now.throughput_gal, now.volume_gal))) return;
  ShowNumber(now.throughput_entry, Throughput(now.turnovers, now.volume_gal));
  MonthlyUpdate(session, form);
}

constexpr double kManyTurnovers = 1000;

/// Turnovers that stand as the program writes them have been left before; the person has been told then.
void WarnOfManyTurnovers(Session& session, FrmTank&, Entry& turnovers) {
  const auto number = Number(turnovers);
  if (number < kManyTurnovers || turnovers.box.text == shell::FormatTwoToSixDecimals(number)) return;
  shell::Tell(session.host, "This is an unusually large number of turnovers.  Please check.",
              shell::Icon::kExclamation);
}

/// Whether the person changed it. Digits that an entry does not show are no change.
bool IsAnother(const Entry& throughput) {
  const auto stored = shell::ParseEntryNumber(throughput.committed).value_or(0);
  return IsChanged(throughput) && throughput.box.text != shell::FormatTwoToSixDecimals(stored);
}

void LeaveNetThroughput(Session& session, FrmTank& form, Entry& throughput) {
  const auto now = QuantitiesOf(form);
  if (now.volume_gal != 0 && now.throughput_gal != 0 &&
      OutsideTenPercent(now.throughput_gal, Throughput(now.turnovers, now.volume_gal)))
    ShowNumber(now.turnovers_entry, Turnovers(now.throughput_gal, now.volume_gal));
  if (IsAnother(throughput)) MonthlyUpdate(session, form);
}

void EnterVolume(Session&, FrmTank& form, Entry& volume) {
  const auto now = QuantitiesOf(form);
  if (now.turnovers != 0 && now.throughput_gal != 0 && now.volume_gal == 0)
    ShowNumber(volume, VolumeFromThroughput(now.throughput_gal, now.turnovers));
}

void EnterTurnovers(Session&, FrmTank& form, Entry& turnovers) {
  const auto now = QuantitiesOf(form);
  if (now.volume_gal != 0 && now.throughput_gal != 0 && now.turnovers == 0)
    ShowNumber(turnovers, Turnovers(now.throughput_gal, now.volume_gal));
}

void EnterNetThroughput(Session& session, FrmTank& form, Entry& throughput) {
  const auto now = QuantitiesOf(form);
  if (now.turnovers == 0 || now.volume_gal == 0 || now.throughput_gal != 0) return;
  ShowNumber(throughput, Throughput(now.turnovers, now.volume_gal));
  UpdateTank(session, form);
}

constexpr EntryRule kRules[] = {
    {"txtVolumeVT", Moment::kLeaving, LeaveVolume},
    {"txtVolumeHT", Moment::kLeaving, LeaveVolume},
    {"txtVolumeIT", Moment::kLeaving, LeaveVolume},
    {"txtVolumeET", Moment::kLeaving, LeaveVolume},
    {"txtTurnoverVT", Moment::kLeaving, LeaveTurnovers},
    {"txtTurnoverHT", Moment::kLeaving, LeaveTurnovers},
    {"txtTurnoverIT", Moment::kLeaving, LeaveTurnovers},
    {"txtTurnoverET", Moment::kLeaving, LeaveTurnovers},
    {"txtTurnoverVT", Moment::kLeaving, WarnOfManyTurnovers},
    {"txtTurnoverHT", Moment::kLeaving, WarnOfManyTurnovers},
    {"txtThroughputVT", Moment::kLeaving, LeaveNetThroughput},
    {"txtThroughputHT", Moment::kLeaving, LeaveNetThroughput},
    {"txtThroughputIT", Moment::kLeaving, LeaveNetThroughput},
    {"txtThroughputET", Moment::kLeaving, LeaveNetThroughput},
    {"txtVolumeVT", Moment::kEntering, EnterVolume},
    {"txtVolumeHT", Moment::kEntering, EnterVolume},
    {"txtVolumeIT", Moment::kEntering, EnterVolume},
    {"txtVolumeET", Moment::kEntering, EnterVolume},
    {"txtTurnoverVT", Moment::kEntering, EnterTurnovers},
    {"txtTurnoverHT", Moment::kEntering, EnterTurnovers},
    {"txtTurnoverIT", Moment::kEntering, EnterTurnovers},
    {"txtTurnoverET", Moment::kEntering, EnterTurnovers},
    {"txtThroughputVT", Moment::kEntering, EnterNetThroughput},
    {"txtThroughputHT", Moment::kEntering, EnterNetThroughput},
    {"txtThroughputIT", Moment::kEntering, EnterNetThroughput},
    {"txtThroughputET", Moment::kEntering, EnterNetThroughput},
};

}  // namespace

bool FitThroughputToVolume(FrmTank& form) {
  const auto now = QuantitiesOf(form);
  if (now.turnovers == 0 || now.volume_gal == 0 || now.throughput_gal == 0) return false;
  if (!OutsideTenPercent(now.volume_gal, VolumeFromThroughput(now.throughput_gal, now.turnovers))) return false;
  ShowNumber(now.throughput_entry, Throughput(now.turnovers, now.volume_gal));
  return true;
}

std::span<const EntryRule> ThroughputRules() { return kRules; }

}  // namespace orvex::entry
