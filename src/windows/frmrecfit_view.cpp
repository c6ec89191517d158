#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "entry/frmrecfit.h"
#include "windows/record_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

using entry::Frmrecfit;

constexpr int kChoiceLetters = 56;

struct Reading {
  const char* name;
  shell::TextBox Frmrecfit::*record;
};
constexpr Reading kReadings[] = {
    {"txtK_FA", &Frmrecfit::txtK_FA}, {"txtK_FB", &Frmrecfit::txtK_FB}, {"txtK_M", &Frmrecfit::txtK_M}};

class FrmrecfitView : public RecordView<Frmrecfit> {
 public:
  explicit FrmrecfitView(const ViewPlace& place)
      : RecordView(place, entry::kFrmrecfitText, entry::OpenFrmrecfit(place.session)) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeRecordLabel("lblRecord", model_.lblRecord));
    column->addLayout(MakeFitting());
    column->addStretch(1);
    column->addLayout(MakeFoot());
    NoDefaultButton(*this);
  }

 private:
  QFormLayout* MakeFitting() {
    auto* type = MakeBox("cboFitType", model_.cboFitType, Do(entry::ChooseFitType), kChoiceLetters);
    auto* status = MakeBox("cboStatus", model_.cboStatus, Do(entry::ChooseStatus), kChoiceLetters);
    auto* quantity = MakeTextBox("txtQuantity", model_.txtQuantity, {});
    WatchFocus(quantity, {}, Do(entry::LeaveQuantity));
    auto* number = new QHBoxLayout;
    number->addWidget(quantity, 1);
    number->addWidget(MakeButton("cmdQuantity", model_.cmdQuantity, Do(entry::ClickQuantity)));
    auto* form = new QFormLayout;
    form->addRow(MakeCaption("cboFitType", type), type);
    form->addRow(MakeCaption("cboStatus", status), status);
    form->addRow(MakeCaption("txtQuantity", quantity), number);
    for (const auto& [name, record] : kReadings) {
      auto* reading = MakeTextBox(name, model_.*record, {});
      form->addRow(MakeCaption(name, reading), reading);
    }
    return form;
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmrecfit(const ViewPlace& place) { return std::make_unique<FrmrecfitView>(place); }

}  // namespace orvex::windows
