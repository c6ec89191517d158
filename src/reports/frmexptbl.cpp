#include "reports/frmexptbl.h"

#include <fmt/format.h>

namespace orvex::reports {

Frmexptbl OpenFrmexptbl(shell::Session& session) {
  Frmexptbl form;
  form.lblTable.text = fmt::format("Export {} to:", session.ExportTable);
  form.lblPath.text = "in " + session.ExportTarget;
  form.txtTable.text = session.ExportTable;
  return form;
}

void TypeTable(shell::Session&, Frmexptbl& form, const std::string& text) { form.txtTable.text = text; }

void ClickOK(shell::Session& session, Frmexptbl& form) {
  session.ExportTable = form.txtTable.text;
  form.window.closed = true;
}

void ClickCancel(shell::Session& session, Frmexptbl& form) {
  session.ExportTable.clear();
  form.window.closed = true;
}

void ClickHelp(shell::Session& session, Frmexptbl&) { session.host.ShowHelp(std::string(kFrmexptblText.topic)); }

}  // namespace orvex::reports
