#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Puts a copy of a file that the person chooses into the place of the reference database (`mnuRestoreTank`), and opens
/// it. The chosen file is only read. Until the copy is complete and sound, the database in use stays as it is; it need
/// not be open, so that a damaged file can be replaced.
void RestoreTank(Session& session);

/// The same for the client database (`mnuRestoreClient`). One of an older release is brought up to date, as at a start.
void RestoreClient(Session& session);

}  // namespace orvex::shell
