#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "entry/tank_entry_fixture.h"
#include "entry/update_tank.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"

namespace orvex::test {

/// The physical page of an open tank. Every number of a tank just opened is 0.
class PhysicalPageTest : public TankEntryTest {
 protected:
  using Texts = std::initializer_list<std::pair<std::string, std::string>>;

  /// What the tank's row and entries hold, without the rules that run when it is typed.
  void Given(const Texts& texts) {
    auto& form = entry::Editor(session_);
    for (const auto& [control, text] : texts) entry::At(form, control).box.text = text;
    entry::UpdateTank(session_, form);
  }

  void Enter(const std::string& control) { entry::EnterEntry(session_, entry::Editor(session_), control); }

  /// Leaves an entry, with this text in it, for another page and comes back.
  void Leave(const std::string& control, const std::string& text) {
    auto& form = entry::Editor(session_);
    entry::At(form, control).box.text = text;
    entry::LeaveEntry(session_, form, control);
    entry::ChangePage(session_, form, entry::Page::kPhysical);
  }

  void ExpectProposal(const std::string& question, const std::string& title, shell::Answer answer) {
    host_.ExpectMessage(question, title, shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }

  void ExpectMonthlyQuestion(shell::Answer answer) {
    host_.ExpectMessage("Update monthly throughput information?", "Update?", shell::Buttons::kYesNo,
                        shell::Icon::kQuestion, answer);
  }

  /// Uses all months evenly for this throughput a year, so that nothing asks for an update.
  void SpreadOverMonths(double throughput_gal) {
    for (auto& month : entry::Editor(session_).months) {
      month.chk.checked = true;
      month.txtThru.text = shell::FormatTwoToSixDecimals(throughput_gal / 12);
    }
  }

  [[nodiscard]] store::Value Stored(std::string_view field) {
    return session_.ClientDb->OpenAt("tank", "ID", {entry::Editor(session_).ID}).Get(field);
  }
};

}  // namespace orvex::test
