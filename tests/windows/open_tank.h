#pragma once

#include <memory>
#include <string_view>

#include "entry/bound_record.h"
#include "entry/tank_entry.h"
#include "support/test_databases.h"

namespace orvex::test {

/// A new tank of this type in the editor, as if on the screen, with a mixture that is to be speciated.
inline entry::FrmTank& OpenTank(shell::Session& session, std::string_view tank_type) {
  auto tanks = session.ClientDb->OpenTable("tank");
  tanks.AddNew();
  tanks.Set("TANK_TYPE", tank_type);
  tanks.Update();
  tanks.Move(tanks.LastModified());
  const auto ID = tanks.Long("ID");
  AddRow(*session.ClientDb, "mixtures",
         {{"ID", ID}, {"MIX ID", 1}, {"COMPONENT", "Multiple"}, {"SPEC_OPT", "Full Speciation"}});
  session.tank_entry->frmTank = std::make_unique<entry::FrmTank>(entry::MakeFrmTank(tank_type));
  auto& form = entry::Editor(session);
  form.ID = ID;
  form.visible = true;
  entry::ShowTank(session, form);
  entry::ShowMixtureRow(session, form);
  return form;
}

}  // namespace orvex::test
