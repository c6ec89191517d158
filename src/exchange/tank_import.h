#pragma once

#include <span>
#include <stdexcept>
#include <string>

#include "exchange/frmimport.h"
#include "shell/session.h"
#include "store/run_time_error.h"

namespace orvex::exchange {

/// A failure while the files are opened and the reference data is added, which the person is told otherwise than one
/// among the tanks. Number `kNone` when they have been told its cause.
class SetUpFailure : public store::RunTimeError {
 public:
  using RunTimeError::RunTimeError;
};

/// A path that is needed and was left empty.
struct PathMissing {
  std::size_t file;  ///< in `kImportFiles`
};

/// Imports the tanks of the files at these paths, which are those of `kImportFiles`. All is one transaction on both
/// databases: whatever is thrown, nothing has changed.
///
/// Every record gets its rows in the log, and one that cannot be imported keeps none of the others out. Throws
/// `PathMissing`, `SetUpFailure`, and errors of the databases.
void ImportTankFiles(shell::Session& session, std::span<const std::string> paths);

}  // namespace orvex::exchange
