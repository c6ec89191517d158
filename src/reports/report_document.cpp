#include "reports/report_document.h"

#include "shell/xml_text.h"
#include "store/file_replacement.h"

namespace orvex::reports {
namespace {

constexpr const char* kLineEnd = "\r\n";

class FileWriter : public pugi::xml_writer {
 public:
  explicit FileWriter(store::FileReplacement& file) : file_(file) {}
  void write(const void* data, std::size_t size) override { file_.Write({static_cast<const char*>(data), size}); }

 private:
  store::FileReplacement& file_;
};

void AddText(pugi::xml_node parent, const char* text) { parent.append_child(pugi::node_pcdata).set_value(text); }

}  // namespace

ReportDocument::ReportDocument() {
  auto instruction = document_.append_child(pugi::node_declaration);
  instruction.append_attribute("version").set_value("1.0");
  root_ = document_.append_child("REPORT");
  AddText(root_, kLineEnd);
}

void ReportDocument::Save(const std::filesystem::path& path) const {
  store::FileReplacement file(path);
  FileWriter writer(file);
  // Texts stand escaped in the tree: the library's own escaping would touch the line ends between the elements, too.
  document_.save(writer, "", pugi::format_raw | pugi::format_no_escapes, pugi::encoding_utf8);
  file.Commit();
}

pugi::xml_node AddElement(pugi::xml_node parent, const char* name, std::string_view text) {
  auto element = parent.append_child(name);
  if (!text.empty()) AddText(element, shell::EscapeXml(text).c_str());
  AddText(parent, kLineEnd);
  return element;
}

void AddAttribute(pugi::xml_node element, const char* name, std::string_view value) {
  element.append_attribute(name).set_value(shell::EscapeXml(value).c_str());
}

}  // namespace orvex::reports
