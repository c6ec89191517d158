#pragma once

#include <QPageLayout>

#include "windows/paper.h"

namespace orvex::windows {

/// Margin {pt} on all four sides of a sheet, half an inch. The web engine takes margins from the layout alone and
/// ignores those of a page's own print rules, so the display pages state the same figure for other browsers.
inline constexpr double kSheetMarginPt = 36;

/// A landscape sheet as the display pages lay theirs out.
QPageLayout Landscape(Paper paper);

}  // namespace orvex::windows
