#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/run_time_error.h"

namespace orvex::shell {

enum class Buttons : std::uint8_t { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Icon : std::uint8_t { kNone, kInformation, kQuestion, kExclamation, kCritical };
enum class Answer : std::uint8_t { kOk, kCancel, kYes, kNo };
enum class Pointer : std::uint8_t { kDefault = 0, kBusy = 11 };
/// The panels of the status line behind the status text.
enum class PathPanel : std::uint8_t { kTank, kClient };

/// What a file dialog is asked for. Cancelling it is error 32755.
struct FileRequest {
  std::string title;
  std::string file_name;
  std::string folder;
  std::string filter;
  std::string default_extension;
};

/// Everything the models say to the person and ask of them. The desktop, the batch program and the tests each have
/// their own.
class Host {
 public:
  virtual ~Host() = default;

  virtual Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons, Icon icon) = 0;
  /// A failure was caught; the message box that tells of it comes next. A program whose messages nobody reads needs to
  /// know.
  virtual void NoteFailure(const store::RunTimeError&) {}
  /// Path chosen; throws error 32755 when the dialog was cancelled.
  virtual std::string OpenFile(const FileRequest& request) = 0;
  virtual std::string SaveFile(const FileRequest& request) = 0;
  /// Path of the folder chosen, as for `OpenFile`; only title and folder of the request are used.
  virtual std::string ChooseFolder(const FileRequest& request) = 0;
  virtual void SetStatusText(const std::string& text) = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  /// The path of a database for its panel of the status line. A program without one has nothing to do.
  virtual void SetPathPanel(PathPanel, const std::string& /*text*/) {}
  virtual void Beep() = 0;
  /// Opens another browser on a file and shows it.
  virtual void Navigate(const std::string& path) = 0;
  virtual void ShowHelp(const std::string& topic) = 0;
  /// Lets the person choose and set up a printer in the platform's own dialog; cancelling it is no error. A program
  /// that doesn't print has nothing to do.
  virtual void ShowPrinterSetup() {}
  /// Opens a window, named as the program names it ("frmprintrep"), and comes back when it closes.
  virtual void ShowWindow(std::string_view name) = 0;
  /// Shows the window on top as its model stands in the midst of a command, before the person is told about it. A
  /// program without windows has nothing to do.
  virtual void DrawWindow() {}
  /// Shows the frame that holds the menus, and comes back at once. A program without one has nothing to do.
  virtual void ShowMainWindow() {}
  /// Closes the frame: the program ends when the running command comes back.
  virtual void CloseMainWindow() {}
  /// Closes every window but the frame and this one, so that nothing holds the databases.
  virtual void CloseOtherWindows(std::string_view /*kept*/) {}
  /// `done` of `total` units of a long command are finished. May throw `Interrupted` to stop the command.
  virtual void Progress(std::int64_t done, std::int64_t total) = 0;
};

/// The person stopped a running command: what it was writing is undone. Not an error, so no routine reports it.
struct Interrupted {};

}  // namespace orvex::shell
