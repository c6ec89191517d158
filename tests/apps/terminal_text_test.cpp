#include "orvex-report/terminal_text.h"

#include <gtest/gtest.h>

#include <string>

namespace orvex::report_app {
namespace {

TEST(TerminalText, KeepsPrintableCharacters) { EXPECT_EQ(TerminalText("Öl 油 'a' \\ \u00A0"), "Öl 油 'a' \\ \u00A0"); }

TEST(TerminalText, ShowsWhatWouldSteerATerminal) {
  EXPECT_EQ(TerminalText("a\x1B[2Jb\r\n\t\x7F"), "a\\x1B[2Jb\\x0D\\x0A\\x09\\x7F");
  EXPECT_EQ(TerminalText(std::string("\0", 1)), "\\x00");
}

TEST(TerminalText, ShowsControlsBeyondAscii) {
  EXPECT_EQ(TerminalText("\u009B31m"), "\\u{009B}31m");
  EXPECT_EQ(TerminalText("\u202Egpj.exe"), "\\u{202E}gpj.exe");
}

TEST(TerminalText, ShowsBytesThatAreNoCharacter) { EXPECT_EQ(TerminalText("caf\xE9!"), "caf\\xE9!"); }

}  // namespace
}  // namespace orvex::report_app
