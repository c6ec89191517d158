#include "entry/tank_drawing.h"

#include "entry/drawings_by_type.h"

namespace orvex::entry {

std::string TankDrawing(const FrmTank& form) {
  switch (PhysicalSection(form)) {
    case Section::kVertical:
      return DrawVerticalTank(form);
    case Section::kHorizontal:
      return DrawHorizontalTank(form);
    default:
      return DrawFloatingRoofTank(form);
  }
}

}  // namespace orvex::entry
