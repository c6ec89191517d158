#include "reports/frmexname.h"

#include <filesystem>

#include "reports/export_format.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmExName.";

}  // namespace

Frmexname OpenFrmexname(shell::Session&) { return {}; }

void TypeExportFileName(shell::Session&, Frmexname& form, const std::string& text) {
  form.txtExportFileName.text = text;
}

void ClickBrowse(shell::Session& session, Frmexname& form) {
  shell::Trapped(session, kLabel, [&] {
    const auto* format = FindExportFormat(session.ExportFormat);
    shell::FileRequest request;
    request.title = "Export To:";
    request.folder = std::filesystem::path(form.txtExportFileName.text).parent_path();
    if (format != nullptr) {
      request.file_name = format->extension;
      request.filter = format->filter;
      request.default_extension = format->extension;
    }
    form.txtExportFileName.text = session.host.SaveFile(request);
  });
}

void ClickOK(shell::Session& session, Frmexname& form) {
  if (form.txtExportFileName.text.empty()) {
    shell::Tell(session.host, "Please specify a path!");
    form.window.focus = "txtExportFileName";
    return;
  }
  session.ExportTarget = form.txtExportFileName.text;
  form.window.closed = true;
}

void ClickClose(shell::Session& session, Frmexname& form) {
  session.ExportTarget.clear();
  form.window.closed = true;
}

void ClickHelp(shell::Session& session, Frmexname&) { session.host.ShowHelp(std::string(kFrmexnameText.topic)); }

}  // namespace orvex::reports
