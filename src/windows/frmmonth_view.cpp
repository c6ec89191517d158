#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmmonth.h"
#include "windows/model_view.h"
#include "windows/month_grid.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmmonthView : public ModelView<reports::Frmmonth> {
 public:
  explicit FrmmonthView(const ViewPlace& place)
      : ModelView(place, reports::kFrmmonthText, reports::OpenFrmmonth(place.session)) {
    auto* months = new QGridLayout;
    PlaceMonths(*months, [this](std::size_t month) {
      auto& box = model_.chkMonths[month];
      return MakeCheckBox(reports::kMonthBoxTexts[month].name, box,
                          [this, &box, month] { reports::TickMonth(session_, model_, month, box.checked); });
    });
    auto* all = MakeButton("cmdAll", model_.cmdAll, Do(reports::ClickAll));
    auto* run = MakeButton("cmdRunReport", model_.cmdRunReport, Do(reports::ClickRunReport));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(reports::ClickClose));
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    run->setDefault(true);
    SetCloseButton(close);

    months->setHorizontalSpacing(fontMetrics().averageCharWidth() * 4);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addWidget(all);
    buttons->addStretch(1);
    buttons->addWidget(run);
    buttons->addWidget(close);
    auto* column = new QVBoxLayout(this);
    column->addLayout(months);
    column->addStretch(1);
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(buttons);
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmmonth(const ViewPlace& place) { return std::make_unique<FrmmonthView>(place); }

}  // namespace orvex::windows
