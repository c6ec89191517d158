#pragma once

#include <string>

#include "shell/session.h"

/// Adds rows of dBASE files of the previous version to the reference tables. Every row of the source gets a row in the
/// table `import errors`.
namespace orvex::exchange {

// Each asks for its file, empties the log, tells how many rows were added and offers the log as a report.
void ImportChemical(shell::Session& session);
void ImportMet(shell::Session& session);
void ImportFit(shell::Session& session);
void ImportRim(shell::Session& session);

// The same for a file that is known, as a step of the import of tanks: nothing is asked, emptied or offered. False when
// a failure ended it, which the person has been told then.
bool IChemical(shell::Session& session, const std::string& path);
bool IMet(shell::Session& session, const std::string& path);
bool IFit(shell::Session& session, const std::string& path);
bool IRim(shell::Session& session, const std::string& path);

}  // namespace orvex::exchange
