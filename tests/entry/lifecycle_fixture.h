#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>
#include <string_view>

#include "entry/frmtank.h"
#include "entry/mixture_page.h"
#include "entry/tank_entry_fixture.h"
#include "entry/tank_lifecycle.h"
#include "shell/tank_types.h"
#include "support/query_rows.h"

namespace orvex::test {

/// Tanks that are created, opened, saved and closed as a person does it.
class LifecycleTest : public TankEntryTest {
 protected:
  using Person = std::function<void(entry::FrmTank&)>;

  store::Database& Client() { return *session_.ClientDb; }

  /// The New command of the type; `person` acts in the editor that it opens.
  void CreateTank(std::string_view tank_type, const Person& person) {
    ActInEditor(person);
    entry::NewTank(session_, tank_type);
    EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
    ExpectIdle();
  }

  /// The same for a tank that is stored already.
  void EditTank(std::int32_t ID, std::string_view tank_type, const Person& person) {
    ActInEditor(person);
    session_.editRecord(session_, ID, std::string(tank_type));
    EXPECT_EQ(session_.tank_entry->frmTank, nullptr);
    ExpectIdle();
  }

  /// Rows of a tank with one mixture, which has a name and no components.
  std::int32_t StoreTank(std::string_view tank_type, std::string_view user_id) {
    AddRow(Client(), "tank", {{"TANK_TYPE", tank_type}, {"USER ID", user_id}});
    auto tanks = Client().OpenTable("tank");
    tanks.MoveLast();
    const auto ID = tanks.Long("ID");
    AddRow(Client(), "mixtures", {{"ID", ID}, {"MIX ID", 1}});
    NameMixtureRow(ID, "Slop");
    return ID;
  }

  void NameMixtureRow(std::int32_t ID, std::string_view name) {
    ChangeRow(Client(), "mixtures", "IDMIX", {ID, 1},
              {{"C_CATEGORY", "Organic Liquids"}, {"COMPONENT", "Multiple"}, {"SPEC_OPT", "None"}, {"MIX NAME", name}});
  }

  /// Gives the mixture of the open tank a name.
  void NameMixture(entry::FrmTank& form, std::string_view name = "Slop") {
    NameMixtureRow(form.ID, name);
    form.form = entry::Section::kPartial;
    entry::ShowMixture(session_, form);
    entry::ShowMixtureRow(session_, form);
  }

  /// The tank that a window left which went without an answer is not asked about.
  void ForgetUnsaved() { Client().SetMark(0); }

  /// Answers the question of Close.
  void Close(entry::FrmTank& form, shell::Answer answer) {
    host_.ExpectMessage("Save Changes?", "Save?", shell::Buttons::kYesNoCancel, shell::Icon::kNone, answer);
    entry::ClickClose(session_, form);
  }

  Rows Query(const std::string& sql, std::initializer_list<std::string_view> fields) {
    return QueryRows(Client(), sql, fields);
  }

  std::int64_t Count(std::string_view table) { return Client().OpenTable(table).RecordCount(); }

  std::string UserId(std::int32_t ID) { return Client().OpenAt("tank", "ID", {ID}).TextOrEmpty("USER ID"); }

  /// Rows of `mixtures`, `components` and `fittings` whose tank is not there.
  int Orphans() {
    int orphans = 0;
    for (const auto* table : {"mixtures", "components", "fittings"})
      for (auto rows = Client().OpenTable(table); !rows.AtEnd(); rows.MoveNext())
        if (Client().OpenAt("tank", "ID", {rows.Long("ID")}).NoMatch()) ++orphans;
    return orphans;
  }

  /// Pointer and status are as when no command runs.
  void ExpectIdle() {
    EXPECT_TRUE(host_.pointers.empty() || host_.pointers.back() == shell::Pointer::kDefault);
    EXPECT_TRUE(host_.status.empty() || host_.status.back() == "Ready");
  }

 private:
  void ActInEditor(const Person& person) {
    host_.WhenShown("frmTank", [this, person] { person(entry::Editor(session_)); });
  }
};

}  // namespace orvex::test
