#pragma once

#include "shell/controls.h"
#include "shell/menu.h"

namespace orvex::shell {

inline constexpr ControlText kFrmstartControls[] = {
    {"imgLogo", "", "The logo of ORVEX. A click closes this window."},
    {"lblVersion", kMainWindowTitle, ""},
};
inline constexpr WindowText kFrmstartText = {"frmstart", kMainWindowTitle, "index", kFrmstartControls};

/// How long the splash stays unless it is clicked, in milliseconds.
inline constexpr int kSplashTime = 5000;

/// The splash, in the middle of the screen.
struct Frmstart {
  bool timer_enabled = true;  ///< ends the splash after `kSplashTime`
  WindowState window;
};

/// The timer ran out, or the picture or the window was clicked. Only the first of them counts.
inline void EndFrmstart(Frmstart& model) {
  model.timer_enabled = false;
  model.window.closed = true;
}

}  // namespace orvex::shell
