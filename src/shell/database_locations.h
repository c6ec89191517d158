#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "shell/session.h"
#include "store/run_time_error.h"

/// The two database files: opening them, and the test of a good file. A database is good when it opens and every table
/// of its list is there; fields are not examined.
namespace orvex::shell {

enum class DatabaseKind { kTank, kClient };

/// Opens all tables of a kind's list, one after the other; error 3011 for the first one that is not there.
void RequireTables(DatabaseKind kind, store::Database& database);

/// Opens a file and all tables of its list. Errors: those of `store::Database::Open`, and 3011.
std::unique_ptr<store::Database> OpenGoodDatabase(DatabaseKind kind, const std::string& path);

/// Where a database is or, while it is not open, should be. A start that ended early may not have come to it: then the
/// path of the settings.
std::string CurrentPath(const Session& session, DatabaseKind kind);

/// Shows the path in its panel, opens the good file there and keeps both in the session. When it fails, the path stays
/// shown and kept, and the database that was open before stays open.
void OpenTankDatabase(Session& session, const std::string& path);
void OpenClientDatabase(Session& session, const std::string& path);

/// Shows the path in the session in its panel, in lower case.
void ShowPath(Session& session, DatabaseKind kind);

/// Whether a failure to open says that no good database is at the path, so that the person is to choose another one.
bool IsWrongLocation(const store::RunTimeError& error);

/// The path in the settings; on the first start the file beside the report pages.
std::string TankPathSetting(const Session& session);
std::string ClientPathSetting(const Session& session);
/// Keep a path for the next start. Errors 3043 and 3044 name the file of the settings.
void SaveTankPath(Session& session);
void SaveClientPath(Session& session);

/// What a person reads who has chosen a file at the start in which no good database is.
inline constexpr std::string_view kWrongFileMessage =
    "The file you specified does not have the correct format.  Please try another file.";

/// Asks for a database file as all browse commands do. Gives the text back as it was when the dialog is cancelled.
std::string BrowseForDatabase(Session& session, DatabaseKind kind, std::string_view routine, const std::string& text);

}  // namespace orvex::shell
