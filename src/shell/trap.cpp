#include "shell/trap.h"

#include <fmt/format.h>

#include <string>

#include "shell/status.h"

namespace orvex::shell {

using store::ErrorNumber;

void ErrorMessage(Session& session, std::string_view routine, const store::RunTimeError& error) {
  session.host.NoteFailure(error);
  session.host.SetPointer(Pointer::kDefault);
  session.host.Beep();
  Tell(session.host, fmt::format("The following Error occurred:\r\n\r\n{}\r\nNumber: {}\r\n in {}", error.Description(),
                                 static_cast<int>(error.Number()), routine));
  SetStatus(session.host, "", false);
}

void HandleFailure(Session& session, std::string_view routine, const store::RunTimeError& error) {
  if (error.Number() == ErrorNumber::kNoCurrentRecord || error.Number() == ErrorNumber::kDialogCancelled) return;
  ErrorMessage(session, routine, error);
}

}  // namespace orvex::shell
