#include "reports/report_document.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using test::FileContent;
using test::TemporaryFolder;

/// What a parser reads from `text` after it went through an element and an attribute.
struct RoundTrip {
  std::string element, attribute;
};

RoundTrip Through(const std::string& text) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "report.xml";
  ReportDocument document;
  AddAttribute(AddElement(document.Root(), "A", text), "a", text);
  document.Save(path);
  pugi::xml_document parsed;
  const auto result = parsed.load_file(path.c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
  EXPECT_TRUE(result) << result.description();
  const auto element = parsed.child("REPORT").child("A");
  return {element.child_value(), element.attribute("a").value()};
}

TEST(ReportDocument, HasOneElementALine) {
  const TemporaryFolder folder;
  ReportDocument document;
  AddElement(document.Root(), "TYPE", "Brief");
  auto period = AddElement(document.Root(), "TimePeriod");
  AddElement(period, "Value", "Annual");
  AddAttribute(AddElement(document.Root(), "Summary"), "months", "Annual");
  document.Save(folder.Path() / "report.xml");
  EXPECT_EQ(FileContent(folder.Path() / "report.xml"),
            "<?xml version=\"1.0\"?><REPORT>\r\n"
            "<TYPE>Brief</TYPE>\r\n"
            "<TimePeriod><Value>Annual</Value>\r\n"
            "</TimePeriod>\r\n"
            "<Summary months=\"Annual\"/>\r\n"
            "</REPORT>");
}

TEST(ReportDocument, DataSurviveARoundTrip) {
  for (const std::string text : {"a & b", "<T>]]>", "\"double\" 'single'", "line\r\nend", "\rcarriage", "\ttab ",
                                 " blanks ", "Öl №1 油 \U0001F6E2", "&amp;", "\u00A0\u00A0Toluene"}) {
    const auto back = Through(text);
    EXPECT_EQ(back.element, text);
    EXPECT_EQ(back.attribute, text);
  }
}

TEST(ReportDocument, IsWellFormedForAStrictParserWhateverTheData) {
  ASSERT_EQ(std::system("xmllint --version >/dev/null 2>&1"), 0) << "xmllint (package libxml2-utils) is not installed";
  const TemporaryFolder folder;
  const auto path = folder.Path() / "report.xml";
  ReportDocument document;
  std::mt19937 random(20240229);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes;
    for (auto length = random() % 12; length > 0; --length) bytes += static_cast<char>(random() % 256);
    AddAttribute(AddElement(document.Root(), "A", bytes), "a", bytes);
  }
  document.Save(path);
  EXPECT_EQ(std::system(("xmllint --noout --nonet '" + path.string() + "'").c_str()), 0);
}

TEST(XmlDocument, HasOnlyWhatWasPutIntoIt) {
  const TemporaryFolder folder;
  XmlDocument document("DataExport");
  AddText(document.Root(), "a & b");
  AddText(document.Root(), "");
  AddText(document.Root().append_child("Type"), "Met");
  document.Save(folder.Path() / "data.xml");
  EXPECT_EQ(FileContent(folder.Path() / "data.xml"),
            "<?xml version=\"1.0\"?><DataExport>a &amp; b<Type>Met</Type></DataExport>");
}

TEST(ReportDocument, OverwritesAFileOfItsName) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "report.xml";
  test::WriteFile(path, std::string(100000, 'x'));
  ReportDocument().Save(path);
  EXPECT_EQ(FileContent(path), "<?xml version=\"1.0\"?><REPORT>\r\n</REPORT>");
}

TEST(ReportDocument, NamesAFileThatCannotBeWritten) {
  const TemporaryFolder folder;
  EXPECT_RUN_TIME_ERROR(ReportDocument().Save(folder.Path() / "missing" / "report.xml"),
                        store::ErrorNumber::kInvalidPath);
  std::filesystem::create_directory(folder.Path() / "report.xml");
  EXPECT_RUN_TIME_ERROR(ReportDocument().Save(folder.Path() / "report.xml"), store::ErrorNumber::kDiskFailure);
}

}  // namespace
}  // namespace orvex::reports
