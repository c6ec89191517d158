#include "reports/export_target.h"

#include <fmt/format.h>

#include <system_error>

#include "shell/path_text.h"
#include "store/run_time_error.h"

namespace orvex::reports {
namespace {

/// The text behind the last separator.
std::string_view FileName(std::string_view path) {
  const auto folder = path.find_last_of("/\\");
  return folder == std::string_view::npos ? path : path.substr(folder + 1);
}

std::string Ending(const ExportFormat& format) { return std::string(format.extension.substr(1)); }

/// The folder of a file: that of the file system's root is no empty text.
std::string_view FolderOf(std::string_view path) {
  const auto folder = shell::DirName(path);
  return folder.empty() && path.starts_with('/') ? "/" : folder;
}

}  // namespace

std::string CompletePath(const ExportFormat& format, std::string path) {
  std::error_code not_there;
  const auto file = FileName(path);
  if (file.empty() || std::filesystem::is_directory(path, not_there)) {
    throw store::RunTimeError(store::ErrorNumber::kInvalidPath,
                              fmt::format("'{}' is a folder: the name of a file is missing.", path));
  }
  return file.find('.') == std::string_view::npos ? path + Ending(format) : path;
}

std::string TargetPrefix(const ExportFormat& format, std::string_view path) {
  return Bracketed(fmt::format("{};database={}", format.connect, format.is_folder ? FolderOf(path) : path)) + ".";
}

std::string TargetName(const ExportFormat& format, std::string_view path) {
  const auto file = FileName(path);
  return std::string(format.token == kTextFormat ? file : file.substr(0, file.find_last_of('.')));
}

std::string_view WrittenName(const ExportFormat& format, std::string_view name) {
  return format.token == kTextFormat ? name : shell::StripPrefix(name);
}

std::filesystem::path TargetFile(const ExportFormat& format, std::string_view path) {
  if (!format.is_folder) return path;
  const auto name = TargetName(format, path);
  auto file = std::filesystem::path(FolderOf(path)) / WrittenName(format, name);
  if (format.token != kTextFormat) file += Ending(format);
  return file;
}

std::string Bracketed(std::string_view name) {
  std::string text = "[";
  for (const char character : name) text.append(character == ']' ? 2 : 1, character);
  return text + "]";
}

}  // namespace orvex::reports
