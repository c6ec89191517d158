#include "reports/layout_check.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace orvex::test {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

struct AttributeOrder {
  std::string_view parent, element;
  std::vector<std::string_view> attributes;
};
const AttributeOrder kOrders[] = {
    {"Summary", "TankSum", {"id", "company", "type", "location", "loss"}},
    {"DeckFitting", "Fitting", {"FitType", "CoverType", "Quantity"}},
    {"Detail", "Data", {"Type", "Unit"}},
    {"RoofStatus", "Value", {"label", "quantity", "KFa", "KFb", "m", "losses"}},
    {"Data",
     "Value",
     {"label", "month_0", "month_1", "month_2", "month_3", "month_4", "month_5", "month_6", "month_7", "month_8",
      "month_9", "month_10", "month_11", "month_12"}},
};

void CheckAttributes(const pugi::xml_node& element, Faults& faults) {
  const auto order = std::find_if(std::begin(kOrders), std::end(kOrders), [&](const AttributeOrder& candidate) {
    return candidate.element == element.name() && candidate.parent == element.parent().name();
  });
  if (order == std::end(kOrders)) {
    const auto first = element.first_attribute();
    faults.Expect(!first || !first.next_attribute(), element.path() + ": several attributes");
    return;
  }
  auto expected = order->attributes.begin();
  for (const auto& attribute : element.attributes()) {
    expected = std::find(expected, order->attributes.end(), std::string_view(attribute.name()));
    if (expected == order->attributes.end()) {
      faults.Expect(false, element.path() + ": attribute " + attribute.name() + " out of order");
      return;
    }
  }
}

bool IsLineEnd(const pugi::xml_node& node) { return node.type() == pugi::node_pcdata && node.value() == kLineEnd; }

void CheckElement(const pugi::xml_node& element, Faults& faults) {
  CheckAttributes(element, faults);
  auto child = element.first_child();
  const bool is_root = element.parent().type() == pugi::node_document;
  const bool has_elements =
      element.find_child([](const pugi::xml_node& node) { return node.type() == pugi::node_element; });
  if (!is_root && !has_elements) {
    faults.Expect(!child || (child.type() == pugi::node_pcdata && !child.next_sibling()),
                  element.path() + ": content that is not one text");
    return;
  }
  if (is_root) {
    faults.Expect(IsLineEnd(child), element.path() + ": no line end behind the start tag");
    child = child.next_sibling();
  }
  while (child) {
    if (child.type() != pugi::node_element) {
      faults.Expect(false, element.path() + ": something between its elements");
      return;
    }
    CheckElement(child, faults);
    if (!IsLineEnd(child.next_sibling())) {
      faults.Expect(false, child.path() + ": no line end behind it");
      return;
    }
    child = child.next_sibling().next_sibling();
  }
}

}  // namespace

void CheckLayout(const pugi::xml_document& report, Faults& faults) {
  const auto declaration = report.first_child();
  const auto version = declaration.first_attribute();
  faults.Expect(declaration.type() == pugi::node_declaration && std::string_view(version.name()) == "version" &&
                    std::string_view(version.value()) == "1.0" && !version.next_attribute(),
                "the file does not begin with version 1.0 alone");
  auto root = declaration.next_sibling();
  while (root && root.type() != pugi::node_element) {
    faults.Expect(root.type() == pugi::node_pcdata && Trimmed(root.value()) == kLineEnd, "something ahead of REPORT");
    root = root.next_sibling();
  }
  faults.ExpectEqual("root", root.name(), "REPORT");
  CheckElement(root, faults);
  faults.Expect(!root.next_sibling(), "something behind REPORT");
}

}  // namespace orvex::test
