#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Copies all tables of the reference database to a new file that the person names (`mnuBackupTank`). A file of that
/// name is replaced without a question, but only by a copy that is complete.
void BackupTank(Session& session);

/// The same for the client database (`mnuBackupClient`).
void BackupClient(Session& session);

}  // namespace orvex::shell
