#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/field_table.h"

namespace orvex::test {

/// A client database as an older program made it: `emission` has no field `CAS`.
inline void MakeOlderClient(const std::filesystem::path& path) {
  const auto client = store::Database::Create(path, store::ClientTables());
  auto fields = client->Fields("emission");
  std::erase_if(fields, [](const store::StoredField& field) { return field.name == "CAS"; });
  const auto indexes = client->Indexes("emission");
  client->DeleteTable("emission");
  client->CreateTable("emission", fields, indexes);
}

}  // namespace orvex::test
