#pragma once

#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the format of an export is chosen.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmexformatControls[] = {
    {"lstFormats", "&Format:", "The formats that the table can be written in"},
    {"cmdOK", "&OK", "Use the chosen format"},
    {"cmdCancel", "Cancel", "Close this window and export nothing"},
    {"cmdHelp", "&Help", "Help on exporting tables"},
};
inline constexpr shell::WindowText kFrmexformatText = {"Frmexformat", "Export Format", "export_tables",
                                                       kFrmexformatControls};

struct Frmexformat {
  shell::ListBox lstFormats;  ///< one is selected
  shell::Button cmdOK, cmdCancel, cmdHelp;
  shell::WindowState window;
};

/// Lists the formats that `PrintMode` can be exported to, with the first one selected.
Frmexformat OpenFrmexformat(shell::Session& session);

void SelectFormat(shell::Session& session, Frmexformat& form, std::size_t item);
/// A double click does the same.
void ClickOK(shell::Session& session, Frmexformat& form);
void ClickCancel(shell::Session& session, Frmexformat& form);
void ClickHelp(shell::Session& session, Frmexformat& form);

}  // namespace orvex::reports
