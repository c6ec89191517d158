#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/host.h"

namespace orvex::test {

/// A host that answers from a script and fails the test on a prompt that the script does not expect.
class ScriptedHost : public shell::Host {
 public:
  ~ScriptedHost() override;

  /// The next message box must carry exactly this text, and is answered so.
  void ExpectMessage(std::string text, shell::Answer answer = shell::Answer::kOk);
  /// The same for its title, buttons and icon, too.
  void ExpectMessage(std::string text, std::string title, shell::Buttons buttons, shell::Icon icon,
                     shell::Answer answer = shell::Answer::kOk);
  /// The next error report must carry this number and routine; its description is free.
  void ExpectError(int number, std::string routine);
  /// The next file dialog gives this path, or is cancelled when it is empty.
  void ChooseFile(std::string path) { files_.push_back(std::move(path)); }

  /// When this window opens, the person does so in it. Otherwise an opened window is closed again.
  void WhenShown(std::string window, std::function<void()> action) { actions_.emplace_back(window, std::move(action)); }

  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override;
  std::string OpenFile(const shell::FileRequest& request) override;
  std::string SaveFile(const shell::FileRequest& request) override;
  std::string ChooseFolder(const shell::FileRequest& request) override;
  void SetStatusText(const std::string& text) override {
    status.push_back(text);
    steps.push_back("status " + text);
  }
  void SetPointer(shell::Pointer pointer) override { pointers.push_back(pointer); }
  void Beep() override { ++beeps; }
  void Navigate(const std::string& path) override { pages.push_back(path); }
  void ShowHelp(const std::string& topic) override { help.push_back(topic); }
  void ShowPrinterSetup() override { ++printer_setups; }
  void SetPathPanel(shell::PathPanel panel, const std::string& text) override;
  void ShowWindow(std::string_view name) override;
  void ShowMainWindow() override;
  void CloseMainWindow() override { steps.emplace_back("close MDIForm1"); }
  void CloseOtherWindows(std::string_view kept) override;
  void Progress(std::int64_t done, std::int64_t total) override { progress.emplace_back(done, total); }

  /// What the person sees of a long sequence, in order: "show frmstart", "message ...", "status ...", "tank panel ...",
  /// "client panel ...", "file dialog ...", "close windows but ...", "close MDIForm1".
  std::vector<std::string> steps;
  // The same by kind, and what else happened.
  std::vector<std::string> messages, titles, status, pages, help, windows, closed_but;
  std::vector<shell::FileRequest> file_requests;
  std::vector<std::pair<shell::PathPanel, std::string>> panels;
  std::vector<shell::Pointer> pointers;
  std::vector<std::pair<std::int64_t, std::int64_t>> progress;
  int beeps = 0;
  int printer_setups = 0;

 private:
  /// How a message box looks besides its text.
  struct Look {
    std::string title;
    shell::Buttons buttons;
    shell::Icon icon;
  };
  struct Expected {
    std::string text;          ///< whole text, or
    std::string ending;        ///< how the text ends
    std::optional<Look> look;  ///< any, when it was not said
    shell::Answer answer;
  };
  std::string NextFile(const shell::FileRequest& request);
  std::deque<Expected> expected_;
  std::deque<std::string> files_;
  std::deque<std::pair<std::string, std::function<void()>>> actions_;  ///< each is for one opening
};

}  // namespace orvex::test
