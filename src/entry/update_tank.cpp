#include "entry/update_tank.h"

#include "entry/bound_record.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

/// Leaves a text alone that is no number yet.
void FormatText(std::string& text) {
  if (const auto number = shell::ParseEntryNumber(text)) text = shell::FormatTwoToSixDecimals(*number);
}

void FormatQuantities(FrmTank& form) {
  for (const auto* field : {"VOLUME", "TURNOVER", "Q_NET"}) FormatText(Physical(form, field).box.text);
}

}  // namespace

void UpdateTank(shell::Session& session, FrmTank& form) {
  CommitTank(session, form);
  FormatQuantities(form);
  form.txtThruSpec.text = Physical(form, "Q_NET").box.text;
}

void FormatLarge(FrmTank& form) {
  for (auto& month : form.months) FormatText(month.txtThru.text);
  FormatText(form.txtTotalMonths.text);
  FormatQuantities(form);
}

}  // namespace orvex::entry
