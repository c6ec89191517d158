#pragma once

#include <pugixml.hpp>
#include <string_view>

#include "shell/session.h"

namespace orvex::reports {

/// A kind of report: the label of its routine, and its two files in the application's folder.
struct ReportFile {
  std::string_view routine;
  const char* data;     ///< the XML file
  const char* display;  ///< the page that shows it
};

/// Writes a report over the last one of its kind, from the content that is added to `REPORT`, and opens another browser
/// on its page. After a failure, which is reported under the routine's label, there is neither.
void WriteReport(shell::Session& session, const ReportFile& file,
                 void (*add_content)(shell::Session& session, pugi::xml_node report));

}  // namespace orvex::reports
