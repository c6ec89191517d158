#pragma once

#include "shell/controls.h"
#include "shell/session.h"

/// The window that puts out what a command has prepared, by `PrintMode`.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmprintrepControls[] = {
    {"optWindow", " &Window/Printer", "Show it in a window, from where it can be printed"},
    {"optFile", " &File", "Write it to a file of its own, in a format that other programs read"},
    {"cmdOK", "&OK", "Put it out"},
    {"cmdPrintSetup", "&Printer Setup", "Choose and set up the printer"},
    {"cmdClose", "&Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on printing reports"},
};
inline constexpr shell::WindowText kFrmprintrepText = {"frmprintrep", "Print Report", "print_report",
                                                       kFrmprintrepControls};

struct Frmprintrep {
  shell::OptionButton optWindow{.chosen = true};
  shell::OptionButton optFile;
  shell::Button cmdOK, cmdPrintSetup, cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmprintrep OpenFrmprintrep(shell::Session& session);

/// One of the two destinations was chosen.
void ChooseWindow(shell::Session& session, Frmprintrep& form);
void ChooseFile(shell::Session& session, Frmprintrep& form);

/// Puts out what `PrintMode` tells. The window stays open, so that the same can be put out again.
void ClickOK(shell::Session& session, Frmprintrep& form);
void ClickPrintSetup(shell::Session& session, Frmprintrep& form);
void ClickClose(shell::Session& session, Frmprintrep& form);
void ClickHelp(shell::Session& session, Frmprintrep& form);

}  // namespace orvex::reports
