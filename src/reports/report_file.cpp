#include "reports/report_file.h"

#include "reports/report_document.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {

void WriteReport(shell::Session& session, const ReportFile& file,
                 void (*add_content)(shell::Session& session, pugi::xml_node report)) {
  shell::Trapped(session, file.routine, [&] {
    const shell::BusyScope busy(session, "Processing report");
    ReportDocument document;
    add_content(session, document.Root());
    document.Save(session.application_folder / file.data);
    session.host.Navigate((session.application_folder / file.display).string());
  });
}

}  // namespace orvex::reports
