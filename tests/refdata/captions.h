#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "shell/controls.h"

namespace orvex::test {

/// The caption of a window's control, with its access key.
inline std::string MarkedCaption(const shell::WindowText& window, std::string_view control) {
  const auto found = std::ranges::find(window.controls, control, &shell::ControlText::name);
  if (found == window.controls.end()) throw std::logic_error("no control " + std::string(control));
  return std::string(found->caption);
}

/// The same as it is read.
inline std::string Caption(const shell::WindowText& window, std::string_view control) {
  auto caption = MarkedCaption(window, control);
  std::erase(caption, '&');
  return caption;
}

}  // namespace orvex::test
