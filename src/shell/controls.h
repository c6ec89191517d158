#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the controls of a window show. A window's model keeps one record a control, named as the control is; its view
/// draws them and hands back what the person did.
namespace orvex::shell {

/// A text that the person can type over, or only read.
struct TextBox {
  std::string text;
  bool enabled = true;
  bool visible = true;
  bool read_only = false;
};

/// One of a list of texts; `text` is empty when none is chosen. Some also take a text that is no item.
struct ComboBox {
  std::vector<std::string> items;
  std::string text;
  bool enabled = true;
  bool visible = true;
};

/// A list in which any number of items, or one, can be selected.
struct ListBox {
  std::vector<std::string> items;
  std::vector<std::size_t> selected;  ///< positions in `items`, from 0, in increasing order
  bool enabled = true;
  bool visible = true;
};

struct CheckBox {
  bool checked = false;
  bool enabled = true;
  bool visible = true;
};

/// One of a group of which exactly one is chosen.
struct OptionButton {
  bool chosen = false;
  bool enabled = true;
  bool visible = true;
};

struct Button {
  bool enabled = true;
  bool visible = true;
};

struct Frame {
  bool enabled = true;
  bool visible = true;
};

/// What never changes about a control. An ampersand in the caption marks the access key.
struct ControlText {
  std::string_view name;
  std::string_view caption;
  std::string_view tip;  ///< what the control is for, in a few words; also read aloud
};

/// What never changes about a window.
struct WindowText {
  std::string_view name;  ///< as the program names it ("Frmtankrep")
  std::string_view title;
  std::string_view topic;  ///< of the help, without its ending ("choose_tanks")
  std::span<const ControlText> controls;
};

/// Where a model stands with its window.
struct WindowState {
  bool closed = false;     ///< the model has unloaded the window
  std::string_view focus;  ///< the control that is to have the focus next; the view takes it and empties this
  std::string refusal;     ///< why that control is come back to; the view takes it and shows it beside the control
};

}  // namespace orvex::shell
