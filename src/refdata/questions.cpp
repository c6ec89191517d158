#include "refdata/questions.h"

#include <string>

#include "shell/status.h"

namespace orvex::refdata {

bool ConfirmsDeletion(shell::Session& session, std::string_view question) {
  return session.host.ShowMessage(std::string(question), "Delete?", shell::Buttons::kOkCancel, shell::Icon::kNone) ==
         shell::Answer::kOk;
}

bool WantsAnother(shell::Session& session, std::string_view question) {
  return shell::Accepted(session.host, std::string(question), "Add New?");
}

bool WantsToSave(shell::Session& session, std::string_view question) {
  return shell::Accepted(session.host, std::string(question), "Save?");
}

}  // namespace orvex::refdata
