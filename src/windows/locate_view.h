#pragma once

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string_view>
#include <utility>

#include "shell/frmclientdata.h"
#include "shell/frmtankdata.h"
#include "windows/model_view.h"

namespace orvex::windows {

/// What the two windows have in common that ask where a database is.
template <typename Model>
class LocateView : public ModelView<Model> {
 protected:
  static constexpr int kPathLetters = 56;

  LocateView(const ViewPlace& place, const shell::WindowText& text, Model&& model)
      : ModelView<Model>(place, text, std::move(model)) {}

  void LayOut(std::string_view name, QLineEdit* path) {
    auto& model = this->model_;
    auto* browse = this->MakeButton("cmdBrowse", model.cmdBrowse, this->Do(&shell::ClickBrowse));
    auto* ok = this->MakeButton("cmdOK", model.cmdOK, this->Do(&shell::ClickOK));
    auto* exit = this->MakeButton("cmdExit", model.cmdExit, this->Do(&shell::ClickExit));
    auto* help = this->MakeButton("cmdHelp", model.cmdHelp, this->Do(&shell::ClickHelp));
    ok->setDefault(true);
    this->SetCloseButton(exit);

    const auto metrics = this->fontMetrics();
    path->setMinimumWidth(metrics.averageCharWidth() * kPathLetters);
    auto* grid = new QGridLayout(this);
    grid->addWidget(this->MakeCaption(name, path), 0, 0);
    grid->addWidget(path, 0, 1);
    grid->addWidget(browse, 0, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    grid->setRowMinimumHeight(1, metrics.lineSpacing());
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(exit);
    grid->addLayout(buttons, 2, 0, 1, 3);
  }
};

}  // namespace orvex::windows
