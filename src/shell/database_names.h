#pragma once

#include <string>
#include <string_view>

#include "shell/session.h"

/// How a person names a database file that is written or read whole.
namespace orvex::shell {

/// The file dialog of such a command; it opens where the database in use is.
FileRequest DatabaseRequest(std::string_view title, const std::string& path);

/// Whether two names stand for one file, however they are written and through whatever links.
bool IsSameFile(const std::string& one, const std::string& other);

/// Asks where to write a database until the name is none of a database in use. A name without a point gets ".MDB".
std::string AskForNewDatabase(Session& session, std::string_view title, const std::string& path);

/// Tells the person that a file which they named for writing is a database in use.
void RefuseDatabaseInUse(Host& host);

/// Whether a table is the store's own, in a file that another program made. Such tables are not copied.
bool IsSystemTable(std::string_view table);

}  // namespace orvex::shell
