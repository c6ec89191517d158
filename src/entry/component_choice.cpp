#include "emission/liquid_temperature.h"
#include "emission/vapor_pressure.h"
#include "entry/component_row.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

/// A pressure {psia} in four decimals, or in the scientific form if these show nothing of it.
std::string ShownPressure(double psia) {
  auto text = shell::FormatFourDecimals(psia);
  return shell::EntryNumber(text) == 0 && psia != 0 ? shell::FormatScientific(psia) : text;
}

/// A mixture without a temperature yet leaves the vapor pressure as it is.
void ShowVaporPressure(Session& session, Frmcomponent& form) {
  ShowTemperature(session, form);
  const double fahrenheit = form.txtALST.text.empty() ? 0 : shell::EntryNumber(form.txtALST.text);
  if (fahrenheit == 0) return;
  form.txtVP.text = ShownPressure(emission::PVA(session, form.txtName, emission::FahrenheitToRankine(fahrenheit)));
}

void TakeChemical(Session& session, Frmcomponent& form, std::string_view index, const std::string& key) {
  shell::Trapped(session, kComponentRoutine, [&] {
    auto chemical = session.ReferenceDb->OpenAt("chemical", index, {key});
    if (!chemical.NoMatch()) {
      form.txtName = chemical.TextOrEmpty("NAME");
      form.txtCAS = chemical.TextOrEmpty("CAS");
      form.txtMolWt.text = ShownNumber(chemical.Get("MOLWT"));
      form.txtVPMolWt.text = ShownNumber(chemical.Get("VP_MOLWT"));
      form.txtLDens.text = ShownNumber(chemical.Get("L_DENS"));
      ShowVaporPressure(session, form);
    }
    ShowNameInLists(form);
  });
}

}  // namespace

void ChooseChemName(Session& session, Frmcomponent& form, const std::string& name) {
  TakeChemical(session, form, "chemname", name);
}

void ChooseCAS(Session& session, Frmcomponent& form, const std::string& cas) {
  TakeChemical(session, form, "zCAS", cas);
}

}  // namespace orvex::entry
