#include "support/scripted_host.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <string>

/// The host that the other tests script: it must fail them where the program says something else.
namespace orvex::test {
namespace {

using shell::Answer;
using shell::Buttons;
using shell::Icon;

Answer Ask(ScriptedHost& host, const std::string& text) {
  return host.ShowMessage(text, "ORVEX", Buttons::kYesNo, Icon::kQuestion);
}

TEST(ScriptedHost, AnswersAsItWasTold) {
  ScriptedHost host;
  host.ExpectMessage("Save?", Answer::kYes);
  host.ExpectMessage("Sure?", "ORVEX", Buttons::kYesNo, Icon::kQuestion, Answer::kNo);
  EXPECT_EQ(Ask(host, "Save?"), Answer::kYes);
  EXPECT_EQ(Ask(host, "Sure?"), Answer::kNo);
}

TEST(ScriptedHost, APromptThatWasNotExpectedFails) {
  ScriptedHost host;
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save?"), "unexpected prompt: Save?");
}

TEST(ScriptedHost, AnotherTextFails) {
  ScriptedHost host;
  host.ExpectMessage("Save?", Answer::kYes);
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save it?"), "Save it?");
}

TEST(ScriptedHost, AnotherTitleFails) {
  ScriptedHost host;
  host.ExpectMessage("Save?", "Tanks", Buttons::kYesNo, Icon::kQuestion, Answer::kYes);
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save?"), "Tanks");
}

TEST(ScriptedHost, OtherButtonsFail) {
  ScriptedHost host;
  host.ExpectMessage("Save?", "ORVEX", Buttons::kYesNoCancel, Icon::kQuestion, Answer::kYes);
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save?"), "next.look->buttons");
}

TEST(ScriptedHost, AnotherIconFails) {
  ScriptedHost host;
  host.ExpectMessage("Save?", "ORVEX", Buttons::kYesNo, Icon::kExclamation, Answer::kYes);
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save?"), "next.look->icon");
}

TEST(ScriptedHost, APromptThatDoesNotComeFails) {
  EXPECT_NONFATAL_FAILURE(
      {
        ScriptedHost host;
        host.ExpectMessage("Save?");
      },
      "expected prompt did not come: Save?");
}

TEST(ScriptedHost, AnAnswerThatHasNoButtonFails) {
  ScriptedHost host;
  host.ExpectMessage("Save?", Answer::kCancel);
  EXPECT_NONFATAL_FAILURE(Ask(host, "Save?"), "no button");
}

}  // namespace
}  // namespace orvex::test
