#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "entry/frmspecpro.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmspecproView : public ModelView<entry::Frmspecpro> {
 public:
  explicit FrmspecproView(const ViewPlace& place)
      : ModelView(place, entry::kFrmspecproText, entry::OpenFrmspecpro(place.session)) {
    auto* profiles = MakeList("lstProfiles", model_.lstProfiles, TextList::Choice::kOne, TextList::Find::kNo,
                              Do(entry::PickProfile), [this](std::size_t) { entry::ClickOK(session_, model_); });
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(entry::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(entry::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(entry::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeCaption("lstProfiles", profiles->View()));
    column->addWidget(profiles, 1);
    column->addLayout(PlaceFoot({help}, {ok, cancel}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmspecpro(const ViewPlace& place) { return std::make_unique<FrmspecproView>(place); }

}  // namespace orvex::windows
