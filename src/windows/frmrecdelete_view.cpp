#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "entry/frmrecdelete.h"
#include "windows/list_pair_view.h"
#include "windows/placing.h"
#include "windows/tank_details.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmrecdeleteView : public ListPairView<entry::Frmrecdelete> {
 public:
  explicit FrmrecdeleteView(const ViewPlace& place)
      : ListPairView(place, entry::kFrmrecdeleteText, entry::OpenFrmrecdelete(place.session)) {
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeLists(), 1);
    column->addLayout(PlaceDetails(model_.details, [this](std::string_view name, shell::TextBox& record) {
      auto* reading = MakeTextBox(name, record, {});
      return DetailRow{MakeCaption(name, reading), reading};
    }));
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(MakeFoot());
  }

 private:
  QGridLayout* MakeLists() {
    auto* tanks = MakePickingList("lstTanks", model_.lstTanks, Do(entry::PickTank));
    return PlaceLists({MakeCaption("lstTanks", tanks->View()), tanks}, [this] {
      auto* chosen = MakePickingList("lstDelTanks", model_.lstDelTanks, {});
      return CaptionedList{MakeCaption("lstDelTanks", chosen->View()), chosen};
    });
  }

  QHBoxLayout* MakeFoot() {
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(entry::ClickHelp));
    auto* remove = MakeButton("cmdDelete", model_.cmdDelete, Do(entry::ClickDelete));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(entry::ClickClose));
    // What cannot be undone is not to be pressed by Enter.
    close->setDefault(true);
    SetCloseButton(close);
    return PlaceFoot({help}, {remove, close});
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmrecdelete(const ViewPlace& place) {
  return std::make_unique<FrmrecdeleteView>(place);
}

}  // namespace orvex::windows
