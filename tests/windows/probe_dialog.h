#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "windows/model_dialog.h"

namespace orvex::test {

/// A model that notes what it is told. Its rules are set before its window is made.
struct Probe {
  shell::TextBox txtFirst, txtSecond;
  shell::ComboBox cboCity, cboName;
  shell::Button cmdGo, cmdClose;
  shell::WindowState window;
  std::vector<std::string> log;
  std::function<void()> on_leaving_first, on_typing_second, on_opening_name;
};

inline constexpr shell::ControlText kProbeControls[] = {
    {"txtFirst", "First:", "The first text"},     {"txtSecond", "Second:", "The second text"},
    {"cboCity", "City:", "A city, to be found"},  {"cboName", "Name:", "A name of one's own, or one of the list"},
    {"cmdGo", "&Go", "Is run after all entries"}, {"cmdClose", "&Close", "Closes the window"},
};
inline constexpr shell::WindowText kProbeText = {"frmProbe", "Probe", "index", kProbeControls};

/// Two lines and two boxes, entered and left, and two buttons.
class ProbeDialog : public windows::ModelDialog {
 public:
  ProbeDialog(const windows::ViewPlace& place, Probe& probe)
      : ModelDialog(place, kProbeText, probe.window), probe_(probe) {
    using windows::ChoiceBox;
    auto* column = new QVBoxLayout(this);
    for (auto* widget : std::initializer_list<QWidget*>{
             MakeLine("txtFirst", LineOf(probe_.txtFirst), Note("type first"), Note("activate first")),
             MakeLine("txtSecond", LineOf(probe_.txtSecond), Then("type second", probe_.on_typing_second), {}),
             MakeChoice("cboCity", probe_.cboCity, ChoiceBox::Typing::kFinds,
                        {Note("choose city"), Note("type city"), Note("open city"), Note("activate city")}),
             MakeChoice("cboName", probe_.cboName, ChoiceBox::Typing::kTakes,
                        {Note("choose name"), Note("type name"), Then("open name", probe_.on_opening_name), {}}),
             MakeButton("cmdGo", probe_.cmdGo, Note("go")),
         })
      column->addWidget(widget);
    auto* close = MakeButton("cmdClose", probe_.cmdClose, [this] { probe_.window.closed = true; });
    column->addWidget(close);
    SetCloseButton(close);
    Watch("txtFirst", "first", probe_.on_leaving_first);
    Watch("txtSecond", "second", {});
    Watch("cboCity", "city", {});
    Watch("cboName", "name", {});
    for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  }

 private:
  static LineRecord LineOf(shell::TextBox& box) { return {box.text, box.enabled, box.visible, box.read_only}; }

  Action Note(const std::string& deed) {
    return [this, deed] { probe_.log.push_back(deed); };
  }
  Action Then(const std::string& deed, std::function<void()> rule) {
    return [this, deed, rule = std::move(rule)] {
      probe_.log.push_back(deed);
      if (rule) rule();
    };
  }
  void Watch(const std::string& control, const std::string& name, std::function<void()> rule) {
    WatchFocus(findChild<QWidget*>(QString::fromStdString(control)), Note("enter " + name),
               Then("leave " + name, std::move(rule)));
  }

  Probe& probe_;
};

}  // namespace orvex::test
