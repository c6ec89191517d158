#pragma once

#include <QDialog>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "shell/controls.h"
#include "shell/session.h"
#include "windows/choice_box.h"
#include "windows/deed_queue.h"
#include "windows/refusal_note.h"
#include "windows/text_list.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSettings;

namespace orvex::windows {

/// Where a view stands.
struct ViewPlace {
  shell::Session& session;
  QWidget* parent;
  QSettings* settings;  ///< remembers the size of the window; none: it is not remembered
};

/// A window drawn from its model. A view names each control once: `Make...` makes the widget, binds it to the record of
/// the same name in the model, and takes caption, tool tip and accessible name from the window's text. What the person
/// does is written to the record, then the model's function for the event runs, then all controls are drawn anew from
/// their records. So a view decides nothing but where a control stands.
///
/// A window that has rules for entering or leaving its controls (`WatchFocus`) runs all that the person does in order,
/// each thing after the event that told of it: an entry is left before the next one is entered and before a command
/// runs, also one that is called by its access key. When the model sends the focus back from a leaving, what was to
/// come behind it does not happen. Message boxes, menus, lists that drop down and other windows are no leaving.
///
/// The window closes when the model says `closed`, and the focus goes where the model sends it. F1 opens the window's
/// topic of the help; Escape and the window's own closing button press its Close or Cancel button.
class ModelDialog : public QDialog {
  Q_OBJECT

 public:
  ~ModelDialog() override;

  /// A function of the model; empty where an event has none.
  using Action = std::function<void()>;
  /// The same for an item of a list, counted from 0.
  using ItemAction = std::function<void(std::size_t item)>;
  /// What happens in a box of choices.
  struct ChoiceActions {
    Action chosen;
    Action typed;      ///< a text that is no item
    Action opening;    ///< the list is to be filled
    Action activated;  ///< Enter
  };
  /// What a line shows, whichever record of the model holds it.
  struct LineRecord {
    std::string& text;
    const bool& enabled;
    const bool& visible;
    const bool& read_only;
  };

  [[nodiscard]] const shell::WindowText& Text() const { return text_; }

  /// Draws the window and gives it its size; called once, before it is shown.
  void Prepare();
  /// Draws all controls anew, and leaves the focus where it is.
  void DrawControls() const;
  /// Closes the window without asking the model.
  void Unload();
  /// The model has closed it, though a command that it runs has not come back yet.
  [[nodiscard]] bool IsClosedByModel() const { return state_.closed; }
  /// It was closed, perhaps by its model before it was shown.
  [[nodiscard]] bool IsUnloaded() const { return unloaded_; }

  void done(int result) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  /// @param state of the model, which lives as long as this window
  ModelDialog(const ViewPlace& place, const shell::WindowText& text, shell::WindowState& state);

  /// Runs a function of the model and draws what came of it.
  void Act(Action action);
  /// The same for what follows from a move of the focus: when the model sends it back, what was to come is dropped.
  void ActOnFocus(Action action);
  /// Runs functions of the model when the control, or one inside of it, gets the focus and when it loses it.
  void WatchFocus(QWidget* control, Action entered, Action left);
  /// The watched control that has the focus; null if none has.
  [[nodiscard]] QWidget* Entered() const { return entered_; }

  /// The window's topic, at the place that tells of the control that has the focus.
  [[nodiscard]] std::string TopicAtFocus() const;
  /// Topic of the help for where the person is.
  [[nodiscard]] virtual std::string HelpTopic() const { return std::string(text_.topic); }

  QPushButton* MakeButton(std::string_view name, const shell::Button& record, Action clicked);
  QCheckBox* MakeCheckBox(std::string_view name, shell::CheckBox& record, Action changed);
  QRadioButton* MakeOption(std::string_view name, shell::OptionButton& record, Action chosen);
  QLineEdit* MakeTextBox(std::string_view name, shell::TextBox& record, Action edited);
  /// @param activated by Enter or a double click
  QLineEdit* MakeLine(std::string_view name, LineRecord record, Action edited, Action activated);
  ChoiceBox* MakeChoice(std::string_view name, shell::ComboBox& record, ChoiceBox::Typing typing,
                        ChoiceActions actions);
  QComboBox* MakeComboBox(std::string_view name, shell::ComboBox& record, Action chosen);
  /// @param emptied for when nothing is selected any more
  TextList* MakeList(std::string_view name, shell::ListBox& record, TextList::Choice choice, TextList::Find find,
                     ItemAction picked, ItemAction double_clicked, Action emptied = {});
  QGroupBox* MakeFrame(std::string_view name, const shell::Frame& record);

  /// The caption of a control that carries none itself; its access key leads to the control.
  QLabel* MakeCaption(std::string_view name, QWidget* control);
  /// A text of the window, in as many lines as it needs.
  QLabel* MakeParagraph(std::string_view name);

  /// Draws something of the model that no record of a control tells.
  void AlsoDraw(Action draw) { drawings_.push_back(std::move(draw)); }

  /// The button that Escape presses.
  void SetCloseButton(QPushButton* button) { close_button_ = button; }

  shell::Session& session_;

  [[nodiscard]] const shell::ControlText& TextOf(std::string_view name) const;
  /// Names a widget, and gives it its tip and what is read aloud.
  void Dress(QWidget* widget, std::string_view name);

 private:
  void BindLine(QLineEdit* line, std::string_view name, LineRecord record, Action edited);
  void Draw();
  void MoveFocus();
  void Run(const Action& action);
  void TakeFocus(QWidget* button);
  void FollowFocus(QWidget* now);
  [[nodiscard]] QWidget* WatchedOf(QWidget* widget) const;
  /// @return what the scroll bars take of the window {px}
  QSize ScrollWhereTooLarge(QSize room);
  [[nodiscard]] QString SizeKey() const;

  struct FocusActions {
    Action entered, left;
  };

  const shell::WindowText& text_;
  shell::WindowState& state_;
  QSettings* settings_;
  std::vector<Action> drawings_;
  RefusalNote* refusal_;
  std::map<QWidget*, FocusActions> watched_;
  QWidget* entered_ = nullptr;  ///< of the watched controls, as the model has been told, or is about to be
  DeedQueue deeds_;
  QPushButton* close_button_ = nullptr;
  bool unloaded_ = false;
};

}  // namespace orvex::windows
