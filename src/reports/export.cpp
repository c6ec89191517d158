#include "reports/export.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

#include "reports/export_target.h"
#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "shell/database_names.h"
#include "shell/path_text.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/field_table.h"
#include "store/file_check.h"
#include "store/letter_case.h"
#include "store/select_into.h"

namespace orvex::reports {
namespace {

using shell::Session;
using store::ErrorNumber;

constexpr std::string_view kRoutine = "mDatabase.Export";

constexpr std::string_view kProfileFields =
    "DISTINCTROW [profile names].[Profile Name], [profile names].TYPE, [profile components].NAME, "
    "[profile components].CAS, [profile components].WT_FRACT, [profile components].VP_FRACT, "
    "[profile components].WEIGHT, [profile components].MOLWT, [profile components].VP_MOLWT";
constexpr std::string_view kProfileTables =
    "[profile components] INNER JOIN [profile names] ON [profile components].[spec id] = [profile names].[SPEC ID]";

/// What is exported.
struct Source {
  store::Database& database;
  std::string_view fields;
  std::string rows;  ///< what stands behind FROM
};

Source SourceOf(Session& session, const std::string& table, const std::string& path, const std::string& clause) {
  const auto& database = path == session.TankPath ? session.ReferenceDb : session.ClientDb;
  if (!database) throw store::RunTimeError(ErrorNumber::kObjectClosed, "The database of the table is not open.");
  const bool profiles = session.PrintMode == "Profile";
  Source source{*database, profiles ? kProfileFields : "*",
                profiles ? std::string(kProfileTables) : Bracketed(shell::StripPrefix(table))};
  if (!clause.empty()) source.rows += " WHERE " + clause;
  return source;
}

/// Both databases in use.
std::vector<store::Database*> OpenDatabases(const Session& session) {
  std::vector<store::Database*> open;
  for (auto* database : {session.ReferenceDb.get(), session.ClientDb.get()}) {
    if (database != nullptr) open.push_back(database);
  }
  return open;
}

bool IsInUse(const Session& session, const std::filesystem::path& path) {
  std::error_code not_there;
  return std::ranges::any_of(OpenDatabases(session), [&](const store::Database* database) {
    return std::filesystem::equivalent(path, database->Path(), not_there);
  });
}

/// Whether the program works with a table of this name.
bool IsOwnTable(std::string_view name) {
  const auto holds = [&](std::span<const store::TableInfo> tables) {
    return std::ranges::any_of(tables, [&](const auto& table) { return store::EqualNoCase(table.name, name); });
  };
  return holds(store::ClientTables()) || holds(store::ReferenceTables());
}

/// Lets the person choose a format; null when they chose none.
const ExportFormat* AskForFormat(Session& session) {
  session.ExportFormat = kNoFormat;
  session.host.ShowWindow(kFrmexformatText.name);
  return FindExportFormat(session.ExportFormat);
}

/// Lets the person name the file; false when they named none. A database in use gets tables, and becomes no file of
/// another kind.
bool AskForFile(Session& session, const ExportFormat& format) {
  while (true) {
    session.ExportTarget.clear();
    session.host.ShowWindow(kFrmexnameText.name);
    if (session.ExportTarget.empty()) return false;
    session.ExportTarget = CompletePath(format, session.ExportTarget);
    if (format.token == kDatabaseFormat || !IsInUse(session, TargetFile(format, session.ExportTarget))) return true;
    shell::RefuseDatabaseInUse(session.host);
  }
}

/// Whether something can be written there; a database that is not there will be made.
void CheckTarget(const Session& session, const ExportFormat& format) {
  store::CheckFolder(TargetFile(format, session.ExportTarget));
  if (format.token != kDatabaseFormat || IsInUse(session, session.ExportTarget)) return;
  try {
    (void)store::Database::Open(session.ExportTarget);
  } catch (const store::RunTimeError& error) {
    if (error.Number() != ErrorNumber::kFileNotFound) throw;
  }
}

/// The name of the target, empty when the person chose none. In a folder the file has told it.
std::string AskForName(Session& session, const ExportFormat& format, const std::string& table) {
  session.ExportTable = table;
  if (format.is_folder) return TargetName(format, session.ExportTarget);
  session.host.ShowWindow(kFrmexptblText.name);
  return session.ExportTable;
}

store::IntoResult Write(Session& session, const Source& source, const ExportFormat& format, std::string_view name,
                        store::Existing existing) {
  auto count = source.database.OpenQuery(fmt::format("SELECT Count(*) AS Total FROM {}", source.rows));
  const auto total = static_cast<std::int64_t>(count.Double("Total"));
  const auto open = OpenDatabases(session);
  store::IntoOptions options;
  options.existing = existing;
  options.make_database = true;
  options.open = open;
  options.progress = [&](std::int64_t rows) { session.host.Progress(rows, total); };
  return source.database.SelectInto(
      fmt::format("SELECT {} INTO {}{} FROM {}", source.fields, TargetPrefix(format, session.ExportTarget),
                  Bracketed(WrittenName(format, name)), source.rows),
      options);
}

/// What is done about a target that is there already.
enum class Decision { kNameAnother, kReplace, kEnd };

Decision AskAboutExisting(Session& session, const ExportFormat& format, const std::string& name) {
  if (format.token == kWorkbookFormat) {
    shell::Tell(session.host, "Please enter an alternate worksheet name.");
    return Decision::kNameAnother;
  }
  if (format.token == kDatabaseFormat && IsInUse(session, session.ExportTarget) &&
      IsOwnTable(WrittenName(format, name))) {
    shell::Tell(session.host,
                fmt::format("'{}' is a table of a database in use. Please enter an alternate table name.", name),
                shell::Icon::kExclamation);
    return Decision::kNameAnother;
  }
  const auto answer = session.host.ShowMessage(fmt::format("'{}' already exists - overwrite?", name),
                                               std::string(shell::kApplicationTitle), shell::Buttons::kOkCancel,
                                               shell::Icon::kQuestion);
  return answer == shell::Answer::kOk ? Decision::kReplace : Decision::kEnd;
}

void TellSuccess(Session& session, const std::string& table, const std::vector<std::string>& losses) {
  shell::Tell(session.host, fmt::format("Successfully Exported '{}'.", table), shell::Icon::kInformation);
  if (!losses.empty())
    shell::Tell(session.host, fmt::format("{}", fmt::join(losses, "\r\n")), shell::Icon::kInformation);
}

/// False when the person ended it.
bool ExportTo(Session& session, const ExportFormat& format, const std::string& table, const std::string& path,
              const std::string& clause) {
  CheckTarget(session, format);
  std::string name = AskForName(session, format, table);
  auto existing = store::Existing::kRefuse;
  while (!name.empty()) {
    try {
      store::IntoResult result;
      {
        const shell::BusyScope busy(session, fmt::format("Exporting '{}'", table));
        result = Write(session, SourceOf(session, table, path, clause), format, name, existing);
      }
      if (const auto written = WrittenName(format, name); written != name)
        result.losses.push_back(fmt::format("The name is '{}', without what stood in front of the point.", written));
      TellSuccess(session, table, result.losses);
      return true;
    } catch (const store::RunTimeError& error) {
      if (error.Number() != ErrorNumber::kAlreadyExists) throw;
    }
    switch (AskAboutExisting(session, format, name)) {
      case Decision::kNameAnother:
        name = AskForName(session, format, table);
        existing = store::Existing::kRefuse;
        break;
      case Decision::kReplace:
        existing = store::Existing::kReplace;
        break;
      case Decision::kEnd:
        return false;
    }
  }
  return false;
}

}  // namespace

void Export(Session& session, const std::string& table, const std::string& path, const std::string& clause) {
  shell::Trapped(session, kRoutine, [&] {
    const auto* format = AskForFormat(session);
    if (format == nullptr || !AskForFile(session, *format) || !ExportTo(session, *format, table, path, clause))
      shell::SetStatus(session.host, "", false);
  });
}

}  // namespace orvex::reports
