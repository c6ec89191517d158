#pragma once

#include <filesystem>
#include <pugixml.hpp>
#include <string_view>

namespace orvex::reports {

/// An XML file in the making: the processing instruction and the root.
class XmlDocument {
 public:
  explicit XmlDocument(const char* root);

  [[nodiscard]] pugi::xml_node Root() const { return root_; }

  /// Writes the file, in UTF-8, over one that stands there. It is replaced whole or not at all; errors 3043 and 3044
  /// name it.
  void Save(const std::filesystem::path& path) const;

 private:
  pugi::xml_document document_;
  pugi::xml_node root_;
};

/// Appends a text, which is data of any content.
void AddText(pugi::xml_node parent, std::string_view text);

/// Appends an attribute; its value is data of any content.
void AddAttribute(pugi::xml_node element, const char* name, std::string_view value);

}  // namespace orvex::reports
