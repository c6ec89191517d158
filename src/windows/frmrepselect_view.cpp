#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmrepselect.h"
#include "windows/list_pair_view.h"
#include "windows/placing.h"
#include "windows/record_label.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmrepselectView : public ListPairView<reports::Frmrepselect> {
 public:
  explicit FrmrepselectView(const ViewPlace& place)
      : ListPairView(place, reports::kFrmrepselectText, reports::OpenFrmrepselect(place.session)) {
    auto* table = MakeLabel("lblTable", model_.lblTable, nullptr);
    DressRecordLabel(*table);
    auto* column = new QVBoxLayout(this);
    column->addWidget(table);
    column->addLayout(MakeLists(), 1);
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(MakeFoot());
  }

 private:
  /// A text of the model; as a caption it also names its list.
  QLabel* MakeLabel(std::string_view name, const shell::TextBox& record, QWidget* list) {
    auto* label = new QLabel(this);
    Dress(label, name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(list);
    AlsoDraw([label, list, &record] {
      ShowRecordLabel(*label, record);
      if (list != nullptr) list->setAccessibleName(label->text());
    });
    return label;
  }

  QGridLayout* MakeLists() {
    auto* rows = MakePickingList("lstItems", model_.lstItems, {});
    return PlaceLists({MakeLabel("lblField", model_.lblField, rows->View()), rows}, [this] {
      auto* chosen = MakePickingList("lstSelectItems", model_.lstSelectItems, {});
      return CaptionedList{MakeLabel("lblFieldChosen", model_.lblFieldChosen, chosen->View()), chosen};
    });
  }

  QHBoxLayout* MakeFoot() {
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    auto* print = MakeButton("cmdPrint", model_.cmdPrint, Do(reports::ClickPrint));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(reports::ClickClose));
    print->setDefault(true);
    SetCloseButton(close);
    return PlaceFoot({help}, {print, close});
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmrepselect(const ViewPlace& place) {
  return std::make_unique<FrmrepselectView>(place);
}

}  // namespace orvex::windows
