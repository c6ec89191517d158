#pragma once

#include <QGridLayout>
#include <QPushButton>
#include <functional>
#include <string_view>
#include <utility>

#include "windows/model_view.h"
#include "windows/placing.h"

namespace orvex::windows {

/// A window in which rows of one list are picked into another. The four commands between the lists are named alike in
/// the models of all such windows.
template <typename Model>
class ListPairView : public ModelView<Model> {
 protected:
  using ModelView<Model>::ModelView;

  TextList* MakePickingList(std::string_view name, shell::ListBox& record, ModelDialog::ItemAction picked) {
    return this->MakeList(name, record, TextList::Choice::kAny, TextList::Find::kYes, std::move(picked), {});
  }

  /// @param make_into makes the list that is picked into, which the keyboard comes to behind the commands
  QGridLayout* PlaceLists(const CaptionedList& from, const std::function<CaptionedList()>& make_into) {
    auto& form = this->model_;
    auto& session = this->session_;
    auto* select = this->MakeButton("cmdSelect", form.cmdSelect, [&] { ClickSelect(session, form); });
    auto* select_all = this->MakeButton("cmdSelectAll", form.cmdSelectAll, [&] { ClickSelectAll(session, form); });
    auto* remove = this->MakeButton("cmdRemove", form.cmdRemove, [&] { ClickRemove(session, form); });
    auto* remove_all = this->MakeButton("cmdRemoveAll", form.cmdRemoveAll, [&] { ClickRemoveAll(session, form); });
    return PlaceListPair(from, {select, select_all}, {remove, remove_all}, make_into());
  }
};

}  // namespace orvex::windows
