#pragma once

#include <string_view>

/// Typical numbers of deck fittings by tank diameter {ft}. The formula counts (`StubDrains`, `LegsIFRT`) give error 6
/// where a diameter calls for more fittings than a Long can count.
namespace orvex::emission {

int StubDrains(double diameter_ft, std::string_view deck_construction);
int LegsIFRT(double diameter_ft);
int Columns(double diameter_ft);
int RoofDrains(double diameter_ft, std::string_view deck_type);
int Breakers(double diameter_ft, std::string_view deck_type);
int PontoonRoofLegs(double diameter_ft);
int CenterRoofLegs(double diameter_ft);
int DoubleDeckRoofLegs(double diameter_ft);

}  // namespace orvex::emission
