#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "refdata/frmprofile.h"
#include "refdata/profile_plot.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/record_label.h"
#include "windows/shipped_record.h"
#include "windows/svg_picture.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

using refdata::FrmProfile;

constexpr int kNameLetters = 44;
constexpr int kTypeLetters = 12;

/// A number of the component.
struct NumberLine {
  const char* name;
  shell::TextBox FrmProfile::*record;
};
constexpr NumberLine kNumbers[] = {
    {"txtMOLWT", &FrmProfile::txtMOLWT},       {"txtVP_MOLWT", &FrmProfile::txtVP_MOLWT},
    {"txtWT_FRACT", &FrmProfile::txtWT_FRACT}, {"txtVP_FRACT", &FrmProfile::txtVP_FRACT},
    {"txtWEIGHT", &FrmProfile::txtWEIGHT},
};

class FrmProfileView : public ModelView<FrmProfile> {
 public:
  explicit FrmProfileView(const ViewPlace& place)
      : ModelView(place, refdata::kFrmProfileText, refdata::OpenFrmProfile(place.session)) {
    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeProfile());
    auto* middle = new QHBoxLayout;
    middle->addLayout(MakeComponents());
    auto* plot = MakePlotOf(this);
    middle->addWidget(plot, 1);
    AlsoDraw(
        [this, plot] { plot->Show(refdata::ProfilePlot(model_.profile), refdata::ProfileSummary(model_.profile)); });
    column->addLayout(middle, 1);
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(MakeFoot());
    NoDefaultButton(*this);
  }

 protected:
  [[nodiscard]] std::string HelpTopic() const override { return TopicAtFocus(); }
  void keyPressEvent(QKeyEvent* event) override {
    if (!PressFocusedButton(*this, *event)) ModelView::keyPressEvent(event);
  }

 private:
  using EntryCommand = void (*)(shell::Session&, FrmProfile&, std::string_view control);

  [[nodiscard]] Action DoAt(EntryCommand command, const char* control) {
    return [this, command, control] { command(session_, model_, control); };
  }

  QGridLayout* MakeProfile() {
    auto* name = MakeBox("dbcboProfName", model_.dbcboProfName, ChoiceBox::Typing::kFinds, Do(refdata::PickProfile));
    AlsoDraw(
        [this, name] { name->SetTyping(model_.user_defined ? ChoiceBox::Typing::kNames : ChoiceBox::Typing::kFinds); });
    auto* type = MakeBox("cboType", model_.cboType, ChoiceBox::Typing::kNothing, DoAt(refdata::ChooseItem, "cboType"));
    type->setMinimumContentsLength(kTypeLetters);
    type->setPalette(ReadablePalette(palette()));
    auto* grid = new QGridLayout;
    Place(*grid, "dbcboProfName", name);
    Place(*grid, "cboType", type);
    return grid;
  }

  /// The component on show, and the ways to the others.
  QVBoxLayout* MakeComponents() {
    auto* column = new QVBoxLayout;
    column->addWidget(MakeLabel("lblComponentXofX", model_.lblComponentXofX));
    auto* panel = MakeFrame("picProfile", model_.picProfile);
    panel->setPalette(ReadablePalette(palette()));
    panel->setLayout(MakeComponent());
    column->addWidget(panel);
    column->addWidget(MakeLabel("txtSum", model_.txtSum));
    column->addLayout(PlaceFoot({MakeButton("cmdPrevComp", model_.cmdPrevComp, Do(refdata::ClickPrevComp)),
                                 MakeButton("cmdNextComp", model_.cmdNextComp, Do(refdata::ClickNextComp)),
                                 MakeButton("cmdAdd", model_.cmdAdd, Do(refdata::ClickAdd)),
                                 MakeButton("cmdDeleteComp", model_.cmdDeleteComp, Do(refdata::ClickDeleteComp))},
                                {}));
    column->addStretch(1);
    return column;
  }

  QGridLayout* MakeComponent() {
    auto* grid = new QGridLayout;
    Place(*grid, "dbcboChemName",
          MakeBox("dbcboChemName", model_.dbcboChemName, ChoiceBox::Typing::kTakes,
                  DoAt(refdata::ChooseItem, "dbcboChemName")));
    Place(*grid, "dbcboCAS",
          MakeBox("dbcboCAS", model_.dbcboCAS, ChoiceBox::Typing::kTakes, DoAt(refdata::ChooseItem, "dbcboCAS")));
    for (const auto& [name, record] : kNumbers) {
      auto* line = MakeTextBox(name, model_.*record, DoAt(refdata::TypeText, name));
      WatchFocus(line, {}, DoAt(refdata::LeaveEntry, name));
      Place(*grid, name, line);
    }
    grid->addWidget(MakeButton("cmdRelLiq", model_.cmdRelLiq, Do(refdata::ClickRelLiq)), grid->rowCount(), 1,
                    Qt::AlignLeft);
    return grid;
  }

  ChoiceBox* MakeBox(const char* name, shell::ComboBox& record, ChoiceBox::Typing typing, Action chosen) {
    auto* box = MakeChoice(
        name, record, typing,
        {.chosen = std::move(chosen), .typed = DoAt(refdata::TypeText, name), .opening = {}, .activated = {}});
    box->setMinimumContentsLength(kNameLetters);
    WatchFocus(box, {}, DoAt(refdata::LeaveEntry, name));
    return box;
  }

  /// An entry below the others; its caption comes and goes with it.
  void Place(QGridLayout& grid, std::string_view name, QWidget* entry) {
    auto* caption = MakeCaption(name, entry);
    AlsoDraw([caption, entry] { caption->setVisible(!entry->isHidden()); });
    const int row = grid.rowCount();
    grid.addWidget(caption, row, 0);
    grid.addWidget(entry, row, 1);
    grid.setColumnStretch(1, 1);
  }

  QLabel* MakeLabel(std::string_view name, const shell::TextBox& record) {
    auto* label = new QLabel(this);
    Dress(label, name);
    DressRecordLabel(*label);
    AlsoDraw([label, &record] { ShowRecordLabel(*label, record); });
    return label;
  }

  QHBoxLayout* MakeFoot() {
    auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(refdata::ClickHelp));
    auto* add = MakeButton("cmdAddNew", model_.cmdAddNew, Do(refdata::ClickAddNew));
    auto* remove = MakeButton("cmdDelete", model_.cmdDelete, Do(refdata::ClickDelete));
    auto* save = MakeButton("cmdSave", model_.cmdSave, Do(refdata::ClickSave));
    auto* close = MakeButton("cmdClose", model_.cmdClose, Do(refdata::ClickClose));
    SetCloseButton(close);
    return PlaceFoot({help, add, remove}, {save, close});
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmProfile(const ViewPlace& place) { return std::make_unique<FrmProfileView>(place); }

}  // namespace orvex::windows
