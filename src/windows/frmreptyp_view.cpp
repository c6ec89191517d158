#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmreptyp.h"
#include "windows/model_view.h"
#include "windows/month_grid.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kBoxLetters = 18;

class FrmreptypView : public ModelView<reports::Frmreptyp> {
 public:
  explicit FrmreptypView(const ViewPlace& place)
      : ModelView(place, reports::kFrmreptypText, reports::OpenFrmreptyp(place.session)) {
    auto* time = MakeComboBox("cboRepTime", model_.cboRepTime, [this] {
      reports::ChangeRepTime(session_, model_, std::string(model_.cboRepTime.text));
    });
    auto* type = MakeComboBox("cboRepType", model_.cboRepType, [this] {
      reports::ChangeRepType(session_, model_, std::string(model_.cboRepType.text));
    });
    auto* frame = MakeFrame("fraMonths", model_.fraMonths);
    auto* months = new QGridLayout(frame);
    PlaceMonths(*months, [this](std::size_t month) {
      auto& box = model_.chkMonths[month];
      return MakeCheckBox(reports::kMonthBoxTexts[month].name, box,
                          [this, &box, month] { reports::TickMonth(session_, model_, month, box.checked); });
    });
    auto* all = MakeButton("cmdAll", model_.cmdAll, Do(reports::ClickAll));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(reports::ClickOK));
    auto* close = MakeButton("cmdCancel", model_.cmdCancel, Do(reports::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(close);

    months->addWidget(all, months->rowCount(), 0);
    months->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
    for (auto* box : {time, type}) box->setMinimumContentsLength(kBoxLetters);
    auto* form = new QFormLayout;
    form->addRow(MakeCaption("cboRepTime", time), time);
    form->addRow(MakeCaption("cboRepType", type), type);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(frame);
    column->addStretch(1);
    column->addLayout(buttons);
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmreptyp(const ViewPlace& place) { return std::make_unique<FrmreptypView>(place); }

}  // namespace orvex::windows
