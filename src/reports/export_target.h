#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "reports/export_format.h"

/// What the path that a person gave means in each format.
namespace orvex::reports {

/// The path, with the ending of the format's files if the name of the file has no point. Error 3044 when it is that of
/// a folder.
std::string CompletePath(const ExportFormat& format, std::string path);

/// What stands in front of the target in a query: "[dBase IV;database=FOLDER].".
std::string TargetPrefix(const ExportFormat& format, std::string_view path);

/// The name of the target in a folder: that of the file, of a table without its ending.
std::string TargetName(const ExportFormat& format, std::string_view path);

/// The name under which it is written: a prefix up to the first point is none of a table's or sheet's name.
std::string_view WrittenName(const ExportFormat& format, std::string_view name);

/// The file that is written.
std::filesystem::path TargetFile(const ExportFormat& format, std::string_view path);

/// A name in a query.
std::string Bracketed(std::string_view name);

}  // namespace orvex::reports
