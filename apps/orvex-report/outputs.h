#pragma once

#include <filesystem>

#include "orvex-report/options.h"
#include "orvex-report/run.h"
#include "shell/session.h"

namespace orvex::report_app {

/// The files that a report is written to.
struct Outputs {
  std::filesystem::path data;
  std::filesystem::path page;  ///< empty where no pages were delivered with the program
  std::filesystem::path csv;   ///< empty: none is written; of a link, what it leads to
  std::filesystem::path pdf;   ///< the same
};

/// Makes the output folder, puts the display pages there and tries the other outputs, before a long run rather than
/// after it. Throws `Failure`; warns of what is left out.
Outputs PrepareOutputs(const Options& options, const shell::Session& session, const Surroundings& around);

}  // namespace orvex::report_app
