#pragma once

#include "orvex-report/options.h"
#include "orvex-report/run.h"

/// Tanks from and to a folder of CSV files. Both give the exit status and throw `Failure`.
namespace orvex::report_app {

int ImportTanks(const Options& options, const Surroundings& around);
int ExportTanks(const Options& options, const Surroundings& around);

}  // namespace orvex::report_app
