#include "shell/new_client.h"

#include <string>

#include "shell/add_cas_field.h"
#include "shell/database_locations.h"
#include "shell/database_names.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/table_copy.h"
#include "shell/trap.h"
#include "store/database_replacement.h"

namespace orvex::shell {
namespace {

/// False when a table could not be made, which the person has been told then.
bool CopyStructures(Session& session, store::Database& to) {
  store::Database& from = *session.ClientDb;
  for (const auto& table : from.TableNames())
    if (!IsSystemTable(table) && !CopyStruct(session, {from, table}, {to, table})) return false;
  return true;
}

}  // namespace

void NewClient(Session& session) {
  const BusyScope busy(session, "Processing");
  Trapped(session, "MDIForm1.", [&] {
    if (IsEditedHere(session, DatabaseKind::kClient)) return;
    const std::string name = AskForNewDatabase(session, "New Client Database", session.ClientPath);
    store::DatabaseReplacement fresh(name);
    if (!CopyStructures(session, fresh.New())) return;
    fresh.Commit();
    session.host.CloseOtherWindows("");
    // The old one is let go only when the new one is open.
    session.ClientDb = OpenGoodDatabase(DatabaseKind::kClient, name);
    session.ClientPath = name;
    ShowPath(session, DatabaseKind::kClient);
    AddCASField(session);
    Tell(session.host, name + " was created.");
  });
}

}  // namespace orvex::shell
