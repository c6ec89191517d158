#include "reports/report_document.h"

namespace orvex::reports {
namespace {

void AddLineEnd(pugi::xml_node parent) { parent.append_child(pugi::node_pcdata).set_value("\r\n"); }

}  // namespace

ReportDocument::ReportDocument() : XmlDocument("REPORT") { AddLineEnd(Root()); }

pugi::xml_node AddElement(pugi::xml_node parent, const char* name, std::string_view text) {
  auto element = parent.append_child(name);
  AddText(element, text);
  AddLineEnd(parent);
  return element;
}

}  // namespace orvex::reports
