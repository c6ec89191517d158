#include "windows/person.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace orvex::test {
namespace {

constexpr int kLookEveryMs = 5;
/// A message box that nobody reckoned with does not go by itself.
constexpr int kMessagePatienceMs = 2'000;

void ReadAndPress(QWidget& window, const QString& button) {
  for (auto* candidate : window.findChildren<QAbstractButton*>())
    if (candidate->text().remove(QLatin1Char('&')) == button) return Click(*candidate);
  ADD_FAILURE() << "the message has no button " << button.toStdString();
}

QString TextOf(const QWidget& window) {
  const auto* message = qobject_cast<const QMessageBox*>(&window);
  return message == nullptr ? QString() : message->text();
}

std::string NameOf(const QWidget* widget) {
  if (widget == nullptr) return "nothing";
  const auto name = widget->objectName();
  return name.isEmpty() ? widget->metaObject()->className() : name.toStdString();
}

}  // namespace

QWidget* TopWindow() {
  if (auto* modal = QApplication::activeModalWidget()) return modal;
  for (auto* window : QApplication::topLevelWidgets())
    if (window->objectName() == QStringLiteral("MDIForm1") && window->isVisible()) return window;
  return nullptr;
}

Person::Person(int patience_ms) : patience_ms_(patience_ms) {
  QTimer::singleShot(kLookEveryMs, this, [this] { Look(); });
}

Person::~Person() {
  for (const auto& plan : plans_) ADD_FAILURE() << "never came to " << plan.window.toStdString();
}

void Person::In(const QString& window, Deed deed) {
  Until(window, [deed = std::move(deed)](QWidget& found) {
    deed(found);
    return true;
  });
}

void Person::Until(const QString& window, std::function<bool(QWidget& window)> deed) {
  plans_.push_back({window, std::move(deed)});
}

void Person::Press(const QString& window, const QString& button) {
  In(window, [button](QWidget& found) { Click(Find<QAbstractButton>(found, button)); });
}

void Person::Answer(const QString& text, const QString& button) {
  In(QStringLiteral("message"), [text, button](QWidget& window) {
    EXPECT_EQ(TextOf(window).toStdString(), text.toStdString());
    ReadAndPress(window, button);
  });
}

void Person::AnswerEnding(const QString& ending, const QString& button) {
  In(QStringLiteral("message"), [ending, button](QWidget& window) {
    EXPECT_TRUE(TextOf(window).endsWith(ending)) << TextOf(window).toStdString();
    ReadAndPress(window, button);
  });
}

void Person::Choose(const QString& command) {
  In(QStringLiteral("MDIForm1"), [command](QWidget& window) {
    auto* action = window.findChild<QAction*>(command);
    ASSERT_NE(action, nullptr) << command.toStdString();
    EXPECT_TRUE(action->isEnabled()) << command.toStdString();
    action->trigger();
  });
}

void Person::NameFile(const QString& title, const QString& path) {
  In(QStringLiteral("file_dialog"), [title, path](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), title.toStdString());
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    auto& name = Find<QLineEdit>(window, QStringLiteral("fileNameEdit"));
    dialog.activateWindow();
    name.setFocus();
    // The dialog reads the folder meanwhile, and marks the file that it was opened with when it comes to it.
    const auto is_named = [&] {
      if (name.hasFocus() && dialog.selectedFiles() == QStringList(path)) return true;
      name.clear();
      name.setText(path);
      return false;
    };
    EXPECT_TRUE(QTest::qWaitFor(is_named, kPatienceMs / 4)) << "cannot name " << path.toStdString();
    QTest::keyClick(&name, Qt::Key_Return);
  });
}

void Person::Look() {
  // A deed may open a window and come back when that is closed; looking on is not its business.
  QTimer::singleShot(kLookEveryMs, this, [this] { Look(); });
  auto* top = TopWindow();
  const bool awaited = !plans_.empty() && top != nullptr && top->isVisible() &&
                       top->objectName() == plans_.front().window && std::ranges::count(working_in_, top) == 0;
  if (!awaited) return Wait(top);
  waited_ms_ = 0;
  auto plan = std::move(plans_.front());
  plans_.pop_front();
  working_in_.push_back(top);
  try {
    if (!plan.deed(*top)) TryAgain(std::move(plan));
  } catch (const std::exception& fault) {
    ADD_FAILURE() << fault.what();
    GiveUp();
  }
  working_in_.pop_back();
}

void Person::TryAgain(Plan plan) {
  plan.tried_ms += kLookEveryMs;
  const bool in_vain = plan.tried_ms > patience_ms_;
  plans_.push_front(std::move(plan));
  if (in_vain) GiveUp();
}

void Person::Wait(const QWidget* top) {
  waited_ms_ += kLookEveryMs;
  const bool message = top != nullptr && top->objectName() == QStringLiteral("message") && !plans_.empty();
  if (waited_ms_ > (message ? kMessagePatienceMs : patience_ms_)) GiveUp();
}

void Person::GiveUp() {
  const auto* top = TopWindow();
  if (!plans_.empty()) ADD_FAILURE() << "waiting for " << plans_.front().window.toStdString();
  ADD_FAILURE() << "what is there: " << (top == nullptr ? "nothing" : top->objectName().toStdString()) << ' '
                << (top == nullptr ? "" : TextOf(*top).toStdString()) << ", with the focus in "
                << NameOf(QApplication::focusWidget()) << ", and active "
                << NameOf(QApplication::activePopupWidget() != nullptr ? QApplication::activePopupWidget()
                                                                       : QApplication::activeWindow());
  plans_.clear();
  waited_ms_ = 0;
  while (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) modal->QDialog::done(0);
  QCoreApplication::quit();
}

void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

void Write(QWidget& window, const QString& line, const QString& text) {
  auto& found = Find<QLineEdit>(window, line);
  found.setFocus();
  found.selectAll();
  QTest::keyClicks(&found, text);
}

void SelectRows(QWidget& window, const QString& list, const std::vector<int>& rows) {
  auto& view = Find<QListView>(window, list);
  Qt::KeyboardModifiers with = Qt::NoModifier;
  for (const int row : rows) {
    const auto index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, with, view.visualRect(index).center());
    with = Qt::ControlModifier;
  }
}

}  // namespace orvex::test
