#include "windows/landscape.h"

#include <QMarginsF>
#include <QPageSize>

namespace orvex::windows {

QPageLayout Landscape(Paper paper) {
  const auto size = paper == Paper::kA4 ? QPageSize::A4 : QPageSize::Letter;
  return {QPageSize(size), QPageLayout::Landscape,
          QMarginsF(kSheetMarginPt, kSheetMarginPt, kSheetMarginPt, kSheetMarginPt), QPageLayout::Point};
}

}  // namespace orvex::windows
