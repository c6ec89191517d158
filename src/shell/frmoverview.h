#pragma once

#include <string_view>

#include "shell/controls.h"

namespace orvex::shell {

/// The four paragraphs of the window about the program.
inline constexpr std::string_view kOverviewParagraphs[] = {
    "ORVEX estimates the emissions of organic chemicals from storage tanks. You describe a tank, its liquid and its "
    "nearest major city; the program computes the tank's losses for a whole year or for the months that you choose, "
    "breaks them down by chemical, and reports them.",

    "The program knows vertical and horizontal fixed roof tanks, and floating roof tanks with an internal, an external "
    "or a domed external roof. What you enter is kept in your client database, and a tank's liquid may be one chemical "
    "or a mixture of many.",

    "A reference database of over 100 organic liquids and the weather of over 175 cities comes with the program, and "
    "you can add chemicals, cities, fittings and seals of your own. On-line help explains every window.",

    "The equations are documented in KV-58 Section 7.1, \"Organic Liquid Storage Tanks\".",
};

inline constexpr ControlText kFrmoverviewControls[] = {
    {"lblPurpose", kOverviewParagraphs[0], ""},   {"lblTanks", kOverviewParagraphs[1], ""},
    {"lblDatabases", kOverviewParagraphs[2], ""}, {"lblEquations", kOverviewParagraphs[3], ""},
    {"cmdOK", "&OK", "Close this window"},
};
inline constexpr WindowText kFrmoverviewText = {"frmoverview", "About ORVEX (Version 4.0.9d)", "index",
                                                kFrmoverviewControls};

}  // namespace orvex::shell
