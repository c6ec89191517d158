#pragma once

#include <string>

#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the file of an export is named.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmexnameControls[] = {
    {"txtExportFileName", "&Export to:", "The file that the table is written to"},
    {"cmdBrowse", "&Browse...", "Choose the file"},
    {"cmdOK", "&OK", "Write to this file"},
    {"cmdClose", "&Close", "Close this window and export nothing"},
    {"cmdHelp", "&Help", "Help on exporting tables"},
};
inline constexpr shell::WindowText kFrmexnameText = {"frmexname", "Export File Name", "export_tables",
                                                     kFrmexnameControls};

struct Frmexname {
  shell::TextBox txtExportFileName;
  shell::Button cmdBrowse, cmdOK, cmdClose, cmdHelp;
  shell::WindowState window;
};

Frmexname OpenFrmexname(shell::Session& session);

void TypeExportFileName(shell::Session& session, Frmexname& form, const std::string& text);
void ClickBrowse(shell::Session& session, Frmexname& form);
void ClickOK(shell::Session& session, Frmexname& form);
void ClickClose(shell::Session& session, Frmexname& form);
void ClickHelp(shell::Session& session, Frmexname& form);

}  // namespace orvex::reports
