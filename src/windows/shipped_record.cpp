#include "windows/shipped_record.h"

#include <QColor>

namespace orvex::windows {
namespace {

constexpr double kKept = 0.7;

QColor Blend(const QColor& text, const QColor& ground) {
  const auto part = [](int of_text, int of_ground) { return qRound(of_text * kKept + of_ground * (1 - kKept)); };
  return {part(text.red(), ground.red()), part(text.green(), ground.green()), part(text.blue(), ground.blue())};
}

}  // namespace

QPalette ReadablePalette(QPalette palette) {
  const auto ground = palette.color(QPalette::Active, QPalette::Window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Blend(palette.color(QPalette::Active, role), ground));
  return palette;
}

}  // namespace orvex::windows
