#pragma once

#include <QString>
#include <QStringList>

#include "windows/person.h"

namespace orvex::test {

/// Somebody who has no mouse. Each thing is done in the window named by the last `At`, as soon as it is on top, and
/// reaches the control that has the focus: keys go the way that those of a real keyboard go. Where the focus is lost
/// the test fails.
class Typist : public Person {
 public:
  Typist() : Person(kWindowPatienceMs) {}

  /// What follows is done in this window.
  void At(const QString& window) { window_ = window; }

  void Until(const QString& window, std::function<bool(QWidget& window)> deed) override;

  /// Presses keys one after the other: "Alt+D", "Tab", "Space".
  void Keys(const QStringList& keys);
  /// Types a text where the focus is.
  void Type(const QString& text);
  /// Goes on by the Tab key until the control has the focus.
  void TabTo(const QString& control);
  /// Goes to an entry and types over what stands in it.
  void Fill(const QString& entry, const QString& text);

  /// Goes to a list and on in it by the arrow keys, without opening it.
  void Arrow(const QString& list, const QString& item);
  /// Goes to a list, drops it down, and takes an item with Enter.
  void Open(const QString& list, const QString& item);
  /// Goes to a list, types a part of the item, and takes it from what is found.
  void Find(const QString& list, const QString& part, const QString& item);
  /// Goes to a box and ticks it, or clears it.
  void Tick(const QString& box);
  /// Goes to a list of rows, and in it by the arrow keys to the row.
  void Row(const QString& list, const QString& row);

  /// Reads a message box, which must hold exactly this text, and answers by a key.
  void Reply(const QString& text, const QString& key);

  /// What can be read now in an entry, a list or a label.
  void Read(const QString& control, const QString& text);
  /// Where the focus must be now.
  void ExpectFocus(const QString& control);
  /// Keeps a picture of the window, for the eye, in the folder of this environment variable; without it does nothing.
  void Look(const QString& name);

 private:
  /// No window of a walk takes longer, also on a slow machine.
  static constexpr int kWindowPatienceMs = 30'000;

  QString window_;
};

/// The control that has the focus in a window; empty if none has.
QString FocusOf(const QWidget& window);

/// Presses one key where a real keyboard's would arrive.
void PressKey(const QString& key);

}  // namespace orvex::test
