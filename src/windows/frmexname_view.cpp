#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmexname.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kPathLetters = 56;

class FrmexnameView : public ModelView<reports::Frmexname> {
 public:
  explicit FrmexnameView(const ViewPlace& place)
      : ModelView(place, reports::kFrmexnameText, reports::OpenFrmexname(place.session)) {
    auto* path = MakeTextBox("txtExportFileName", model_.txtExportFileName, [this] {
      reports::TypeExportFileName(session_, model_, std::string(model_.txtExportFileName.text));
    });
    path->setMinimumWidth(fontMetrics().averageCharWidth() * kPathLetters);
    auto* browse = MakeButton("cmdBrowse", model_.cmdBrowse, Do(reports::ClickBrowse));
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(reports::ClickOK));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(reports::ClickClose));
    ok->setDefault(true);
    SetCloseButton(close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeCaption("txtExportFileName", path));
    auto* row = new QHBoxLayout;
    row->addWidget(path, 1);
    row->addWidget(browse);
    column->addLayout(row);
    column->addStretch(1);
    column->addSpacing(fontMetrics().lineSpacing());
    column->addLayout(PlaceFoot({help}, {ok, close}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmexname(const ViewPlace& place) { return std::make_unique<FrmexnameView>(place); }

}  // namespace orvex::windows
