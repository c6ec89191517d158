#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "shell/host.h"

namespace orvex::report_app {

/// The host of a program without windows: messages go to a stream, nobody is asked anything, and the print window is
/// a routine.
class HeadlessHost : public shell::Host {
 public:
  struct Settings {
    bool progress = false;                 ///< the stream is a terminal: show a line that tells how far the run is
    std::function<bool()> stop_requested;  ///< asked from time to time while a run goes on
  };

  HeadlessHost(std::ostream& messages, Settings settings);
  ~HeadlessHost() override;

  /// What the print window does when a run opens it.
  void OnPrintWindow(std::function<void()> action) { print_window_ = std::move(action); }

  /// A routine caught a failure, and an error report was shown.
  [[nodiscard]] bool FailureReported() const { return failure_reported_; }
  /// The pages that a browser would have been opened on.
  [[nodiscard]] const std::vector<std::string>& Pages() const { return pages_; }

  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override;
  void NoteFailure(const store::RunTimeError& error) override;
  std::string OpenFile(const shell::FileRequest& request) override;
  std::string SaveFile(const shell::FileRequest& request) override;
  std::string ChooseFolder(const shell::FileRequest& request) override;
  void SetStatusText(const std::string& text) override;
  void SetPointer(shell::Pointer pointer) override;
  void Beep() override;
  void Navigate(const std::string& path) override;
  void ShowHelp(const std::string& topic) override;
  void ShowWindow(std::string_view name) override;
  void Progress(std::int64_t done, std::int64_t total) override;

 private:
  void ClearProgress();

  std::ostream& messages_;
  Settings settings_;
  std::function<void()> print_window_;
  std::vector<std::string> pages_;
  bool failure_reported_ = false;
  bool running_ = true;  ///< until the run has written its rows; later it can no longer be stopped
  std::string shown_;    ///< the progress line that stands on the terminal
};

}  // namespace orvex::report_app
