#include "entry/record_copy.h"

#include "entry/stored_rows.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;

void RestoreTank(store::Database& client, std::int32_t ID, const Rows& tank_copy) {
  if (!client.OpenAt("tank", "ID", {ID}).NoMatch()) OverwriteTank(client, ID, tank_copy, 0);
}

}  // namespace

void GetRecordCopy(Session& session, std::int32_t ID) {
  auto& copy = session.tank_entry->copy;
  copy = {};
  shell::Trapped(session, "mDatabase.GetRecordCopy", [&] {
    const store::Transaction one_view(*session.ClientDb, store::Transaction::Purpose::kRead);
    copy = ReadRows(*session.ClientDb, ID);
  });
}

void RestoreRecordCopy(Session& session, std::int32_t ID) {
  const shell::BusyScope busy(session, "Processing");
  shell::Trapped(session, "mDatabase.RestoreRecordCopy", [&] {
    auto& client = *session.ClientDb;
    const auto& copy = session.tank_entry->copy;
    // What a failure to copy left, or the copy of another tank, must not get into this one.
    if (copy.ID != ID || copy.TankCopy.empty()) return;
    store::Transaction transaction(client);
    RestoreTank(client, ID, copy.TankCopy);
    if (!copy.FittingCopy.empty()) ReplaceRows(client, "fittings", "fitid", ID, copy.FittingCopy);
    ReplaceRows(client, "mixtures", "IDMIX", ID, copy.MixtureCopy);
    if (!copy.ComponentCopy.empty()) ReplaceRows(client, "components", "IDMIX", ID, copy.ComponentCopy);
    transaction.Commit();
  });
}

}  // namespace orvex::entry
