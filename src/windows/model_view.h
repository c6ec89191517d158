#pragma once

#include <cstddef>
#include <utility>

#include "windows/model_dialog.h"

namespace orvex::windows {

/// Keeps the model, so that it is there before the widgets that are bound to it and after them.
template <typename Model>
struct ModelHolder {
  Model model_;
};

/// The view of one window: the dialog with its model, and the model's free functions as actions.
template <typename Model>
class ModelView : protected ModelHolder<Model>, public ModelDialog {
 protected:
  using Command = void (*)(shell::Session&, Model&);
  using ItemCommand = void (*)(shell::Session&, Model&, std::size_t item);

  ModelView(const ViewPlace& place, const shell::WindowText& text, Model&& model)
      : ModelHolder<Model>{std::move(model)}, ModelDialog(place, text, this->model_.window) {}

  [[nodiscard]] Action Do(Command command) {
    return [this, command] { command(session_, this->model_); };
  }

  /// The same for an event of one item of a list.
  [[nodiscard]] ItemAction Do(ItemCommand command) {
    return [this, command](std::size_t item) { command(session_, this->model_, item); };
  }
};

}  // namespace orvex::windows
