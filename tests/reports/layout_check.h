#pragma once

#include <pugixml.hpp>

#include "reports/report_faults.h"

namespace orvex::test {

/// How `CheckLayout` wants a file parsed: nothing of it lost or changed.
inline constexpr unsigned kWholeFile = pugi::parse_declaration | pugi::parse_escapes | pugi::parse_ws_pcdata |
                                       pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype | pugi::parse_cdata;

/// Checks what a grammar passes over: the declaration, a line end behind every element and nowhere else, and the order
/// of attributes.
void CheckLayout(const pugi::xml_document& report, Faults& faults);

}  // namespace orvex::test
