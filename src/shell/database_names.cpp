#include "shell/database_names.h"

#include <filesystem>
#include <system_error>

#include "shell/database_locations.h"
#include "shell/status.h"
#include "store/letter_case.h"

namespace orvex::shell {
namespace {

bool IsInUse(const Session& session, const std::string& name) {
  return IsSameFile(name, CurrentPath(session, DatabaseKind::kTank)) ||
         IsSameFile(name, CurrentPath(session, DatabaseKind::kClient));
}

}  // namespace

FileRequest DatabaseRequest(std::string_view title, const std::string& path) {
  FileRequest request;
  request.title = title;
  request.file_name = "*.mdb";
  request.folder = std::filesystem::path(path).parent_path();
  request.filter = "Access (*.mdb) |*.mdb|";
  return request;
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code not_there;
  return store::EqualNoCase(one, other) || std::filesystem::equivalent(one, other, not_there);
}

std::string AskForNewDatabase(Session& session, std::string_view title, const std::string& path) {
  while (true) {
    const std::string chosen = session.host.SaveFile(DatabaseRequest(title, path));
    std::string name = chosen.find('.') == std::string::npos ? chosen + ".MDB" : chosen;
    if (!IsInUse(session, chosen) && !IsInUse(session, name)) return name;
    RefuseDatabaseInUse(session.host);
  }
}

void RefuseDatabaseInUse(Host& host) {
  Tell(host, "You cannot write the one of the data base paths currently in use.", Icon::kExclamation);
}

bool IsSystemTable(std::string_view table) { return store::LowerCase(table).starts_with("msys"); }

}  // namespace orvex::shell
