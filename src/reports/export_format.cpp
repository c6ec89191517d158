#include "reports/export_format.h"

#include <algorithm>
#include <iterator>

namespace orvex::reports {
namespace {

constexpr ExportFormat kFormats[] = {
    {kDatabaseFormat, "Access 2.0 (*.mdb)", "", "Access (*.mdb) |*.mdb|", "*.mdb", false, true},
    {"gnDT_DBASEIV", "dBASE IV (*.dbf)", "dBase IV", "DBaseIV (*.dbf) |*.dbf|", "*.dbf", true, false},
    {"gnDT_FOXPRO26", "FoxPro 2.6 (*.dbf)", "FoxPro 2.6", "FoxPro (*.dbf) |*.dbf|", "*.dbf", true, false},
    {kWorkbookFormat, "Excel 5.0 (*.xls)", "Excel 5.0", "Excel (*.xls) |*.xls|", "*.xls", false, false},
    {kTextFormat, "Text (*.txt)", "Text", "Text (*.txt) |*.txt|", "*.txt", true, true},
};

}  // namespace

std::span<const ExportFormat> ExportFormats() { return kFormats; }

const ExportFormat* FindExportFormat(std::string_view token) {
  const auto* found = std::ranges::find(kFormats, token, &ExportFormat::token);
  return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace orvex::reports
