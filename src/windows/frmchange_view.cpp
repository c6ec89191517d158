#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "shell/frmchange.h"
#include "windows/model_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kPathLetters = 56;

class FrmChangeView : public ModelView<shell::FrmChange> {
 public:
  explicit FrmChangeView(const ViewPlace& place)
      : ModelView(place, shell::kFrmChangeText, shell::OpenFrmChange(place.session)) {
    auto* tank = MakeTextBox("txtTankData", model_.txtTankData, {});
    auto* browse_tank = MakeButton("cmdBrowseTank", model_.cmdBrowseTank, Do(shell::ClickBrowseTank));
    auto* client = MakeTextBox("txtClientData", model_.txtClientData, {});
    auto* browse_client = MakeButton("cmdBrowseClient", model_.cmdBrowseClient, Do(shell::ClickBrowseClient));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(shell::ClickOK));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(shell::ClickClose));
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(shell::ClickHelp));
    ok->setDefault(true);
    SetCloseButton(close);

    tank->setMinimumWidth(fontMetrics().averageCharWidth() * kPathLetters);
    auto* grid = new QGridLayout(this);
    grid->addWidget(MakeCaption("txtTankData", tank), 0, 0);
    grid->addWidget(tank, 0, 1);
    grid->addWidget(browse_tank, 0, 2);
    grid->addWidget(MakeCaption("txtClientData", client), 1, 0);
    grid->addWidget(client, 1, 1);
    grid->addWidget(browse_client, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    grid->setRowMinimumHeight(2, fontMetrics().lineSpacing());
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    grid->addLayout(buttons, 3, 0, 1, 3);
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmChange(const ViewPlace& place) { return std::make_unique<FrmChangeView>(place); }

}  // namespace orvex::windows
