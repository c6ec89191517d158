#include "shell/table_copy.h"

#include "shell/status.h"
#include "shell/trap.h"
#include "store/row_copy.h"

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

bool CopyData(Session& session, const TableOf& source, const TableOf& target, const RecordsDone& written) {
  const BusyScope busy(session, "Copying data");
  return Trapped(session, "mDatabase.CopyData", false, [&] {
    store::RowCopy copy(source.database, source.table, target.database, target.table);
    std::int64_t records = 0;
    for (bool more = true; more;) {
      store::Transaction transaction(target.database);
      more = copy.Add(kRecordsAtOnce);
      transaction.Commit();
      records += kRecordsAtOnce;
      if (more && written) written(records);
    }
    return true;
  });
}

void RequireSameData(const TableOf& source, const TableOf& target, const RecordsDone& compared) {
  store::RowCopy copy(source.database, source.table, target.database, target.table);
  for (std::int64_t records = kRecordsAtOnce; copy.Compare(kRecordsAtOnce); records += kRecordsAtOnce)
    compared(records);
}

}  // namespace orvex::shell
