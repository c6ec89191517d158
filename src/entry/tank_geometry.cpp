#include "entry/tank_geometry.h"

#include "emission/arithmetic.h"
#include "shell/number_format.h"

namespace orvex::entry {
namespace {

using emission::Divide;
using emission::SquareOf;
using shell::RoundSixDecimals;

constexpr double kPi = 3.14159;
constexpr double kCubicFeetPerGallon = 0.13368;

}  // namespace

double CylinderVolume(double diameter_ft, double height_ft) {
  return RoundSixDecimals(SquareOf(diameter_ft / 2) * kPi * height_ft / kCubicFeetPerGallon);
}

double DiameterFromVolume(double volume_gal, double height_ft) {
  return RoundSixDecimals(emission::SquareRoot(Divide(volume_gal * 4 * kCubicFeetPerGallon, height_ft * kPi)));
}

double HeightFromVolume(double volume_gal, double diameter_ft) {
  return RoundSixDecimals(Divide(volume_gal * kCubicFeetPerGallon, SquareOf(diameter_ft / 2) * kPi));
}

double VolumeFromThroughput(double throughput_gal, double turnovers) {
  return RoundSixDecimals(Divide(throughput_gal, turnovers));
}

double Turnovers(double throughput_gal, double volume_gal) {
  return RoundSixDecimals(Divide(throughput_gal, volume_gal));
}

double Throughput(double turnovers, double volume_gal) { return RoundSixDecimals(turnovers * volume_gal); }

double ConeSlope(double roof_height_ft, double diameter_ft) {
  return RoundSixDecimals(emission::RoundToWhole(Divide(roof_height_ft, diameter_ft / 2) * 100) / 100.0);
}

double SeamLength(double seam_factor, double diameter_ft) {
  return seam_factor * kPi * (1.0 / 4) * (diameter_ft * diameter_ft);
}

bool OutsideTenPercent(double value, double of) { return value < of - of * 0.1 || value > of * 1.1; }

}  // namespace orvex::entry
