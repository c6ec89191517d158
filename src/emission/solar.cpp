#include "emission/solar.h"

namespace orvex::emission {
namespace {

struct Paint {
  std::string_view colour;
  double good;
  double poor;
};

constexpr Paint kPaints[] = {
    {"White/White", 0.17, 0.34}, {"Aluminum/Specular", 0.39, 0.49}, {"Aluminum/Diffuse", 0.60, 0.68},
    {"Gray/Light", 0.54, 0.63},  {"Gray/Medium", 0.68, 0.74},       {"Red/Primer", 0.89, 0.91},
};

double Absorptance(std::string_view colour, std::string_view condition) {
  for (const Paint& paint : kPaints) {
    if (paint.colour != colour) continue;
    if (condition == "Good") return paint.good;
    if (condition == "Poor") return paint.poor;
  }
  return 0.0;
}

}  // namespace

double ShellSolar(std::string_view colour, std::string_view condition) { return Absorptance(colour, condition); }

double RoofSolar(std::string_view colour, std::string_view condition) { return Absorptance(colour, condition); }

double Solar(std::string_view shell_colour, std::string_view shell_condition, std::string_view roof_colour,
             std::string_view roof_condition) {
  const double shell = ShellSolar(shell_colour, shell_condition);
  const double roof = RoofSolar(roof_colour, roof_condition);
  // A tank without roof paint has its shell's; one without shell paint keeps half its roof's.
  return roof == 0.0 ? shell : (roof + shell) / 2;
}

}  // namespace orvex::emission
