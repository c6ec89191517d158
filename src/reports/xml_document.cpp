#include "reports/xml_document.h"

#include "shell/xml_text.h"
#include "store/file_replacement.h"

namespace orvex::reports {
namespace {

class FileWriter : public pugi::xml_writer {
 public:
  explicit FileWriter(store::FileReplacement& file) : file_(file) {}
  void write(const void* data, std::size_t size) override { file_.Write({static_cast<const char*>(data), size}); }

 private:
  store::FileReplacement& file_;
};

}  // namespace

XmlDocument::XmlDocument(const char* root) {
  auto instruction = document_.append_child(pugi::node_declaration);
  instruction.append_attribute("version").set_value("1.0");
  root_ = document_.append_child(root);
}

void XmlDocument::Save(const std::filesystem::path& path) const {
  store::FileReplacement file(path);
  FileWriter writer(file);
  // Texts stand escaped in the tree: the library's own escaping would touch the line ends between the elements, too.
  document_.save(writer, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
  file.Commit();
}

void AddText(pugi::xml_node parent, std::string_view text) {
  if (!text.empty()) parent.append_child(pugi::node_pcdata).set_value(shell::EscapeXml(text).c_str());
}

void AddAttribute(pugi::xml_node element, const char* name, std::string_view value) {
  element.append_attribute(name).set_value(shell::EscapeXml(value).c_str());
}

}  // namespace orvex::reports
