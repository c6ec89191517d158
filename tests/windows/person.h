#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "windows/pages.h"

namespace orvex::test {

/// Somebody at the keyboard and the mouse of the windows under test: waits for each window in turn and works in it. A
/// window that never comes, and a deed that is never done, fails the test and closes all that is open, so that nothing
/// hangs.
class Person : public QObject {
 public:
  using Deed = std::function<void(QWidget& window)>;

  /// @param patience_ms how long to wait for a window, and in it until a deed is done
  explicit Person(int patience_ms = kPatienceMs / 2);
  ~Person() override;

  /// When the window of this object name is on top: "MDIForm1" only while nothing stands before it.
  void In(const QString& window, Deed deed);
  /// The same, again and again until the deed says that it is done.
  virtual void Until(const QString& window, std::function<bool(QWidget& window)> deed);
  /// Presses a button of the window.
  void Press(const QString& window, const QString& button);
  /// Reads a message box, which must hold exactly this text, and presses one of its buttons ("OK", "Yes", "No").
  void Answer(const QString& text, const QString& button);
  /// The same for one whose text ends so.
  void AnswerEnding(const QString& ending, const QString& button);
  /// Chooses a command of the main window.
  void Choose(const QString& command);
  /// Names a file in a file dialog of this title.
  void NameFile(const QString& title, const QString& path);

  [[nodiscard]] bool IsDone() const { return plans_.empty(); }

 private:
  struct Plan {
    QString window;
    std::function<bool(QWidget& window)> deed;
    int tried_ms = 0;  ///< how long the deed has said by now that it is not done
  };
  void Look();
  void TryAgain(Plan plan);
  void Wait(const QWidget* top);
  void GiveUp();

  std::deque<Plan> plans_;
  std::vector<const QWidget*> working_in_;  ///< the windows of the deeds that have not come back
  int patience_ms_;
  int waited_ms_ = 0;
};

/// The window in which a person can work: the top modal one, or the main window while there is none.
QWidget* TopWindow();

/// A widget of a window, which must be there.
template <typename Widget>
Widget& Find(const QWidget& window, const QString& name) {
  auto* found = window.findChild<Widget*>(name);
  if (found == nullptr)
    throw std::runtime_error("no " + name.toStdString() + " in " + window.objectName().toStdString());
  return *found;
}

void Click(QWidget& widget);
/// Writes a text over what stands in a line.
void Write(QWidget& window, const QString& line, const QString& text);
/// Selects rows of a list by the mouse, the second and later ones with Ctrl.
void SelectRows(QWidget& window, const QString& list, const std::vector<int>& rows);

}  // namespace orvex::test
