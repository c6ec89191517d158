#pragma once

#include <QComboBox>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/controls.h"

class QAbstractItemView;

namespace orvex::windows {

/// One of a list of texts, drawn from its record; what the person does is told by signals. The list may be filled as it
/// drops down: `Opening` asks for that, `Opened` answers.
class ChoiceBox : public QComboBox {
  Q_OBJECT

 public:
  /// What the person can type.
  enum class Typing : std::uint8_t {
    kNothing,
    kFinds,  ///< a part of an item, to find it; when the box is left, a text that is no item gives way to the last one
    kTakes,  ///< any text; items that hold it are offered
    kNames,  ///< the same, and a text that is an item stands for itself: only what is picked from a list chooses, and
             ///< then what was typed to come to it is taken back
  };

  ChoiceBox(Typing typing, QWidget* parent);

  /// Of a box that can be typed in, when its record stands for something else now. What was looked for is given up.
  void SetTyping(Typing typing);
  void Draw(const shell::ComboBox& record);
  /// The list is filled, and is shown.
  void Opened();

  void showPopup() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void Opening();
  /// By key, mouse or a text typed that is an item.
  void Chosen(int item);
  void Typed(const QString& text);
  /// Enter where it chooses nothing.
  void Activated();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Wanted : std::uint8_t { kNothing, kList, kMatches };

  void MakeLine();
  void NoteTyped(const QString& text);
  void Take(int item);
  /// The same where the person stays in the box.
  void Pick(int item);
  void PressEnter();
  /// Back to what the record holds, and no list of what was found.
  void GiveUpFinding();
  void Settle(const QString& text);
  void ShowText(const QString& text);
  /// The list of what was found; null while it is not shown.
  [[nodiscard]] QAbstractItemView* Matches() const;
  /// The item that is this text; one that differs in case only if there is no other, -1 for none.
  [[nodiscard]] int ItemOf(const QString& text) const;
  /// The one that was looked for: the text typed itself ("Toluene" is a part of other names, too), else the first of
  /// those that hold it. Some must have been found.
  [[nodiscard]] int Found() const;

  Typing typing_;
  std::vector<std::string> items_;
  QString told_;          ///< what the record holds, as far as the person was listened to
  QString before_;        ///< what the record held before something was typed into a name
  bool naming_ = false;   ///< since the box was entered
  bool finding_ = false;  ///< the line shows what is looked for, and not what is chosen
  bool entered_ = false;  ///< it has the focus, or has only lent it
  bool leaving_ = false;
  Wanted wanted_ = Wanted::kNothing;
};

}  // namespace orvex::windows
