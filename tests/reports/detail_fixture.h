#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <pugixml.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "reports/detail_tank.h"
#include "store/field_table.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::test {

/// The no-break space.
inline const std::string kNbsp = "\u00A0";

inline std::string Nbsp(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += kNbsp;
  return text;
}

/// Pages of a Detail report, written one by one into an element of their own.
class DetailPages : public testing::Test {
 protected:
  DetailPages() {
    test_.session.ReportTime = "Annual";
    test_.session.ReportType = "Detail";
  }

  /// Adds a primary row of `emission` in which every number is 0 and every text "x" unless `changes` say otherwise.
  void AddEmission(std::int32_t ID, std::string_view type, FieldValues changes = {}) {
    auto rows = test_.client().OpenTable("emission");
    rows.AddNew();
    for (const auto& field : store::FindTable("emission").fields) {
      if (field.type == store::FieldType::kDouble) rows.Set(field.name, 0.0);
      if (field.type == store::FieldType::kText) rows.Set(field.name, "x");
    }
    rows.Set("ID", ID);
    rows.Set("MIX ID", std::int32_t{1});
    rows.Set("TANK_TYPE", type);
    rows.Set("PRIMARY", true);
    rows.Set("NAME", "Benzene");
    rows.Set("MONTH", "Annual");
    for (const auto& [field, value] : changes) rows.Set(field, value);
    rows.Update();
  }

  /// As the report's own head would tell the tank.
  static reports::DetailTank Annual(std::int32_t ID) { return {ID, "Annual", "T   -   Tank", "Springfield, OH"}; }
  static reports::DetailTank Monthly(std::int32_t ID) { return {ID, "Monthly", "T   -   Tank", "Springfield, OH"}; }

  /// What stands under a node, as in the file, but without line ends.
  static std::string Xml(pugi::xml_node node) {
    std::ostringstream text;
    for (const auto& child : node.children())
      child.print(text, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
    std::string xml = text.str();
    for (auto at = xml.find("\r\n"); at != std::string::npos; at = xml.find("\r\n", at)) xml.erase(at, 2);
    return xml;
  }

  /// The children of an element as "name=text", without text for those that have children of their own.
  static std::vector<std::string> Texts(pugi::xml_node node) {
    std::vector<std::string> texts;
    for (const auto& child : node.children()) {
      if (child.type() != pugi::node_element) continue;
      const std::string text = child.child_value();
      texts.push_back(std::string(child.name()) + "=" + (text == "\r\n" ? "" : text));
    }
    return texts;
  }

  static std::vector<std::string> Attributes(pugi::xml_node node) {
    std::vector<std::string> texts;
    for (const auto& attribute : node.attributes())
      texts.push_back(std::string(attribute.name()) + "=" + attribute.value());
    return texts;
  }

  static int Count(pugi::xml_node node, const char* name) {
    const auto children = node.children(name);
    return static_cast<int>(std::distance(children.begin(), children.end()));
  }

  TestSession test_;
  pugi::xml_document document_;
  pugi::xml_node page_ = document_.append_child("Tank");
};

using Strings = std::vector<std::string>;

}  // namespace orvex::test
