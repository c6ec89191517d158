#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "reports/frmtankrep.h"
#include "windows/list_pair_view.h"
#include "windows/placing.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

/// Where a reading of the picked tank stands.
struct Reading {
  const char* name;
  shell::TextBox reports::Frmtankrep::*box;
  int row;
  int column;  ///< of its caption
};
constexpr Reading kReadings[] = {
    {"txtID", &reports::Frmtankrep::txtID, 0, 0},           {"txtTankType", &reports::Frmtankrep::txtTankType, 0, 2},
    {"txtCity", &reports::Frmtankrep::txtCity, 1, 0},       {"txtState", &reports::Frmtankrep::txtState, 1, 2},
    {"txtCompany", &reports::Frmtankrep::txtCompany, 2, 0},
};

class FrmtankrepView : public ListPairView<reports::Frmtankrep> {
 public:
  explicit FrmtankrepView(const ViewPlace& place)
      : ListPairView(place, reports::kFrmtankrepText, reports::OpenFrmtankrep(place.session)) {
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeLists(), 1);
    column->addLayout(MakeReadings());
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(MakeFoot());
  }

 private:
  QGridLayout* MakeLists() {
    auto* tanks = MakePickingList("lstTanks", model_.lstTanks, Do(reports::PickTank));
    return PlaceLists({MakeCaption("lstTanks", tanks->View()), tanks}, [this] {
      auto* chosen = MakePickingList("lstChosenTanks", model_.lstChosenTanks, {});
      return CaptionedList{MakeCaption("lstChosenTanks", chosen->View()), chosen};
    });
  }

  QGridLayout* MakeReadings() {
    auto* grid = new QGridLayout;
    for (const auto& [name, box, row, column] : kReadings) {
      auto* reading = MakeTextBox(name, model_.*box, {});
      grid->addWidget(MakeCaption(name, reading), row, column);
      grid->addWidget(reading, row, column + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return grid;
  }

  QHBoxLayout* MakeFoot() {
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(reports::ClickHelp));
    auto* run = MakeButton("cmdRunReport", model_.cmdRunReport, Do(reports::ClickRunReport));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(reports::ClickClose));
    run->setDefault(true);
    SetCloseButton(close);
    return PlaceFoot({help}, {run, close});
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmtankrep(const ViewPlace& place) { return std::make_unique<FrmtankrepView>(place); }

}  // namespace orvex::windows
