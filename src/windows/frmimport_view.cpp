#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <iterator>

#include "exchange/frmimport.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr int kPathLetters = 44;

class FrmImportView : public ModelView<exchange::FrmImport> {
 public:
  explicit FrmImportView(const ViewPlace& place)
      : ModelView(place, exchange::kFrmImportText, exchange::OpenFrmImport(place.session)) {
    auto* column = new QVBoxLayout(this);
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i] = MakeRow(i);
    column->addWidget(PlaceRows(MakeFrame("fraTankData", model_.fraTankData), true));
    column->addWidget(PlaceRows(MakeFrame("fraAncillary", model_.fraAncillary), false));
    column->addStretch(1);
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(exchange::ClickHelp));
    auto* ok = MakeButton("cmdOK", model_.cmdOK, Do(exchange::ClickOK));
    auto* cancel = MakeButton("cmdCancel", model_.cmdCancel, Do(exchange::ClickCancel));
    ok->setDefault(true);
    SetCloseButton(cancel);
    column->addLayout(PlaceFoot({help}, {ok, cancel}));
  }

 private:
  struct Row {
    QLabel* caption;
    QLineEdit* path;
    QPushButton* browse;
  };

  Row MakeRow(std::size_t i) {
    const auto& file = exchange::kImportFiles[i];
    auto* path = MakeTextBox(file.field, model_.paths[i],
                             [this, i] { exchange::TypePath(session_, model_, i, std::string(model_.paths[i].text)); });
    path->setMinimumWidth(fontMetrics().averageCharWidth() * kPathLetters);
    auto* browse = MakeButton(file.browse, model_.browse[i], [this, i] { exchange::ClickBrowse(session_, model_, i); });
    return {MakeCaption(file.field, path), path, browse};
  }

  /// The required files, or the others, one below the other. The paths of both frames stand in one line.
  QGroupBox* PlaceRows(QGroupBox* frame, bool required) {
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const auto& row = rows_[i];
      grid->setColumnMinimumWidth(0, std::max(grid->columnMinimumWidth(0), row.caption->sizeHint().width()));
      if (exchange::kImportFiles[i].required != required) continue;
      const int at = grid->rowCount();
      grid->addWidget(row.caption, at, 0);
      grid->addWidget(row.path, at, 1);
      grid->addWidget(row.browse, at, 2);
    }
    return frame;
  }

  std::array<Row, std::size(exchange::kImportFiles)> rows_{};
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmImport(const ViewPlace& place) { return std::make_unique<FrmImportView>(place); }

}  // namespace orvex::windows
