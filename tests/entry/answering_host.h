#pragma once

#include <string>
#include <utility>

#include "entry/physical_page_test.h"

namespace orvex::test {

/// A person who takes note of every message box and says No to every question.
class AnsweringHost : public ScriptedHost {
 public:
  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon) override {
    messages.push_back(text);
    titles.push_back(title);
    return buttons == shell::Buttons::kYesNo ? shell::Answer::kNo : shell::Answer::kOk;
  }
};

/// The physical page before such a person.
class AnsweredPageTest : public PhysicalPageTest {
 protected:
  entry::FrmTank& OpenTank(std::string_view tank_type) {
    PhysicalPageTest::OpenTank(tank_type);
    answered_.ClientDb = std::move(session_.ClientDb);
    answered_.ReferenceDb = std::move(session_.ReferenceDb);
    answered_.tank_entry = session_.tank_entry;
    return entry::Editor(answered_);
  }

  void Given(const Texts& texts) {
    auto& form = entry::Editor(answered_);
    for (const auto& [control, text] : texts) entry::At(form, control).box.text = text;
    entry::UpdateTank(answered_, form);
  }

  [[nodiscard]] store::Value Stored(std::string_view field) {
    return answered_.ClientDb->OpenAt("tank", "ID", {entry::Editor(answered_).ID}).Get(field);
  }

  void Type(const std::string& control, const std::string& text) {
    auto& form = entry::Editor(answered_);
    entry::EnterEntry(answered_, form, control);
    entry::At(form, control).box.text = text;
    entry::TypeText(answered_, form, control);
    entry::LeaveEntry(answered_, form, control);
  }

  void LeavePage() { entry::ChangePage(answered_, entry::Editor(answered_), entry::Page::kSite); }

  AnsweringHost person_;
  shell::Session answered_{person_};
};

}  // namespace orvex::test
