#include "shell/table_copy.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

constexpr int kRecordsAtOnce = 1000;

}  // namespace

bool CopyStruct(Session& session, const TableOf& source, const TableOf& target) {
  const BusyScope busy(session, "Copying table");
  return Trapped(session, "mDatabase.CopyStruct", false, [&] {
    target.database.CreateTable(target.table, source.database.Fields(source.table),
                                source.database.Indexes(source.table));
    return true;
  });
}

bool CopyData(Session& session, const TableOf& source, const TableOf& target) {
  const BusyScope busy(session, "Copying data");
  return Trapped(session, "mDatabase.CopyData", false, [&] {
    auto from = source.database.OpenTable(source.table);
    auto to = target.database.OpenTable(target.table);
    std::vector<std::string> fields;
    for (int i = 0; i < from.FieldCount(); ++i) fields.push_back(from.FieldName(i));
    std::optional<store::Transaction> transaction(std::in_place, target.database);
    int records = 0;
    for (; !from.AtEnd(); from.MoveNext()) {
      to.AddNew();
      for (int i = 0; const auto& field : fields) to.Set(field, from.Get(i++));
      to.Update();
      if (++records % kRecordsAtOnce != 0) continue;
      transaction->Commit();
      transaction.emplace(target.database);
    }
    transaction->Commit();
    return true;
  });
}

}  // namespace orvex::shell
