#include "orvex-report/headless_host.h"

#include <fmt/format.h>

#include <ostream>

#include "orvex-report/terminal_text.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

constexpr std::string_view kPrintWindow = "frmprintrep";
constexpr std::string_view kClearLine = "\r\x1B[K";

/// The lines of a message box, each safe to print.
std::string PrintableLines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const auto end = text.find("\r\n");
    const auto line = text.substr(0, end);
    if (!line.empty()) lines += "  " + TerminalText(line) + "\n";
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
  }
  return lines;
}

[[noreturn]] void CancelDialog() {
  throw store::RunTimeError(store::ErrorNumber::kDialogCancelled, "Cancel was selected.");
}

}  // namespace

HeadlessHost::HeadlessHost(std::ostream& messages, Settings settings)
    : messages_(messages), settings_(std::move(settings)) {}

HeadlessHost::~HeadlessHost() { ClearProgress(); }

shell::Answer HeadlessHost::ShowMessage(const std::string& text, const std::string&, shell::Buttons buttons,
                                        shell::Icon) {
  ClearProgress();
  messages_ << "orvex-report:\n" << PrintableLines(text);
  switch (buttons) {
    case shell::Buttons::kOk:
      return shell::Answer::kOk;
    case shell::Buttons::kYesNo:
      return shell::Answer::kNo;
    default:
      return shell::Answer::kCancel;
  }
}

void HeadlessHost::NoteFailure(const store::RunTimeError&) { failure_reported_ = true; }
std::string HeadlessHost::OpenFile(const shell::FileRequest&) { CancelDialog(); }
std::string HeadlessHost::SaveFile(const shell::FileRequest&) { CancelDialog(); }
std::string HeadlessHost::ChooseFolder(const shell::FileRequest&) { CancelDialog(); }
void HeadlessHost::SetStatusText(const std::string&) {}
void HeadlessHost::SetPointer(shell::Pointer) {}
void HeadlessHost::Beep() {}
void HeadlessHost::Navigate(const std::string& path) { pages_.push_back(path); }
void HeadlessHost::ShowHelp(const std::string&) {}

void HeadlessHost::ShowWindow(std::string_view name) {
  running_ = false;
  ClearProgress();
  if (name == kPrintWindow && print_window_) print_window_();
}

void HeadlessHost::Progress(std::int64_t done, std::int64_t total) {
  if (!running_) return;
  if (settings_.stop_requested && settings_.stop_requested()) throw shell::Interrupted{};
  if (!settings_.progress || total <= 0) return;
  auto line = fmt::format("Processing, {}%", done * 100 / total);
  if (line == shown_) return;
  messages_ << kClearLine << line << std::flush;
  shown_ = std::move(line);
}

void HeadlessHost::ClearProgress() {
  if (shown_.empty()) return;
  messages_ << kClearLine << std::flush;
  shown_.clear();
}

}  // namespace orvex::report_app
