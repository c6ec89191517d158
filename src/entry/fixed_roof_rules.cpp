#include "entry/breather_vent_rules.h"
#include "entry/dimension_rules.h"
#include "entry/entry_events.h"
#include "entry/mixture_page.h"
#include "entry/physical_rules.h"
#include "entry/roof_shape_rules.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

/// The sun does not reach the shell of an underground tank.
void ShowUnderground(shell::Session&, FrmTank& form, Entry& underground) {
  const bool above_ground = !IsYes(underground);
  for (const auto* field : {"SHL COLSHD", "PT_COND"}) Physical(form, field).box.visible = above_ground;
}

constexpr EntryRule kRules[] = {
    {"txtDiameterVT", Moment::kLeaving, FitConeSlope},
    {"txtDiameterVT", Moment::kLeaving, FitDomeRadius},
    {"txtDiameterVT", Moment::kLeaving, ProposeVolumeOfDiameter},
    {"txtMaxLiquidHeightVT", Moment::kLeaving, ProposeVolumeOfHeight},
    {"txtAvgLiquidHeightVT", Moment::kLeaving, LimitAverageLiquidHeight},
    {"txtShellHeightVT", Moment::kLeaving, LimitShell},
    {"txtLengthHT", Moment::kLeaving, LimitShell},
    {"txtDiameterHT", Moment::kLeaving, LimitShell},
    {"txtVolumeVT", Moment::kEntering, FillVolume},
    {"txtMaxLiquidHeightVT", Moment::kEntering, FillMaximumLiquidHeight},
    {"txtDiameterVT", Moment::kEntering, FillDiameter},
    {"txtConeSlopeVT", Moment::kEntering, ProposeConeSlope},
    {"txtDomeRadiusVT", Moment::kEntering, ProposeDomeRadius},
    {"txtVacuumVT", Moment::kLeaving, LimitVacuum},
    {"txtVacuumHT", Moment::kLeaving, LimitVacuum},
    {"txtPressureVT", Moment::kLeaving, LimitPressure},
    {"txtPressureHT", Moment::kLeaving, LimitPressure},
    {"cboHeatedVT", Moment::kChoosing, ChooseHeated},
    {"cboHeatedHT", Moment::kChoosing, ChooseHeated},
    {"cboUndergroundHT", Moment::kChoosing, ShowUnderground},
    {"cboRoofTypeVT", Moment::kChoosing, ShowRoofType},
};

}  // namespace

std::span<const EntryRule> FixedRoofRules() { return kRules; }

void ShowFixedRoofEntries(shell::Session& session, FrmTank& form) {
  if (!shell::IsFixedRoof(form.tank_type)) return;
  EnableTemperatures(form);
  if (PhysicalSection(form) == Section::kVertical) {
    ShowRoofType(session, form, Physical(form, "RF_TYPE"));
  } else {
    ShowUnderground(session, form, Physical(form, "UNDER"));
  }
}

}  // namespace orvex::entry
