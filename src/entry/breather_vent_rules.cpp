#include "entry/breather_vent_rules.h"

#include "entry/entry_events.h"
#include "entry/mixture_page.h"
#include "shell/status.h"

namespace orvex::entry {

using shell::Session;

void LimitVacuum(Session& session, FrmTank& form, Entry& vacuum) {
  if (Number(vacuum) > 0) ShowNumber(vacuum, -Number(vacuum));
  if (Number(vacuum) >= -1) return;
  RefuseEntry(session, form, vacuum, "Please enter a number bewteen -1 and 0.");
  vacuum.box.text = "0";
}

void LimitPressure(Session& session, FrmTank& form, Entry& pressure) {
  const auto tested = Number(At(form, "txtPressureVT"));
  if (tested >= 0 && tested <= 1) return;
  RefuseEntry(session, form, pressure, "Please enter a value between 0 and 1.");
  pressure.box.text = "0";
}

void ChooseHeated(Session& session, FrmTank& form, Entry& heated) {
  EnableTemperatures(form);
  auto& vacuum = Physical(form, "VENT_V");
  auto& pressure = Physical(form, "VENT_P");
  if (!form.visible || !IsYes(heated) || (Number(vacuum) == 0 && Number(pressure) == 0)) return;
  if (!shell::Accepted(session.host,
                       "The breather vent setting for a heated tank must be zero.  Do you want to set these values to "
                       "zero now?"))
    return;
  vacuum.box.text = "0";
  pressure.box.text = "0";
}

}  // namespace orvex::entry
