#pragma once

/// What the physical page computes: how volume, dimensions and throughput of a tank hang together. Every result is
/// rounded as an entry shows it, to six decimals. Errors: 11 for a divisor of 0, 6 for a result out of range.
namespace orvex::entry {

/// Volume {gal} of a cylinder of this diameter {ft} that is filled to this height {ft}.
double CylinderVolume(double diameter_ft, double height_ft);

/// Diameter {ft} of the cylinder that holds a volume {gal} at this height {ft}; error 5 if that has no real value.
double DiameterFromVolume(double volume_gal, double height_ft);

/// Height {ft} at which a cylinder of this diameter {ft} holds a volume {gal}.
double HeightFromVolume(double volume_gal, double diameter_ft);

/// Volume {gal} of a tank that is filled so often a year for this throughput {gal/yr}.
double VolumeFromThroughput(double throughput_gal, double turnovers);

/// How often a year a tank of this volume {gal} is filled for this throughput {gal/yr}.
double Turnovers(double throughput_gal, double volume_gal);

/// Throughput {gal/yr} of a tank of this volume {gal} that is filled so often a year.
double Throughput(double turnovers, double volume_gal);

/// Slope {ft/ft} of a cone roof of this height {ft} on a shell of this diameter {ft}, in whole hundredths: the nearest,
/// of two the even one.
double ConeSlope(double roof_height_ft, double diameter_ft);

/// Length {ft} of the seams of a deck of this diameter {ft} with this much seam on a unit of its area {ft/sq ft}; not
/// rounded, as it is shown through different formats.
double SeamLength(double seam_factor, double diameter_ft);

/// Whether a value lies below nine tenths or above eleven tenths of another; both bounds are inside.
bool OutsideTenPercent(double value, double of);

}  // namespace orvex::entry
