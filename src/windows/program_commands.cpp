#include "windows/program_commands.h"

#include <span>

#include "entry/entry_commands.h"
#include "exchange/exchange_commands.h"
#include "refdata/editor_commands.h"
#include "reports/reference_commands.h"
#include "reports/report_commands.h"
#include "shell/shell_commands.h"

namespace orvex::windows {
namespace {

constexpr std::span<const shell::Command> kTables[] = {shell::kShellCommands, reports::kReportCommands,
                                                       reports::kReferenceReportCommands, refdata::kEditorMenuCommands,
                                                       exchange::kExchangeCommands};

}  // namespace

void AddCommands(shell::Session& session) {
  for (const auto table : kTables) session.commands.insert(session.commands.end(), table.begin(), table.end());
  entry::AddTankEntry(session);
}

}  // namespace orvex::windows
