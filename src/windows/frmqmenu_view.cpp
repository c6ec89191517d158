#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

#include "shell/frmqmenu.h"
#include "windows/model_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmqmenuView : public ModelView<shell::Frmqmenu> {
 public:
  explicit FrmqmenuView(const ViewPlace& place)
      : ModelView(place, shell::kFrmqmenuText, shell::OpenFrmqmenu(place.session)) {
    auto* create = MakeOption("optCreate", model_.optCreate, Do(shell::ChooseCreate));
    auto* types = MakeList("lstTankTypes", model_.lstTankTypes, TextList::Choice::kOne, TextList::Find::kNo,
                           Do(shell::PickType), Do(shell::CreateTank));
    auto* open = MakeOption("optOpen", model_.optOpen, Do(shell::ChooseOpen));
    auto* tanks = MakeList("dblstTanks", model_.dblstTanks, TextList::Choice::kOne, TextList::Find::kYes,
                           Do(shell::PickTank), Do(shell::OpenTank), Do(shell::UnpickTank));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(shell::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(shell::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(create, 0, 0);
    grid->addWidget(MakeCaption("lstTankTypes", types->View()), 1, 0);
    grid->addWidget(types, 2, 0);
    grid->addWidget(open, 0, 1);
    grid->addWidget(MakeCaption("dblstTanks", tanks->View()), 1, 1);
    grid->addWidget(tanks, 2, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(grid->verticalSpacing());
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 3, 0, 1, 2);
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmqmenu(const ViewPlace& place) { return std::make_unique<FrmqmenuView>(place); }

}  // namespace orvex::windows
