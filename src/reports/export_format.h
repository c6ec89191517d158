#pragma once

#include <span>
#include <string_view>

/// The file formats that tables are exported to.
namespace orvex::reports {

/// Token of no format.
inline constexpr std::string_view kNoFormat = "gnNONE";

// Tokens of the formats that differ from the others in more than their texts.
inline constexpr std::string_view kDatabaseFormat = "gnDT_JETMDB";
inline constexpr std::string_view kWorkbookFormat = "gnDT_EXCEL50";
inline constexpr std::string_view kTextFormat = "gnDT_TEXTFILE";

struct ExportFormat {
  std::string_view token;      ///< `Session::ExportFormat`
  std::string_view text;       ///< for the person
  std::string_view connect;    ///< in front of ";database=" where the store is told the format
  std::string_view filter;     ///< of the file dialog
  std::string_view extension;  ///< preset of the file dialog
  bool is_folder;              ///< a target is a folder, and each table a file in it
  bool for_errors;             ///< the table of errors can be exported to it
};

std::span<const ExportFormat> ExportFormats();

/// The format of a token; null for `kNoFormat` and others.
const ExportFormat* FindExportFormat(std::string_view token);

}  // namespace orvex::reports
