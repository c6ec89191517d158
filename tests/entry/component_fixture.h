#pragma once

#include <string>
#include <vector>

#include "entry/frmcomponent.h"
#include "entry/frmspecpro.h"
#include "entry/mixture_page.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::test {

/// The editor on a mixture of several components, and the windows that it opens on them.
class ComponentTest : public TankEntryTest {
 protected:
  using Texts = std::vector<std::string>;

  ComponentTest() { OpenTank(shell::kVerticalFixedRoof); }

  entry::FrmTank& Tank() { return entry::Editor(session_); }

  /// Shows the form of this speciation option on the liquid page.
  void Speciate(std::string_view option) {
    Tank().form = option == shell::kFullSpeciation ? entry::Section::kFull : entry::Section::kPartial;
    entry::FindLiquid(Tank(), "SPEC_OPT")->box.text = option;
  }

  void AddComponent(std::int32_t number, FieldValues fields, std::int32_t mixture = 1) {
    AddRow(*session_.ClientDb, "components", {{"ID", Tank().ID}, {"MIX ID", mixture}, {"COMP ID", number}});
    ChangeRow(*session_.ClientDb, "components", "IDMIX", {Tank().ID, mixture, number}, fields);
  }

  entry::Frmcomponent Open(std::string_view option) {
    Speciate(option);
    return entry::OpenFrmcomponent(session_);
  }

  /// Chooses a chemical and types its share, as a person does.
  void Fill(entry::Frmcomponent& form, const std::string& name, const std::string& share) {
    entry::ChooseChemName(session_, form, name);
    TypeShare(form, share);
  }
  void TypeShare(entry::Frmcomponent& form, const std::string& share) {
    form.txtShare.text = share;
    entry::LeaveNumber(session_, form, "txtShare");
  }

  store::RecordSet Row(std::int32_t number, std::int32_t mixture = 1) {
    return session_.ClientDb->OpenAt("components", "IDMIX", {Tank().ID, mixture, number});
  }

  /// A field of all components of a mixture, by their numbers.
  Texts Column(std::string_view field, std::int32_t mixture = 1) {
    Texts texts;
    auto rows = session_.ClientDb->OpenQuery("SELECT * FROM components WHERE ID = " + std::to_string(Tank().ID) +
                                             " AND [MIX ID] = " + std::to_string(mixture) + " ORDER BY [COMP ID]");
    for (; !rows.AtEnd(); rows.MoveNext()) texts.push_back(rows.IsNull(field) ? "null" : rows.Get(field).AsText());
    return texts;
  }

  static constexpr const char* kIncomplete =
      "This component must have a name, and a percent or weight.  Delete this component if you do not wish to save "
      "it.";
};

}  // namespace orvex::test
