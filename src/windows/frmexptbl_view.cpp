#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmexptbl.h"
#include "windows/display_text.h"
#include "windows/elided_label.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/record_label.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kNameLetters = 40;

class FrmexptblView : public ModelView<reports::Frmexptbl> {
 public:
  explicit FrmexptblView(const ViewPlace& place)
      : ModelView(place, reports::kFrmexptblText, reports::OpenFrmexptbl(place.session)) {
    auto* name = MakeTextBox("txtTable", model_.txtTable,
                             [this] { reports::TypeTable(session_, model_, std::string(model_.txtTable.text)); });
    name->setMinimumWidth(fontMetrics().averageCharWidth() * kNameLetters);
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(reports::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(reports::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);
    auto* row = new QHBoxLayout;
    row->addWidget(MakeCaption("txtTable", name));
    row->addWidget(name, 1);
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeTableLabel());
    column->addLayout(row);
    column->addWidget(MakePathLabel());
    column->addStretch(1);
    column->addSpacing(fontMetrics().lineSpacing());
    column->addLayout(PlaceFoot({help}, {ok, cancel}));
  }

 private:
  QLabel* MakeTableLabel() {
    auto* label = new QLabel(this);
    Dress(label, "lblTable");
    DressRecordLabel(*label);
    AlsoDraw([this, label] { ShowRecordLabel(*label, model_.lblTable); });
    return label;
  }

  /// A path may be longer than any window.
  ElidedLabel* MakePathLabel() {
    auto* label = new ElidedLabel(QStringLiteral("lblPath"), Shown(TextOf("lblPath").tip), this);
    AlsoDraw([this, label] { label->SetText(Shown(model_.lblPath.text)); });
    return label;
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmexptbl(const ViewPlace& place) { return std::make_unique<FrmexptblView>(place); }

}  // namespace orvex::windows
