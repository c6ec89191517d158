#include "shell/xml_text.h"

#include <gtest/gtest.h>

#include <string>

namespace orvex::shell {
namespace {

TEST(XmlText, EscapesMarkup) { EXPECT_EQ(EscapeXml("a<b> & \"c\"]]>"), "a&lt;b&gt; &amp; &quot;c&quot;]]&gt;"); }

TEST(XmlText, EscapesWhatAParserWouldTurnIntoBlanks) { EXPECT_EQ(EscapeXml("\t\r\n"), "&#9;&#13;&#10;"); }

TEST(XmlText, KeepsBlanksAndCharactersOfEveryLanguage) {
  EXPECT_EQ(EscapeXml(" Öl-Tank №1 \u00A0 油 \U0001F6E2 'x' "), " Öl-Tank №1 \u00A0 油 \U0001F6E2 'x' ");
}

TEST(XmlText, ShowsControlCharactersAsPictures) {
  EXPECT_EQ(EscapeXml(std::string("a\0b\x01\x1B\x1F", 6)), "a\u2400b\u2401\u241B\u241F");
}

TEST(XmlText, ShowsNoncharactersAndBrokenBytesAsReplacements) {
  EXPECT_EQ(EscapeXml("\xEF\xBF\xBE\xEF\xBF\xBF"), "\uFFFD\uFFFD");
  EXPECT_EQ(EscapeXml("caf\xE9 x"), "caf\uFFFD x");
  EXPECT_EQ(EscapeXml("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(XmlText, KeepsNamesThatAreNames) {
  for (const auto* name : {"NAME", "_x", "A-1.b", "Größe", "油", "USER_DEF", "a\u00B7"}) EXPECT_EQ(XmlName(name), name);
}

TEST(XmlText, MakesNamesOfWhatIsNone) {
  EXPECT_EQ(XmlName(""), "_");
  EXPECT_EQ(XmlName("2nd"), "_2nd");
  EXPECT_EQ(XmlName("-a"), "_-a");
  EXPECT_EQ(XmlName("a b<c>&\"d':e"), "a_b_c___d__e");
  EXPECT_EQ(XmlName("caf\xE9\x01\u2028\u00D7"), "caf____");
}

}  // namespace
}  // namespace orvex::shell
