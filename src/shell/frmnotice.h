#pragma once

#include <string_view>

#include "shell/controls.h"
#include "shell/menu.h"

namespace orvex::shell {

inline constexpr std::string_view kNoticeHeading = "NOTICE";

/// On the rights in the equations.
inline constexpr std::string_view kNoticeText =
    "The equations by which this program estimates emissions are those of KV-58 Section 7.1, \"Organic Liquid Storage "
    "Tanks\", a compilation of the agency QEZ. Rights in the equations remain with those who hold them, and the use of "
    "this program gives no title to them. Whoever copies the equations, in part or as a whole, into another work names "
    "KV-58 as their source and respects the rights of their holders. The estimates are given without warranty of any "
    "kind: whoever uses them answers for the data that were entered and for the conclusions drawn from the results.";

inline constexpr ControlText kFrmNoticeControls[] = {
    {"lblHeading", kNoticeHeading, ""},
    {"lblNotice", kNoticeText, ""},
    {"cmdOK", "&OK", "Close the notice and go on"},
};
inline constexpr WindowText kFrmNoticeText = {"frmNotice", kMainWindowTitle, "index", kFrmNoticeControls};

}  // namespace orvex::shell
