#include "emission/paint.h"

#include "emission/field_reading.h"
#include "emission/solar.h"

namespace orvex::emission {

double Paint::Absorptance() const { return Solar(shell_colour, shell_condition, roof_colour, roof_condition); }

Paint ReadPaint(store::RecordSet& tank) {
  return {.shell_colour = ReadTextOrEmpty(tank, "SHL COLSHD"),
          .shell_condition = ReadTextOrEmpty(tank, "PT_COND"),
          .roof_colour = ReadTextOrEmpty(tank, "RF_COLSHD"),
          .roof_condition = ReadTextOrEmpty(tank, "RF_COND")};
}

}  // namespace orvex::emission
