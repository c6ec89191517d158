#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "shell/command.h"
#include "shell/host.h"
#include "shell/settings.h"
#include "store/database.h"

namespace orvex::entry {
struct TankEntry;
}
namespace orvex::store {
class LockFile;
}

namespace orvex::shell {

/// The state that lives from start to exit: both databases, the report selection and the way to the person.
struct Session {
  explicit Session(Host& the_host) : host(the_host) {}

  Host& host;
  std::unique_ptr<store::Database> ClientDb;
  std::unique_ptr<store::Database> ReferenceDb;
  std::string TankPath;    ///< of the reference database, as typed
  std::string ClientPath;  ///< of the client database, as typed

  /// The program is to end at once: nothing goes on, nothing is asked.
  bool ended = false;

  /// Where report files and their display pages stand.
  std::filesystem::path application_folder;
  std::filesystem::path help_file;  ///< which `Host::ShowHelp` opens
  Settings settings;

  /// Of all layers that the program is made of.
  std::vector<Command> commands;
  /// `FrmCopyData` copied a tank's own data only: the next `editRecord` leaves mixtures and months alone.
  bool CopyDataPending = false;
  /// Opens a tank for editing; null in a program without tank entry.
  void (*editRecord)(Session&, std::int32_t id, const std::string& tank_type) = nullptr;
  /// Offers a tank that was being created when the program was ended from outside; null without tank entry.
  void (*offerUnsavedTank)(Session&) = nullptr;
  std::array<std::weak_ptr<store::LockFile>, 2> editing;  ///< held while this program edits, by `DatabaseKind`
  std::shared_ptr<entry::TankEntry> tank_entry;           ///< of the layer above; null without tank entry

  std::string busy_status;  ///< of the innermost `BusyScope`; empty when no command is running

  // The report selection.
  std::vector<std::string> TankList;     ///< `USER ID` of each chosen tank, in the order chosen
  std::string ReportType;                ///< "Brief", "Summary" or "Detail"
  std::string ReportTime;                ///< "Annual" or "Monthly"
  std::array<bool, 12> MonthSelected{};  ///< January first; read when `ReportTime` is "Monthly"
  std::string PrintMode;                 ///< what `frmprintrep` is to act on: "Report", "Error", ...
  /// The condition that picks the rows of the report: of `emission` those of the last run's tanks, of a reference table
  /// those that were chosen, there with its fields in braces; empty for the whole table.
  std::string ReportFilter;
  std::string ReportCondition;    ///< of a reference table: the same for a query, without braces
  std::string ReportSource;       ///< of a reference table: its name, or a query on it
  std::string ReportSourceKind;   ///< "dbOpenTable" or "dbOpenDynaset"
  std::string ReportMonthText;    ///< the chosen months' names
  bool ValidationFailed = false;  ///< at least one error row was written

  // The export of a table to a file, as its three windows leave it.
  std::string ExportFormat = "gnNONE";  ///< token of the format; "gnNONE" when the person chose none
  std::string ExportTarget;             ///< path of the file; empty when the person chose none
  std::string ExportTable;              ///< the table that is exported, then its name in the target
};

}  // namespace orvex::shell
