#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "entry/month_page.h"
#include "windows/display_text.h"
#include "windows/frmtank_view.h"

namespace orvex::windows {
namespace {

constexpr int kNumberLetters = 18;
constexpr int kMixtureLetters = 24;

}  // namespace

QWidget* FrmTankView::MakeMonthlyPage() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout;
  const auto& headings = entry::kMonthTexts.front();
  grid->addWidget(new QLabel(tr("Month"), page), 0, 0);
  grid->addWidget(new QLabel(tr("%1 (gal)").arg(Shown(headings.txtThru.caption)), page), 0, 1);
  grid->addWidget(new QLabel(Shown(headings.cboMix.caption), page), 0, 2);
  for (std::size_t month = 0; month < form_.months.size(); ++month) PlaceMonth(*grid, month);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
  for (const int column : {2, 3}) grid->setColumnStretch(column, 1);
  auto* column = new QVBoxLayout(page);
  column->addLayout(grid);
  column->addLayout(MakeTotals());
  column->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(MakeCommand("cmdDistribute", form_.cmdDistribute, entry::ClickDistribute));
  buttons->addWidget(MakeCommand("cmdFillMixName", form_.cmdFillMixName, entry::ClickFillMixName));
  buttons->addStretch(1);
  column->addLayout(buttons);
  return page;
}

void FrmTankView::PlaceMonth(QGridLayout& grid, std::size_t month) {
  const auto& text = entry::kMonthTexts[month];
  auto& entry = form_.months[month];
  const int row = static_cast<int>(month) + 1;
  const auto name = Shown(text.chk.caption);
  auto* box = MakeCheckBox(text.chk.name, entry.chk,
                           [this, &entry, month] { entry::TickMonth(session_, form_, month, entry.chk.checked); });
  auto* throughput = MakeTextBox(text.txtThru.name, entry.txtThru, {});
  WatchFocus(throughput, {}, Do(entry::LeaveThroughput, month));
  throughput->setMinimumWidth(fontMetrics().averageCharWidth() * kNumberLetters);
  auto* mixture = MakeChoice(text.cboMix.name, entry.cboMix, ChoiceBox::Typing::kFinds,
                             {.chosen = {}, .typed = {}, .opening = Do(entry::OpenMixtures, month), .activated = {}});
  mixture->setMinimumContentsLength(kMixtureLetters);
  throughput->setAccessibleName(name + QLatin1Char(' ') + throughput->accessibleName());
  mixture->setAccessibleName(name + QLatin1Char(' ') + mixture->accessibleName());
  // A month that is not in use keeps its height.
  auto kept = mixture->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  mixture->setSizePolicy(kept);
  grid.addWidget(box, row, 0);
  grid.addWidget(throughput, row, 1);
  grid.addWidget(mixture, row, 2);
}

QHBoxLayout* FrmTankView::MakeTotals() {
  auto* row = new QHBoxLayout;
  for (auto* total : {&form_.txtThruSpec, &form_.txtTotalMonths}) {
    const std::string_view name = total == &form_.txtThruSpec ? "txtThruSpec" : "txtTotalMonths";
    auto* line = MakeTextBox(name, *total, {});
    row->addWidget(MakeCaption(name, line));
    row->addWidget(line, 1);
    row->addSpacing(fontMetrics().averageCharWidth() * 2);
  }
  return row;
}

}  // namespace orvex::windows
