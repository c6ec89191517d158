#include "exchange/frmimport.h"

#include <string>

#include "exchange/dbase_dialog.h"
#include "exchange/import_log.h"
#include "exchange/tank_import.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/dbase_file.h"

namespace orvex::exchange {
namespace {

constexpr std::string_view kRoutine = "frmImport.";
constexpr const char* kPathMissing = "All paths must be specified.";
constexpr const char* kWrongStructure =
    "Please make sure the paths you have specified lead to the right file structure!";

std::array<std::string, std::size(kImportFiles)> Paths(const FrmImport& form) {
  std::array<std::string, std::size(kImportFiles)> paths;
  for (std::size_t i = 0; i < paths.size(); ++i) paths[i] = form.paths[i].text;
  return paths;
}

/// False when the person has been told why nothing was imported.
bool Import(shell::Session& session, FrmImport& form) {
  const auto client = shell::BeginEditing(session, shell::DatabaseKind::kClient);
  if (!client) return false;
  const auto reference = shell::BeginEditing(session, shell::DatabaseKind::kTank);
  if (!reference) return false;
  const shell::BusyScope busy(session, "Processing");
  try {
    ImportTankFiles(session, Paths(form));
    return true;
  } catch (const PathMissing& missing) {
    shell::Tell(session.host, kPathMissing, shell::Icon::kExclamation);
    form.window.focus = kImportFiles[missing.file].field;
  } catch (const SetUpFailure& failure) {
    shell::Tell(session.host, kWrongStructure, shell::Icon::kExclamation);
    if (failure.Number() != store::ErrorNumber::kNone) shell::HandleFailure(session, kRoutine, failure);
  }
  return false;
}

}  // namespace

FrmImport OpenFrmImport(shell::Session& /*session*/) { return {}; }

void TypePath(shell::Session& /*session*/, FrmImport& form, std::size_t file, const std::string& text) {
  form.paths[file].text = text;
}

void ClickBrowse(shell::Session& session, FrmImport& form, std::size_t file) {
  shell::Trapped(session, kRoutine, [&] {
    const auto& sought = kImportFiles[file];
    const auto path = AskForDbaseFile(session.host, sought.file);
    const store::DbaseTable opened(path);
    form.paths[file].text = path;
  });
}

void ClickOK(shell::Session& session, FrmImport& form) {
  shell::Trapped(session, kRoutine, [&] {
    if (!Import(session, form)) return;
    OfferImportLog(session);
    form.window.closed = true;
  });
}

void ClickCancel(shell::Session& /*session*/, FrmImport& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, FrmImport& /*form*/) {
  session.host.ShowHelp(std::string(kFrmImportText.topic));
}

}  // namespace orvex::exchange
