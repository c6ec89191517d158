#include "windows/window_checks.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMap>
#include <QTabBar>
#include <algorithm>
#include <string>
#include <utility>

#include "windows/display_text.h"

namespace orvex::test {
namespace {

/// Pairs of buttons whose captions, the program's own, have the same access key: it goes from the one to the other.
constexpr std::pair<const char*, const char*> kSharedKeys[] = {{"cmdRunReport", "cmdRemove"}, {"cmdDelete", "cmdAdd"}};

bool ShareKey(const QString& one, const QString& other) {
  return std::ranges::any_of(kSharedKeys, [&](const auto& pair) {
    return one == QLatin1String(pair.first) && other == QLatin1String(pair.second);
  });
}

/// A widget of the window itself, not one that a toolkit's widget is made of.
bool IsControl(const QWidget& widget) {
  return !widget.objectName().isEmpty() && !widget.objectName().startsWith(QStringLiteral("qt_")) && widget.isVisible();
}

std::string NameOf(const QWidget& widget) { return widget.objectName().toStdString(); }

/// What a person reads on a widget that may carry an access key.
QString CaptionOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    return label->buddy() == nullptr ? QString() : label->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return box->title();
  return {};
}

/// The captions that may carry an access key.
QStringList CaptionsOf(const QWidget& widget) {
  const auto* tabs = qobject_cast<const QTabBar*>(&widget);
  if (tabs == nullptr) return {CaptionOf(widget)};
  QStringList captions;
  for (int i = 0; i < tabs->count(); ++i) captions += tabs->tabText(i);
  return captions;
}

}  // namespace

void ExpectNamesAndTips(const QWidget& window) {
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!IsControl(*widget) || widget->focusPolicy() == Qt::NoFocus) continue;
    if (qobject_cast<const QLabel*>(widget) != nullptr) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << NameOf(*widget);
    EXPECT_FALSE(widget->toolTip().isEmpty()) << NameOf(*widget);
  }
}

void ExpectNoTwoAccessKeys(const QWidget& window) {
  QMap<QChar, QString> keys;
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    for (const auto& caption : CaptionsOf(*widget)) {
      const auto key = windows::AccessKey(caption);
      if (key.isNull() || ShareKey(widget->objectName(), keys.value(key))) continue;
      EXPECT_FALSE(keys.contains(key)) << NameOf(*widget) << " and " << keys.value(key).toStdString();
      keys.insert(key, widget->objectName());
    }
  }
}

void ExpectReachedByTab(const QWidget& window) {
  QStringList met;
  for (auto* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain())
    met += next->objectName();
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!IsControl(*widget) || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    EXPECT_TRUE(met.contains(widget->objectName())) << NameOf(*widget);
  }
}

void ExpectWhole(const QWidget& window) {
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!IsControl(*widget)) continue;
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->wordWrap()) {
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << NameOf(*widget);
    } else if (label != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr ||
               qobject_cast<const QComboBox*>(widget) != nullptr) {
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << NameOf(*widget);
      EXPECT_GE(widget->height(), widget->sizeHint().height()) << NameOf(*widget);
    } else if (qobject_cast<const QLineEdit*>(widget) != nullptr) {
      EXPECT_GE(widget->height(), widget->sizeHint().height()) << NameOf(*widget);
    } else if (qobject_cast<const QListView*>(widget) != nullptr) {
      EXPECT_GE(widget->height(), 2 * widget->fontMetrics().lineSpacing()) << NameOf(*widget);
    }
    const auto inner = widget->parentWidget()->rect();
    EXPECT_TRUE(inner.contains(widget->geometry())) << NameOf(*widget) << " sticks out";
  }
}

}  // namespace orvex::test
