#include "entry/dimension_rules.h"

#include <algorithm>

#include "entry/entry_events.h"
#include "entry/physical_rules.h"
#include "entry/tank_geometry.h"
#include "entry/throughput_rules.h"
#include "shell/number_format.h"
#include "shell/status.h"

namespace orvex::entry {
namespace {

using shell::Session;

/// What the cylinder of a vertical tank is made of, as it stands in the entries: diameter {ft}, maximum liquid height
/// {ft} and volume {gal}. 0 for what is not given yet.
struct Cylinder {
  double diameter_ft, height_ft, volume_gal;
};

Cylinder CylinderOf(FrmTank& form) {
  return {Number(Physical(form, "DIAMETER")), Number(Physical(form, "HEIGHT ML")), Number(Physical(form, "VOLUME"))};
}

bool IsWhole(const Cylinder& tank) { return tank.diameter_ft != 0 && tank.height_ft != 0 && tank.volume_gal != 0; }

void ProposeVolume(Session& session, FrmTank& form, double volume_gal) {
  const auto question = "The calculated volume is " + shell::FormatTwoToSixDecimals(volume_gal) + ". Use This Value?";
  if (!shell::Accepted(session.host, question, "Recalculate?")) return;
  ShowNumber(Physical(form, "VOLUME"), volume_gal);
  FitThroughputToVolume(form);
  MonthlyUpdate(session, form);
}

/// The limits {ft} of a shell, themselves inside.
struct ShellLimits {
  std::string_view control;
  double lowest_ft, highest_ft;
  std::string_view refusal;
};

constexpr ShellLimits kShellLimits[] = {
    {"txtShellHeightVT", 5, 65, "Shell height must be between 5 and 65 feet."},
    {"txtLengthHT", 5, 75, "Shell length must be between 5 and 75 feet."},
    {"txtDiameterHT", 3, 20, "Shell diameter must be between 3 and 20 feet."},
};

}  // namespace

void ProposeVolumeOfDiameter(Session& session, FrmTank& form, Entry& diameter) {
  const auto tank = CylinderOf(form);
  if (!IsChanged(diameter) || !IsWhole(tank)) return;
  if (OutsideTenPercent(tank.diameter_ft, DiameterFromVolume(tank.volume_gal, tank.height_ft)))
    ProposeVolume(session, form, CylinderVolume(tank.diameter_ft, tank.height_ft));
}

void ProposeVolumeOfHeight(Session& session, FrmTank& form, Entry&) {
  const auto tank = CylinderOf(form);
  if (!IsWhole(tank)) return;
  if (OutsideTenPercent(tank.height_ft, HeightFromVolume(tank.volume_gal, tank.diameter_ft)))
    ProposeVolume(session, form, CylinderVolume(tank.diameter_ft, tank.height_ft));
}

void LimitAverageLiquidHeight(Session& session, FrmTank& form, Entry& average_height) {
  const auto& maximum_height = Physical(form, "HEIGHT ML");
  if (Number(average_height) <= Number(maximum_height)) return;
  shell::Tell(session.host, "Average liquid height must not exceed the maximum liquid height.",
              shell::Icon::kExclamation);
  average_height.box.text = maximum_height.box.text;
}

void LimitShell(Session& session, FrmTank& form, Entry& dimension) {
  const auto& limits = *std::ranges::find(kShellLimits, dimension.info->text.name, &ShellLimits::control);
  const auto value_ft = Number(dimension);
  if (value_ft != 0 && (value_ft < limits.lowest_ft || value_ft > limits.highest_ft))
    RefuseEntry(session, form, dimension, limits.refusal);
}

void FillVolume(Session&, FrmTank& form, Entry& volume) {
  const auto tank = CylinderOf(form);
  if (tank.diameter_ft != 0 && tank.height_ft != 0 && tank.volume_gal == 0)
    ShowNumber(volume, CylinderVolume(tank.diameter_ft, tank.height_ft));
}

void FillMaximumLiquidHeight(Session&, FrmTank& form, Entry& height) {
  const auto tank = CylinderOf(form);
  if (tank.diameter_ft != 0 && tank.volume_gal != 0 && tank.height_ft == 0)
    ShowNumber(height, HeightFromVolume(tank.volume_gal, tank.diameter_ft));
}

void FillDiameter(Session&, FrmTank& form, Entry&) {
  const auto tank = CylinderOf(form);
  if (tank.height_ft != 0 && tank.volume_gal != 0 && tank.diameter_ft == 0)
    ShowNumber(Physical(form, "VOLUME"), DiameterFromVolume(tank.volume_gal, tank.height_ft));
}

}  // namespace orvex::entry
