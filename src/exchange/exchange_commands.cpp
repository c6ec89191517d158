#include "exchange/exchange_commands.h"

#include "exchange/frmimport.h"
#include "shell/trap.h"

namespace orvex::exchange {

void ImportTanks(shell::Session& session) {
  shell::Trapped(session, "MDIForm1.", [&] { session.host.ShowWindow(kFrmImportText.name); });
}

}  // namespace orvex::exchange
