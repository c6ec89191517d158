#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "entry/bound_record.h"
#include "entry/entry_commands.h"
#include "entry/entry_events.h"
#include "entry/tank_entry.h"
#include "store/database.h"
#include "support/delivered_databases.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::test {

/// Tank entry over the delivered reference database and a client database without tanks. A question that a test does
/// not expect fails it.
class TankEntryTest : public testing::Test {
 protected:
  TankEntryTest() {
    OpenDelivered(folder_, session_);
    entry::AddTankEntry(session_);
  }

  /// A stored tank of this type with its first mixture, open and on the screen.
  entry::FrmTank& OpenTank(std::string_view tank_type) {
    auto tanks = session_.ClientDb->OpenTable("tank");
    tanks.AddNew();
    tanks.Set("TANK_TYPE", tank_type);
    tanks.Update();
    tanks.Move(tanks.LastModified());
    const auto ID = tanks.Long("ID");
    AddRow(*session_.ClientDb, "mixtures", {{"ID", ID}, {"MIX ID", 1}});
    session_.tank_entry->frmTank = std::make_unique<entry::FrmTank>(entry::MakeFrmTank(tank_type));
    auto& form = entry::Editor(session_);
    form.ID = ID;
    form.visible = true;
    entry::ShowTank(session_, form);
    entry::ShowMixtureRow(session_, form);
    return form;
  }

  /// Types a text into an entry as a person does: comes to it, types, leaves it.
  void Type(const std::string& control, const std::string& text) {
    auto& form = entry::Editor(session_);
    entry::EnterEntry(session_, form, control);
    entry::At(form, control).box.text = text;
    entry::TypeText(session_, form, control);
    entry::LeaveEntry(session_, form, control);
  }

  /// Chooses an item of an entry's list as a person does.
  void Choose(const std::string& control, const std::string& item) {
    auto& form = entry::Editor(session_);
    entry::EnterEntry(session_, form, control);
    entry::OpenList(session_, form, control);
    entry::At(form, control).box.text = item;
    entry::ChooseItem(session_, form, control);
    entry::LeaveEntry(session_, form, control);
  }

  [[nodiscard]] std::string Shown(const std::string& control) {
    return entry::At(entry::Editor(session_), control).box.text;
  }

  TemporaryFolder folder_;
  ScriptedHost host_;
  shell::Session session_{host_};
};

}  // namespace orvex::test
