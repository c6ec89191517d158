#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <stdexcept>

#include "windows/editor_walk.h"

namespace orvex::test {
namespace {

/// What only the editor of profiles asks of its window.
class ProfileWindow : public EditorWalk {
 protected:
  static constexpr const char* kWindow = "frmProfile";

  /// Enters the component on show.
  void Fill(const QString& number, const QString& entry, const QString& share) {
    typist_.Find("dbcboCAS", number, number);
    typist_.Fill(entry, share);
  }
  /// Where two buttons share a key, it presses neither, but leads to one and then to the other.
  void PressSharedKeyUpTo(const QString& button) {
    typist_.Until(kWindow, [button, presses = 0](QWidget& window) mutable {
      if (FocusOf(window) == button) return true;
      if (++presses > 3) throw std::runtime_error("the key does not lead to " + button.toStdString());
      PressKey("Alt+D");
      return false;
    });
  }
  void Add() {
    typist_.TabTo("cmdAdd");
    typist_.Keys({"Return"});
  }
};

TEST_F(ProfileWindow, TheKeyThatAddAndDeleteProfileShareLeadsToBothByTurns) {
  OpenEditor("S", kWindow);
  // On a shipped profile Add is off, and the key is the other's alone.
  typist_.Keys({"Alt+D"});
  typist_.Reply("Record is not user defined.  It cannot be deleted.", "Return");
  AddRecord(kWindow, "dbcboProfName");
  typist_.Type("Lakeside Blend");
  Fill("71-43-2", "txtWT_FRACT", "10");
  for (const auto* control : {"cmdAdd", "cmdDelete", "cmdAdd"}) PressSharedKeyUpTo(control);
  typist_.Keys({"Return"});
  typist_.Read("lblComponentXofX", "Component 2 of 2");
  PressSharedKeyUpTo("cmdDelete");
  typist_.Keys({"Return"});
  typist_.Reply("Are you sure you want to delete this profile?", "Return");
  typist_.Read("lblComponentXofX", "Component 1 of 12");
  typist_.Keys({"Esc"});
  RunToTheEnd();
}

TEST_F(ProfileWindow, TheComponentOfWhichASaveTellsIsOnShowMeanwhileAndThenTheFirst) {
  const QString told = "Liquid weight must not be zero for this component.";
  OpenEditor("S", kWindow);
  AddRecord(kWindow, "dbcboProfName");
  typist_.Type("Lakeside Blend");
  Fill("71-43-2", "txtWT_FRACT", "10");
  Add();
  Fill("108-88-3", "txtWT_FRACT", "20");
  Add();
  Fill("110-54-3", "txtWT_FRACT", "0");
  typist_.Keys({"Alt+S"});
  typist_.In("message", [](QWidget& message) {
    const auto& editor = *message.parentWidget();
    EXPECT_EQ(test::Find<QLabel>(editor, "lblComponentXofX").text(), "Component 3 of 3");
    EXPECT_EQ(test::Find<QLineEdit>(editor, "txtWT_FRACT").text(), "0");
  });
  typist_.Reply(told, "Return");
  typist_.Read("lblComponentXofX", "Component 1 of 3");
  typist_.Read("txtWT_FRACT", "10");
  typist_.Keys({"Alt+N", "Alt+N"});
  // The first component that lacks something, also while another one is on show.
  typist_.Fill("txtWT_FRACT", "30");
  typist_.TabTo("dbcboChemName");
  typist_.Keys({"Delete"});
  typist_.Keys({"Alt+S"});
  typist_.Reply("Chemical name must be specified for the component.", "Return");
  typist_.Read("lblComponentXofX", "Component 1 of 3");
  typist_.Keys({"Alt+N", "Alt+N"});
  typist_.Fill("dbcboChemName", "Hexane (-n)");
  typist_.Keys({"Alt+S"});
  typist_.Reply("Add Another Profile?", "Alt+N");
  typist_.Keys({"Esc"});
  typist_.Reply("Save Changes?", "Return");
  RunToTheEnd();
  EXPECT_EQ(Rows("profile components", "[spec id] = 15"), 3);
}

TEST_F(ProfileWindow, RelativeWeightsAreDrawnAndTold) {
  const auto plot_says = [this](const QString& text) {
    typist_.In(kWindow, [text](QWidget& window) {
      EXPECT_EQ(test::Find<QWidget>(window, "plot").accessibleDescription(), text);
    });
  };
  OpenEditor("S", kWindow);
  AddRecord(kWindow, "dbcboProfName");
  typist_.Type("Lakeside Blend");
  typist_.Arrow("cboType", "Full");
  plot_says("The shares add up to 0.00 percent. A full profile needs 100.");
  typist_.TabTo("cmdRelLiq");
  typist_.Keys({"Return"});
  plot_says("The relative weights add up to 0.00.");
  Fill("71-43-2", "txtWEIGHT", "30");
  Add();
  Fill("108-88-3", "txtWEIGHT", "10");
  typist_.TabTo("cmdSave");
  plot_says("The relative weights add up to 40.00.");
  typist_.Read("txtSum", "Sum: 40.00");
  typist_.Look("frmProfile_relative");
  typist_.Keys({"Return"});
  typist_.Reply("Add Another Profile?", "Alt+N");
  typist_.Keys({"Esc"});
  typist_.Reply("Save Changes?", "Return");
  RunToTheEnd();
  EXPECT_EQ(Rows("profile components", "[spec id] = 15 AND WEIGHT > 0"), 2);
}

}  // namespace
}  // namespace orvex::test
