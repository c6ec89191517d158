#include "reports/frmexformat.h"

#include <algorithm>

#include "reports/export_format.h"

namespace orvex::reports {

Frmexformat OpenFrmexformat(shell::Session& session) {
  Frmexformat form;
  const bool errors = session.PrintMode == "Error";
  for (const auto& format : ExportFormats()) {
    if (format.for_errors || !errors) form.lstFormats.items.emplace_back(format.text);
  }
  form.lstFormats.selected = {0};
  return form;
}

void SelectFormat(shell::Session&, Frmexformat& form, std::size_t item) {
  if (item < form.lstFormats.items.size()) form.lstFormats.selected = {item};
}

void ClickOK(shell::Session& session, Frmexformat& form) {
  const auto& text = form.lstFormats.items.at(form.lstFormats.selected.at(0));
  session.ExportFormat = std::ranges::find(ExportFormats(), text, &ExportFormat::text)->token;
  form.window.closed = true;
}

void ClickCancel(shell::Session& session, Frmexformat& form) {
  session.ExportFormat = kNoFormat;
  form.window.closed = true;
}

void ClickHelp(shell::Session& session, Frmexformat&) { session.host.ShowHelp(std::string(kFrmexformatText.topic)); }

}  // namespace orvex::reports
