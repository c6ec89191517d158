#pragma once

#include <pugixml.hpp>
#include <string_view>

#include "reports/xml_document.h"

namespace orvex::reports {

/// An emission report in the making, with the root `REPORT`. Every element is followed by a line end in its parent, so
/// that the saved file has one element a line.
class ReportDocument : public XmlDocument {
 public:
  ReportDocument();
};

/// Appends an element with a text, which is data of any content, and then a line end to the parent.
pugi::xml_node AddElement(pugi::xml_node parent, const char* name, std::string_view text = {});

}  // namespace orvex::reports
