#include "shell/backup.h"

#include <fmt/format.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/database_names.h"
#include "shell/status.h"
#include "shell/table_copy.h"
#include "shell/trap.h"
#include "store/database_replacement.h"

namespace orvex::shell {
namespace {

/// What the two commands differ in.
struct Backup {
  std::string_view title;
  std::string_view copied;
  std::unique_ptr<store::Database> Session::*database;
  std::string Session::*path;
};

constexpr Backup kTankBackup = {"Backup Tank Database To", " was Copied to ", &Session::ReferenceDb,
                                &Session::TankPath};
constexpr Backup kClientBackup = {"Backup Client Database To", " was copied to ", &Session::ClientDb,
                                  &Session::ClientPath};

/// The tables to be copied, and how far the work on their records has come. All of them are copied first and then
/// compared.
class TablesToCopy {
 public:
  TablesToCopy(Host& host, store::Database& from) : host_(host), from_(from) {
    for (const auto& name : from.TableNames()) {
      if (IsSystemTable(name)) continue;
      tables_.push_back({name, from.OpenTable(name).RecordCount()});
      total_ += 2 * tables_.back().records;
    }
  }

  /// False when a table could not be copied, which the person has been told then.
  bool Copy(Session& session, store::Database& to) {
    for (const auto& table : tables_) {
      const auto written = [&](std::int64_t records) { host_.Progress(done_ + records, total_); };
      if (!CopyStruct(session, {from_, table.name}, {to, table.name}) ||
          !CopyData(session, {from_, table.name}, {to, table.name}, written))
        return false;
      Finish(table);
    }
    return true;
  }

  void Compare(store::Database& to) {
    for (const auto& table : tables_) {
      RequireSameData({from_, table.name}, {to, table.name},
                      [&](std::int64_t records) { host_.Progress(done_ + records, total_); });
      Finish(table);
    }
  }

 private:
  struct Table {
    std::string name;
    std::int64_t records;
  };
  void Finish(const Table& table) {
    done_ += table.records;
    host_.Progress(done_, total_);
  }

  Host& host_;
  store::Database& from_;
  std::vector<Table> tables_;
  std::int64_t done_ = 0, total_ = 0;
};

void Run(Session& session, const Backup& backup) {
  const BusyScope busy(session, "Processing");
  Trapped(session, "MDIForm1.", [&] {
    if (!(session.*backup.database))
      throw store::RunTimeError(store::ErrorNumber::kObjectClosed, "The database to be copied is not open.");
    store::Database& from = *(session.*backup.database);
    const std::string name = AskForNewDatabase(session, backup.title, session.*backup.path);
    // An older backup of that name goes when the new one is complete.
    store::DatabaseReplacement copy(name);
    {
      // One view of the file for all tables.
      const store::Transaction view(from, store::Transaction::Purpose::kRead);
      TablesToCopy tables(session.host, from);
      if (!tables.Copy(session, copy.New())) {
        copy.KeepUnfinished();
        // What was wrong has been told.
        throw store::RunTimeError(store::ErrorNumber::kNone, "");
      }
      copy.Check([&](store::Database& written) { tables.Compare(written); });
    }
    copy.Commit();
    Tell(session.host, fmt::format("{}{}{}.", session.*backup.path, backup.copied, name));
  });
}

}  // namespace

void BackupTank(Session& session) { Run(session, kTankBackup); }
void BackupClient(Session& session) { Run(session, kClientBackup); }

}  // namespace orvex::shell
