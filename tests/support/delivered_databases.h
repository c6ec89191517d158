#pragma once

#include <filesystem>

#include "shell/session.h"
#include "store/database.h"
#include "support/test_databases.h"

namespace orvex::test {

/// Opens a copy of the delivered reference database and a client database without tanks, both in this folder.
inline void OpenDelivered(const TemporaryFolder& folder, shell::Session& session) {
  const auto reference = folder.Path() / "tankdata.mdb", client = folder.Path() / "client1.mdb";
  std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, reference);
  session.TankPath = reference.string();
  session.ClientPath = client.string();
  session.ReferenceDb = store::Database::Open(reference);
  session.ClientDb = store::Database::Create(client, store::ClientTables());
}

}  // namespace orvex::test
