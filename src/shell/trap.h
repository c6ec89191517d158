#pragma once

#include <string_view>
#include <utility>

#include "shell/session.h"
#include "store/run_time_error.h"

/// How run-time failures travel. Every routine of the program runs its body in `Trapped` under the label that error
/// reports show. A failure (`store::RunTimeError`) thrown anywhere below ends up in the innermost routine, where
/// - 3021, no current record, says nothing (see `Statement`),
/// - 32755, a file dialog that was cancelled, ends the routine quietly,
/// - anything else is told by `ErrorMessage` and ends the routine, which gives back its fallback value.
/// The caller goes on with that value. Pointer and status are restored by `BusyScope` on every way out.
/// Other exceptions (`Interrupted`, out of memory) are no failures of a routine and pass through.
namespace orvex::shell {

/// Tells the host and the person about a failure in a routine: default pointer, beep, a message box, an empty status.
void ErrorMessage(Session& session, std::string_view routine, const store::RunTimeError& error);

/// Does what a routine's trap does with a failure that reached it.
void HandleFailure(Session& session, std::string_view routine, const store::RunTimeError& error);

/// Runs a routine's body under its trap; `fallback` is what it gives back when it is ended by a failure.
template <typename Result, typename Body>
Result Trapped(Session& session, std::string_view routine, Result fallback, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const store::RunTimeError& error) {
    HandleFailure(session, routine, error);
    return fallback;
  }
}

/// The same for a routine without a result.
template <typename Body>
void Trapped(Session& session, std::string_view routine, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const store::RunTimeError& error) {
    HandleFailure(session, routine, error);
  }
}

/// A routine that writes to a database, as one transaction. When a failure ends its body, what it had written stays.
template <typename Body>
void TrappedWriting(Session& session, store::Database& database, std::string_view routine, Body&& body) {
  Trapped(session, routine, [&] {
    store::Transaction transaction(database);
    Trapped(session, routine, std::forward<Body>(body));
    transaction.Commit();
  });
}

/// One statement of a routine: when there is no current record it is skipped, so that a variable it was to set keeps
/// what it held, and the routine goes on with the next one. A routine that ignores further failures names them:
/// `Statement<ErrorNumber::kInvalidUseOfNull>(...)` is skipped on a null field, too.
template <store::ErrorNumber... kAlsoSkipped, typename Body>
void Statement(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const store::RunTimeError& error) {
    const auto number = error.Number();
    if (number != store::ErrorNumber::kNoCurrentRecord && (... && (number != kAlsoSkipped))) throw;
  }
}

}  // namespace orvex::shell
