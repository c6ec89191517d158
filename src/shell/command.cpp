#include "shell/command.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "shell/session.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

bool Lacks(const Session& session, Needs needs) {
  const bool tank = needs == Needs::kBothDatabases || needs == Needs::kTankDatabase;
  const bool client = needs == Needs::kBothDatabases || needs == Needs::kClientDatabase;
  return (tank && session.ReferenceDb == nullptr) || (client && session.ClientDb == nullptr);
}

std::string MissingDatabase(const Session& session) {
  return fmt::format(
      "The {} database is not open. Choose its file with \"Change Database Locations\" in the File menu.",
      session.ReferenceDb == nullptr ? "tank" : "client");
}

}  // namespace

const Command* FindCommand(const Session& session, std::string_view control) {
  const auto found = std::find_if(session.commands.begin(), session.commands.end(),
                                  [&](const Command& command) { return command.control == control; });
  return found == session.commands.end() ? nullptr : &*found;
}

void RunCommand(Session& session, const Command& command) {
  try {
    Trapped(session, "MDIForm1.", [&] {
      if (Lacks(session, command.needs))
        throw store::RunTimeError(store::ErrorNumber::kObjectClosed, MissingDatabase(session));
      command.run(session);
    });
  } catch (const Interrupted&) {
    // The person who stopped the command knows it.
  }
}

void RunCommand(Session& session, std::string_view control) {
  if (const auto* command = FindCommand(session, control)) RunCommand(session, *command);
}

}  // namespace orvex::shell
