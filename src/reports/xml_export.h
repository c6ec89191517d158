#pragma once

#include <string>
#include <string_view>

#include "reports/reference_report.h"
#include "shell/session.h"

namespace orvex::reports {

// The two files of a report on a reference table, in the application's folder.
inline constexpr const char* kExportData = "data_export.xml";
inline constexpr const char* kExportDisplay = "data_display.htm";

/// Writes rows of a reference table to `data_export.xml`, over the last one, and opens another browser on the page that
/// shows it. After a failure, which is reported under the label "XML_Export.", there is neither.
/// @param query a table or a query on it, as `kind` says: "dbOpenTable" or "dbOpenDynaset"
void XML_Export(shell::Session& session, const ReferenceReport& report, std::string_view query, std::string_view kind);

}  // namespace orvex::reports
