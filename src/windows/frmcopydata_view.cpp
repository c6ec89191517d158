#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "entry/frmcopydata.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/tank_details.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kNameLetters = 40;

class FrmCopyDataView : public ModelView<entry::FrmCopyData> {
 public:
  explicit FrmCopyDataView(const ViewPlace& place)
      : ModelView(place, entry::kFrmCopyDataText, entry::OpenFrmCopyData(place.session)) {
    auto* name =
        MakeChoice("cboTankName", model_.cboTankName, ChoiceBox::Typing::kFinds,
                   {.chosen = [this] { entry::ChangeTankName(session_, model_, std::string(model_.cboTankName.text)); },
                    .typed = {},
                    .opening = {},
                    .activated = {}});
    name->setMinimumContentsLength(kNameLetters);
    auto* column = new QVBoxLayout(this);
    auto* from = new QHBoxLayout;
    from->addWidget(MakeCaption("cboTankName", name));
    from->addWidget(name, 1);
    column->addLayout(from);
    column->addLayout(PlaceDetails(model_.details, [this](std::string_view detail, shell::TextBox& record) {
      auto* reading = MakeTextBox(detail, record, {});
      return DetailRow{MakeCaption(detail, reading), reading};
    }));
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addWidget(MakeOption("optAll", model_.optAll, Do(entry::ChooseAll)));
    column->addWidget(MakeOption("optLiquid", model_.optLiquid, Do(entry::ChooseLiquid)));
    column->addWidget(MakeOption("optTank", model_.optTank, Do(entry::ChooseTank)));
    column->addStretch(1);
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(entry::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(entry::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(entry::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);
    column->addLayout(PlaceFoot({help}, {ok, cancel}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmCopyData(const ViewPlace& place) {
  return std::make_unique<FrmCopyDataView>(place);
}

}  // namespace orvex::windows
