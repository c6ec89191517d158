#pragma once

#include <string>
#include <string_view>

/// What follows from the sizes of a deck's panels or sheets.
namespace orvex::refdata {

/// Name of a seam of panels. @param certificate may be empty
std::string PanelSeamName(double length_ft, double width_ft, const std::string& certificate);
/// Name of a seam of sheets.
std::string SheetSeamName(double width_ft, const std::string& certificate);

/// Length of seam per area {ft/ft^2} of panels whose size a person has entered as these texts. It is the number that
/// both texts read as when they are joined, by the area of a panel: 5 and 10 give 510 / (5 * 10). Errors: 11, 6 as for
/// `emission::Divide`.
double PanelSeamFactor(std::string_view length, std::string_view width);
/// The same of sheets: 1 by the width.
double SheetSeamFactor(double width_ft);

}  // namespace orvex::refdata
