#include "orvex-report/error_rows.h"

#include <ostream>

#include "orvex-report/terminal_text.h"

namespace orvex::report_app {

void PrintErrorRows(store::Database& client, std::string_view head, std::ostream& out) {
  for (auto rows = client.OpenTable("error"); !rows.AtEnd(); rows.MoveNext())
    out << head << TerminalText(rows.TextOrEmpty("USER ID")) << ": " << TerminalText(rows.TextOrEmpty("error")) << '\n';
}

}  // namespace orvex::report_app
