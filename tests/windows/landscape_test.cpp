#include "windows/landscape.h"

#include <gtest/gtest.h>

#include <QRectF>

namespace orvex::windows {
namespace {

// A sheet of the display pages measures 254 by 184 mm: 720 by 521.6 pt.
TEST(Landscape, BothPapersHoldASheetOfTheDisplayPagesWithinTheirMargins) {
  for (const auto paper : {Paper::kLetter, Paper::kA4}) {
    const auto room = Landscape(paper).paintRect(QPageLayout::Point);
    EXPECT_GE(room.width(), 720);
    EXPECT_GE(room.height(), 521.6);
    EXPECT_GT(room.width(), room.height());
  }
}

}  // namespace
}  // namespace orvex::windows
