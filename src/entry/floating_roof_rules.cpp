#include "emission/typical_fittings.h"
#include "entry/column_rules.h"
#include "entry/deck_rules.h"
#include "entry/entry_events.h"
#include "entry/physical_rules.h"
#include "entry/seal_rules.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

void RebuildFittings(Session& session, FrmTank& form, Entry&) { RebuildTypicalFittings(session, form); }

void ShowDeck(Session&, FrmTank& form, Entry&) { ShowDeckEntries(form); }

void LeaveDiameterIT(Session& session, FrmTank& form, Entry& diameter) {
  if (!IsChanged(diameter)) return;
  ProposeColumns(session, form);
  ProposeDeckSeamLength(session, form);
  RebuildTypicalFittings(session, form);
}

constexpr EntryRule kRules[] = {
    {"txtDiameterIT", Moment::kLeaving, LeaveDiameterIT},
    {"cboSelfSupIT", Moment::kChoosing, ChooseSelfSupporting},
    {"cboSelfSupIT", Moment::kChoosing, RebuildFittings},
    {"txtColumnsIT", Moment::kEntering, EnterColumns},
    {"txtColumnsIT", Moment::kActivating, ActivateColumns},
    {"txtColumnsIT", Moment::kLeaving, LeaveColumns},
    {"cboColumnDiamIT", Moment::kChoosing, ChooseColumnDiameter},
    {"cboPrimaryIT", Moment::kOpening, OpenPrimarySeals},
    {"cboPrimaryIT", Moment::kChoosing, ChoosePrimarySeal},
    {"cboSecondaryIT", Moment::kOpening, OpenSecondarySeals},
    {"cboDeckTypeIT", Moment::kChoosing, ShowDeck},
    {"cboDeckTypeIT", Moment::kChoosing, RebuildFittings},
    {"cboFittingIT", Moment::kChoosing, RebuildFittings},
    {"cboDeckConstructIT", Moment::kChoosing, ChooseDeckConstruction},
    {"cboDeckSeamIT", Moment::kChoosing, ChooseDeckSeam},
    {"txtDeckSeamLengthIT", Moment::kEntering, EnterDeckSeamLength},

    {"txtDiameterET", Moment::kLeaving, RebuildFittings},
    {"cboRoofTypeET", Moment::kChoosing, RebuildFittings},
    {"cboFittingET", Moment::kChoosing, RebuildFittings},
    {"cboConstructET", Moment::kChoosing, ChooseConstruction},
    {"cboPrimaryET", Moment::kOpening, OpenPrimarySeals},
    {"cboPrimaryET", Moment::kChoosing, ChoosePrimarySeal},
    {"cboPrimaryET", Moment::kChoosing, RebuildFittings},
    {"cboSecondaryET", Moment::kOpening, OpenSecondarySeals},
};

}  // namespace

std::span<const EntryRule> FloatingRoofRules() { return kRules; }

void ShowFloatingRoofEntries(Session& session, FrmTank& form) {
  if (PhysicalSection(form) != Section::kInternal) return;
  ShowColumnEntries(form);
  ShowDeckEntries(form);
  FillDeckSeams(session, form);
}

void RebuildTypicalFittings(Session& session, FrmTank& form) {
  const auto* category = FindPhysical(form, "FITTING");
  if (category == nullptr || StoredText(*category) != "Typical") return;
  const double diameter_ft = Number(Physical(form, "DIAMETER"));
  if (PhysicalSection(form) == Section::kInternal) {
    emission::TypicalFitIFRT(session, form.ID, StoredText(Physical(form, "DECK_TYPE")),
                             IsYes(Physical(form, "SELF_SUP")), diameter_ft);
  } else {
    emission::TypicalFitEFRT(session, form.ID, StoredText(Physical(form, "RF_TYPE")),
                             StoredText(Physical(form, "RIM_PRIM")), diameter_ft);
  }
}

void ClickSpecFit(Session& session, FrmTank& form) {
  const bool internal = PhysicalSection(form) == Section::kInternal;
  shell::Trapped(session, internal ? "frmTank.cmdSpecFitIT_Click" : "frmTank.cmdSpecFitET_Click",
                 [&] { session.host.ShowWindow("frmrecfit"); });
}

}  // namespace orvex::entry
