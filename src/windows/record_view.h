#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <initializer_list>
#include <string_view>

#include "entry/frmcomponent.h"
#include "entry/frmrecfit.h"
#include "windows/model_view.h"
#include "windows/placing.h"
#include "windows/record_label.h"

namespace orvex::windows {

/// A window that shows one row of several at a time, and the commands that lead from row to row.
template <typename Model>
class RecordView : public ModelView<Model> {
 protected:
  using ModelView<Model>::ModelView;
  using Action = ModelDialog::Action;

  QLabel* MakeRecordLabel(std::string_view name, const shell::TextBox& record) {
    auto* label = new QLabel(this);
    this->Dress(label, name);
    DressRecordLabel(*label);
    this->AlsoDraw([label, &record] { ShowRecordLabel(*label, record); });
    return label;
  }

  [[nodiscard]] std::string HelpTopic() const override { return this->TopicAtFocus(); }

  /// The commands of the rows and Close.
  QHBoxLayout* MakeFoot(std::initializer_list<QPushButton*> left = {}) {
    auto& form = this->model_;
    auto* close = this->MakeButton("cmdClose", form.cmdClose, this->Do(entry::ClickClose));
    this->SetCloseButton(close);
    auto* foot = PlaceFoot(left, {close});
    int at = static_cast<int>(left.size());
    for (auto* button : {this->MakeButton("cmdPrevious", form.cmdPrevious, this->Do(entry::ClickPrevious)),
                         this->MakeButton("cmdNext", form.cmdNext, this->Do(entry::ClickNext)),
                         this->MakeButton("cmdAdd", form.cmdAdd, this->Do(entry::ClickAdd)),
                         this->MakeButton("cmdDelete", form.cmdDelete, this->Do(entry::ClickDelete)),
                         this->MakeButton("cmdDeleteAll", form.cmdDeleteAll, this->Do(entry::ClickDeleteAll))})
      foot->insertWidget(at++, button);
    return foot;
  }

  /// A list in which a name is found by typing.
  ChoiceBox* MakeBox(std::string_view name, shell::ComboBox& record, const Action& chosen, int letters) {
    auto* box = this->MakeChoice(name, record, ChoiceBox::Typing::kFinds,
                                 {.chosen = chosen, .typed = {}, .opening = {}, .activated = {}});
    box->setMinimumContentsLength(letters);
    return box;
  }
};

}  // namespace orvex::windows
