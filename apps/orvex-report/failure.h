#pragma once

#include <string>

namespace orvex::report_app {

/// How the program ends.
enum ExitStatus : int {
  kDone = 0,
  kDataFaults = 2,       ///< validation or calculation stopped on faults of the data
  kWrongUse = 64,        ///< an option, month or tank that is not known
  kCannotOpen = 66,      ///< a file cannot be opened, or a part of the program is not there
  kRunTimeFailure = 70,  ///< a run-time failure was reported, or an output could not be written to its end
  kInterrupted = 130,    ///< stopped by the person
};

/// Why the program ends before its work is done; the description names the file, tank or option.
struct Failure {
  ExitStatus status;
  std::string description;
};

}  // namespace orvex::report_app
