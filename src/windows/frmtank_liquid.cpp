#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "entry/mixture_page.h"
#include "windows/frmtank_view.h"
#include "windows/record_label.h"

namespace orvex::windows {
namespace {

using entry::FrmTank;
using entry::Section;

constexpr Section kForms[] = {Section::kSingle, Section::kPartial, Section::kFull};

/// A button of one of the forms.
struct FormButton {
  Section form;
  std::string_view name;
  shell::Button FrmTank::*record;
  void (*click)(shell::Session&, FrmTank&);
};
constexpr FormButton kFormButtons[] = {
    {Section::kPartial, "cmdSpecCompPartial", &FrmTank::cmdSpecCompPartial, entry::ClickSpecComp},
    {Section::kPartial, "cmdCopySpecPartial", &FrmTank::cmdCopySpecPartial, entry::ClickCopySpec},
    {Section::kFull, "cmdSpecCompFull", &FrmTank::cmdSpecCompFull, entry::ClickSpecComp},
    {Section::kFull, "cmdCopySpecFull", &FrmTank::cmdCopySpecFull, entry::ClickCopySpec},
};

struct MixtureButton {
  std::string_view name;
  shell::Button FrmTank::*record;
  void (*click)(shell::Session&, FrmTank&);
};
constexpr MixtureButton kMixtureButtons[] = {
    {"cmdPrevMix", &FrmTank::cmdPrevMix, entry::ClickPrevMix},
    {"cmdNextMix", &FrmTank::cmdNextMix, entry::ClickNextMix},
    {"cmdAdd", &FrmTank::cmdAdd, entry::ClickAdd},
    {"cmdDelete", &FrmTank::cmdDelete, entry::ClickDelete},
};

}  // namespace

QWidget* FrmTankView::MakeLiquidPage() {
  auto* page = new QWidget(this);
  auto* column = new QVBoxLayout(page);
  column->addLayout(MakeMixtureRow());
  column->addLayout(MakeSection(Section::kMixture));
  auto* forms = new QStackedWidget(page);
  forms->addWidget(new QWidget(forms));
  for (const auto section : kForms) forms->addWidget(MakeForm(section));
  AlsoDraw([this, forms] {
    const auto* shown = form_.form ? std::ranges::find(kForms, *form_.form) : std::end(kForms);
    forms->setCurrentIndex(shown == std::end(kForms) ? 0 : static_cast<int>(shown - std::begin(kForms)) + 1);
  });
  column->addWidget(forms, 1);
  column->addLayout(MakeMixtureFoot());
  return page;
}

QHBoxLayout* FrmTankView::MakeMixtureRow() {
  auto* row = new QHBoxLayout;
  auto* label = new QLabel(this);
  Dress(label, "lblMixtureXofX");
  DressRecordLabel(*label);
  AlsoDraw([this, label] { ShowRecordLabel(*label, form_.lblMixtureXofX); });
  row->addWidget(label);
  row->addStretch(1);
  for (const auto& [name, record, click] : kMixtureButtons) row->addWidget(MakeCommand(name, form_.*record, click));
  return row;
}

QWidget* FrmTankView::MakeForm(Section section) {
  auto* form = new QWidget(this);
  auto* column = new QVBoxLayout(form);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(MakeSection(section));
  column->addStretch(1);
  return form;
}

QHBoxLayout* FrmTankView::MakeMixtureFoot() {
  auto* row = new QHBoxLayout;
  for (const auto& [form, name, record, click] : kFormButtons) {
    auto* button = MakeCommand(name, form_.*record, click);
    row->addWidget(button);
    AlsoDraw([this, button, form = form, &shown = form_.*record] {
      button->setVisible(shown.visible && form_.form == form);
    });
  }
  row->addWidget(MakeCommand("cmdCalcProp", form_.cmdCalcProp, entry::ClickCalcProp));
  row->addStretch(1);
  return row;
}

}  // namespace orvex::windows
