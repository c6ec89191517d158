#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "entry/frmeditrec.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/tank_details.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmeditrecView : public ModelView<entry::Frmeditrec> {
 public:
  explicit FrmeditrecView(const ViewPlace& place)
      : ModelView(place, entry::kFrmeditrecText, entry::OpenFrmeditrec(place.session)) {
    auto* tanks = MakeList(
        "lstTanks", model_.lstTanks, TextList::Choice::kOne, TextList::Find::kYes, Do(entry::PickTank),
        [this](std::size_t) { entry::ClickEdit(session_, model_); }, Do(entry::UnpickTank));
    auto* edit = MakeButton("cmdEdit", model_.cmdEdit, Do(entry::ClickEdit));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(entry::ClickClose));
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(entry::ClickHelp));
    edit->setDefault(true);
    SetCloseButton(close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeCaption("lstTanks", tanks->View()));
    column->addWidget(tanks, 1);
    column->addLayout(PlaceDetails(model_.details, [this](std::string_view name, shell::TextBox& record) {
      auto* reading = MakeTextBox(name, record, {});
      return DetailRow{MakeCaption(name, reading), reading};
    }));
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(PlaceFoot({help}, {edit, close}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmeditrec(const ViewPlace& place) { return std::make_unique<FrmeditrecView>(place); }

}  // namespace orvex::windows
