#include "windows/frmtank_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "entry/copy_command.h"
#include "entry/entry_events.h"
#include "entry/tank_entry.h"
#include "entry/tank_lifecycle.h"
#include "windows/display_text.h"
#include "windows/placing.h"
#include "windows/record_label.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

using entry::FrmTank;
using entry::Page;

/// An entry; commands can be come to, but there is nothing to enter in them.
bool CanBeEntered(const QWidget& widget, const QWidget& page) {
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  return qobject_cast<const QPushButton*>(&widget) == nullptr && page.isAncestorOf(&widget) &&
         (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() && widget.isVisibleTo(&page) &&
         (line == nullptr || !line->isReadOnly());
}

}  // namespace

FrmTankView::FrmTankView(const ViewPlace& place, FrmTank& form)
    : ModelDialog(place, entry::kFrmTankText, form.window),
      form_(form),
      tabs_(new QTabBar(this)),
      pages_(new QStackedWidget(this)) {
  MakePages();
  auto* column = new QVBoxLayout(this);
  column->addWidget(tabs_);
  column->addWidget(pages_, 1);
  column->addLayout(MakeFoot());
  NoDefaultButton(*this);
  AlsoDraw([this] {
    const QSignalBlocker quiet(tabs_);
    tabs_->setCurrentIndex(static_cast<int>(form_.page));
    pages_->setCurrentIndex(static_cast<int>(form_.page));
    setWindowTitle(Shown(form_.tank_type));
  });
}

ModelDialog::Action FrmTankView::Do(Command command) {
  return [this, command] { command(session_, form_); };
}

ModelDialog::Action FrmTankView::Do(MonthCommand command, std::size_t month) {
  return [this, command, month] { command(session_, form_, month); };
}

ModelDialog::Action FrmTankView::Do(EntryCommand command, const entry::Entry& entry) {
  return [this, command, control = entry.info->text.name] { command(session_, form_, control); };
}

QPushButton* FrmTankView::MakeCommand(std::string_view name, const shell::Button& record, Command command) {
  return MakeButton(name, record, Do(command));
}

void FrmTankView::MakePages() {
  Dress(tabs_, "tabPages");
  tabs_->setAccessibleName(tr("Pages"));
  tabs_->setExpanding(false);
  tabs_->setUsesScrollButtons(true);
  for (const auto caption : entry::kPageCaptions) tabs_->addTab(Shown(caption));
  for (auto* page : {MakeIdentificationPage(), MakePhysicalPage(), MakeSitePage(), MakeLiquidPage(), MakeMonthlyPage()})
    pages_->addWidget(page);
  connect(tabs_, &QTabBar::currentChanged, this, &FrmTankView::ChoosePage);
  for (const int step : {1, -1}) {
    auto* keys = new QShortcut(step > 0 ? QKeySequence::NextChild : QKeySequence::PreviousChild, this);
    connect(keys, &QShortcut::activated, this,
            [this, step] { tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count()); });
  }
}

void FrmTankView::ChoosePage(int page) {
  // What has the focus is left before the page is.
  const bool stays = tabs_->hasFocus();
  tabs_->setFocus(Qt::OtherFocusReason);
  ActOnFocus([this, page] { entry::ChangePage(session_, form_, static_cast<Page>(page)); });
  if (!stays) Act([this] { GoToFirstEntry(); });
}

void FrmTankView::GoToFirstEntry() {
  auto* page = pages_->currentWidget();
  for (auto* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain())
    if (CanBeEntered(*next, *page)) return next->setFocus(Qt::TabFocusReason);
}

std::string FrmTankView::HelpTopic() const {
  std::string topic(entry::kPageTopics[static_cast<std::size_t>(form_.page)]);
  if (Entered() != nullptr) topic += '#' + Bytes(Entered()->objectName().toLower());
  return topic;
}

void FrmTankView::showEvent(QShowEvent* event) {
  ModelDialog::showEvent(event);
  if (!event->spontaneous()) GoToFirstEntry();
}

void FrmTankView::keyPressEvent(QKeyEvent* event) {
  if (!PressFocusedButton(*this, *event)) ModelDialog::keyPressEvent(event);
}

QHBoxLayout* FrmTankView::MakeFoot() {
  auto* close = MakeCommand("cmdClose", form_.cmdClose, entry::ClickClose);
  SetCloseButton(close);
  return PlaceFoot(
      {MakeCommand("cmdHelp", form_.cmdHelp, entry::ClickHelp), MakeCommand("cmdCopy", form_.cmdCopy, entry::ClickCopy),
       MakeCommand("cmdAbandon", form_.cmdAbandon, entry::ClickAbandon)},
      {MakeCommand("cmdRunReport", form_.cmdRunReport, entry::ClickRunReport),
       MakeCommand("cmdSave", form_.cmdSave, entry::ClickSave), close});
}

std::unique_ptr<ModelDialog> MakeFrmTank(const ViewPlace& place) {
  return std::make_unique<FrmTankView>(place, entry::Editor(place.session));
}

}  // namespace orvex::windows
