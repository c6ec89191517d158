#pragma once

#include "emission/mixture_fixture.h"
#include "entry/mixture_page.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"
#include "support/query_rows.h"
#include "support/sample_tanks.h"

namespace orvex::test {

inline constexpr std::string_view kAllTypes[] = {shell::kVerticalFixedRoof, shell::kHorizontal,
                                                 shell::kInternalFloatingRoof, shell::kExternalFloatingRoof,
                                                 shell::kDomedExternalFloatingRoof};

/// The liquid page of a white tank in good condition, in a city of 45 to 65 deg F and 1400 Btu/(ft2 day), with the
/// liquids "Light" and "Heavy" among the chemicals:
///   T_B  = 514.67 + 6 x 0.17 - 1 = 514.69 R = 55.02 F
///   T_LA = 0.44 x 514.67 + 0.56 x 514.69 + 0.0079 x 0.17 x 1400 = 516.5614 R = 56.8914 F
///   T_LX, T_LN = T_LA +- 0.25 x (0.72 x 20 + 0.028 x 0.17 x 1400) = T_LA +- 5.266 = 62.1574 F, 51.6254 F
class LiquidTest : public TankEntryTest {
 protected:
  LiquidTest() {
    AddSampleReference(*session_.ReferenceDb);
    emission::AddTabulated(*session_.ReferenceDb, "Light", 1, 1,
                           {{"CAS", "111-11-1"}, {"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"L_DENS", 5.0}});
    emission::AddTabulated(*session_.ReferenceDb, "Heavy", 0.25, 0.25,
                           {{"CAS", "222-22-2"}, {"MOLWT", 100.0}, {"VP_MOLWT", 80.0}, {"L_DENS", 8.0}});
  }

  entry::FrmTank& OpenLiquid(std::string_view tank_type) {
    auto& form = OpenTank(tank_type);
    entry::FillSpeciationOptions(form);
    entry::ShowMixture(session_, form);
    entry::At(form, "dbcboCity").box.text = kSampleCity;
    for (const auto& [control, text] :
         {std::pair("txtAvgTemp", "55.00"), {"txtMaxTemp", "65.00"}, {"txtMinTemp", "45.00"}, {"txtInsol", "1,400.00"}})
      entry::At(form, control).box.text = text;
    for (const auto& [field, text] : {std::pair("SHL COLSHD", "White/White (D)"),
                                      {"PT_COND", "Good (D)"},
                                      {"RF_COLSHD", "White/White (D)"},
                                      {"RF_COND", "Good (D)"},
                                      {"HEATED", "No"},
                                      {"UNDER", "No"}})
      if (auto* entry = entry::FindPhysical(form, field)) entry->box.text = text;
    return form;
  }

  void ChooseKind(const std::string& kind, const std::string& option = "") {
    Choose("cboSingleMultiple", kind);
    if (!option.empty()) Choose("cboSpecOpt", option);
  }

  void AddShares(std::string_view field, double light, double heavy) {
    const auto ID = Form().ID, MixID = Form().MixID;
    AddComponent(Client(), ID, MixID, 1, {{"NAME", "Light"}, {"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {field, light}});
    AddComponent(Client(), ID, MixID, 2, {{"NAME", "Heavy"}, {"MOLWT", 100.0}, {"VP_MOLWT", 80.0}, {field, heavy}});
  }

  void Heat() {
    entry::Physical(Form(), "HEATED").box.text = "Yes";
    entry::EnableTemperatures(Form());
  }

  void Calculate() { entry::ClickCalcProp(session_, Form()); }

  /// The tank's mixtures in the order of the table: number and name.
  Rows Mixtures() {
    return QueryRows(Client(), "SELECT mixtures.[MIX ID], mixtures.[MIX NAME] FROM mixtures", {"MIX ID", "MIX NAME"});
  }
  Rows Components() {
    return QueryRows(Client(), "SELECT components.[MIX ID], components.NAME FROM components", {"MIX ID", "NAME"});
  }
  store::Value Stored(std::string_view field) {
    return Client().OpenAt("mixtures", "IDMIX", {Form().ID, Form().MixID}).Get(field);
  }
  bool Visible(std::string_view control) { return entry::At(Form(), control).box.visible; }
  bool Enabled(std::string_view control) { return entry::At(Form(), control).box.enabled; }
  std::string Label() { return Form().lblMixtureXofX.text; }

  entry::FrmTank& Form() { return entry::Editor(session_); }
  store::Database& Client() { return *session_.ClientDb; }
};

}  // namespace orvex::test
