#pragma once

#include "entry/entry_makers.h"

namespace orvex::entry {

/// Who and where the tank is.
inline constexpr EntryInfo kIdentificationEntries[] = {
    makers::Shown(Section::kIdentification, "Identification", "ID", "txtID",
                  "Tank number:", "Number under which the program keeps the tank"),
    makers::Shown(Section::kIdentification, "Identification", "TANK_TYPE", "txtTankType",
                  "Tank type:", "Type of the tank, chosen when it was created"),
    makers::Text(Section::kIdentification, "Identification", "USER ID", "txtUserID",
                 "Identification:", "Name of the tank in all lists and reports; no two tanks may share one"),
    makers::Text(Section::kIdentification, "Identification", "DESC", "txtDesc",
                 "Description:", "Whatever else tells the tank from others; up to 255 characters"),
    makers::Text(Section::kIdentification, "Location", "COMPANY", "txtCompany",
                 "Company:", "Company that owns the tank"),
    makers::Text(Section::kIdentification, "Location", "CITY", "txtCity", "City:", "City where the tank stands"),
    makers::Text(Section::kIdentification, "Location", "STATE", "txtState", "State:", "State where the tank stands"),
};

/// The weather of the site.
inline constexpr EntryInfo kSiteEntries[] = {
    makers::Choice(Section::kSite, "Site", "MET CTYST", "dbcboCity",
                   "Nearest Major City:", "City whose weather is taken; type a part of its name to find it"),
    makers::Number(Section::kSite, "Site", "ATMOS_PRS", "txtAtmosPrs",
                   "Atmospheric Pressure (psia):", "Pressure of the air at the city, P_A (psia)"),
    makers::Shown(Section::kSite, "Weather of the Year", "A_TEMP_DAA", "txtAvgTemp",
                  "Daily Average Ambient Temperature (F):", "Average temperature of the air, T_AA (F)"),
    makers::Shown(Section::kSite, "Weather of the Year", "TAN_ANN", "txtMinTemp",
                  "Annual Average Minimum Temperature (F):", "Average of the coldest hour of the days, T_AN (F)"),
    makers::Shown(Section::kSite, "Weather of the Year", "TAX_ANN", "txtMaxTemp",
                  "Annual Average Maximum Temperature (F):", "Average of the warmest hour of the days, T_AX (F)"),
    makers::Shown(Section::kSite, "Weather of the Year", "WIND_ANN", "txtWind",
                  "Average Wind Speed (mph):", "Average speed of the wind, v (mph)"),
    makers::Shown(Section::kSite, "Weather of the Year", "INSOL_ANN", "txtInsol",
                  "Annual Average Solar Insolation Factor (Btu/(sq ft day)):",
                  "Energy of the sun on a level square foot a day, I (Btu/(sq ft day))"),
};

}  // namespace orvex::entry
