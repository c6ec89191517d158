#pragma once

#include <QDialog>
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "shell/controls.h"
#include "shell/session.h"
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
/// The window closes when the model says `closed`, and the focus goes where the model sends it. F1 opens the window's
/// topic of the help; Escape and the window's own closing button press its Close or Cancel button.
class ModelDialog : public QDialog {
  Q_OBJECT

 public:
  /// A function of the model; empty where an event has none.
  using Action = std::function<void()>;
  /// The same for an item of a list, counted from 0.
  using ItemAction = std::function<void(std::size_t item)>;

  [[nodiscard]] const shell::WindowText& Text() const { return text_; }

  /// Draws the window and gives it its size; called once, before it is shown.
  void Prepare();
  /// Closes the window without asking the model.
  void Unload();
  /// It was closed, perhaps by its model before it was shown.
  [[nodiscard]] bool IsUnloaded() const { return unloaded_; }

  void done(int result) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  /// @param state of the model, which lives as long as this window
  ModelDialog(const ViewPlace& place, const shell::WindowText& text, shell::WindowState& state);

  /// Runs a function of the model and draws what came of it.
  void Act(const Action& action);

  QPushButton* MakeButton(std::string_view name, const shell::Button& record, Action clicked);
  QCheckBox* MakeCheckBox(std::string_view name, shell::CheckBox& record, Action changed);
  QRadioButton* MakeOption(std::string_view name, shell::OptionButton& record, Action chosen);
  QLineEdit* MakeTextBox(std::string_view name, shell::TextBox& record, Action edited);
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

 private:
  [[nodiscard]] const shell::ControlText& TextOf(std::string_view name) const;
  void Dress(QWidget* widget, std::string_view name);
  template <typename Record>
  void DrawState(QWidget* widget, const Record& record);
  void Draw();
  void ScrollWhereTooLarge(QSize room);
  [[nodiscard]] QString SizeKey() const;

  const shell::WindowText& text_;
  shell::WindowState& state_;
  QSettings* settings_;
  std::vector<Action> drawings_;
  QPushButton* close_button_ = nullptr;
  bool unloaded_ = false;
};

}  // namespace orvex::windows
