#pragma once

#include <memory>
#include <string_view>

#include "windows/model_dialog.h"

namespace orvex::windows {

/// A window that the models open by name.
struct WindowEntry {
  const shell::WindowText& text;
  std::unique_ptr<ModelDialog> (*make)(const ViewPlace& place);
  bool needs_tank = false;  ///< it is, or works on, the open tank editor
};

/// Every window but the main one.
std::span<const WindowEntry> WindowTable();

/// Opens no window of another name: that is a mistake in the program, `std::logic_error`.
const WindowEntry& FindWindow(std::string_view name);

}  // namespace orvex::windows
