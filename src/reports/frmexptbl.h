#pragma once

#include <string>

#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the table or sheet of an export is named.
namespace orvex::reports {

inline constexpr shell::ControlText kFrmexptblControls[] = {
    {"lblTable", "", "The table that is exported"},
    {"txtTable", "Ta&ble:", "The name of the table or worksheet in the file"},
    {"lblPath", "", "The file that the table is written to"},
    {"cmdOK", "&OK", "Write the table under this name"},
    {"cmdCancel", "Cancel", "Close this window and export nothing"},
    {"cmdHelp", "&Help", "Help on exporting tables"},
};
inline constexpr shell::WindowText kFrmexptblText = {"frmexptbl", "Export Table", "export_tables", kFrmexptblControls};

struct Frmexptbl {
  shell::TextBox lblTable{.text = "", .read_only = true};  ///< "Export chemical to:"
  shell::TextBox txtTable;
  shell::TextBox lblPath{.text = "", .read_only = true};  ///< "in " and the path
  shell::Button cmdOK, cmdCancel, cmdHelp;
  shell::WindowState window;
};

Frmexptbl OpenFrmexptbl(shell::Session& session);

void TypeTable(shell::Session& session, Frmexptbl& form, const std::string& text);
void ClickOK(shell::Session& session, Frmexptbl& form);
void ClickCancel(shell::Session& session, Frmexptbl& form);
void ClickHelp(shell::Session& session, Frmexptbl& form);

}  // namespace orvex::reports
