#include <fmt/format.h>

#include "entry/frmspecpro.h"
#include "entry/liquid_form.h"
#include "entry/mixture_page.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

/// The routine of the command that the mixture's form has.
std::string Routine(const FrmTank& form, std::string_view command) {
  return fmt::format("frmTank.{}{}_Click", command, form.form == Section::kFull ? "Full" : "Partial");
}

}  // namespace

void ClickSpecComp(shell::Session& session, FrmTank& form) {
  shell::Trapped(session, Routine(form, "cmdSpecComp"), [&] { session.host.ShowWindow("Frmcomponent"); });
}

void ClickCopySpec(shell::Session& session, FrmTank& form) {
  shell::Trapped(session, Routine(form, "cmdCopySpec"), [&] {
    if (ProfileNames(session, form).empty()) {
      shell::Tell(session.host, "There are no " + SpeciationOption(session, form) + " Profiles");
      return;
    }
    session.host.ShowWindow("Frmspecpro");
  });
}

}  // namespace orvex::entry
