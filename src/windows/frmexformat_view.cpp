#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmexformat.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmexformatView : public ModelView<reports::Frmexformat> {
 public:
  explicit FrmexformatView(const ViewPlace& place)
      : ModelView(place, reports::kFrmexformatText, reports::OpenFrmexformat(place.session)) {
    auto* formats = MakeList("lstFormats", model_.lstFormats, TextList::Choice::kOne, TextList::Find::kNo,
                             Do(reports::SelectFormat), [this](std::size_t format) {
                               reports::SelectFormat(session_, model_, format);
                               reports::ClickOK(session_, model_);
                             });
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(reports::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(reports::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeCaption("lstFormats", formats->View()));
    column->addWidget(formats, 1);
    column->addLayout(PlaceFoot({help}, {ok, cancel}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmexformat(const ViewPlace& place) {
  return std::make_unique<FrmexformatView>(place);
}

}  // namespace orvex::windows
