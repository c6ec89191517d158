#pragma once

#include <pugixml.hpp>
#include <string_view>

#include "reports/losses.h"

namespace orvex::reports {

/// Appends the element `COMPONENT` of one line of a tank's emissions: its name, the losses that its kind of roof has
/// and their sum. The name of a component is indented by as many no-break spaces as the report asks for, that of a
/// whole mixture is not.
void AddComponent(pugi::xml_node parent, std::string_view tank_type, const EmissionLine& line, int indent);

}  // namespace orvex::reports
