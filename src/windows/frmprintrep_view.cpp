#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "reports/frmprintrep.h"
#include "windows/model_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmprintrepView : public ModelView<reports::Frmprintrep> {
 public:
  explicit FrmprintrepView(const ViewPlace& place)
      : ModelView(place, reports::kFrmprintrepText, reports::OpenFrmprintrep(place.session)) {
    auto* window = MakeOption("optWindow", model_.optWindow, Do(reports::ChooseWindow));
    auto* file = MakeOption("optFile", model_.optFile, Do(reports::ChooseFile));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(reports::ClickOK));
    auto* setup = MakeButton("cmdPrintSetup", model_.cmdPrintSetup, Do(reports::ClickPrintSetup));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(reports::ClickClose));
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    ok->setDefault(true);
    SetCloseButton(close);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addWidget(setup);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(window);
    column->addWidget(file);
    column->addStretch(1);
    column->addSpacing(fontMetrics().lineSpacing());
    column->addLayout(buttons);
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmprintrep(const ViewPlace& place) {
  return std::make_unique<FrmprintrepView>(place);
}

}  // namespace orvex::windows
