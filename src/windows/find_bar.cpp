#include "windows/find_bar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvex::windows {
namespace {

constexpr int kTextWidth = 260;

QToolButton* MakeButton(QWidget* parent, const char* name, const QString& text, const QString& tip) {
  auto* button = new QToolButton(parent);
  button->setObjectName(QLatin1String(name));
  button->setText(text);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent), text_(new QLineEdit(this)), count_(new QLabel(this)) {
  setObjectName(QStringLiteral("find_bar"));
  text_->setObjectName(QStringLiteral("find_text"));
  text_->setAccessibleName(tr("Text to find"));
  text_->setPlaceholderText(tr("Find in report"));
  text_->setClearButtonEnabled(true);
  text_->setMinimumWidth(kTextWidth);
  count_->setObjectName(QStringLiteral("find_count"));
  auto* previous = MakeButton(this, "find_previous_button", tr("Previous"), tr("Previous match (Shift+F3)"));
  auto* next = MakeButton(this, "find_next_button", tr("Next"), tr("Next match (F3)"));
  auto* close = MakeButton(this, "find_close", tr("Close"), tr("Close the find bar (Esc)"));

  auto* edge = new QFrame(this);
  edge->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(edge);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->setContentsMargins(8, 4, 8, 4);
  row->addWidget(text_);
  row->addWidget(previous);
  row->addWidget(next);
  row->addWidget(count_, 1);
  row->addWidget(close);

  connect(text_, &QLineEdit::textChanged, this, [this] { Search(false); });
  connect(previous, &QToolButton::clicked, this, &FindBar::Previous);
  connect(next, &QToolButton::clicked, this, &FindBar::Next);
  connect(close, &QToolButton::clicked, this, &FindBar::Close);
  hide();
}

void FindBar::Start() {
  const bool was_hidden = isHidden();
  show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
  if (was_hidden && !text_->text().isEmpty()) Search(false);
}

void FindBar::Next() { Search(false); }
void FindBar::Previous() { Search(true); }

void FindBar::ShowCount(int active, int matches) {
  if (text_->text().isEmpty())
    count_->clear();
  else if (matches == 0)
    count_->setText(tr("Not found"));
  else
    count_->setText(tr("%1 of %2").arg(active).arg(matches));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return Close();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Search(event->modifiers().testFlag(Qt::ShiftModifier));
    default:
      QWidget::keyPressEvent(event);
  }
}

void FindBar::Search(bool backward) {
  // Asked for with the strip closed, it opens first: there may be no text yet.
  if (isHidden()) return Start();
  Q_EMIT Wanted(text_->text(), backward);
}

void FindBar::Close() {
  hide();
  Q_EMIT Closed();
}

}  // namespace orvex::windows
