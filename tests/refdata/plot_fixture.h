#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "refdata/record_editor.h"
#include "store/number_text.h"

/// What the tests of the plots read off a picture.
namespace orvex::test {

using HeldTexts = std::vector<std::pair<std::string, std::string>>;

/// A record that holds these texts in its fields, and nothing in all others.
inline refdata::RecordEditor RecordOf(std::span<const refdata::EntryInfo> infos, const HeldTexts& texts) {
  refdata::RecordEditor form;
  for (const auto& info : infos) form.entries.push_back({&info, {}, {}, {}});
  for (const auto& [field, text] : texts) refdata::Of(form, field).held = text;
  return form;
}

/// The elements of a picture. It must be well-formed.
class Picture {
 public:
  explicit Picture(const std::string& svg) {
    const auto result = document_.load_string(svg.c_str());
    EXPECT_TRUE(result) << result.description() << "\n" << svg;
    root_ = document_.child("svg");
  }

  [[nodiscard]] std::vector<pugi::xml_node> Parts(std::string_view name) const {
    std::vector<pugi::xml_node> parts;
    for (const auto& node : root_.children())
      if (node.attribute("class").value() == name) parts.push_back(node);
    return parts;
  }

  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& node : root_.children("text")) texts.emplace_back(node.text().get());
    return texts;
  }

  /// All texts, a blank between them: sentences stand in several lines.
  [[nodiscard]] std::string Words() const {
    std::string words;
    for (const auto& text : Texts()) words += (words.empty() ? "" : " ") + text;
    return words;
  }

  /// Numbers of all elements, those in the commands of paths too; they must lie on the paper.
  void ExpectAllOnThePaper() const {
    const double width = Number(root_, "width"), height = Number(root_, "height");
    for (const auto& node : root_.children()) {
      for (const auto* name : {"x", "x1", "x2", "cx"}) ExpectWithin(node, name, width);
      for (const auto* name : {"y", "y1", "y2", "cy"}) ExpectWithin(node, name, height);
      for (const auto* name : {"width", "height", "r"}) {
        if (!node.attribute(name)) continue;
        EXPECT_GE(Number(node, name), 0);
      }
      if (node.attribute("d")) ExpectPathWithin(node.attribute("d").value(), width, height);
    }
  }

  static double Number(const pugi::xml_node& node, const char* attribute) {
    const auto number = store::ParseNumber(node.attribute(attribute).value());
    EXPECT_TRUE(number) << attribute << "=" << node.attribute(attribute).value();
    return number.value_or(-1);
  }

 private:
  static void ExpectWithin(const pugi::xml_node& node, const char* name, double most) {
    if (!node.attribute(name)) return;
    EXPECT_GE(Number(node, name), 0);
    EXPECT_LE(Number(node, name), most);
  }

  /// Commands of one letter with a point each.
  static void ExpectPathWithin(std::string_view commands, double width, double height) {
    bool across = true;
    while (!commands.empty()) {
      auto word = commands.substr(0, commands.find(' '));
      commands.remove_prefix(std::min(word.size() + 1, commands.size()));
      if (word == "Z") continue;
      if (word.front() == 'M' || word.front() == 'L') word.remove_prefix(1);
      const auto number = store::ParseNumber(word);
      ASSERT_TRUE(number) << word;
      EXPECT_GE(*number, 0);
      EXPECT_LE(*number, across ? width : height);
      across = !across;
    }
  }

  pugi::xml_document document_;
  pugi::xml_node root_;
};

/// A text of a number that a person or a foreign file may give.
inline const std::vector<std::string>& HostileNumbers() {
  static const std::vector<std::string> kNumbers = {
      "",       "0",    "-1",    "1e300",    "-1e308", "1e-300", "1e-320",  "0.001", "14.7", "100",
      "99.999", "1e30", "-1e-9", "12345678", "-60",    "1e308",  "-273.15", "5",     "abc",  "1e5"};
  return kNumbers;
}

}  // namespace orvex::test
