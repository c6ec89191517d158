#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "entry/frmcomponent.h"
#include "windows/record_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

using entry::Frmcomponent;

constexpr int kNameLetters = 44;

/// A number of the component.
struct NumberLine {
  const char* name;
  shell::TextBox Frmcomponent::*record;
};
constexpr NumberLine kNumbers[] = {
    {"txtMolWt", &Frmcomponent::txtMolWt}, {"txtVPMolWt", &Frmcomponent::txtVPMolWt},
    {"txtLDens", &Frmcomponent::txtLDens}, {"txtALST", &Frmcomponent::txtALST},
    {"txtVP", &Frmcomponent::txtVP},
};

class FrmcomponentView : public RecordView<Frmcomponent> {
 public:
  explicit FrmcomponentView(const ViewPlace& place)
      : RecordView(place, entry::kFrmcomponentText, entry::OpenFrmcomponent(place.session)) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(MakeRecordLabel("lblComponentXofX", model_.lblComponentXofX));
    column->addLayout(MakeComponent());
    column->addStretch(1);
    column->addLayout(MakeFoot({MakeButton("cmdHelp", model_.cmdHelp, Do(entry::ClickHelp))}));
    NoDefaultButton(*this);
  }

 private:
  QGridLayout* MakeComponent() {
    auto* grid = new QGridLayout;
    Place(
        *grid, "dbcboChemName",
        MakeBox(
            "dbcboChemName", model_.dbcboChemName,
            [this] { entry::ChooseChemName(session_, model_, std::string(model_.dbcboChemName.text)); }, kNameLetters));
    Place(*grid, "dbcboCAS",
          MakeBox(
              "dbcboCAS", model_.dbcboCAS,
              [this] { entry::ChooseCAS(session_, model_, std::string(model_.dbcboCAS.text)); }, kNameLetters));
    PlaceCaptioned(*grid, "lblShare", model_.lblShare, MakeNumber("txtShare", model_.txtShare));
    auto* relative = MakeButton("cmdRelative", model_.cmdRelative, Do(entry::ClickRelative));
    AlsoDraw([this, relative] {
      relative->setText(Shown(model_.cmdRelativeCaption.text));
      relative->setAccessibleName(relative->text());
    });
    grid->addWidget(relative, grid->rowCount() - 1, 2);
    PlaceCaptioned(*grid, "lblSum", model_.lblSum, MakeNumber("txtSum", model_.txtSum));
    for (const auto& [name, record] : kNumbers) Place(*grid, name, MakeNumber(name, model_.*record));
    grid->setColumnStretch(1, 1);
    return grid;
  }

  void Place(QGridLayout& grid, std::string_view name, QWidget* control) {
    const int row = grid.rowCount();
    grid.addWidget(MakeCaption(name, control), row, 0);
    grid.addWidget(control, row, 1);
  }

  /// The same where the caption changes.
  void PlaceCaptioned(QGridLayout& grid, std::string_view name, const shell::TextBox& caption, QLineEdit* control) {
    auto* label = new QLabel(this);
    Dress(label, name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(control);
    AlsoDraw([label, control, &caption] {
      label->setText(Shown(caption.text));
      control->setAccessibleName(SpokenCaption(caption.text));
    });
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(control, row, 1);
  }

  QLineEdit* MakeNumber(const char* name, shell::TextBox& record) {
    auto* line = MakeTextBox(name, record, {});
    if (!record.read_only) WatchFocus(line, {}, [this, name] { entry::LeaveNumber(session_, model_, name); });
    return line;
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmcomponent(const ViewPlace& place) {
  return std::make_unique<FrmcomponentView>(place);
}

}  // namespace orvex::windows
