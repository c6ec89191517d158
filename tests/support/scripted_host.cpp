#include "support/scripted_host.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "store/run_time_error.h"

namespace orvex::test {
namespace {

bool HasButton(shell::Buttons buttons, shell::Answer answer) {
  using shell::Answer;
  using shell::Buttons;
  const bool yes_no = buttons == Buttons::kYesNo || buttons == Buttons::kYesNoCancel;
  switch (answer) {
    case Answer::kOk:
      return !yes_no;
    case Answer::kCancel:
      return buttons == Buttons::kOkCancel || buttons == Buttons::kYesNoCancel;
    case Answer::kYes:
    case Answer::kNo:
      return yes_no;
  }
  return false;
}

}  // namespace

ScriptedHost::~ScriptedHost() {
  for (const auto& missing : expected_)
    ADD_FAILURE() << "expected prompt did not come: " << missing.text << missing.ending;
  for (const auto& missing : files_)
    ADD_FAILURE() << "expected file dialog did not come: " << (missing.empty() ? "(to be cancelled)" : missing);
  for (const auto& missing : actions_) ADD_FAILURE() << "expected window did not open: " << missing.first;
}

void ScriptedHost::SetPathPanel(shell::PathPanel panel, const std::string& text) {
  panels.emplace_back(panel, text);
  steps.push_back((panel == shell::PathPanel::kTank ? "tank panel " : "client panel ") + text);
}

void ScriptedHost::ShowMainWindow() {
  windows.emplace_back("MDIForm1");
  steps.emplace_back("show MDIForm1");
}

void ScriptedHost::CloseOtherWindows(std::string_view kept) {
  closed_but.emplace_back(kept);
  steps.push_back(fmt::format("close windows but {}", kept));
}

void ScriptedHost::ShowWindow(std::string_view name) {
  windows.emplace_back(name);
  steps.push_back(fmt::format("show {}", name));
  if (actions_.empty() || actions_.front().first != name) return;
  const auto action = std::move(actions_.front().second);
  actions_.pop_front();
  action();
}

void ScriptedHost::ExpectMessage(std::string text, shell::Answer answer) {
  expected_.push_back({std::move(text), "", std::nullopt, answer});
}

void ScriptedHost::ExpectMessage(std::string text, std::string title, shell::Buttons buttons, shell::Icon icon,
                                 shell::Answer answer) {
  expected_.push_back({std::move(text), "", Look{std::move(title), buttons, icon}, answer});
}

void ScriptedHost::ExpectError(int number, std::string routine) {
  expected_.push_back({"", fmt::format("\r\nNumber: {}\r\n in {}", number, routine), std::nullopt, shell::Answer::kOk});
}

shell::Answer ScriptedHost::ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                                        shell::Icon icon) {
  messages.push_back(text);
  steps.push_back("message " + text);
  titles.push_back(title);
  if (expected_.empty()) {
    ADD_FAILURE() << "unexpected prompt: " << text;
    return shell::Answer::kCancel;
  }
  const Expected next = expected_.front();
  expected_.pop_front();
  if (next.ending.empty()) {
    EXPECT_EQ(text, next.text);
  } else {
    EXPECT_TRUE(text.ends_with(next.ending)) << text << "\nshould end with" << next.ending;
  }
  if (next.look) {
    EXPECT_EQ(title, next.look->title) << "of the prompt: " << text;
    EXPECT_EQ(buttons, next.look->buttons) << "of the prompt: " << text;
    EXPECT_EQ(icon, next.look->icon) << "of the prompt: " << text;
  }
  EXPECT_TRUE(HasButton(buttons, next.answer)) << "no button gives the answer to the prompt: " << text;
  return next.answer;
}

std::string ScriptedHost::NextFile(const shell::FileRequest& request) {
  file_requests.push_back(request);
  steps.push_back("file dialog " + request.title);
  if (files_.empty()) {
    ADD_FAILURE() << "unexpected file dialog";
    throw store::RunTimeError(store::ErrorNumber::kDialogCancelled, "Cancel was selected.");
  }
  std::string path = files_.front();
  files_.pop_front();
  if (path.empty()) throw store::RunTimeError(store::ErrorNumber::kDialogCancelled, "Cancel was selected.");
  return path;
}

std::string ScriptedHost::OpenFile(const shell::FileRequest& request) { return NextFile(request); }
std::string ScriptedHost::SaveFile(const shell::FileRequest& request) { return NextFile(request); }
std::string ScriptedHost::ChooseFolder(const shell::FileRequest& request) { return NextFile(request); }

}  // namespace orvex::test
