#pragma once

#include <QPageLayout>

#include "windows/paper.h"

namespace orvex::windows {

/// Margin {mm} on all four sides of a sheet. The web engine takes margins from the layout alone and ignores those of
/// a page's own print rules, so this is the figure that the display pages state for other browsers.
inline constexpr double kSheetMarginMm = 10;

/// A landscape sheet as the display pages lay theirs out.
QPageLayout Landscape(Paper paper);

}  // namespace orvex::windows
